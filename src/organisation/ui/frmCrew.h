#pragma once

#include "core/ui/RecordScreen.h"

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
    bool VailidateFields() override;
    std::optional<QVariant> saveRecord() override;
    bool deleteRecord(const QVariant &key) override;
    QString usedBy(const QVariant &key) const override;

private:
    void buildForm();

    QLineEdit *txtCrewNumber = nullptr;
    QLineEdit *txtDescription = nullptr;
    qint64 m_crewID = 0;
    QString m_storedNumber; ///< as displayed; empty for a new crew
};
