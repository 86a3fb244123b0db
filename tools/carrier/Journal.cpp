#include "carrier/Journal.h"

#include "platform/system/Files.h"

#include <QCryptographicHash>
#include <QDir>

using namespace Qt::StringLiterals;

namespace carrier {
namespace {

QByteArray checksum(const QByteArray &content)
{
    return QCryptographicHash::hash(content, QCryptographicHash::Sha256).toHex();
}

} // namespace

Journal::Journal(QString folder)
    : m_folder(std::move(folder))
{
    if (QFile file(listFile()); file.open(QIODevice::ReadOnly))
        m_list = file.readAll();
    for (const QByteArray &line : m_list.split('\n')) {
        if (const qsizetype blank = line.indexOf(' '); blank > 0)
            m_copies.insert(line.first(blank), QString::fromUtf8(line.sliced(blank + 1)));
    }
    // A copy may be there whose line is not: its number is taken all the same.
    for (const QString &name : QDir(m_folder).entryList(QDir::Files))
        m_last = std::max(m_last, name.section(u' ', 0, 0).toInt());
}

QString Journal::listFile() const
{
    return m_folder + u"/carried.txt"_s;
}

QString Journal::copyOf(const QByteArray &content) const
{
    return m_copies.value(checksum(content));
}

void Journal::keep(const QString &name, const QByteArray &content)
{
    sys::makeFolder(m_folder);
    const QString copy = u"%1 %2"_s.arg(++m_last, 6, 10, QChar(u'0')).arg(name);
    sys::writeFile(m_folder + u'/' + copy, content);
    m_copies.insert(checksum(content), copy);
    m_list += checksum(content) + ' ' + copy.toUtf8() + '\n';
    sys::writeFile(listFile(), m_list);
}

} // namespace carrier
