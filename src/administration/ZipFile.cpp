#include "administration/ZipFile.h"

#include "platform/base/Error.h"
#include "platform/base/PreparedName.h"
#include "platform/system/Files.h"

#include <QFile>
#include <zip.h>

namespace administration {
namespace {

using namespace Qt::StringLiterals;

/// The first day that an archive knows, for all its files: the same content is the same bytes.
constexpr zip_uint16_t firstDay = (1U << 5U) | 1U;

[[noreturn]] void refuse(int number, const QString &path, const QString &why)
{
    throw base::Error(number, u"The file \"%1\" %2."_s.arg(path, why));
}

[[noreturn]] void refuseWriting(const QString &path, zip_error_t *error)
{
    // A full disk is something the user can mend, and has a sentence of its own.
    const bool full = zip_error_code_system(error) == ENOSPC;
    refuse(full ? base::ErrorNumber::DiskFull : base::ErrorNumber::PathAccess, path,
           u"can't be written (%1)"_s.arg(QString::fromUtf8(zip_error_strerror(error))));
}

/// A file of an archive, unpacked as it is read.
class PackedFile final : public QIODevice
{
public:
    explicit PackedFile(zip_file_t *file)
        : m_file(file)
    {
        // The library buffers; a second buffer would only copy.
        setOpenMode(QIODevice::ReadOnly | QIODevice::Unbuffered);
    }
    ~PackedFile() override { zip_fclose(m_file); }
    PackedFile(const PackedFile &) = delete;
    PackedFile &operator=(const PackedFile &) = delete;

    [[nodiscard]] bool isSequential() const override { return true; }

protected:
    qint64 readData(char *data, qint64 size) override
    {
        const zip_int64_t read = zip_fread(m_file, data, static_cast<zip_uint64_t>(size));
        if (read < 0)
            setErrorString(QString::fromUtf8(zip_file_strerror(m_file)));
        return read;
    }
    qint64 writeData(const char *, qint64) override { return -1; }

private:
    zip_file_t *m_file;
};

} // namespace

ZipWriter::ZipWriter(QString path)
    : m_path(std::move(path))
{
    int code = 0;
    m_archive =
        zip_open(QFile::encodeName(partial()).constData(), ZIP_CREATE | ZIP_TRUNCATE, &code);
    if (m_archive)
        return;
    zip_error_t error;
    zip_error_init_with_code(&error, code);
    refuseWriting(m_path, &error);
}

ZipWriter::~ZipWriter()
{
    if (!m_archive)
        return;
    // Not committed, so that the file from before is still there.
    zip_discard(m_archive);
    QFile::remove(partial());
}

QString ZipWriter::partial() const
{
    return base::preparedName(m_path, u".part~"_s);
}

void ZipWriter::add(const QString &name, const QString &file)
{
    zip_source_t *source = zip_source_file(m_archive, QFile::encodeName(file).constData(), 0, -1);
    if (!source)
        refuseWriting(m_path, zip_get_error(m_archive));
    const zip_int64_t index =
        zip_file_add(m_archive, name.toUtf8().constData(), source, ZIP_FL_ENC_UTF_8);
    if (index < 0) {
        // Taken over by the archive only when the call succeeds.
        zip_source_free(source);
        refuseWriting(m_path, zip_get_error(m_archive));
    }
    zip_file_set_dostime(m_archive, static_cast<zip_uint64_t>(index), 0, firstDay, 0);
}

void ZipWriter::commit()
{
    // Only now are the files read and packed.
    if (zip_close(m_archive) != 0)
        refuseWriting(m_path, zip_get_error(m_archive));
    m_archive = nullptr;
    try {
        sys::moveFile(partial(), m_path);
    } catch (const base::Error &) {
        QFile::remove(partial());
        throw;
    }
}

ZipReader::ZipReader(QString path, Check check)
    : m_path(std::move(path))
{
    if (!QFile::exists(m_path))
        refuse(base::ErrorNumber::FileNotFound, m_path, u"is not there"_s);
    int code = 0;
    // Archives that spreadsheets write don't always agree with their own lists; ours do.
    const int consistent = check == Check::All ? ZIP_CHECKCONS : 0;
    m_archive = zip_open(QFile::encodeName(m_path).constData(), ZIP_RDONLY | consistent, &code);
    if (!m_archive)
        refuse(base::ErrorNumber::PermissionDenied, m_path, u"is no zip archive, or is damaged"_s);
}

ZipReader::~ZipReader()
{
    // Closing would try to write what was opened for reading.
    zip_discard(m_archive);
}

QStringList ZipReader::names() const
{
    QStringList found;
    for (zip_int64_t i = 0; i < zip_get_num_entries(m_archive, 0); ++i)
        found.append(QString::fromUtf8(zip_get_name(m_archive, static_cast<zip_uint64_t>(i), 0)));
    return found;
}

qint64 ZipReader::size(const QString &name) const
{
    zip_stat_t about;
    zip_stat_init(&about);
    const bool isThere = zip_stat(m_archive, name.toUtf8().constData(), 0, &about) == 0;
    return isThere && (about.valid & ZIP_STAT_SIZE) != 0 ? static_cast<qint64>(about.size) : 0;
}

std::unique_ptr<QIODevice> ZipReader::open(const QString &name) const
{
    zip_file_t *file = zip_fopen(m_archive, name.toUtf8().constData(), 0);
    if (!file)
        refuse(base::ErrorNumber::FileNotFound, m_path, u"holds no \"%1\""_s.arg(name));
    return std::make_unique<PackedFile>(file);
}

} // namespace administration
