#pragma once

#include "core/ui/Joints.h"
#include "core/ui/ScreenDriver.h"
#include "platform/grid/GridView.h"
#include "workorders/Workshop.h"
#include "workorders/ui/frmWorkorder.h"

#include <memory>

namespace test {

/// The work-order screen of a workshop, worked by clicks, keys and edits of cells.
struct WorkScreen : Workshop
{
    void openPrinting(const QString &unitNo = {})
    {
        open([&] { screen->ShowPrintWorkorder(unitNo); });
    }
    void openRecording(qint64 number = 0)
    {
        open([&] { screen->ShowCompleteWorkorder(number); });
    }

    [[nodiscard]] ScreenDriver driver() const { return ScreenDriver(*screen); }
    void press(const char *button) const { driver().press(button); }
    [[nodiscard]] grid::GridView &grid(const char *name) const
    {
        return driver().control<grid::GridView>(name);
    }
    [[nodiscard]] QStringList column(const char *name, const QString &columnName) const
    {
        return columnOf(grid(name), columnName);
    }
    [[nodiscard]] QString cell(const char *name, int row, const QString &columnName) const
    {
        return grid(name).rows().text(row, columnName);
    }
    /// An edit by the user; False when it was refused.
    bool edit(const char *name, int row, const QString &columnName, const QVariant &value) const
    {
        grid::GridModel &rows = grid(name).rows();
        grid(name).selectRow(row);
        return rows.edit(row, rows.columnIndex(columnName), value);
    }
    /// A click as slow as a user's: the press has taken effect before the release.
    void pressSlowly(const char *button) const
    {
        QTest::mousePress(&driver().control(button), Qt::LeftButton);
        QCoreApplication::processEvents();
        QTest::mouseRelease(&driver().control(button), Qt::LeftButton);
    }
    void key(const char *name, Qt::Key pressed) const
    {
        grid(name).setFocus();
        QTest::keyClick(&grid(name), pressed);
    }

    ScriptedPrompts prompts;
    Joints joints;
    std::unique_ptr<frmWorkorder> screen;

private:
    template<class Show>
    void open(Show &&show)
    {
        screen = std::make_unique<frmWorkorder>();
        show();
        bringUp(*screen);
    }
};

} // namespace test
