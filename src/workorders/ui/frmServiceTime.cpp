#include "workorders/ui/frmServiceTime.h"

#include "core/RecordStore.h"
#include "core/ui/Telling.h"
#include "platform/base/Prompts.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/Leaving.h"
#include "platform/input/Theme.h"
#include "platform/input/TimeInput.h"
#include "workorders/Recording.h"

#include <QApplication>
#include <QPushButton>
#include <QTimeEdit>

using namespace Qt::StringLiterals;

namespace {

const QTime Midnight(0, 0); // also means that no time was given

QTime given(const input::TimeInput *box)
{
    return box->time().isValid() ? box->time() : Midnight;
}

} // namespace

frmServiceTime::frmServiceTime(const ScreenCalls::ServiceTimes &times, QWidget *parent)
    : Screen(u"frmServiceTime"_s, u"Service Time"_s, parent)
    , m_times(times)
{
    buildForm();
    showTimes(recording::timesOf(m_times.start, m_times.end, m_times.workHours));
}

void frmServiceTime::showTimes(const recording::Times &times)
{
    m_shown = times;
    timeStart->setTime(times.start);
    timeEnd->setTime(times.end);
    datWorkhrs->setTime(times.hours);
    // A box can't tell midnight from nothing entered. Hours that were worked say that both ends
    // were given.
    m_endIsGiven = timeStart->time() != Midnight && datWorkhrs->time() != Midnight;
}

bool frmServiceTime::ShowServiceTimeForm(const ScreenCalls::ServiceTimes &times)
{
    frmServiceTime screen(times, QApplication::activeWindow());
    screen.showModal();
    return screen.m_stored;
}

void frmServiceTime::buildForm()
{
    input::FormBuilder form(this);
    timeStart = form.timeField(u"timeStart"_s, u"S&tart Time:"_s);
    timeEnd = form.timeField(u"timeEnd"_s, u"&End Time:"_s);
    datWorkhrs = new QTimeEdit(this);
    datWorkhrs->setObjectName(u"datWorkhrs"_s);
    datWorkhrs->setDisplayFormat(u"HH:mm"_s);
    // No time of the day but a length, so it has no AM and PM.
    form.field(u"&Work Hrs:"_s, datWorkhrs);
    cmdUpdate = form.button(u"cmdUpdate"_s, u"&Save"_s, theme::icon(u"save"_s));
    cmdCancel = form.button(u"cmdCancel"_s, u"&Cancel"_s, theme::icon(u"cancel"_s));
    form.finish();
    cmdUpdate->setDefault(true);

    // Cancel puts nothing right that is thrown away anyhow.
    input::setCausesValidation(cmdCancel, false);
    input::validateOnLeave(timeStart, [this] {
        timeStart_Validate();
        return true;
    });
    input::validateOnLeave(timeEnd, [this] {
        timeEnd_Validate();
        return true;
    });
    connect(cmdUpdate, &QPushButton::clicked, this, &frmServiceTime::cmdUpdate_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmServiceTime::unload);
}

void frmServiceTime::normalise(input::TimeInput *box, const QString &whenInvalid)
{
    // An hour above 12 has no half of the day: it is told, and a harmless time stands in its place.
    const bool hourIsGood = box->normalise(whenInvalid);
    if (hourIsGood && box->time().isValid())
        return;
    base::showMessage(u"Invalid Time"_s);
    box->setText(whenInvalid);
}

void frmServiceTime::timeStart_Validate()
{
    normalise(timeStart, u"08:00A"_s);
    computeWorkHours();
}

void frmServiceTime::timeEnd_Validate()
{
    normalise(timeEnd, u"12:00A"_s);
    // Whoever leaves the box has given an end, be it midnight.
    m_endIsGiven = true;
    computeWorkHours();
}

void frmServiceTime::computeWorkHours()
{
    const QTime start = given(timeStart);
    // Without a start the hours are what was typed.
    if (start == Midnight)
        return;
    const recording::WorkSpan span = recording::workSpan(start, given(timeEnd), m_endIsGiven);
    // Only when it has to: setting a box moves its cursor.
    if (span.end != given(timeEnd))
        timeEnd->setTime(span.end);
    datWorkhrs->setTime(span.hours);
}

void frmServiceTime::cmdUpdate_Click()
{
    // Enter presses the button without leaving the box.
    if (timeStart->hasFocus())
        timeStart_Validate();
    else if (timeEnd->hasFocus())
        timeEnd_Validate();
    datWorkhrs->interpretText();
    // The machine's screen begins its edit here, so that its Cancel undoes the times as well.
    if (m_times.beforeWrite)
        m_times.beforeWrite();
    m_stored = telling("frmServiceTime", "cmdUpdate_Click", false, [this] { return store(); });
    if (m_stored)
        unload();
}

bool frmServiceTime::store()
{
    using recording::TimesOf;
    const bool openOrder = m_times.table.compare(u"tblWoserviceUsed"_s, Qt::CaseInsensitive) == 0;
    const TimesOf where = openOrder ? TimesOf::OpenOrder : TimesOf::History;
    const recording::Times mine{given(timeStart), given(timeEnd), datWorkhrs->time()};
    recording::Times theirs;
    try {
        return recording::saveTimes(m_times.id, where, mine, m_shown);
    } catch (const record::Conflict &conflict) {
        const auto &held = conflict.differences();
        theirs = recording::timesOf(held[0].theirs.toString(), held[1].theirs.toString(),
                                    held[2].theirs.toString());
    }
    if (base::askYesNo(u"Another workstation has changed these times meanwhile: yours \"%1\", "
                       "theirs \"%2\". Do you want to store yours?"_s.arg(
                           recording::inWords(mine), recording::inWords(theirs))))
        return recording::saveTimes(m_times.id, where, mine);
    showTimes(theirs);
    return false;
}
