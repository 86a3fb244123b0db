#pragma once

#include <QString>
#include <optional>

/// Passwords of services outside the company: stored so that neither a copy of the database nor the
/// file of settings gives them away. They are sealed with a key that stands in a file of the user's
/// own, and the sealed text is an option of the workstation. See docs/decisions/110-secrets.md.
namespace secrets {

/// Keeps a secret under an option of this workstation; a blank one is forgotten. The user's key is
/// made on first use. Raises base::Error: InvalidCall for one too long to keep, what files and the
/// engine raise. Lookup.
void store(const QString &option, const QString &secret);
/// The secret under an option; empty where none is kept, nothing where one is kept that this user's
/// key doesn't open. Raises base::Error. Lookup.
[[nodiscard]] std::optional<QString> read(const QString &option);
/// True when something is kept under the option, whoever can open it. Lookup.
[[nodiscard]] bool isKept(const QString &option);

/// From now on this text is blotted out by withheld(), as every secret that was stored or read.
void withhold(const QString &secret);
/// A text without the secrets that this process has seen, for what leaves the program: error
/// reports, the log, mails.
[[nodiscard]] QString withheld(QString text);

} // namespace secrets
