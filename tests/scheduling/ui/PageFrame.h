#pragma once

#include "core/Session.h"
#include "core/ui/Modal.h"
#include "scheduling/ui/MachinePage.h"

namespace test {

/// Stands in for the machine's screen around one page: keeps the mode and the transaction as that
/// does, and counts what the page asks for.
class PageFrame final : public MachineFrame
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
        bringUp(*page);
        page->pageShown();
        m_machine = machine;
        return shown;
    }

    [[nodiscard]] Mode frameMode() const override { return mode; }
    void beginEdit() override
    {
        if (mode != Mode::Browse)
            return;
        ++edits;
        mode = Mode::Modify;
        BeginTrans();
        page->setEditable(true);
    }
    bool save() override
    {
        if (!page->finishEditing())
            return false;
        CommitTrans();
        mode = Mode::Browse;
        page->showMachine(m_machine);
        return true;
    }
    void cancelEdit() override
    {
        RollbackTrans();
        mode = Mode::Browse;
        page->showMachine(m_machine);
    }
    void RefreshCombo(const QString &) override {}
    void contentChanged() override { ++changes; }
    void keepLayout(grid::GridView *, const QString &name) override { layouts.append(name); }

    std::unique_ptr<MachinePage> page;
    Mode mode = Mode::Browse;
    int edits = 0;
    int changes = 0;
    QStringList layouts;

private:
    qint64 m_machine = 0;
};

} // namespace test
