#pragma once

#include "core/ui/RecordScreen.h"

namespace input {
class IdCombo;
}

/// Sites: where machines stand.
class frmSite final : public RecordScreen
{
    Q_OBJECT

public:
    explicit frmSite(QWidget *parent = nullptr);

protected:
    db::Recordset loadRows() override;
    QString keyColumn() const override { return QStringLiteral("SiteID"); }
    void DisplayData(const db::Row &row) override;
    void ClearData() override;
    void prepareNewRecord() override;
    bool VailidateFields() override;
    std::optional<QVariant> saveRecord() override;
    bool deleteRecord(const QVariant &key) override;
    QString usedBy(const QVariant &key) const override;

private:
    void buildForm();
    void cmdState_Click();

    QLineEdit *txtSiteName = nullptr;
    QLineEdit *txtAddress = nullptr;
    QLineEdit *txtCity = nullptr;
    input::IdCombo *cboState = nullptr;
    QLineEdit *txtZip = nullptr;
    qint64 m_siteID = 0;
    QString m_storedName;
};
