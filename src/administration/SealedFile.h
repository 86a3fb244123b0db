#pragma once

#include <QByteArray>
#include <QString>
#include <functional>

/// Files that nobody reads who doesn't know the passphrase, and that nobody changes unnoticed.
namespace administration {

inline constexpr int WrongPassphrase = 1010; ///< or the beginning of the file was changed
inline constexpr int SealedDamaged = 1011;   ///< cut off, or changed behind its beginning

/// The fewest characters that a passphrase must have.
inline constexpr int ShortestPassphrase = 8;

/// Writes a file's bytes, enciphered, to another one, over one that may stand there, which stays
/// until the new one is whole. Takes about a second to make the key. Raises base::Error.
void seal(const QString &source, const QString &destination, const QString &passphrase);
/// True when a file begins like a sealed one.
[[nodiscard]] bool isSealed(const QString &file);
/// Hands a sealed file's bytes to sink, piece by piece. Raises base::Error WrongPassphrase before
/// the first piece, SealedDamaged at any later one: what came until then is to be thrown away.
void unseal(const QString &source, const QString &passphrase,
            const std::function<void(const QByteArray &)> &sink);

} // namespace administration
