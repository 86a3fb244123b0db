#include "shell/Passwords.h"

#include "platform/base/Error.h"

#include <array>
#include <sodium.h>

using namespace Qt::StringLiterals;

namespace shell {
namespace {

constexpr auto operations = crypto_pwhash_OPSLIMIT_INTERACTIVE;
constexpr auto memory = crypto_pwhash_MEMLIMIT_INTERACTIVE;

void startLibrary()
{
    static const int started = sodium_init();
    if (started < 0)
        throw base::Error(base::ErrorNumber::InvalidCall,
                          u"Passwords can't be protected on this computer."_s);
}

/// Case does not count in passwords, nor by which keys an accented letter was typed.
QString folded(const QString &text)
{
    return text.normalized(QString::NormalizationForm_C).toCaseFolded();
}

} // namespace

QString hashedPassword(const QString &password)
{
    startLibrary();
    const QByteArray utf8 = folded(password).toUtf8();
    std::array<char, crypto_pwhash_STRBYTES> hash{};
    if (crypto_pwhash_str(hash.data(), utf8.constData(), static_cast<size_t>(utf8.size()),
                          operations, memory) != 0)
        throw base::Error(7, u"Out of memory"_s);
    return QString::fromLatin1(hash.data());
}

bool isHashedPassword(const QString &stored)
{
    startLibrary();
    return crypto_pwhash_str_needs_rehash(stored.toUtf8().constData(), operations, memory) >= 0;
}

bool passwordMatches(const QString &stored, const QString &typed)
{
    // One that was never hashed stands as it was typed, until the next login hashes it.
    if (!isHashedPassword(stored))
        return folded(stored) == folded(typed);
    const QByteArray utf8 = folded(typed).toUtf8();
    return crypto_pwhash_str_verify(stored.toLatin1().constData(), utf8.constData(),
                                    static_cast<size_t>(utf8.size())) == 0;
}

} // namespace shell
