#pragma once

#include "core/ui/MasterScreen.h"
#include "organisation/clsLocation.h"

namespace input {
class IdCombo;
}

/// Locations within sites.
class frmLocation final
    : public MasterScreen<clsLocation, clsLocation_Manager, &clsLocation_Manager::CanDeleteLocation>
{
    Q_OBJECT

public:
    explicit frmLocation(QWidget *parent = nullptr);

protected:
    db::Recordset loadRows() override;
    QString keyColumn() const override { return QStringLiteral("LocationID"); }
    void DisplayData(const db::Row &row) override;
    void ClearData() override;
    void prepareNewRecord() override;
    QString recordName() const override;
    bool VailidateFields() override;
    std::optional<QVariant> saveRecord() override;
    bool event(QEvent *event) override;

private:
    void buildForm();
    /// Reads the sites again, and keeps the one that is chosen.
    void RefreshCombo();
    void cmdSite_Click();

    QLineEdit *txtLocationID = nullptr;
    QLineEdit *txtLocationName = nullptr;
    QLineEdit *txtDescription = nullptr;
    input::IdCombo *cboSite = nullptr;
};
