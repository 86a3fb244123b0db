#pragma once

#include "core/ui/MasterScreen.h"
#include "organisation/clsCrew.h"

/// Crews: their numbers and descriptions.
class frmCrew final : public MasterScreen<clsCrew, clsCrewManager, &clsCrewManager::CanDeleteCrew>
{
    Q_OBJECT

public:
    explicit frmCrew(QWidget *parent = nullptr);

protected:
    db::Recordset loadRows() override;
    QString keyColumn() const override { return QStringLiteral("CrewID"); }
    void prepareNewRecord() override;
    QString recordName() const override;
    bool VailidateFields() override;
    std::optional<QVariant> saveRecord() override;

private:
    void buildForm();

    QLineEdit *txtCrewNumber = nullptr;
    QLineEdit *txtDescription = nullptr;
};
