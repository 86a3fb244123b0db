#pragma once

#include <QByteArray>
#include <QString>
#include <functional>

/// Work on whole files. Paths are full paths in the system's own form (see base::applicationPath).
/// Failures raise base::Error with the numbers FileNotFound, PathNotFound, PathAccess,
/// PermissionDenied and DiskFull, and a description that names the file.
namespace sys {

/// Copies a file over another. The copy appears under its name only when it is whole: until then,
/// and after a failure, whatever stood there stays. mayReplace, when given, is asked after the last
/// byte was read; False drops the copy and raises PermissionDenied.
void copyFile(const QString &source, const QString &destination,
              const std::function<bool()> &mayReplace = {});
/// Writes a file with this content, or replaces one. It appears under its name only when it is
/// whole and on the disk: until then, and after a failure, whatever stood there stays.
void writeFile(const QString &path, const QByteArray &content);
/// True when both names lead to one file, also by a link or in letters that its disk takes for the
/// same.
[[nodiscard]] bool isSameFile(const QString &one, const QString &other);
/// Gives a file another name in the same folder, in one step, over a file that may stand there.
void moveFile(const QString &source, const QString &destination);
/// Deletes a file.
void removeFile(const QString &path);
/// Deletes a file; content when it is gone already, or another program is faster.
void removeIfThere(const QString &path);
/// Makes a folder and those above it; content with one that is there.
void makeFolder(const QString &path);

} // namespace sys
