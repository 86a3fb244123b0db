#include "platform/system/SlowFile.h"

#include "platform/base/Error.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <future>
#include <thread>

using namespace Qt::StringLiterals;

namespace sys {
namespace {

constexpr qint64 LongestLine = 1000;

QString readFirstLine(const QString &path)
{
    QFile file(path);
    const QString shown = QDir::toNativeSeparators(path);
    if (!QFileInfo(path).absoluteDir().exists())
        throw base::Error(base::ErrorNumber::PathNotFound, u"Path not found: "_s + shown);
    if (!file.exists())
        throw base::Error(base::ErrorNumber::FileNotFound, u"File not found: "_s + shown);
    if (!file.open(QIODevice::ReadOnly))
        throw base::Error(base::ErrorNumber::PermissionDenied,
                          u"Permission denied (%1): "_s.arg(file.errorString()) + shown);
    QByteArray line = file.readLine(LongestLine);
    while (line.endsWith('\n') || line.endsWith('\r'))
        line.chop(1);
    return QString::fromUtf8(line);
}

} // namespace

std::optional<QString> firstLine(const QString &path, std::chrono::milliseconds limit)
{
    std::packaged_task<QString()> task([path] { return readFirstLine(path); });
    std::future<QString> line = task.get_future();
    std::thread(std::move(task)).detach();
    if (line.wait_for(limit) != std::future_status::ready)
        return std::nullopt;
    return line.get();
}

} // namespace sys
