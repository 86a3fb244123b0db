#pragma once

#include "equipment/Workshop.h"
#include "equipment/ui/EquipmentPage.h"
#include "platform/grid/GridView.h"
#include "support/ScriptedPrompts.h"

#include <QLineEdit>
#include <QTest>
#include <memory>

namespace test {

/// Stands in for the machine's screen around one page: keeps the mode and the transaction as that
/// does, and counts what the page asks for.
class PageFrame final : public EquipmentFrame
{
public:
    template<class Page>
    Page &show(qint64 machine)
    {
        auto made = std::make_unique<Page>(*this);
        Page &shown = *made;
        page = std::move(made);
        page->resize(980, 420);
        page->showMachine(machine);
        page->setEditable(true);
        page->show();
        page->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(page.get()));
        page->pageShown();
        m_machine = machine;
        return shown;
    }

    [[nodiscard]] Mode frameMode() const override { return mode; }
    void beginEdit() override
    {
        if (mode != Mode::Browse)
            return;
        mode = Mode::Modify;
        BeginTrans();
        page->setEditable(true);
    }
    bool save() override
    {
        if (!page->finishEditing())
            return false;
        ++saves;
        CommitTrans();
        mode = Mode::Browse;
        page->showMachine(m_machine);
        return true;
    }
    void cancelEdit() override
    {
        ++cancels;
        RollbackTrans();
        mode = Mode::Browse;
        page->showMachine(m_machine);
    }
    void RefreshCombo(const QString &) override {}
    void contentChanged() override { ++changes; }
    void keepLayout(grid::GridView *, const QString &name) override { layouts.append(name); }

    std::unique_ptr<EquipmentPage> page;
    Mode mode = Mode::Browse;
    int saves = 0;
    int cancels = 0;
    int changes = 0;
    QStringList layouts;

private:
    qint64 m_machine = 0;
};

/// A page with its frame over a company of its own.
class PageTest : public Workshop
{
protected:
    using Icon = base::Prompts::Icon;
    using Buttons = base::Prompts::Buttons;
    using Answer = base::Prompts::Answer;
    static constexpr auto Ok = Buttons::Ok;

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
