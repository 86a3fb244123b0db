#include "administration/SecondPlace.h"
#include "core/DailyCopies.h"
#include "core/Session.h"
#include "core/ui/Launch.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/SpinInput.h"
#include "shell/ui/frmSetup.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>
#include <algorithm>

using namespace Qt::StringLiterals;

// The page of the options about the copies that are made without asking.

namespace {

QString newestCopy()
{
    const QList<QDate> days = copies::daysIn(copies::startCopiesFolder());
    return days.isEmpty() ? u"none yet"_s : std::ranges::max(days).toString(u"dddd, MM-dd-yyyy"_s);
}

} // namespace

void frmSetup::addKept(input::SpinInput *spin, QStringView option, int copies::KeepRule::*number)
{
    addField(
        {.key = option.toString(),
         .text = [spin] { return QString::number(spin->value()); },
         .setText = [spin](const QString &text) { spin->setValue(text.toInt()); },
         // Read as the rule, in which an option that is missing or senseless has its usual value.
         .read =
             [number] { return QString::number(copies::keepRuleOf(lookupConnection()).*number); }});
    // By edited, which comes for the user's changes alone.
    connect(spin, &input::SpinInput::edited, this,
            [this, key = option.toString()] { markChanged(key); });
}

QWidget *frmSetup::backupsPage()
{
    using copies::KeepRule;
    auto *page = new QWidget(this);
    input::FormBuilder form(page);
    form.note(u"Besides the backups that you make yourself, the program keeps copies without "
              u"asking. Old ones go by themselves, but only after a newer one was checked."_s);
    form.beginGroup(u"Copy of the day (for the whole company)"_s, u"fraDaily"_s);
    auto *daily =
        form.checkBox(u"chkDailyCopy"_s, u"&First start of each day keeps a copy on this disk"_s);
    form.beginRow(u"Keep the newest of each of the last"_s);
    auto *days = form.spinField(u"spnDays"_s, u"da&ys"_s);
    auto *weeks = form.spinField(u"spnWeeks"_s, u"week&s"_s);
    auto *months = form.spinField(u"spnMonths"_s, u"mont&hs"_s);
    form.endRow();
    form.readOnlyField(u"lblNewestCopy"_s, u"Newest copy"_s)->setText(newestCopy());
    form.endGroup();
    form.beginGroup(u"Second place (for this computer)"_s, u"fraSecondPlace"_s);
    auto *place = form.textField(u"txtSecondPlace"_s, u"Fol&der"_s);
    auto *browse = form.sideButton(u"cmdSecondPlace"_s, u"Browse"_s, u"folder"_s);
    form.note(u"A stick or a folder of another computer. When this is the last program to end, it "
              u"copies the database there, and keeps as many copies as above. Blank: no second "
              u"place."_s);
    form.endGroup();
    auto *restores = form.spinField(
        u"spnRestores"_s, u"&Newest databases to keep of those that a restore has put aside"_s);
    form.stretch();
    form.finish();

    addField(
        {.key = copies::DailyOption.toString(),
         .text = [daily] { return daily->isChecked() ? u"1"_s : u"0"_s; },
         .setText = [daily](const QString &text) { daily->setChecked(text == u"1"); },
         .read = [] { return copies::keepRuleOf(lookupConnection()).daily ? u"1"_s : u"0"_s; }});
    connect(daily, &QCheckBox::toggled, this,
            [this] { markChanged(copies::DailyOption.toString()); });
    addKept(days, copies::DaysOption, &KeepRule::days);
    addKept(weeks, copies::WeeksOption, &KeepRule::weeks);
    addKept(months, copies::MonthsOption, &KeepRule::months);
    addKept(restores, copies::RestoresOption, &KeepRule::restores);
    // Each workstation has its own: a stick is in one computer.
    addField({.key = administration::SecondPlaceOption.toString(),
              .perWorkstation = true,
              .text = [place] { return place->text().trimmed(); },
              .setText = [place](const QString &text) { place->setText(text); }});
    // A folder may be typed that is not there yet: the stick is put in at the end of the day.
    const auto placeChanged = [this] { markChanged(administration::SecondPlaceOption.toString()); };
    connect(place, &QLineEdit::textChanged, this, placeChanged);
    connect(browse, &QToolButton::clicked, this, [place] {
        const QString folder = BrowseForFolder(u"Please choose a second place for the copies"_s);
        if (!folder.isEmpty())
            place->setText(folder);
    });
    return page;
}
