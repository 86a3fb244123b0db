#pragma once

#include "core/ui/Binding.h"
#include "core/ui/RecordScreen.h"
#include "organisation/clsCrew.h"

/// Crews: their numbers and descriptions.
class frmCrew final : public RecordScreen
{
    Q_OBJECT

public:
    explicit frmCrew(QWidget *parent = nullptr);

protected:
    db::Recordset loadRows() override;
    QString keyColumn() const override { return QStringLiteral("CrewID"); }
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

    Binding<clsCrew> m_fields{clsCrew::fields()};
    QLineEdit *txtCrewNumber = nullptr;
    QLineEdit *txtDescription = nullptr;
};
