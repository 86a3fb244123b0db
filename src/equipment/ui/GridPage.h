#pragma once

#include "equipment/ui/EquipmentPage.h"
#include "platform/db/Recordset.h"

#include <functional>

/// A page whose content is the rows of one grid, with buttons that add and remove them.
class GridPage : public EquipmentPage
{
    Q_OBJECT

public:
    using EquipmentPage::EquipmentPage;

    [[nodiscard]] bool hasContent() const override;
    void setEditable(bool editable) override;
    void pageShown() override;

protected:
    /// Takes the grid, whose columns have to exist, as the page's.
    void setGrid(grid::GridView *grid);
    [[nodiscard]] qint64 equipment() const { return m_equipment; }
    [[nodiscard]] bool isEditable() const { return m_editable; }
    /// The text of the current row in a column, empty without a row.
    [[nodiscard]] QString chosen(QStringView column) const;

    /// Makes the buttons follow the rows, the current one and whether the page may be edited.
    virtual void EnableControls() = 0;
    /// The rows were read again, or another one is current.
    virtual void rowChanged() { EnableControls(); }
    /// Shows the rows of a machine; while it is the same one the place in them is kept. An error
    /// is reported under the procedure.
    void showRows(qint64 equipmentID, const char *procedure,
                  const std::function<db::Recordset()> &load);
    /// Asks, then deletes a row by its key, and shows the rows that are left. Nothing is asked
    /// without a key; when remove answers False the rows stay.
    void removeChosen(const QString &key, const std::function<bool(const QString &)> &remove);

private:
    qint64 m_equipment = 0;
    bool m_editable = false;
    grid::GridView *m_grid = nullptr;
};
