#pragma once

#include "core/ui/MasterScreen.h"
#include "organisation/clsSite.h"

namespace input {
class IdCombo;
}

/// Sites: where machines stand.
class frmSite final : public MasterScreen<clsSite, clsSiteManager, &clsSiteManager::CanDeleteSite>
{
    Q_OBJECT

public:
    explicit frmSite(QWidget *parent = nullptr);

protected:
    db::Recordset loadRows() override;
    QString keyColumn() const override { return QStringLiteral("SiteID"); }
    void prepareNewRecord() override;
    QString recordName() const override;
    bool VailidateFields() override;
    std::optional<QVariant> saveRecord() override;
    QString usedBy(const QVariant &key) const override;

private:
    void buildForm();
    void cmdState_Click();

    QLineEdit *txtSiteName = nullptr;
    QLineEdit *txtAddress = nullptr;
    QLineEdit *txtCity = nullptr;
    input::IdCombo *cboState = nullptr;
    QLineEdit *txtZip = nullptr;
};
