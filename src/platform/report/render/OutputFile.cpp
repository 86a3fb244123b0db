#include "platform/report/render/OutputFile.h"

#include "platform/base/Error.h"

#include <cerrno>

namespace report {

using namespace Qt::StringLiterals;

OutputFile::OutputFile(const QString &path)
    : m_file(path)
{
    if (!m_file.open(QIODevice::WriteOnly))
        throw base::Error(base::ErrorNumber::PathAccess,
                          u"\"%1\" can't be written: %2."_s.arg(path, m_file.errorString()));
}

void OutputFile::write(const QByteArray &bytes)
{
    if (m_file.write(bytes) != bytes.size())
        fail();
}

void OutputFile::finish()
{
    // A device that painted by itself has told nobody of a failed write.
    if (m_file.error() != QFileDevice::NoError || !m_file.flush())
        fail();
    if (!m_file.commit())
        fail();
}

void OutputFile::fail()
{
    const bool full = errno == ENOSPC || m_file.error() == QFileDevice::ResourceError;
    const QString what =
        u"\"%1\" can't be written: %2."_s.arg(m_file.fileName(), m_file.errorString());
    m_file.cancelWriting();
    throw base::Error(full ? base::ErrorNumber::DiskFull : base::ErrorNumber::PathAccess, what);
}

} // namespace report
