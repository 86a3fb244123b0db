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

    /// Adds a part of the kind on hand: a formula below formulas, a band elsewhere.
    void addGroup(const QString &by = {});
    /// By the selected field.
    void addSort();
    void addFormula();
    void addStyle();
    void addParameter();
    /// Removes what is selected, objects too.
    void removeSelected();
    /// Moves a band, group or object up or down among its like.
    void moveSelected(int direction);
    [[nodiscard]] bool canMoveSelected(int direction) const;
    [[nodiscard]] bool canRemoveSelected() const;

Q_SIGNALS:
    /// The attributes of what is selected are wanted, as after Enter.
    void attributesAsked();
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

    [[nodiscard]] QList<Line> lines() const;
    void refresh();
    void showSelection();
    void takeSelection();
    bool eventFilter(QObject *watched, QEvent *event) override;

    DesignDocument &m_document;
    QTreeWidget *m_tree;
    QList<Line> m_lines;
    QList<QTreeWidgetItem *> m_items; ///< by the number of their lines
    bool m_isShowing = false;
};

} // namespace report
