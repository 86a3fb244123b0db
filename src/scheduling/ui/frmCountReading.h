#pragma once

#include "core/ui/Screen.h"
#include "scheduling/Readings.h"

class QLabel;
class QLineEdit;
class QPushButton;
class QStackedWidget;

namespace input {
class DateInput;
class IdCombo;
} // namespace input

/// Takes a reading of a machine's meter.
class frmCountReading final : public Screen
{
    Q_OBJECT

public:
    /// A further reading; with an empty type the user chooses it.
    frmCountReading(qint64 EquipmentID, const QString &CountType, QWidget *parent = nullptr);
    /// The reading at which a service was last performed, the first one of its type.
    frmCountReading(qint64 EquipmentID, qint64 ServiceUsedID, const QString &ServiceName,
                    const QString &CountType, QWidget *parent = nullptr);

    /// True when a reading was saved.
    [[nodiscard]] bool saved() const { return m_saved; }
    /// The type that was asked for, or that the user chose.
    [[nodiscard]] const QString &countType() const { return m_type; }

private:
    void buildForm(const QString &serviceName);
    void RefreshCountForm();
    void checkDate();
    [[nodiscard]] QString chosenType() const;
    [[nodiscard]] bool choosesType() const;
    [[nodiscard]] bool showsLastReading() const { return m_service == 0; }
    [[nodiscard]] bool AddCount(const QString &periodCode);
    void cmdUpdate_Click();

    qint64 m_equipment;
    qint64 m_service = 0; ///< 0 unless a service asks
    QString m_type;
    bool m_typeChanged = false;
    bool m_saved = false;
    readings::Reading m_last;

    input::IdCombo *cboCountType = nullptr;
    QLabel *lblCountType = nullptr;
    QLabel *lblLastDate = nullptr;
    QLabel *lblLastCount = nullptr;
    input::DateInput *datCountDate = nullptr;
    QLineEdit *txtCountValue = nullptr;
    QPushButton *cmdUpdate = nullptr;
    QPushButton *cmdExit = nullptr;
};
