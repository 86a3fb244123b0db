#include "shell/ui/frmFirstStart.h"

#include "core/ui/Openings.h"
#include "core/ui/Telling.h"
#include "platform/base/Prompts.h"
#include "platform/base/Trapped.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/Leaving.h"
#include "platform/input/PhoneInput.h"
#include "platform/input/Theme.h"
#include "shell/ui/FirstStartEntries.h"

#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

constexpr int textLength = 100;
constexpr int widthOfForm = 640;

} // namespace

void ShowFirstStart()
{
    frmFirstStart(QApplication::activeWindow()).showModal();
}

frmFirstStart::frmFirstStart(QWidget *parent)
    : Screen(u"frmFirstStart"_s, u"Welcome to Quorvantis"_s, parent, StoreWhat::SizeOnly)
{
    buildForm();
    closePasswordOnceGiven();
    connect(cmdImport, &QPushButton::clicked, this, &frmFirstStart::cmdImport_Click);
    connect(cmdSave, &QPushButton::clicked, this, &frmFirstStart::cmdSave_Click);
    connect(cmdLater, &QPushButton::clicked, this, &frmFirstStart::unload);
}

void frmFirstStart::buildForm()
{
    input::FormBuilder form(this);
    form.note(
        u"This company is new. What you enter here stands on its reports, and can be changed later under File, Setup."_s);
    form.beginGroup(u"The company"_s, u"fraCompany"_s);
    txtCompanyName = form.textField(u"txtCompanyName"_s, u"Company &Name"_s, textLength);
    txtCompanyAddress1 = form.textField(u"txtCompanyAddress1"_s, u"Company &Address"_s, textLength);
    txtCompanyAddress2 = form.textField(u"txtCompanyAddress2"_s, {}, textLength);
    txtCompanyAddress2->setAccessibleName(u"Company Address, second line"_s);
    txtCompanyPhone = form.phoneField(u"txtCompanyPhone"_s, u"&Phone"_s);
    txtCompanyEmail = form.textField(u"txtCompanyEmail"_s, u"&Email"_s, textLength);
    txtCompanyWebSite = form.textField(u"txtCompanyWebSite"_s, u"&Web Site"_s, textLength);
    form.endGroup();
    form.beginGroup(u"The password of the first user, \"Admin\""_s, u"fraPassword"_s);
    txtNewPassword = form.passwordField(u"txtNewPassword"_s, u"New Passwor&d"_s);
    txtConfirmPassword = form.passwordField(u"txtConfirmPassword"_s, u"&Confirm Password"_s);
    chkSecurity = form.checkBox(u"chkSecurity"_s, u"Ask for name and password at each s&tart"_s);
    form.endGroup();
    form.stretch();
    cmdImport = form.leftButton(u"cmdImport"_s, u"Save and &Import..."_s, theme::icon(u"import"_s));
    cmdSave = form.button(u"cmdSave"_s, u"&Save"_s, theme::icon(u"save"_s));
    cmdLater = form.button(u"cmdLater"_s, u"&Later"_s, theme::icon(u"return"_s));
    form.finish();
    // The import is a screen of another folder.
    cmdImport->setEnabled(openings().isJoined(u"frmImport"));
    input::validateOnLeave(txtCompanyPhone,
                           [this] { return txtCompanyPhone->check(u"Invalid phone No."_s); });
    // Who puts it off is not held back by what is half typed.
    input::setCausesValidation(cmdLater, false);
    cmdSave->setDefault(true);
    setMinimumWidth(widthOfForm);
    txtCompanyName->setFocus();
}

void frmFirstStart::closePasswordOnceGiven()
{
    // Once somebody has given one it is changed elsewhere, by who knows it.
    const bool isOpen = base::trapped("frmFirstStart", "Form_Load", false,
                                      [] { return shell::hasDeliveredPassword(); });
    for (QWidget *control :
         {static_cast<QWidget *>(txtNewPassword), static_cast<QWidget *>(txtConfirmPassword),
          static_cast<QWidget *>(chkSecurity)})
        control->setEnabled(isOpen);
}

shell::FirstSteps frmFirstStart::steps() const
{
    return {.name = txtCompanyName->text(),
            .address1 = txtCompanyAddress1->text(),
            .address2 = txtCompanyAddress2->text(),
            .phone = txtCompanyPhone->isEmptyMask() ? QString() : txtCompanyPhone->text(),
            .email = txtCompanyEmail->text(),
            .webSite = txtCompanyWebSite->text(),
            .password = txtNewPassword->text(),
            .passwordAgain = txtConfirmPassword->text(),
            .asksForLogin = chkSecurity->isChecked()};
}

bool frmFirstStart::store()
{
    // Enter and Alt+S come here while the field that was typed into still has the focus.
    if (!input::focusedMayLeave(this))
        return false;
    const shell::FirstSteps wanted = steps();
    if (const QString refusal = shell::refusalOf(wanted); !refusal.isEmpty()) {
        base::showMessage(refusal);
        // All other refusals are of the password.
        (wanted.name.trimmed().isEmpty() ? txtCompanyName : txtNewPassword)->setFocus();
        return false;
    }
    return telling("frmFirstStart", "cmdSave_Click", false, [&] {
        shell::storeFirstSteps(wanted);
        return true;
    });
}

void frmFirstStart::cmdSave_Click()
{
    if (store())
        unload();
}

void frmFirstStart::cmdImport_Click()
{
    if (!store())
        return;
    // Closed first: the import is no part of this screen, and what was entered is stored by now.
    unload();
    openings().open(u"frmImport");
}
