#include "core/ErrorStore.h"
#include "core/MailAccount.h"
#include "core/Options.h"
#include "core/RegistryValues.h"
#include "core/Secrets.h"
#include "core/ui/Sending.h"
#include "core/ui/Working.h"
#include "platform/base/Prompts.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/IdCombo.h"
#include "platform/input/Leaving.h"
#include "platform/mail/Header.h"
#include "shell/Updates.h"
#include "shell/ui/CheckForUpdates.h"
#include "shell/ui/frmSetup.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>
#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

// The pages of the options that connect the program with services outside the company.

namespace {

constexpr int LongestName = 200;
constexpr int LongestSecret = 500;
constexpr int DigitsOfPort = 5;

/// What the installation has left open is said, and not shown as an empty line.
QString shown(const QString &value)
{
    return value.isEmpty() ? u"(not set up)"_s : value;
}

/// Runs a step that a button of a page begins; a failure is told.
void trying(const std::function<void()> &step)
{
    try {
        step();
    } catch (const base::Cancelled &) {
        return;
    } catch (const base::Error &error) {
        base::showMessage(secrets::withheld(error.description()));
    }
}

/// Sends a mail to the sender and tells it. Raises base::Error.
void sendTest(const mail::Account &account, QWidget *page)
{
    // A server may answer with what it was sent.
    secrets::withhold(account.password);
    mailing::sendShown(u"Sending a test"_s, account,
                       {.sender = account.sender,
                        .senderName = u"Quorvantis"_s,
                        .recipients = {account.sender},
                        .subject = u"Test of the mail account"_s,
                        .html = u"<p>The mail account of Quorvantis works.</p>"_s,
                        .attachment = {}},
                       page);
    base::showInformation(
        u"The test was sent to %1. Look whether it arrives."_s.arg(account.sender));
}

/// What was typed into a secret's box or, when nothing was, what is kept.
QString typedOrKept(const QLineEdit *box, const QString &option)
{
    return box->text().isEmpty() ? secrets::read(option).value_or(QString()) : box->text();
}

bool mayBeSender(const QLineEdit *box)
{
    const QString address = box->text().trimmed();
    try {
        if (!address.isEmpty())
            mail::requireAddress(address);
        return true;
    } catch (const base::Error &error) {
        base::showMessage(error.description());
        return false;
    }
}

} // namespace

QLineEdit *frmSetup::addSecret(input::FormBuilder &form, const QString &option, const QString &name,
                               const QString &label)
{
    QLineEdit *box = form.passwordField(name, label, LongestSecret);
    auto *forget = form.sideButton(u"cmdForget"_s + name.sliced(3), u"Forget it"_s, u"delete"_s);
    // Shared by the functions of the field and the button, which live as long as the screen.
    const auto isForgotten = std::make_shared<bool>(false);
    addField({.key = option,
              .text = [box] { return box->text(); },
              .setText =
                  [=](const QString &) {
                      // The stored secret never comes into the box: the words in its place tell
                      // that there is one.
                      *isForgotten = false;
                      box->clear();
                      const bool isKept = secrets::isKept(option);
                      box->setPlaceholderText(isKept ? u"(kept; type to replace it)"_s : QString());
                      forget->setEnabled(isKept);
                  },
              .store =
                  [=](const QString &text) {
                      // An empty box means that nothing was typed, and only the button that the
                      // secret is to go.
                      if (!text.isEmpty() || *isForgotten)
                          secrets::store(option, text);
                      const bool isKept = secrets::isKept(option);
                      box->clear();
                      box->setPlaceholderText(isKept ? u"(kept; type to replace it)"_s : QString());
                      forget->setEnabled(isKept);
                      *isForgotten = false;
                  }});
    connect(box, &QLineEdit::textChanged, this, [this, option] { markChanged(option); });
    connect(forget, &QToolButton::clicked, this, [=, this] {
        *isForgotten = true;
        box->clear();
        // Not before it is applied: Cancel brings it back.
        box->setPlaceholderText(u"(will be forgotten)"_s);
        markChanged(option);
    });
    return box;
}

QWidget *frmSetup::mailPage()
{
    using namespace mailing;
    auto *page = new QWidget(this);
    input::FormBuilder form(page);
    form.note(u"The account by which the program sends reports and messages. Your mail provider "
              u"tells you what belongs here. All computers share it; only the password has to be "
              u"entered on each one. Without an account your own mail program is opened."_s);
    auto *server = addText(form, ServerOption, u"txtMailServer"_s, u"Mail ser&ver"_s, LongestName);
    auto *security = form.comboField(u"cboMailSecurity"_s, u"Encr&yption"_s);
    security->add(securityNames());
    const auto chosen = [security] {
        const qsizetype place = securityNames().indexOf(security->currentText());
        // The names stand in the order of the kinds.
        return static_cast<mail::Security>(std::max<qsizetype>(0, place));
    };
    addField({.key = SecurityOption,
              .text = [chosen] { return codeOf(chosen()); },
              .setText =
                  [security](const QString &code) {
                      security->selectText(securityNames().at(static_cast<int>(securityOf(code))));
                  }});
    auto *port = form.digitsField(u"txtMailPort"_s, u"Por&t"_s, DigitsOfPort);
    addField(port, PortOption);
    auto *sender =
        addText(form, SenderOption, u"txtMailSender"_s, u"Sender a&ddress"_s, LongestName);
    auto *user = addText(form, UserOption, u"txtMailUser"_s, u"U&ser name"_s, LongestName);
    auto *password = addSecret(form, PasswordOption, u"txtMailPassword"_s, u"Password"_s);
    form.beginRow();
    cmdTestMail = form.inlineButton(u"cmdTestMail"_s, u"Se&nd a test"_s);
    form.endRow();
    form.note(u"The test goes to the sender address, with what stands here now."_s);
    form.stretch();
    form.finish();

    const auto showUsualPort = [port, chosen] {
        // A blank port is the usual one, which changes with the encryption.
        port->setPlaceholderText(QString::number(mail::usualPort(chosen())));
    };
    showUsualPort();
    connect(security, &QComboBox::currentIndexChanged, this, [this, showUsualPort] {
        showUsualPort();
        markChanged(SecurityOption);
    });
    input::validateOnLeave(sender, [sender] { return mayBeSender(sender); });
    connect(cmdTestMail, &QPushButton::clicked, this, [=, this] {
        trying([=, this] {
            if (server->text().trimmed().isEmpty() || sender->text().trimmed().isEmpty())
                return base::showMessage(u"Enter the mail server and the sender address first."_s);
            // Of what stands in the boxes and not of the options: one tries before one stores.
            mail::Account account;
            account.server = server->text();
            account.security = chosen();
            account.port = portOf(port->text(), account.security);
            account.sender = sender->text().trimmed();
            account.user = user->text().trimmed();
            // Set by the installation and shown nowhere here.
            account.authorities = authorities();
            // A server that asks for no user gets no password either.
            if (!account.user.isEmpty())
                account.password = typedOrKept(password, PasswordOption);
            sendTest(account, this);
        });
    });
    return page;
}

QWidget *frmSetup::errorReportsPage()
{
    auto *page = new QWidget(this);
    input::FormBuilder form(page);
    form.note(u"Besides by mail, error reports can be written to a database of the makers. They "
              u"tell you the connection, which holds the password to it and is therefore kept like "
              u"one. Leave it empty if you were told none."_s);
    auto *store =
        addSecret(form, errorstore::ConnectionOption, u"txtErrorStore"_s, u"Co&nnection"_s);
    form.beginRow();
    cmdTestErrorStore = form.inlineButton(u"cmdTestErrorStore"_s, u"C&heck the connection"_s);
    form.endRow();
    form.stretch();
    form.finish();
    connect(cmdTestErrorStore, &QPushButton::clicked, this, [this, store] {
        trying([this, store] {
            const QString connection = typedOrKept(store, errorstore::ConnectionOption);
            if (connection.isEmpty())
                return base::showMessage(u"Enter the connection first."_s);
            // On a thread of its own, since a driver may wait long for a host that doesn't answer.
            // The block of the call ends with the thread, so that the number can be read here.
            int reports = 0;
            working::runShown(
                u"Checking the connection"_s,
                [&](const base::Steps &steps) {
                    steps.say(u"Connecting to the error store"_s);
                    reports = errorstore::reportsIn(connection);
                },
                this);
            base::showInformation(u"The error store answers. It holds %1 reports."_s.arg(reports));
        });
    });
    return page;
}

QWidget *frmSetup::updatesPage()
{
    auto *page = new QWidget(this);
    input::FormBuilder form(page);
    form.note(u"Where newer releases come from is set by the installation on this computer."_s);
    // Read once: the installation doesn't change while the screen is open.
    const auto share = updates::releaseShare();
    form.readOnlyField(u"lblVersion"_s, u"Installed release"_s)->setText(shown(GetVersionNo()));
    form.readOnlyField(u"lblReleaseShare"_s, u"Folder with releases"_s)
        ->setText(shown(share ? share->folder : QString()));
    form.readOnlyField(u"lblUpdateSite"_s, u"Update site"_s)
        ->setText(shown(updates::feedAddress()));
    auto *atStart = form.checkBox(u"chkCheckForUpdate"_s,
                                  u"Look into the &folder at each start of the program"_s);
    atStart->setEnabled(share.has_value());
    addField({.key = updates::AtStartValue,
              .text = [atStart] { return atStart->isChecked() ? u"1"_s : u"0"_s; },
              // Looking is the rule, so a value that is missing means on.
              .setText = [atStart](const QString &text) { atStart->setChecked(text != u"0"); },
              .read = [] { return GetRegistryValue(updates::AtStartValue); },
              .store = [](const QString &text) { SetRegistryValue(updates::AtStartValue, text); }});
    connect(atStart, &QCheckBox::toggled, this, [this] { markChanged(updates::AtStartValue); });
    form.beginRow();
    cmdCheckForUpdates = form.inlineButton(u"cmdCheckForUpdates"_s, u"Ask the update &site now"_s);
    form.endRow();
    cmdCheckForUpdates->setEnabled(!updates::feedAddress().isEmpty());
    form.stretch();
    form.finish();
    connect(cmdCheckForUpdates, &QPushButton::clicked, this, [] { mnuCheckForUpdates_Click(); });
    return page;
}
