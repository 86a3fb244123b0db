#pragma once

#include "core/ui/Screen.h"
#include "core/ui/ScreenCalls.h"
#include "workorders/Recording.h"

class QPushButton;
class QTimeEdit;

namespace input {
class TimeInput;
}

/// Enters when work on a service began and ended and how long it took, for a service on an open
/// order or in history.
class frmServiceTime final : public Screen
{
    Q_OBJECT

public:
    explicit frmServiceTime(const ScreenCalls::ServiceTimes &times, QWidget *parent = nullptr);

    /// Shows the screen and waits. True when the times were stored.
    static bool ShowServiceTimeForm(const ScreenCalls::ServiceTimes &times);

private:
    void buildForm();
    void showTimes(const recording::Times &times);
    void timeStart_Validate();
    void timeEnd_Validate();
    /// Completes a time, in place of which one that can't be stands.
    void normalise(input::TimeInput *box, const QString &whenInvalid);
    void computeWorkHours();
    void cmdUpdate_Click();
    /// Where another workstation has changed them meanwhile, the user chooses. False when the times
    /// were not stored.
    [[nodiscard]] bool store();

    ScreenCalls::ServiceTimes m_times;
    recording::Times m_shown; ///< as the service held them
    bool m_stored = false;
    bool m_endIsGiven = false; ///< also midnight, which an empty box reads as

    input::TimeInput *timeStart = nullptr;
    input::TimeInput *timeEnd = nullptr;
    QTimeEdit *datWorkhrs = nullptr;
    QPushButton *cmdUpdate = nullptr;
    QPushButton *cmdCancel = nullptr;
};
