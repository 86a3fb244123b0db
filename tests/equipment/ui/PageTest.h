#pragma once

#include "equipment/Workshop.h"
#include "platform/grid/GridView.h"
#include "scheduling/ui/PageFrame.h"
#include "support/ScriptedPrompts.h"

#include <QLineEdit>
#include <QTest>

namespace test {

/// A page with its frame over a company of its own.
struct PageTest : Workshop
{
    ~PageTest() override { RollbackTrans(); }

    template<class Control>
    Control &control(const QString &name)
    {
        auto *found = frame.page->findChild<Control *>(name);
        if (!found)
            throw std::runtime_error("no control " + name.toStdString());
        return *found;
    }
    void click(const QString &name) { QTest::mouseClick(&control<QWidget>(name), Qt::LeftButton); }
    /// Types into a cell and stores by Enter.
    static void type(grid::GridView &grid, int row, const QString &column, const QString &text)
    {
        ASSERT_TRUE(grid.editCell(row, column)) << column.toStdString();
        auto *box = qobject_cast<QLineEdit *>(QApplication::focusWidget());
        ASSERT_TRUE(box);
        box->selectAll();
        if (text.isEmpty())
            QTest::keyClick(box, Qt::Key_Delete);
        QTest::keyClicks(box, text);
        QTest::keyClick(box, Qt::Key_Return);
        grid.finishEditing();
    }

    ScriptedPrompts prompts;
    PageFrame frame;
};

} // namespace test
