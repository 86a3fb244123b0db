#pragma once

#include "platform/report/layout/Layout.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <functional>

/// The layouts that users change and make. A delivered file is never written: a changed one goes to
/// "\Custom Reports\" under its own name, where it takes the delivered one's place, and a new one
/// to "\User Defined Reports\".
namespace ownreports {

enum class Folder { Delivered, UserDefined };
/// What a layout is: the user's own, or a delivered one that he changes.
enum class Kind { NewReport, DefaultReport };

/// A line of the list of layouts.
struct Entry
{
    QString name; ///< as the list shows it
    QString path; ///< of the file that is in use
};

/// The folder's full path.
[[nodiscard]] QString folderPath(Folder folder);
/// The layouts of a folder by name; of the delivered ones those that can be changed, each with the
/// customer's copy in its place when there is one. Empty when the folder isn't there.
[[nodiscard]] QList<Entry> list(Folder folder);

/// What the layout at a path is, by its folder.
[[nodiscard]] Kind kindOf(const QString &path);
/// Where a layout with this file name is saved.
[[nodiscard]] QString savePath(Kind kind, const QString &fileName);

/// A report's file name from what the user typed: without blanks around it, with the ending. Empty
/// for no name at all.
[[nodiscard]] QString fileNameOf(const QString &typed);
/// Why this can't be the name of a report, in words for the user; empty when it can.
[[nodiscard]] QString problemOf(const QString &typed);

/// What stands in a file, to find out whether it has changed since. Empty for a file that isn't
/// there.
using Version = QByteArray;
[[nodiscard]] Version versionOf(const QString &path);

/// What is in the way of a save.
enum class InPlace {
    AnotherReport,   ///< a report of this name, which the user hasn't opened
    ChangedMeanwhile ///< the same one, which another workstation has saved since
};
/// Asks the user whether it may be replaced.
using MayReplace = std::function<bool(InPlace)>;

/// Saves a layout whole or not at all; the folders are made when they are missing. known is what
/// the file held when it was opened or saved last, and becomes what it holds now. False when
/// something else is there and is to stay. Raises base::Error: for a path outside the two folders,
/// and when it can't be written.
[[nodiscard]] bool save(const report::Layout &layout, const QString &path, Version &known,
                        const MayReplace &mayReplace);

} // namespace ownreports
