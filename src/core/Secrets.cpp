#include "core/Secrets.h"

#include "core/Options.h"
#include "platform/base/Environment.h"
#include "platform/base/Error.h"
#include "platform/base/Trapped.h"
#include "platform/system/Files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringList>
#include <sodium.h>

using namespace Qt::StringLiterals;

namespace secrets {
namespace {

constexpr qsizetype KeySize = crypto_secretbox_KEYBYTES;
constexpr qsizetype NonceSize = crypto_secretbox_NONCEBYTES;
constexpr qsizetype LongestSealed = 1000; // letters that an option holds
constexpr qsizetype ShortestWithheld = 4; // a shorter one would blot out half of each text
constexpr QFileDevice::Permissions OwnersOnly = QFileDevice::ReadOwner | QFileDevice::WriteOwner;

/// Bytes that are wiped when they go.
class Wiped
{
public:
    explicit Wiped(QByteArray bytes)
        : m_bytes(std::move(bytes))
    {}
    ~Wiped() { sodium_memzero(m_bytes.data(), static_cast<std::size_t>(m_bytes.size())); }
    Wiped(const Wiped &) = delete;
    Wiped &operator=(const Wiped &) = delete;

    [[nodiscard]] unsigned char *data()
    {
        return reinterpret_cast<unsigned char *>(m_bytes.data());
    }
    [[nodiscard]] std::size_t size() const { return static_cast<std::size_t>(m_bytes.size()); }

private:
    QByteArray m_bytes;
};

const unsigned char *bytesOf(const QByteArray &bytes)
{
    return reinterpret_cast<const unsigned char *>(bytes.constData());
}

QStringList &known()
{
    static QStringList secrets;
    return secrets;
}

QString keyFile()
{
    return base::appDataPath(u"\\secrets.key"_s);
}

void requireLibrary()
{
    if (sodium_init() < 0)
        throw base::Error(base::ErrorNumber::InvalidCall, u"Passwords can't be sealed."_s);
}

/// The bytes of the user's key; empty when there is none. One that others may read is closed to
/// them.
QByteArray readKey()
{
    QFile file(keyFile());
    if (!file.exists())
        return {};
    if (!file.open(QIODevice::ReadOnly))
        throw base::Error(base::ErrorNumber::PathAccess,
                          u"The key of your passwords can't be read: %1 (%2)"_s.arg(
                              QDir::toNativeSeparators(keyFile()), file.errorString()));
    if ((file.permissions() & ~(OwnersOnly | QFileDevice::ReadUser | QFileDevice::WriteUser)) != 0)
        file.setPermissions(OwnersOnly);
    QByteArray key = file.read(KeySize + 1);
    if (key.size() != KeySize)
        throw base::Error(
            base::ErrorNumber::PathAccess,
            u"The key of your passwords is damaged: %1. Delete the file and enter the "
            u"passwords anew."_s.arg(QDir::toNativeSeparators(keyFile())));
    return key;
}

/// Makes the user's key, for its owner's eyes from the first byte. Another program of his that does
/// the same at this moment wins, so the key is read from the file in any case.
void makeKey()
{
    sys::makeFolder(QFileInfo(keyFile()).absolutePath());
    Wiped key(QByteArray(KeySize, Qt::Uninitialized));
    randombytes_buf(key.data(), key.size());
    QFile file(keyFile());
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly, OwnersOnly)) {
        if (file.exists())
            return;
        throw base::Error(base::ErrorNumber::PathAccess,
                          u"The key of your passwords can't be written: %1 (%2)"_s.arg(
                              QDir::toNativeSeparators(keyFile()), file.errorString()));
    }
    const auto size = static_cast<qint64>(key.size());
    if (file.write(reinterpret_cast<const char *>(key.data()), size) != size || !file.flush()) {
        file.remove();
        throw base::Error(base::ErrorNumber::DiskFull,
                          u"The key of your passwords can't be written: "_s +
                              QDir::toNativeSeparators(keyFile()));
    }
}

/// A key for one option, so that a sealed text that is moved to another one opens nothing.
QByteArray keyOf(const QString &option, QByteArray master)
{
    Wiped whole(std::move(master));
    const QByteArray name = option.toUtf8();
    QByteArray key(KeySize, Qt::Uninitialized);
    crypto_generichash(reinterpret_cast<unsigned char *>(key.data()), KeySize, bytesOf(name),
                       static_cast<unsigned long long>(name.size()), whole.data(), whole.size());
    return key;
}

QString sealed(const QString &option, const QString &secret)
{
    if (readKey().isEmpty())
        makeKey();
    Wiped key(keyOf(option, readKey()));
    Wiped clear(secret.toUtf8());
    QByteArray nonce(NonceSize, Qt::Uninitialized);
    randombytes_buf(nonce.data(), NonceSize);
    QByteArray box(static_cast<qsizetype>(clear.size() + crypto_secretbox_MACBYTES),
                   Qt::Uninitialized);
    crypto_secretbox_easy(reinterpret_cast<unsigned char *>(box.data()), clear.data(), clear.size(),
                          bytesOf(nonce), key.data());
    return QString::fromLatin1((nonce + box).toBase64());
}

std::optional<QString> opened(const QString &option, const QString &text)
{
    const QByteArray master = readKey();
    const QByteArray bytes = QByteArray::fromBase64(text.toLatin1());
    const qsizetype size = bytes.size() - NonceSize - qsizetype{crypto_secretbox_MACBYTES};
    if (master.isEmpty() || size < 0)
        return std::nullopt;
    Wiped key(keyOf(option, master));
    Wiped clear(QByteArray(size, Qt::Uninitialized));
    const unsigned char *start = bytesOf(bytes);
    if (crypto_secretbox_open_easy(clear.data(), start + NonceSize,
                                   static_cast<unsigned long long>(bytes.size() - NonceSize), start,
                                   key.data()) != 0)
        return std::nullopt;
    return QString::fromUtf8(reinterpret_cast<const char *>(clear.data()), size);
}

} // namespace

void store(const QString &option, const QString &secret)
{
    requireLibrary();
    const base::Whole raising;
    if (secret.isEmpty())
        return SetOption(option, QString(), true);
    const QString text = sealed(option, secret);
    if (text.size() > LongestSealed)
        throw base::Error(base::ErrorNumber::InvalidCall,
                          u"This text is too long to be kept: %1 letters."_s.arg(secret.size()));
    SetOption(option, text, true);
    withhold(secret);
}

std::optional<QString> read(const QString &option)
{
    requireLibrary();
    const base::Whole raising;
    const QString text = GetOption(option, true);
    if (text.isEmpty())
        return QString();
    std::optional<QString> secret = opened(option, text);
    if (secret)
        withhold(*secret);
    return secret;
}

bool isKept(const QString &option)
{
    return !GetOption(option, true).isEmpty();
}

void withhold(const QString &secret)
{
    if (secret.size() >= ShortestWithheld && !known().contains(secret))
        known().append(secret);
}

QString withheld(QString text)
{
    for (const QString &secret : known())
        text.replace(secret, u"***"_s);
    return text;
}

} // namespace secrets
