#pragma once

#include "platform/report/layout/Layout.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <optional>

/// What is being designed is kept beside as a draft, in the user's own folder, so that it survives
/// the end of the program however that comes.
namespace drafts {

/// A report that was being designed and not saved.
struct Draft
{
    report::Layout layout;
    QByteArray base; ///< what its file held when it was opened
    QDateTime kept;  ///< when it was last written
};

/// Keeps a draft of the layout for a path, in place of the one before; base is what the file held
/// when it was opened. A draft that can't be written is left out: it must stop nobody's work.
void keep(const QString &path, const report::Layout &layout, const QByteArray &base);
/// The draft of a path; nothing when there is none that can be read.
[[nodiscard]] std::optional<Draft> find(const QString &path);
/// Removes the draft of a path.
void drop(const QString &path);

} // namespace drafts
