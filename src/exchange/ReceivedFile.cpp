#include "exchange/ReceivedFile.h"

#include "platform/base/Error.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace exchange {
namespace {

/// A crew's day takes some thousand bytes, ten thousand machines some million.
constexpr qint64 LargestFile = 64 << 20;

[[noreturn]] void raise(int number, const QString &text, const QString &path)
{
    throw base::Error(number, text + u": "_s + QDir::toNativeSeparators(path));
}

} // namespace

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    if (file.size() > LargestFile)
        raise(base::ErrorNumber::InvalidCall,
              u"The file is too large to come from a handheld, and was not imported"_s, path);
    if (!file.open(QIODevice::ReadOnly))
        raise(base::ErrorNumber::PathAccess,
              u"The file can't be read (%1)"_s.arg(file.errorString()), path);
    return file.readAll();
}

} // namespace exchange
