#include "shell/ui/frmChangePassword.h"

#include "core/Session.h"
#include "platform/base/Prompts.h"
#include "platform/base/Trapped.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/Theme.h"
#include "shell/Login.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

void askAgain(QLineEdit *box)
{
    box->setFocus();
    box->selectAll();
}

} // namespace

frmChangePassword::frmChangePassword(QWidget *parent)
    : Screen(u"frmChangePassword"_s, u"Change Password"_s, parent, StoreWhat::SizeOnly)
{
    buildForm();
    connect(cmdSave, &QPushButton::clicked, this, &frmChangePassword::cmdSave_Click);
    connect(cmdExit, &QPushButton::clicked, this, &frmChangePassword::cmdExit_Click);
}

void frmChangePassword::buildForm()
{
    input::FormBuilder form(this);
    txtOldPassword = form.passwordField(u"txtOldPassword"_s, u"&Existing Password:"_s);
    txtNewPassword = form.passwordField(u"txtNewPassword"_s, u"&New Password:"_s);
    txtConfirmPassword = form.passwordField(u"txtConfirmPassword"_s, u"&Confirm Password:"_s);
    form.stretch();
    cmdSave = form.button(u"cmdSave"_s, u"&Save"_s, theme::icon(u"save"_s));
    cmdExit = form.button(u"cmdExit"_s, u"&Return"_s, theme::icon(u"return"_s));
    form.finish();
    cmdSave->setDefault(true);
    txtOldPassword->setFocus();
    setMinimumWidth(380);
}

void frmChangePassword::ShowSystemSettings()
{
    frmChangePassword(QApplication::activeWindow()).showModal();
}

void frmChangePassword::cmdSave_Click()
{
    base::trapped("frmChangePassword", "cmdSave_Click", [this] {
        // First, so that nobody learns anything at a workstation that was left. With security off
        // nobody is logged in, and no password fits.
        if (!shell::isUserPassword(gsLoginUser, txtOldPassword->text())) {
            base::showMessage(u"Existing password did not match."_s);
            askAgain(txtOldPassword);
            return;
        }
        // Letter by letter, although case doesn't matter at the login: two different texts are two
        // different intentions.
        if (txtNewPassword->text() != txtConfirmPassword->text()) {
            base::showMessage(u"New password and Confirm Password are not same."_s);
            askAgain(txtConfirmPassword);
            return;
        }
        if (const QString refusal = shell::refusalOfLoginText(txtNewPassword->text());
            !refusal.isEmpty()) {
            base::showMessage(refusal);
            askAgain(txtNewPassword);
            return;
        }
        shell::storePassword(gsLoginUser, txtNewPassword->text());
        base::showMessage(u"Your password changed Succesfully."_s);
        unload();
    });
}

void frmChangePassword::cmdExit_Click()
{
    unload();
}
