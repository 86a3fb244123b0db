#include "shell/ui/frmAbout.h"

#include "platform/input/FormBuilder.h"
#include "shell/ui/ProductHeading.h"

#include <QApplication>
#include <QPushButton>

using namespace Qt::StringLiterals;

frmAbout::frmAbout(QWidget *parent)
    : Screen(u"frmAbout"_s, u"About "_s + QApplication::applicationName(), parent,
             StoreWhat::SizeOnly)
{
    input::FormBuilder form(this);
    form.widget(new shell::ProductHeading(this));
    form.note(u"Equipment, services, work orders and parts of a grounds-maintenance business."_s);
    form.stretch();
    cmdOK = form.button(u"cmdOK"_s, u"&OK"_s);
    form.finish();
    cmdOK->setDefault(true);
    cmdOK->setFocus();
    setMinimumWidth(380);
    connect(cmdOK, &QPushButton::clicked, this, &frmAbout::unload);
}

void frmAbout::ShowAbout()
{
    frmAbout(QApplication::activeWindow()).showModal();
}
