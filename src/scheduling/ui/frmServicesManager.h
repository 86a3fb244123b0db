#pragma once

#include "core/ui/Screen.h"

#include <QSet>

class QLabel;
class QPushButton;
class QRadioButton;

/// The list of services: of the catalogue, or of a machine. To look through and manage them, or to
/// pick some for a machine or an order.
class frmServicesManager final : public Screen
{
    Q_OBJECT

public:
    struct Request
    {
        QString leftOut{}; ///< comma-joined catalogue keys that are not listed; may be empty
        qint64 EquipmentID = 0;
        QString kind = QStringLiteral("SL"); ///< "SL" the catalogue, "EL" a machine's services
        bool selectMode = false;
        bool equipmentOption = false; ///< the user may find a machine and turn to its services
    };

    explicit frmServicesManager(const Request &request, QWidget *parent = nullptr);

    /// The keys picked, joined by ", "; empty when none were.
    [[nodiscard]] const QString &selection() const { return m_selection; }
    /// Whose keys these are: "SL" of the catalogue, "EL" of assigned services.
    [[nodiscard]] const QString &kind() const { return m_kind; }

protected:
    void EnableControls() override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void buildForm();
    /// keepKey: the row to come back to, with all ticks; without one the list begins anew.
    void ShowGrid(const QString &keepKey = {});
    [[nodiscard]] QStringList tickedKeys() const;
    void optServiceMaster_Click();
    void optEquipmentService_Click();
    void showMachine();
    void cmdSelect_Click();
    void cmdAdd_Click();
    void cmdDelete_Click();
    void openService(int row);
    void toggleSelect(int row);
    [[nodiscard]] QString keyOf(int row) const;
    [[nodiscard]] bool isCatalogue() const;

    QSet<qint64> m_leftOut; ///< keys of the catalogue
    qint64 m_equipment;
    QString m_kind;
    bool m_selectMode;
    bool m_equipmentOption;
    QString m_selection;

    QWidget *fraEquipment = nullptr;
    QRadioButton *optServiceMaster = nullptr;
    QRadioButton *optEquipmentService = nullptr;
    QLabel *lblUnitNo = nullptr;
    QLabel *lblEquipmentName = nullptr;
    grid::GridView *grdServices = nullptr;
    QPushButton *cmdSelect = nullptr;
    QPushButton *cmdAdd = nullptr;
    QPushButton *cmdDelete = nullptr;
    QPushButton *cmdExit = nullptr;
};
