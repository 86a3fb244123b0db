#pragma once

#include <QByteArray>

#include <atomic>
#include <functional>
#include <memory>
#include <thread>

namespace db {

/// Makes a connection known to the others of this process that are attached to the same database.
/// A change of a table needs it: the engine refuses some while another connection merely keeps a
/// statement that uses the table, and afterwards everybody's picture of the tables is old.
class Peer
{
public:
    /// The action lets go of what the connection keeps of tables; it is called only on the thread
    /// that this object was made or last used on.
    Peer(const QByteArray &place, std::function<void()> letGo);
    ~Peer();
    Peer(const Peer &) = delete;
    Peer &operator=(const Peer &) = delete;

    /// True once after another connection has changed a table.
    [[nodiscard]] bool tablesHaveChanged();
    /// Asks the other connections to let go of the tables that they don't use now.
    void askOthersToRelease();
    /// Tells the others that a table has changed.
    void tellOthers();

private:
    struct Database
    {
        std::atomic<int> changes = 0;
    };

    QByteArray m_place;
    std::function<void()> m_letGo;
    std::shared_ptr<Database> m_database;
    int m_seenChanges;
    std::atomic<std::thread::id> m_thread;
};

} // namespace db
