#include "shell/ui/frmSendDBUpdate.h"

#include "core/Options.h"
#include "core/RegistryValues.h"
#include "core/Secrets.h"
#include "core/ui/SenderCheck.h"
#include "platform/base/Environment.h"
#include "platform/base/Prompts.h"
#include "platform/base/Steps.h"
#include "platform/base/Trapped.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/Theme.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr const char *Module = "frmSendDBUpdate";
constexpr int LongestEmail = 100;
constexpr int ArrowSize = 16; // pixels
constexpr QSize FirstSize(560, 280);

QLabel *addStep(QHBoxLayout *line, const QString &name, const QString &text)
{
    auto *label = new QLabel(text, line->parentWidget());
    label->setObjectName(name);
    line->addWidget(label);
    return label;
}

QLabel *addArrow(QHBoxLayout *line, const QString &name)
{
    auto *arrow = addStep(line, name, {});
    arrow->setPixmap(theme::icon(u"next"_s).pixmap(ArrowSize));
    return arrow;
}

} // namespace

frmSendDBUpdate::frmSendDBUpdate(QWidget *parent)
    : Screen(u"frmSendDBUpdate"_s, u"Update Report"_s, parent, StoreWhat::SizeOnly)
{
    resize(FirstSize);
    buildForm();
    DisplayData();
}

void frmSendDBUpdate::ShowSendDBUpdateDetails()
{
    frmSendDBUpdate(QApplication::activeWindow()).showModal();
}

void frmSendDBUpdate::buildForm()
{
    input::FormBuilder form(this);
    form.note(u"The update of the database has failed. What has run stays as it is, and you can go "
              u"on working."_s,
              u"lblFailed"_s);
    form.note(u"Please send us the update's script simply by clicking on the Send button. It shows "
              u"how far the update went, and holds none of your records."_s,
              u"lblPlease"_s);
    txtEmail = form.textField(u"txtEmail"_s, u"Sender &Email:"_s, LongestEmail);
    auto *steps = new QWidget(this);
    auto *line = new QHBoxLayout(steps);
    line->setContentsMargins({});
    lblCheckData = addStep(line, u"lblCheckData"_s, u"Checking Data"_s);
    Image1 = addArrow(line, u"Image1"_s);
    lblGenerating_XML = addStep(line, u"lblGenerating_XML"_s, u"Generating Report"_s);
    Image2 = addArrow(line, u"Image2"_s);
    lblExporting = addStep(line, u"lblExporting"_s, u"Sending"_s);
    line->addStretch();
    form.widget(steps);
    form.stretch();
    cmdSend = form.button(u"cmdSend"_s, u"&Send"_s, theme::icon(u"mail"_s));
    cmdExit = form.button(u"cmdExit"_s, u"&Return"_s, theme::icon(u"return"_s));
    form.finish();
    // Grey until they are reached.
    cmdSend->setDefault(true);
    clearMarks();
    connect(cmdSend, &QPushButton::clicked, this, &frmSendDBUpdate::cmdSend_Click);
    connect(cmdExit, &QPushButton::clicked, this, [this] { unload(); });
}

void frmSendDBUpdate::DisplayData()
{
    txtEmail->setText(GetOption(u"GEN_COMPANY_EMAIL"_s, false).trimmed());
}

void frmSendDBUpdate::clearMarks()
{
    for (QLabel *label : {lblCheckData, lblGenerating_XML, lblExporting})
        label->setEnabled(false);
    for (QLabel *image : {Image1, Image2})
        image->setEnabled(false);
}

void frmSendDBUpdate::mark(Step step)
{
    const std::array labels{lblCheckData, lblGenerating_XML, lblExporting};
    const std::array images{Image1, Image2};
    const auto reached = static_cast<std::size_t>(step);
    labels[reached]->setEnabled(true);
    if (reached > 0)
        images[reached - 1]->setEnabled(true);
    // Painted before the step begins, which holds up the event loop.
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

bool frmSendDBUpdate::send()
{
    const auto fail = [](const QString &reason) {
        base::showMessage(u"The report could not be sent. "_s + reason);
        return false;
    };
    try {
        // The marks tell where it stopped, so each comes ahead of what may fail.
        mark(Step::GeneratingXml);
        const QString address = txtEmail->text().trimmed();
        ErrorReport report;
        report.UserEmail = address;
        const ReportMail mail{
            address, reportSenderName(), reportSubject(address),
            updateReportHtml(ErrorReportDetails::of(report), GetRegistryValue(u"CLIENTVERSION"_s)),
            base::applicationPath(u"\\Script\\DBChanges.mdb"_s)};
        mark(Step::Exporting);
        // None has joined in a program without an account's transport.
        const auto &sendMail = reportTransport().sendMail;
        return (sendMail && sendMail(mail)) ||
               fail(u"No mail account is set up for it. File, Setup has a page Mail for that."_s);
    } catch (const base::Cancelled &) {
        throw;
    } catch (const base::Error &error) {
        // A server's answer may repeat a password.
        return fail(secrets::withheld(error.description()));
    }
}

void frmSendDBUpdate::cmdSend_Click()
{
    mark(Step::CheckData);
    if (!VailidateFields(txtEmail))
        return clearMarks();
    base::trapped(Module, "cmdSend_Click", [this] {
        try {
            if (send())
                base::showInformation(
                    u"Thank You for reporting this error. This goes directly to our "
                    u"programmers for diagnosis and repair."_s);
            // Also after a failure, which has been told: the script stays where it is, and the menu
            // leads here again.
            unload();
        } catch (const base::Cancelled &) {
            clearMarks();
        }
    });
}
