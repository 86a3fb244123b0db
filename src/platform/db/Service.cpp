#include "platform/db/Service.h"

#include "platform/db/EngineErrors.h"

#include <QDir>
#include <QFileDevice>
#include <QFileInfo>
#include <QThread>

#include <array>
#include <cerrno>
#include <vector>

namespace db::engine {

using namespace Qt::StringLiterals;

namespace {

/// A number of two bytes, the lower first.
unsigned shortAt(const unsigned char *place)
{
    return place[0] | static_cast<unsigned>(place[1]) << 8U;
}

const QString threadFolder = u"/proc/self/task"_s;

/// The threads of this process, where the operating system tells them.
QStringList runningThreads()
{
    return QDir(threadFolder).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
}

/// The engine ends a task before the task's thread, and can't unload itself under that: a process
/// that ended meanwhile would crash. Gives up in the end, since it costs nothing else.
void waitForEndOf(const QStringList &threads)
{
    constexpr int rounds = 1000;
    for (const QString &thread : threads) {
        for (int i = 0; i < rounds && QFileInfo::exists(threadFolder + u'/' + thread); ++i)
            QThread::usleep(1000);
    }
}

} // namespace

Service::Service(const Target &target)
{
    ParameterBlock block(ParameterBlock::Kind::ServiceAttach);
    block.text(isc_spb_user_name, target.user);
    if (!target.host.isEmpty())
        block.text(isc_spb_password, target.password);
    const QString manager = u"service_mgr"_s;
    const QString place = target.host.isEmpty() ? manager : target.host + u':' + manager;
    m_service.reset(provider()->attachServiceManager(&m_status, utf8(place).constData(),
                                                     block.length(), block.data()));
}

Service::~Service()
{
    try {
        m_service->detach(&m_status);
        m_service.take();
    } catch (const DbError &) {
        // The server is gone, and with it the task.
    }
    waitForEndOf(m_threads);
}

void Service::start(ParameterBlock &task)
{
    // The engine doesn't tell the thread of a task; it is the one that wasn't there before.
    const QStringList before = runningThreads();
    m_service->start(&m_status, task.length(), task.data());
    for (const QString &thread : runningThreads()) {
        if (!before.contains(thread))
            m_threads << thread;
    }
}

QStringList Service::run(ParameterBlock &task)
{
    start(task);
    constexpr std::array<unsigned char, 1> items = {isc_info_svc_line};
    std::vector<unsigned char> answer(16384);
    QStringList lines;
    for (;;) {
        m_service->query(&m_status, 0, nullptr, static_cast<unsigned>(items.size()), items.data(),
                         static_cast<unsigned>(answer.size()), answer.data());
        const unsigned length = answer[0] == isc_info_svc_line ? shortAt(&answer[1]) : 0;
        if (length == 0)
            return lines;
        lines << QString::fromUtf8(reinterpret_cast<const char *>(&answer[3]), length).trimmed();
    }
}

void Service::runInto(ParameterBlock &task, QIODevice &output)
{
    start(task);
    constexpr std::array<unsigned char, 1> items = {isc_info_svc_to_eof};
    std::vector<unsigned char> answer(32768);
    for (;;) {
        m_service->query(&m_status, 0, nullptr, static_cast<unsigned>(items.size()), items.data(),
                         static_cast<unsigned>(answer.size()), answer.data());
        const unsigned length = answer[0] == isc_info_svc_to_eof ? shortAt(&answer[1]) : 0;
        if (length == 0)
            return;
        if (output.write(reinterpret_cast<const char *>(&answer[3]), length) != length)
            throw fileError(errno != 0 ? errno : ENOSPC, output.errorString());
    }
}

} // namespace db::engine
