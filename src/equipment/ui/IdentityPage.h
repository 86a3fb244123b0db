#pragma once

#include "equipment/ui/RecordPage.h"

/// What a machine is, where it stands and whose it is.
class IdentityPage final : public RecordPage
{
    Q_OBJECT

public:
    explicit IdentityPage(MachineFrame &frame, QWidget *parent = nullptr);

    void DisplayData(const clsEquipment &machine, const db::Row &row) override;
    void ClearData() override;
    void RefreshCombo(const QString &listName) override;
    [[nodiscard]] bool hasContent() const override;
    [[nodiscard]] bool mayLeave() override;

    /// The checks of a save. A failed one tells the user, sets the focus and answers False.
    [[nodiscard]] bool VailidateFields();
    /// Writes the crew history when the crew list was touched since the machine was shown. Data;
    /// inside the caller's transaction.
    [[nodiscard]] bool storeCrewHistory(qint64 EquipmentID);
    /// The unit of the machine on show, as stored; empty for a new one.
    [[nodiscard]] const QString &storedUnitNo() const { return m_storedUnitNo; }
    void focusUnitNo();
    /// The control that saves: going there leaves the check of the unit number to the save.
    void setSaveControl(const QWidget *save) { m_save = save; }

Q_SIGNALS:
    /// The user chose a year.
    void yearChosen(const QString &year);

private:
    void buildPage();
    void buildMachine(input::FormBuilder &form);
    void buildPlace(input::FormBuilder &form);
    /// Lets boxes check what is typed into them and what they hold when they are left.
    void checkFields();
    void bindFields();
    /// Lists rebuild those that depend on them, and choices that others wait for are passed on.
    void followChoices();
    void loadLists();
    /// False for a number that another machine has, which is told; the box is emptied then.
    [[nodiscard]] bool txtUnitNo_Validate();
    [[nodiscard]] bool txtSerialNo_Validate();
    /// The models hang on a make, which has to be chosen first.
    void editModels();

    const QWidget *m_save = nullptr;
    QString m_storedUnitNo;
    QString m_storedSerialNo;
    bool m_unitTyped = false; ///< since it was checked last
    bool m_serialTyped = false;
    bool m_crewChanged = false; ///< clicked, whatever was chosen

    QLineEdit *txtUnitNo = nullptr;
    QLineEdit *txtEquipmentName = nullptr;
    input::IdCombo *cboType = nullptr;
    input::IdCombo *cboMake = nullptr;
    input::IdCombo *cboModel = nullptr;
    QLineEdit *txtCapacity = nullptr;
    input::IdCombo *cboYear = nullptr;
    QLineEdit *txtSerialNo = nullptr;
    QLineEdit *txtBarCode = nullptr;
    input::DateInput *datInstalled = nullptr;
    QLineEdit *txtAttachedTo = nullptr;
    input::IdCombo *cboSite = nullptr;
    input::IdCombo *cboLocation = nullptr;
    input::IdCombo *cboCrew = nullptr;
    QCheckBox *chkInactive = nullptr;
};
