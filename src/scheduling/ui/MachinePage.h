#pragma once

#include "core/Mode.h"

#include <QString>
#include <QWidget>

namespace grid {
class GridView;
}

/// What the machine's screen offers to its pages: it holds the mode and the transaction.
class MachineFrame
{
public:
    virtual ~MachineFrame() = default;

    [[nodiscard]] virtual Mode frameMode() const = 0;
    /// To be called ahead of every write and at the first edit: a browsing screen turns to Modify,
    /// which opens the transaction that Cancel undoes. Nothing happens in the other modes.
    virtual void beginEdit() = 0;
    /// Presses Save. True when the record was saved and the screen browses again.
    virtual bool save() = 0;
    /// Presses Cancel: everything since the first edit is undone and the machine shown anew.
    virtual void cancelEdit() = 0;
    /// Rebuilds the lists of a kind ("MAKE", "SITE", in any case) on all pages after its editor was
    /// closed; what was chosen stays chosen.
    virtual void RefreshCombo(const QString &listName) = 0;
    /// To be called when a page has got content or lost it: marks the tabs anew.
    virtual void contentChanged() = 0;
    /// Restores the stored layout of a grid, whose columns have to exist, and stores it when the
    /// screen is closed.
    virtual void keepLayout(grid::GridView *grid, const QString &gridName) = 0;
};

/// A page of the machine's screen, wherever its subject stands: the machine's own fields, its
/// services, history, parts, readings, pictures, documents. It writes on gcnData inside the
/// transaction of the screen (beginEdit ahead of it), so that Save keeps and Cancel undoes what it
/// wrote.
class MachinePage : public QWidget
{
    Q_OBJECT

public:
    explicit MachinePage(MachineFrame &frame, QWidget *parent = nullptr)
        : QWidget(parent)
        , m_frame(frame)
    {}

    /// Shows what the machine has; 0 empties the page. Called for each record on show, after Save
    /// and after Cancel, whichever page is visible.
    virtual void showMachine(qint64 EquipmentID) = 0;
    /// Whether the page's tab is marked.
    [[nodiscard]] virtual bool hasContent() const = 0;
    /// Locks the page (grids can't be edited, buttons that change something are off) or opens it.
    /// Called after each change of mode, rows or current record. Locked without the right to
    /// change machines, and without rows; never in mode Add.
    virtual void setEditable(bool editable) = 0;
    /// Ends the edit of a cell ahead of Save; False when it was refused.
    [[nodiscard]] virtual bool finishEditing() { return true; }
    /// Asked ahead of another tab and of Save. False keeps the page; it has told the user why and
    /// set the focus.
    [[nodiscard]] virtual bool mayLeave() { return true; }
    /// The page has come to the front: the control that begins it takes the focus.
    virtual void pageShown() { setFocus(); }
    /// The screen closes: the time to store options.
    virtual void closing() {}

protected:
    [[nodiscard]] MachineFrame &frame() const { return m_frame; }

private:
    MachineFrame &m_frame;
};
