#pragma once

#include "core/ui/Binding.h"
#include "core/ui/RecordScreen.h"
#include "organisation/clsSite.h"

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
    QString recordName() const override;
    bool VailidateFields() override;
    std::optional<QVariant> saveRecord() override;
    bool deleteRecord(const QVariant &key) override;
    QString usedBy(const QVariant &key) const override;

private:
    void buildForm();
    void cmdState_Click();

    Binding<clsSite> m_fields{clsSite::fields()};
    QLineEdit *txtSiteName = nullptr;
    QLineEdit *txtAddress = nullptr;
    QLineEdit *txtCity = nullptr;
    input::IdCombo *cboState = nullptr;
    QLineEdit *txtZip = nullptr;
};
