#pragma once

#include "core/ui/Screen.h"

class QLabel;
class QPushButton;

namespace input {
class IdCombo;
}

/// Gives a machine to another crew, and notes in its history which one it leaves.
class frmAssignCrew final : public Screen
{
    Q_OBJECT

public:
    explicit frmAssignCrew(qint64 EquipmentID, QWidget *parent = nullptr);

    /// True when the machine has another crew now.
    [[nodiscard]] bool saved() const { return m_saved; }

private:
    void buildForm();
    void load();
    void cmdUpdate_Click();

    qint64 m_equipment;
    qint64 m_shownCrew = 0;
    QString m_oldCrew; ///< number, three blanks, description; blank for none
    bool m_saved = false;

    QLabel *lblUnitNo = nullptr;
    QLabel *lblEquipmentName = nullptr;
    input::IdCombo *cboCrew = nullptr;
    QPushButton *cmdUpdate = nullptr;
    QPushButton *cmdExit = nullptr;
};
