#pragma once

#include "core/ui/Binding.h"
#include "scheduling/clsServices.h"
#include "scheduling/ui/Gap.h"

#include <QObject>
#include <optional>

class PatternBox;
class QRadioButton;

namespace input {
class FormBuilder;
} // namespace input

/// How a service is scheduled: every how many units of which period, from what it is counted on,
/// and by the calendar on which days.
class ScheduleBox final : public QObject
{
    Q_OBJECT

public:
    /// Makes its controls in the group that the form is at. The pattern is made, too, and placed by
    /// the form.
    ScheduleBox(input::FormBuilder &form, QWidget *parent);

    [[nodiscard]] PatternBox *pattern() const { return fraPattern; }
    /// Ties its controls, those of the pattern included, to the schedule of a service.
    void bind(Binding<AssignedService> &fields);
    /// The controls whose changes are edits; the pattern tells its own.
    [[nodiscard]] QList<QWidget *> controls() const;
    /// What of the schedule can be edited follows from its kind; nothing while it is not active.
    void setActive(bool active);
    /// To be called when another service is on show.
    void serviceShown();

    /// The code of the period that is chosen, empty for none.
    [[nodiscard]] QString period() const;
    [[nodiscard]] bool isCountPeriod() const;
    [[nodiscard]] int interval() const;

    /// What is missing in a pattern that some day has to meet.
    [[nodiscard]] std::optional<Gap> gap() const;
    /// Gives a service what its controls don't say: what it had.
    void complete(AssignedService &service, const AssignedService &shown) const;

Q_SIGNALS:
    /// The user chose another period than the one before.
    void periodChanged();
    /// The user changed the pattern.
    void edited();

private:
    void EnableLogicControl();
    void cboRenewalPeriod_Click();
    void useDayOfMonth(bool used);
    [[nodiscard]] QString renewal() const;
    void showRenewal(const QString &code);

    bool m_active = false;
    QString m_shownPeriod; ///< code of the period chosen last
    input::SpinInput *RRSpin1 = nullptr;
    input::IdCombo *cboRenewalPeriod = nullptr;
    QRadioButton *OptWOC = nullptr;
    QRadioButton *OptSOS = nullptr;
    QRadioButton *OptDSA = nullptr;
    PatternBox *fraPattern = nullptr;
};
