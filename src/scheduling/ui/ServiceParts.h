#pragma once

#include "scheduling/clsServices.h"

#include <QGroupBox>
#include <functional>

class QLabel;
class QPushButton;

namespace grid {
class GridView;
}

/// The parts that a service needs, on the screen of the service. Writes at once, inside the shared
/// transaction, which stays open until the service is saved or reverted.
class ServiceParts final : public QGroupBox
{
    Q_OBJECT

public:
    explicit ServiceParts(ServiceStore store, QWidget *parent = nullptr);

    /// Asked before a part is added: the service must be stored by then. False stops.
    std::function<bool()> mayAdd;

    /// Shows the parts of a service, of none for 0.
    void RefreshPartGrid(qint64 key);
    /// The sum of quantities times prices, rounded to two places.
    [[nodiscard]] double SetPastCost() const;
    /// Locks the grid and its buttons, or opens them again.
    void setMayEdit(bool may);
    [[nodiscard]] grid::GridView *grid() const { return grdPartUsed; }

Q_SIGNALS:
    /// The user changed something, which has been written.
    void edited();
    /// The cost of the parts may be another one.
    void costChanged();

private:
    void buildBox();
    template<class Body>
    [[nodiscard]] bool write(const char *procedure, Body &&change);
    void cmdAddPart_Click();
    void cmdRemove_Click();
    [[nodiscard]] bool SavePartGirdChanges(int row, const QString &column, const QString &field,
                                           const QVariant &value);
    void showCost();
    void EnableControls();

    ServiceStore m_store;
    qint64 m_key = 0;
    bool m_mayEdit = true;
    grid::GridView *grdPartUsed = nullptr;
    QPushButton *cmdAddPart = nullptr;
    QPushButton *cmdRemove = nullptr;
    QLabel *lblPartCost = nullptr;
};
