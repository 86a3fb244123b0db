#pragma once

#include "core/MailAccount.h"
#include "core/Options.h"
#include "core/ui/Sending.h"
#include "platform/settings/Registry.h"
#include "support/SmtpServer.h"

namespace test {

/// Sets a server up as the company's, without encryption, for reports to the makers' mailbox.
inline void setUpMail(const SmtpServer &server, const QString &mailbox)
{
    SetOption(mailing::ServerOption, QStringLiteral("localhost"), false);
    SetOption(mailing::PortOption, server.port(), false);
    SetOption(mailing::SecurityOption, mailing::codeOf(mail::Security::None), false);
    settings::registry().setValue(settings::MakerKey, QStringLiteral("ReportMailbox"), mailbox);
    joinReportTransport();
}

} // namespace test
