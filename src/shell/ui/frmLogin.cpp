#include "shell/ui/frmLogin.h"

#include "platform/base/Prompts.h"
#include "platform/base/Trapped.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/Theme.h"
#include "shell/ui/ProductHeading.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

frmLogin::frmLogin(QWidget *parent)
    : Screen(u"frmLogin"_s, u"Login"_s, parent, StoreWhat::SizeOnly)
{
    buildForm();
    connect(cmdContinue, &QPushButton::clicked, this, &frmLogin::cmdContinue_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmLogin::cmdCancel_Click);
}

void frmLogin::buildForm()
{
    input::FormBuilder form(this);
    auto *heading = new shell::ProductHeading(this);
    lblProductName = heading->lblProductName;
    lblVersion = heading->lblVersion;
    form.widget(heading);
    txtUserName = form.textField(u"txtUserName"_s, u"&User Name:"_s, 60);
    txtPassword = form.passwordField(u"txtPassword"_s, u"&Password:"_s);
    form.stretch();
    cmdContinue = form.button(u"cmdContinue"_s, u"C&ontinue"_s);
    cmdCancel = form.button(u"cmdCancel"_s, u"&Cancel"_s);
    form.finish();
    cmdContinue->setDefault(true);
    txtUserName->setFocus();
    setMinimumWidth(380);
}

void frmLogin::ShowLoginForm(bool &Result)
{
    // Without a parent: there is no main window yet.
    frmLogin login;
    login.showModal();
    Result = !login.m_cancelled;
}

void frmLogin::cmdContinue_Click()
{
    base::trapped("frmLogin", "cmdContinue_Click", [this] {
        using Outcome = shell::LoginAttempts::Outcome;
        // Set ahead of each attempt: one that ends in an error lets nobody in.
        m_cancelled = true;
        switch (m_attempts.attempt(txtUserName->text(), txtPassword->text())) {
        case Outcome::LoggedIn:
            m_cancelled = false;
            unload();
            break;
        case Outcome::Refused:
            // Not which of the two: whoever tries names would learn which ones there are.
            base::showMessage(u"Invalid Username or Password!"_s);
            askAgain();
            break;
        case Outcome::LastRefused:
            base::showMessage(u"you have try all three Chance"_s);
            unload();
            break;
        }
    });
}

void frmLogin::cmdCancel_Click()
{
    m_cancelled = true;
    unload();
}

void frmLogin::askAgain()
{
    QLineEdit *box = txtUserName->text().isEmpty() ? txtUserName : txtPassword;
    box->setFocus();
    box->selectAll();
}
