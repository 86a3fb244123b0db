#pragma once

#include <QString>

namespace db {

/// Marks a database file as used by programs that share one folder of locks (engineLockFolder), for
/// as long as it lives. Programs with different folders (another user of the computer, a session
/// with another folder for temporary files) see nothing of each other's locks and would damage the
/// database between them: the second one is refused.
class SharedUse
{
public:
    /// Raises DbError FileInUse while a program with other locks uses the file. A file that can't
    /// be opened is left to the engine, which says why.
    explicit SharedUse(const QString &file);
    ~SharedUse();
    SharedUse(const SharedUse &) = delete;
    SharedUse &operator=(const SharedUse &) = delete;

private:
    int m_descriptor;
};

} // namespace db
