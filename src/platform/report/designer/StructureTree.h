#pragma once

#include "platform/report/designer/DesignDocument.h"

#include <QWidget>

class QToolBar;
class QTreeWidget;
class QTreeWidgetItem;

namespace report {

/// The parts of a report as a tree: bands with their objects, groups, formulas, parameters, further
/// rows and styles. What is selected here is selected everywhere.
class StructureTree final : public QWidget
{
    Q_OBJECT

public:
    StructureTree(DesignDocument &document, QWidget *parent = nullptr);

    /// Adds a group by an expression with its header and footer, and selects it; without an
    /// expression all rows are one group.
    void addGroup(const QString &by = {});
    /// Adds a sort order by the field that is selected alone, else by the number of the row.
    void addSort();
    /// Each adds a part by the next free name, with a value to begin with, and selects it.
    void addFormula();
    void addStyle();
    void addParameter();
    /// Removes what is selected, objects too.
    void removeSelected();
    /// Moves a band, group or object up or down among its like.
    void moveSelected(int direction);
    /// In steps of -1 up and 1 down; true for objects also at the end, where nothing moves.
    [[nodiscard]] bool canMoveSelected(int direction) const;
    [[nodiscard]] bool canRemoveSelected() const;

Q_SIGNALS:
    /// The attributes of what is selected are wanted, as after Enter.
    void attributesAsked();
    /// Somebody asks for a menu at a place of the screen.
    void menuAsked(QPoint global);

private:
    struct Line
    {
        int depth = 0;
        QString text;
        Selection selection;
        bool isHeading = false;

        bool operator==(const Line &) const = default;
    };

    /// The whole tree as it has to be, from top to bottom.
    [[nodiscard]] QList<Line> lines() const;
    void refresh();
    void showSelection();
    /// What the user has selected in the tree becomes the document's selection: objects, else the
    /// first other part.
    void takeSelection();
    bool eventFilter(QObject *watched, QEvent *event) override;

    DesignDocument &m_document;
    QTreeWidget *m_tree;
    QList<Line> m_lines;
    QList<QTreeWidgetItem *> m_items; ///< by the number of their lines
    bool m_isShowing = false;
};

} // namespace report
