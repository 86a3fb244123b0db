#pragma once

#include "platform/mail/Mail.h"

#include <QStringList>

/// The company's mail account, by which the program sends. Server, user and sender are options that
/// all workstations share; the password is each user's own secret (core/Secrets.h).
namespace mailing {

/// The options that hold the account, by the fields of the set-up screen. The password's is one of
/// the workstation, and sealed.
inline const QString ServerOption = QStringLiteral("MAIL SERVER");
inline const QString PortOption = QStringLiteral("MAIL PORT");
inline const QString SecurityOption = QStringLiteral("MAIL SECURITY");
inline const QString UserOption = QStringLiteral("MAIL USER");
inline const QString SenderOption = QStringLiteral("MAIL SENDER");
inline const QString PasswordOption = QStringLiteral("MAIL PASSWORD");

/// The kinds of connection in the user's words, in the order of mail::Security.
[[nodiscard]] QStringList securityNames();
/// What the option holds for a kind, and the kind that it holds; STARTTLS for what isn't known.
[[nodiscard]] QString codeOf(mail::Security security);
[[nodiscard]] mail::Security securityOf(const QString &code);
/// The port that a text says; the usual one of that kind for a blank text.
[[nodiscard]] int portOf(const QString &text, mail::Security security);
/// The file of certificates that the installation trusts beside the system's own: the install value
/// "MAILAUTHORITIES", which may be blank.
[[nodiscard]] QString authorities();

/// True when a mail server is set up. Lookup.
[[nodiscard]] bool isSetUp();
/// The account as it is set up. Raises base::Error InvalidCall in the user's words when its
/// password is not known to this user on this computer. Lookup.
[[nodiscard]] mail::Account account();

} // namespace mailing
