#pragma once

#include "core/ui/RecordScreen.h"

namespace input {
class IdCombo;
}

/// Locations within sites.
class frmLocation final : public RecordScreen
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
    bool VailidateFields() override;
    std::optional<QVariant> saveRecord() override;
    bool deleteRecord(const QVariant &key) override;
    QString usedBy(const QVariant &key) const override;
    bool event(QEvent *event) override;

private:
    void buildForm();
    void Form_Activate();
    void RefreshCombo();
    void cmdSite_Click();

    QLineEdit *txtLocationID = nullptr;
    QLineEdit *txtLocationName = nullptr;
    QLineEdit *txtDescription = nullptr;
    input::IdCombo *cboSite = nullptr;
    QString m_storedName;
    bool m_refreshing = false;
    bool m_leftForReport = false; ///< the window in front reports that the sites failed to load
};
