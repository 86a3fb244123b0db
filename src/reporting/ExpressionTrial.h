#pragma once

#include "platform/report/layout/Layout.h"
#include "platform/report/paginate/DataSource.h"

#include <QSet>
#include <QString>
#include <QStringList>

/// What an expression gives while it is still being written.
namespace expressions {

struct Trial
{
    QString error;      ///< why it can't be printed, empty when it can
    QStringList values; ///< as printed, for the first rows
};

/// An expression of a layout, or words with expressions in braces, tried on rows. Names that are
/// known to be right elsewhere are no errors, and give no values.
[[nodiscard]] Trial tried(const QString &text, bool isWords, const report::Layout &layout,
                          const report::DataSource &rows, const QSet<QString> &knownElsewhere);

} // namespace expressions
