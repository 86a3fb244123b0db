#include "core/MailAccount.h"

#include "core/Options.h"
#include "core/RegistryValues.h"
#include "core/Secrets.h"

using namespace Qt::StringLiterals;

namespace mailing {
namespace {

/// In the order of mail::Security.
const QStringList Codes{u"NONE"_s, u"STARTTLS"_s, u"TLS"_s};

} // namespace

QStringList securityNames()
{
    return {u"None (readable on its way)"_s, u"STARTTLS"_s, u"TLS"_s};
}

QString codeOf(mail::Security security)
{
    return Codes.at(static_cast<int>(security));
}

mail::Security securityOf(const QString &code)
{
    const qsizetype place = Codes.indexOf(code);
    return place < 0 ? mail::Security::StartTls : static_cast<mail::Security>(place);
}

int portOf(const QString &text, mail::Security security)
{
    return text.trimmed().isEmpty() ? mail::usualPort(security) : text.trimmed().toInt();
}

QString authorities()
{
    return GetRegistryValue(u"MAILAUTHORITIES"_s).trimmed();
}

bool isSetUp()
{
    return !GetOption(ServerOption, false).trimmed().isEmpty();
}

mail::Account account()
{
    mail::Account account;
    account.server = GetOption(ServerOption, false).trimmed();
    account.security = securityOf(GetOption(SecurityOption, false));
    account.port = portOf(GetOption(PortOption, false), account.security);
    account.user = GetOption(UserOption, false).trimmed();
    account.sender = GetOption(SenderOption, false).trimmed();
    account.authorities = authorities();
    if (account.user.isEmpty())
        return account;
    const std::optional<QString> password = secrets::read(PasswordOption);
    if (!password || password->isEmpty())
        throw base::Error(base::ErrorNumber::InvalidCall,
                          u"The password of the mail account is not known on this computer. Enter "
                          u"it under File, Setup, on the page Mail."_s);
    account.password = *password;
    return account;
}

} // namespace mailing
