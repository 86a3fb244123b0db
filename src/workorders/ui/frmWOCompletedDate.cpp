#include "workorders/ui/frmWOCompletedDate.h"

#include "platform/base/Environment.h"
#include "platform/base/Prompts.h"
#include "platform/input/DateInput.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/Leaving.h"
#include "platform/input/Theme.h"

#include <QApplication>
#include <QPushButton>

using namespace Qt::StringLiterals;

frmWOCompletedDate::frmWOCompletedDate(QWidget *parent)
    : Screen(u"frmWOCompletedDate"_s, u"Completed Date"_s, parent, StoreWhat::SizeOnly)
{
    input::FormBuilder form(this);
    dtpCompledDate = form.dateField(u"dtpCompledDate"_s, u"Change the &WO completed date to:"_s);
    form.note(u"Press Cancel to stop posting of Work Orders."_s);
    cmdOK = form.button(u"cmdOK"_s, u"&OK"_s, theme::icon(u"complete"_s));
    cmdCancel = form.button(u"cmdCancel"_s, u"&Cancel"_s, theme::icon(u"cancel"_s));
    form.finish();
    dtpCompledDate->setDate(base::today());
    dtpCompledDate->checkOnLeave();
    // Whoever gives the posting up need not put a date right first.
    input::setCausesValidation(cmdCancel, false);
    cmdOK->setDefault(true);
    connect(cmdOK, &QPushButton::clicked, this, &frmWOCompletedDate::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmWOCompletedDate::unload);
}

std::optional<QDate> frmWOCompletedDate::ShowCompletedDateForm()
{
    frmWOCompletedDate screen(QApplication::activeWindow());
    screen.showModal();
    // Closing the window by its own button is Cancel, too.
    return screen.m_chosen ? std::optional(screen.dtpCompledDate->date()) : std::nullopt;
}

void frmWOCompletedDate::cmdOK_Click()
{
    // Enter presses the button without leaving the box.
    if (!dtpCompledDate->date().isValid()) {
        base::showMessage(u"Please enter valid date."_s);
        dtpCompledDate->setFocus();
        return;
    }
    m_chosen = true;
    unload();
}
