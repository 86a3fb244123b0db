#pragma once

#include "platform/db/Connection.h"
#include "platform/db/Engine.h"

#include <QIODevice>
#include <QStringList>

namespace db::engine {

/// A task that the engine runs on a database as a whole, such as a backup; here or on a host.
class Service
{
public:
    /// The user, password and host of the target count, not its file.
    explicit Service(const Target &target);
    ~Service();
    Service(const Service &) = delete;
    Service &operator=(const Service &) = delete;

    /// Starts a task and waits for its end; the lines that it wrote. Raises DbError. The engine's
    /// thread for it is gone when this object is.
    QStringList run(ParameterBlock &task);
    /// Starts a task that writes its result to its standard output, and stores that.
    void runInto(ParameterBlock &task, QIODevice &output);

private:
    void start(ParameterBlock &task);

    Status m_status;
    Ref<Firebird::IService> m_service;
    QStringList m_threads; ///< of this process, begun with the tasks
};

} // namespace db::engine
