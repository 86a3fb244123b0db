#pragma once

#include "core/ui/Binding.h"
#include "scheduling/clsServices.h"

#include <QObject>

class QLabel;
class QStackedWidget;
class Screen;
class ScheduleBox;

namespace input {
class FormBuilder;
} // namespace input

/// When a machine's service was scheduled and performed last, and when it falls due next: a date,
/// or for a count service the count that it waits for, and the date once that is reached.
class NextScheduleBox final : public QObject
{
    Q_OBJECT

public:
    /// Makes its controls in the group that the form is at.
    NextScheduleBox(input::FormBuilder &form, const ScheduleBox &schedule, Screen &screen);

    /// Ties its boxes to the next date and count of a service. The fields have to live as long.
    void bind(Binding<AssignedService> &fields);
    /// Shows when the service was scheduled and performed last; an invalid date is left blank.
    void showLast(const QDateTime &scheduled, const QDateTime &performed);
    /// Empties what no field does.
    void clear();
    /// Shows date or count, whichever the period of the service wants.
    void showScheduleKind();
    /// Greys date and count while the service is inactive.
    void setActive(bool active);
    /// Another service is on show, or this one as it is stored.
    void forgetChanges();

    /// Another period was chosen: a count service counts on from the machine's reading, a calendar
    /// service begins today.
    void CheckServiceChange();
    /// A date or count changed on a service that stands on an order is asked about, and put back
    /// on No.
    void confirmChangesOnOrder(qint64 ServiceUsedID);
    /// The checks of a save that leaves no box: a count, where it is new, and the date. False when
    /// one is refused, which the user has been told.
    [[nodiscard]] bool finish();

Q_SIGNALS:
    /// The user changed the date or the count.
    void edited();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void makeDate();
    void showNextDate(const QDateTime &date);
    [[nodiscard]] QDateTime nextDate() const;
    [[nodiscard]] qint64 presentCount() const;
    [[nodiscard]] bool txtCount_Validate();

    const ScheduleBox &m_schedule;
    const Screen &m_screen;
    const Binding<AssignedService> *m_fields = nullptr;
    bool m_nextDateChanged = false;
    bool m_nextCountChanged = false;

    QLabel *lblLastDateScheduledData = nullptr;
    QLabel *lblLastDatePerformedData = nullptr;
    QLabel *lblNextSchedule = nullptr;
    QLineEdit *txtCount = nullptr;
    QLabel *lblDueOn = nullptr;
    QStackedWidget *stkNextDate = nullptr;
    input::DateInput *datNextScheduledDate = nullptr;
    QLineEdit *txtNextScheduledDate = nullptr; ///< blank; lies over the date while there is none
};
