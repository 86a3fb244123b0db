#pragma once

#include "platform/report/designer/Selection.h"
#include "platform/report/layout/Layout.h"

#include <QObject>
#include <QUndoStack>
#include <functional>

namespace report {

/// What a designer works on: a layout, what of it is selected, and all changes that were made,
/// which can be undone and redone without limit. Views listen to its signals and change it by
/// change().
class DesignDocument final : public QObject
{
    Q_OBJECT

public:
    /// Changes a layout that it is given, and may name what is selected afterwards.
    using Change = std::function<void(Layout &layout, Selection &selection)>;

    explicit DesignDocument(QObject *parent = nullptr);

    /// Begins anew with a layout that has no changes yet.
    void setLayout(const Layout &layout);
    [[nodiscard]] const Layout &layout() const { return m_layout; }

    /// Makes one change that can be undone, named as the user reads it ("Move"). What the file
    /// couldn't hold is put right. Changes in a row with the same key other than 0 become one.
    /// False when nothing came of it.
    bool change(const QString &name, const Change &change, int key = 0);
    /// The next change stands for itself, whatever its key.
    void endSeries() { ++m_series; }

    [[nodiscard]] const Selection &selection() const { return m_selection; }
    /// Parts that are not there are left out.
    void select(const Selection &selection);

    /// For the actions that undo and redo, and their tool tips.
    [[nodiscard]] QUndoStack &undoStack() { return m_stack; }
    /// True while the layout is not the one that was set or saved last.
    [[nodiscard]] bool isModified() const { return !m_stack.isClean(); }
    /// What is there now counts as unmodified, also when it is come back to by undoing.
    void markSaved() { m_stack.setClean(); }

    /// The object must be there, as those of the selection always are.
    [[nodiscard]] const Object &object(Place place) const
    {
        return m_layout.bands[place.band].objects[place.object];
    }

Q_SIGNALS:
    /// By a change, by undoing one, or a new layout. Comes before the selection's signal, when both
    /// change.
    void layoutChanged();
    void selectionChanged();
    /// isModified() has changed.
    void modifiedChanged(bool isModified);

private:
    friend class LayoutCommand;
    void take(const Layout &layout, const Selection &selection);
    /// Without what the layout hasn't got; the whole report where nothing is left.
    [[nodiscard]] Selection existing(Selection selection) const;

    Layout m_layout;
    Selection m_selection;
    QUndoStack m_stack;
    int m_series = 0;
};

} // namespace report
