#include "administration/SealedFile.h"

#include "platform/base/Error.h"

#include <QFile>
#include <QSaveFile>

#include <array>
#include <sodium.h>

namespace administration {
namespace {

using namespace Qt::StringLiterals;

const QByteArray Magic = QByteArrayLiteral("QVSEALED1");
/// In memory at once, however large the file is.
constexpr qsizetype PieceSize = 1 << 16;
constexpr qsizetype SealedPieceSize = PieceSize + crypto_secretstream_xchacha20poly1305_ABYTES;
// What a file may ask of the computer that opens it: a made-up one must not take all its memory.
constexpr quint64 MostOperations = 12;
constexpr quint64 MostMemory = 1ULL << 30;

[[noreturn]] void refuse(int number, const QString &text, const QString &path)
{
    throw base::Error(number, text + u": "_s + path);
}

void startLibrary()
{
    static const int started = sodium_init();
    if (started < 0)
        throw base::Error(base::ErrorNumber::InvalidCall,
                          u"Files can't be protected on this computer."_s);
}

/// A key in memory that is wiped at the end.
class Key
{
public:
    Key(const QString &passphrase, const QByteArray &salt, quint64 operations, quint64 memory)
    {
        // Keyboards and systems compose accents in two ways, which look the same.
        QByteArray text = passphrase.normalized(QString::NormalizationForm_C).toUtf8();
        const int failure =
            crypto_pwhash(m_bytes.data(), m_bytes.size(), text.constData(),
                          static_cast<unsigned long long>(text.size()),
                          reinterpret_cast<const unsigned char *>(salt.constData()), operations,
                          static_cast<size_t>(memory), crypto_pwhash_ALG_ARGON2ID13);
        sodium_memzero(text.data(), static_cast<size_t>(text.size()));
        if (failure != 0)
            throw base::Error(7, u"Out of memory"_s);
    }
    ~Key() { sodium_memzero(m_bytes.data(), m_bytes.size()); }
    Key(const Key &) = delete;
    Key &operator=(const Key &) = delete;

    [[nodiscard]] const unsigned char *bytes() const { return m_bytes.data(); }

private:
    std::array<unsigned char, crypto_secretstream_xchacha20poly1305_KEYBYTES> m_bytes{};
};

/// The lowest byte first on any computer: a sealed file may be opened on another one.
QByteArray numberBytes(quint64 number)
{
    QByteArray bytes;
    for (int shift = 0; shift < 64; shift += 8)
        bytes.append(static_cast<char>(number >> shift));
    return bytes;
}

quint64 numberOf(const QByteArray &bytes)
{
    quint64 number = 0;
    for (int i = 0; i < 8; ++i)
        number |= static_cast<quint64>(static_cast<uchar>(bytes[i])) << (8 * i);
    return number;
}

/// What stands ahead of the pieces: how the key is made.
struct Head
{
    quint64 operations = crypto_pwhash_OPSLIMIT_MODERATE;
    quint64 memory = crypto_pwhash_MEMLIMIT_MODERATE;
    QByteArray salt;

    static constexpr qsizetype Length = 9 + 8 + 8 + crypto_pwhash_SALTBYTES;

    [[nodiscard]] QByteArray bytes() const
    {
        return Magic + numberBytes(operations) + numberBytes(memory) + salt;
    }
    /// False for bytes that no sealed file of ours begins with.
    bool read(const QByteArray &bytes)
    {
        if (bytes.size() != Length || !bytes.startsWith(Magic))
            return false;
        operations = numberOf(bytes.mid(Magic.size(), 8));
        memory = numberOf(bytes.mid(Magic.size() + 8, 8));
        salt = bytes.last(crypto_pwhash_SALTBYTES);
        // Looked at before a key is made by them: nothing vouches for the head until then.
        return operations >= crypto_pwhash_OPSLIMIT_MIN && operations <= MostOperations &&
               memory >= crypto_pwhash_MEMLIMIT_MIN && memory <= MostMemory;
    }
};

const unsigned char *raw(const QByteArray &bytes)
{
    return reinterpret_cast<const unsigned char *>(bytes.constData());
}

unsigned char *raw(QByteArray &bytes)
{
    return reinterpret_cast<unsigned char *>(bytes.data());
}

void openSource(QFile &file)
{
    if (!file.open(QIODevice::ReadOnly))
        refuse(base::ErrorNumber::FileNotFound, u"The file can't be read"_s, file.fileName());
}

void write(QSaveFile &file, const QByteArray &bytes)
{
    // A short write has no error of its own: the next one has, and says why.
    for (qint64 done = 0; done < bytes.size();) {
        const qint64 written = file.write(bytes.constData() + done, bytes.size() - done);
        if (written <= 0)
            refuse(file.error() == QFileDevice::ResourceError ? base::ErrorNumber::DiskFull
                                                              : base::ErrorNumber::PathAccess,
                   u"The file can't be written (%1)"_s.arg(file.errorString()), file.fileName());
        done += written;
    }
}

} // namespace

void seal(const QString &source, const QString &destination, const QString &passphrase)
{
    startLibrary();
    QFile from(source);
    openSource(from);
    QSaveFile to(destination);
    if (!to.open(QIODevice::WriteOnly))
        refuse(base::ErrorNumber::PathAccess,
               u"The file can't be written (%1)"_s.arg(to.errorString()), destination);
    Head head;
    head.salt.resize(crypto_pwhash_SALTBYTES);
    randombytes_buf(head.salt.data(), static_cast<size_t>(head.salt.size()));
    const Key key(passphrase, head.salt, head.operations, head.memory);
    crypto_secretstream_xchacha20poly1305_state state;
    QByteArray start(crypto_secretstream_xchacha20poly1305_HEADERBYTES, '\0');
    crypto_secretstream_xchacha20poly1305_init_push(&state, raw(start), key.bytes());
    // The first piece vouches for the head too.
    QByteArray vouched = head.bytes();
    write(to, vouched + start);
    for (bool last = false; !last;) {
        const QByteArray piece = from.read(PieceSize);
        if (from.error() != QFileDevice::NoError)
            refuse(base::ErrorNumber::PermissionDenied, u"The file can't be read"_s, source);
        // The last piece is marked, by which a file that was cut off is known. An empty file has
        // one empty piece.
        last = from.atEnd();
        QByteArray sealed(piece.size() + crypto_secretstream_xchacha20poly1305_ABYTES, '\0');
        crypto_secretstream_xchacha20poly1305_push(
            &state, raw(sealed), nullptr, raw(piece), static_cast<size_t>(piece.size()),
            raw(std::as_const(vouched)), static_cast<size_t>(vouched.size()),
            last ? crypto_secretstream_xchacha20poly1305_TAG_FINAL : 0);
        vouched.clear();
        write(to, sealed);
    }
    if (!to.commit())
        refuse(base::ErrorNumber::PathAccess,
               u"The file can't be written (%1)"_s.arg(to.errorString()), destination);
}

bool isSealed(const QString &path)
{
    QFile file(path);
    return !path.isEmpty() && file.open(QIODevice::ReadOnly) && file.read(Magic.size()) == Magic;
}

void unseal(const QString &source, const QString &passphrase,
            const std::function<void(const QByteArray &)> &sink)
{
    startLibrary();
    QFile from(source);
    openSource(from);
    Head head;
    if (!head.read(from.read(Head::Length)))
        refuse(SealedDamaged, u"The file is damaged"_s, source);
    const QByteArray start = from.read(crypto_secretstream_xchacha20poly1305_HEADERBYTES);
    const Key key(passphrase, head.salt, head.operations, head.memory);
    crypto_secretstream_xchacha20poly1305_state state;
    if (start.size() != crypto_secretstream_xchacha20poly1305_HEADERBYTES ||
        crypto_secretstream_xchacha20poly1305_init_pull(&state, raw(start), key.bytes()) != 0)
        refuse(SealedDamaged, u"The file is damaged"_s, source);
    QByteArray vouched = head.bytes();
    unsigned char tag = 0;
    while (tag != crypto_secretstream_xchacha20poly1305_TAG_FINAL) {
        const QByteArray sealed = from.read(SealedPieceSize);
        if (sealed.size() < crypto_secretstream_xchacha20poly1305_ABYTES)
            refuse(SealedDamaged, u"The end of the file is missing"_s, source);
        QByteArray piece(sealed.size() - crypto_secretstream_xchacha20poly1305_ABYTES, '\0');
        if (crypto_secretstream_xchacha20poly1305_pull(
                &state, raw(piece), nullptr, &tag, raw(sealed), static_cast<size_t>(sealed.size()),
                raw(std::as_const(vouched)), static_cast<size_t>(vouched.size())) != 0) {
            // A wrong key fails at the first piece already. Damage there can't be told from it, and
            // to try again costs nothing.
            if (!vouched.isEmpty())
                refuse(WrongPassphrase, u"The passphrase is not the one of this file"_s, source);
            refuse(SealedDamaged, u"The file is damaged"_s, source);
        }
        // Passed on piece by piece: who takes them must not use them before the end has come.
        vouched.clear();
        sink(piece);
    }
    // Nothing vouches for bytes behind the end.
    if (!from.atEnd())
        refuse(SealedDamaged, u"The file is damaged"_s, source);
}

} // namespace administration
