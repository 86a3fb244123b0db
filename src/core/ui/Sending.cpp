#include "core/ui/Sending.h"

#include "core/ErrorReport.h"
#include "core/ErrorStore.h"
#include "core/MailAccount.h"
#include "core/Options.h"
#include "core/RegistryValues.h"
#include "core/Secrets.h"
#include "core/ui/Working.h"
#include "platform/base/Prompts.h"
#include "platform/system/Open.h"

#include <QFileInfo>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

QString mailbox()
{
    return GetMakerRegistryValue(u"ReportMailbox"_s).trimmed();
}

void storeRemote(const ErrorReportDetails &details)
{
    const QString store = errorstore::connectionString();
    if (store.isEmpty())
        return;
    working::runShown(
        u"Sending Error Report"_s,
        [&](const base::Steps &steps) { errorstore::store(store, details, steps); }, nullptr);
}

bool sendToMakers(const ReportMail &report)
{
    if (!mailing::isSetUp())
        return false;
    const QStringList recipients = mail::addressesOf(mailbox());
    if (recipients.isEmpty())
        throw base::Error(base::ErrorNumber::InvalidCall,
                          u"The installation names no mailbox of the makers."_s);
    mailing::sendShown(u"Sending Error Report"_s, mailing::account(),
                       {.sender = report.sender,
                        .senderName = report.senderName,
                        .recipients = recipients,
                        .subject = report.subject,
                        .html = secrets::withheld(report.html),
                        .attachment = report.attachment});
    return true;
}

/// The user's own mail program gets no file from another program, so he is shown where it lies.
void openMailProgram(const QString &pdf)
{
    const QFileInfo file(pdf);
    sys::openWithDefault(file.absolutePath());
    sys::openWithDefault(u"mailto:?subject="_s +
                         QString::fromLatin1(QUrl::toPercentEncoding(file.completeBaseName())));
}

void sendByAccount(const QString &pdf)
{
    const mail::Account account = mailing::account();
    // Ahead of the question, so that nobody types addresses in vain.
    const QString sender = GetOption(u"GEN_COMPANY_EMAIL"_s, false).trimmed();
    if (sender.isEmpty() && account.sender.isEmpty())
        throw base::Error(base::ErrorNumber::InvalidCall,
                          u"The mail has no sender. Enter the address of your company under File, "
                          u"Setup first."_s);
    const auto typed = base::prompts().input(u"Send to (several addresses parted by \";\"):"_s,
                                             u"Send by mail"_s, QString());
    if (!typed)
        return;
    const QString company = GetOption(u"GEN_COMPANY_NAME"_s, false).trimmed();
    const QString title = QFileInfo(pdf).completeBaseName();
    mailing::sendShown(
        u"Sending the report"_s, account,
        {.sender = sender.isEmpty() ? account.sender : sender,
         .senderName = company,
         .recipients = mail::addressesOf(*typed),
         .subject = title,
         .html = u"<p>%1</p><p>%2</p>"_s.arg(title.toHtmlEscaped(), company.toHtmlEscaped()),
         .attachment = pdf});
    base::showInformation(u"The report was sent to %1."_s.arg(typed->trimmed()));
}

} // namespace

void mailing::sendShown(const QString &title, const mail::Account &account,
                        const mail::Message &message, QWidget *parent)
{
    working::runShown(
        title, [&](const base::Steps &steps) { mail::send(account, message, steps); }, parent);
}

void mailing::mailDocument(const QString &pdf)
{
    try {
        if (isSetUp())
            sendByAccount(pdf);
        else
            openMailProgram(pdf);
    } catch (const base::Cancelled &) {
        return;
    } catch (const base::Error &error) {
        base::showMessage(secrets::withheld(error.description()));
    }
}

void joinReportTransport()
{
    setReportTransport({storeRemote, sendToMakers, mailbox()});
}
