#include "platform/db/Peers.h"

#include <algorithm>
#include <mutex>
#include <vector>

namespace db {
namespace {

struct Registry
{
    std::mutex mutex;
    std::vector<Peer *> peers;
};

Registry &registry()
{
    static Registry instance;
    return instance;
}

} // namespace

Peer::Peer(const QByteArray &place, std::function<void()> letGo)
    : m_place(place)
    , m_letGo(std::move(letGo))
    , m_thread(std::this_thread::get_id())
{
    const std::lock_guard lock(registry().mutex);
    for (const Peer *peer : registry().peers) {
        if (peer->m_place == place)
            m_database = peer->m_database;
    }
    if (!m_database)
        m_database = std::make_shared<Database>();
    m_seenChanges = m_database->changes;
    registry().peers.push_back(this);
}

Peer::~Peer()
{
    const std::lock_guard lock(registry().mutex);
    std::erase(registry().peers, this);
}

bool Peer::tablesHaveChanged()
{
    m_thread.store(std::this_thread::get_id(), std::memory_order_relaxed);
    const int changes = m_database->changes.load(std::memory_order_acquire);
    return std::exchange(m_seenChanges, changes) != changes;
}

void Peer::askOthersToRelease()
{
    const std::lock_guard lock(registry().mutex);
    for (Peer *peer : registry().peers) {
        // Another thread may be in the midst of a statement, which nobody can take from it.
        if (peer != this && peer->m_database == m_database &&
            peer->m_thread.load() == std::this_thread::get_id())
            peer->m_letGo();
    }
}

void Peer::tellOthers()
{
    // Our own count follows unless somebody else has changed a table at the same time.
    const int before = m_database->changes.fetch_add(1, std::memory_order_acq_rel);
    if (before == m_seenChanges)
        m_seenChanges = before + 1;
}

} // namespace db
