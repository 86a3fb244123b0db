#pragma once

#include "core/ui/Screen.h"

#include <QDateTime>

class QLabel;
class QPushButton;
class QRadioButton;

namespace input {
class DateInput;
}

/// Asks for a posted service's next date when the one by its schedule is past already. Can't be
/// given up, since the posting waits for the answer.
class frmServiceDateConfirmation final : public Screen
{
    Q_OBJECT

public:
    frmServiceDateConfirmation(const QDateTime &completedDate, qint64 ServiceUsedID,
                               QWidget *parent = nullptr);

    /// Shows the screen; the date chosen.
    [[nodiscard]] static QDateTime ShowServiceDateConfirmationForm(const QDateTime &completedDate,
                                                                   qint64 ServiceUsedID);

private:
    void buildForm();
    void showService();
    void EnableControls() override;
    void datNextScheduled_Change();
    void cmdOK_Click();

    QDateTime m_completed;
    qint64 m_service;
    QDateTime m_result;

    QLabel *lblEquipmentName = nullptr;
    QLabel *lblUnitNo = nullptr;
    QLabel *lblName = nullptr;
    QRadioButton *optServiceBased = nullptr;
    QRadioButton *optNextScheduled = nullptr;
    input::DateInput *datNextScheduled = nullptr;
    QPushButton *cmdOK = nullptr;
};
