#pragma once

#include "platform/report/designer/DesignDocument.h"

#include <QAction>
#include <QHash>

class QMenu;
class QToolBar;

namespace report {

class DesignCanvas;
class StructureTree;

/// What can be done with a design: the actions of tool bars and menus, with their keys, each
/// enabled while it can be done.
class DesignerActions final : public QObject
{
    Q_OBJECT

public:
    DesignerActions(DesignDocument &document, DesignCanvas &canvas, StructureTree &tree,
                    QWidget *owner);

    void fillEditBar(QToolBar *bar) const;
    void fillInsertBar(QToolBar *bar) const;
    /// The menu of what is selected.
    void fillMenu(QMenu *menu) const;
    [[nodiscard]] QAction *action(const QString &name) const { return m_actions.value(name); }

    void copy() const;
    void paste();
    void insertPicture();

private:
    QAction *add(const QString &name, const QString &caption, const QString &icon,
                 const QList<QKeySequence> &keys, const std::function<void()> &run);
    void addEditing();
    void addArranging();
    void addInserting();
    void addParts();
    void addViewing();
    QAction *addSwitch(const QString &name, const QString &caption, const QString &icon, bool isOn,
                       const std::function<void(bool)> &run);
    void addBandMenu();
    void enable();
    void duplicate();
    void selectAll();
    void change(const QString &name,
                const std::function<void(Layout &, const Selection &)> &change);
    void fill(QToolBar *bar, const QStringList &names) const;
    void fill(QMenu *menu, const QStringList &names) const;

    DesignDocument &m_document;
    DesignCanvas &m_canvas;
    StructureTree &m_tree;
    QWidget *m_owner;
    QHash<QString, QAction *> m_actions;
};

} // namespace report
