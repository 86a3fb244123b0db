#pragma once

#include "platform/base/Steps.h"

#include <QString>
#include <QStringList>

/// Sends mail by way of a mail server.
namespace mail {

enum class Security {
    None,     ///< readable on its way; no password is sent then
    StartTls, ///< begins readable and turns to encryption before anything of worth is sent
    Tls       ///< encrypted from the first byte
};

struct Account
{
    QString server;
    int port = 0;
    Security security = Security::StartTls;
    QString user; ///< empty where the server asks for no login
    QString password;
    QString sender; ///< the account's own address; empty to send under each message's
    /// Seconds without a sign of the server after which a send is given up.
    int timeOut = 100;
    /// A file of certificates that are trusted beside the system's own, for a server of the house.
    QString authorities;
};

struct Message
{
    /// Who writes. Answers go there; the mail itself carries the account's address, where it has
    /// one, since servers refuse others.
    QString sender;
    QString senderName;
    QStringList recipients;
    QString subject;
    QString html;
    QString attachment; ///< full path of a file, empty for none
};

/// Addresses that stand in one text, parted by ";".
[[nodiscard]] QStringList addressesOf(const QString &text);
/// The port that servers usually have for this kind of connection.
[[nodiscard]] int usualPort(Security security);

/// Sends one message: all recipients get it or none. Waits; meant for a thread of its own. Tells
/// its steps. The server's certificate has to be valid and to be its own. Raises base::Error
/// InvalidCall in the user's words, with the server's own where it refused something, FileNotFound
/// without the attachment, and base::Cancelled.
void send(const Account &account, const Message &message, const base::Steps &steps = {});

} // namespace mail
