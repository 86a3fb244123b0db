#pragma once

#include "platform/db/Recordset.h"
#include "scheduling/ui/MachinePage.h"

#include <functional>

/// A page whose content is the rows of one grid, with buttons that add and remove them.
class GridPage : public MachinePage
{
    Q_OBJECT

public:
    using MachinePage::MachinePage;

    /// The machine on show, 0 for none.
    [[nodiscard]] qint64 equipment() const { return m_equipment; }
    [[nodiscard]] grid::GridView *grid() const { return m_grid; }

    [[nodiscard]] bool hasContent() const override;
    void setEditable(bool editable) override;
    [[nodiscard]] bool finishEditing() override;
    void pageShown() override;

protected:
    /// Takes the grid, whose columns have to exist, as the page's.
    void setGrid(grid::GridView *grid);
    /// Shows the machine on show anew.
    void showAgain() { showMachine(m_equipment); }
    /// For a page that loads its rows by itself.
    void setEquipment(qint64 equipmentID) { m_equipment = equipmentID; }
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
