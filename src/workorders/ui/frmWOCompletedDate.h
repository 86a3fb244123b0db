#pragma once

#include "core/ui/Screen.h"

#include <QDate>
#include <optional>

class QPushButton;

namespace input {
class DateInput;
}

/// Asks for the date on which all orders that are about to be posted were completed.
class frmWOCompletedDate final : public Screen
{
    Q_OBJECT

public:
    explicit frmWOCompletedDate(QWidget *parent = nullptr);

    /// The date chosen, today unless changed; nothing when the posting is given up.
    [[nodiscard]] static std::optional<QDate> ShowCompletedDateForm();

private:
    void cmdOK_Click();

    bool m_chosen = false;
    input::DateInput *dtpCompledDate = nullptr;
    QPushButton *cmdOK = nullptr;
    QPushButton *cmdCancel = nullptr;
};
