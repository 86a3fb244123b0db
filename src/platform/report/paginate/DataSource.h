#pragma once

#include "platform/base/Progress.h"

#include <QDateTime>
#include <QHash>
#include <QString>
#include <QVariant>
#include <functional>
#include <memory>

namespace report {

/// Where a report's rows come from.
class DataSource
{
public:
    virtual ~DataSource() = default;
    [[nodiscard]] virtual int rowCount() const = 0;
    /// The index of a field by its name in any case, -1 when there is none.
    [[nodiscard]] virtual int fieldIndex(const QString &name) const = 0;
    /// Both from 0 and within the counts; Null for an empty one. Asked from other threads while
    /// pages are made ahead.
    [[nodiscard]] virtual QVariant value(int row, int field) const = 0;
};

/// What a report is given besides its rows.
struct Inputs
{
    QHash<QString, QString> texts;       ///< texts for named text objects, key: the object's name
    QHash<QString, QString> formulas;    ///< expressions in place of the layout's, by name
    QHash<QString, QVariant> parameters; ///< answers to the layout's parameters, by name
    /// The rows of the layout's further sets, by name.
    QHash<QString, std::shared_ptr<const DataSource>> rowSets;
    QDateTime now;             ///< what Now and Today give
    QString folder;            ///< where the layout's picture files lie
    base::Progress progress{}; ///< told of each row, in each pass over them
    /// Asked at each row; True ends the report with the pages that are whole.
    std::function<bool()> isCancelled{};
};

} // namespace report
