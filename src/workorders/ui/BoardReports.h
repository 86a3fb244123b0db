#pragma once

#include "core/Session.h"

#include <QStringView>
#include <span>

/// The tree of reports beside the overdue board, as data.
namespace board {

struct ReportEntry
{
    const char *parent;
    const char *caption; ///< as the tree shows it, unique
    const char *opening; ///< name in ScreenCalls::openings
    bool Rights::*right; ///< the right that it needs
};

/// All entries, those of one parent together.
[[nodiscard]] std::span<const ReportEntry> reportEntries();
/// The entry of a caption, null when there is none.
[[nodiscard]] const ReportEntry *reportEntry(QStringView caption);
/// False while nobody has joined what the entry opens.
[[nodiscard]] bool isJoined(const ReportEntry &entry);

} // namespace board
