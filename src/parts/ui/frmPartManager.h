#pragma once

#include "core/ui/Screen.h"
#include "platform/grid/GridTypes.h"

#include <QHash>

class QLineEdit;
class QPushButton;

/// The list of parts: to manage them, or to pick some with quantities for a machine, a service or
/// an order.
class frmPartManager final : public Screen
{
    Q_OBJECT

public:
    /// leftOut: quoted, comma-separated part numbers that are not listed; may be empty.
    frmPartManager(const QString &leftOut, bool selectMode, QWidget *parent = nullptr);

    /// What was picked, as selection text; empty when nothing was.
    [[nodiscard]] const QString &selection() const { return m_selection; }

protected:
    void EnableControls() override;

private:
    void buildForm();
    /// Reads the list; what was ticked stays so. keepPart: the row to come back to.
    void ShowGrid(const QString &keepPart = {});
    /// Ticks and quantities stand in front where parts are picked.
    [[nodiscard]] QList<grid::Column> columns();
    /// Ticks what was picked, with its quantities, and nothing else.
    void FillValue(const QHash<QString, double> &picked);
    [[nodiscard]] QHash<QString, double> ticked() const;
    /// Hands over what is ticked, or opens the current part where nothing is picked.
    void cmdSelect_Click();
    void cmdAdd_Click();
    void cmdDelete_Click();
    /// Opens a part and comes back to its row.
    void openPart(int row);
    /// The number of the current part, empty without one.
    [[nodiscard]] QString currentPart() const;

    QStringList m_leftOut;
    bool m_selectMode;
    QString m_selection;

    QLineEdit *txtSearch = nullptr;
    grid::GridView *grdParts = nullptr;
    QPushButton *cmdSelect = nullptr;
    QPushButton *cmdAdd = nullptr;
    QPushButton *cmdDelete = nullptr;
    QPushButton *cmdExit = nullptr;
};
