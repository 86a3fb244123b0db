#pragma once

#include "platform/report/designer/DesignDocument.h"

#include <QAction>
#include <QHash>

class QMenu;
class QMenuBar;
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

    /// What is used most, that first which is used most of all.
    void fillBar(QToolBar *bar) const;
    /// Everything, with its keys.
    void fillMenuBar(QMenuBar *bar) const;
    /// The menu of what is selected.
    void fillMenu(QMenu *menu) const;
    /// An action by its name, "align-left"; null where there is none of it.
    [[nodiscard]] QAction *action(const QString &name) const { return m_actions.value(name); }

    /// Puts the selected objects onto the clipboard with the styles and pictures that they need, as
    /// text too. Leaves the clipboard alone when none is selected.
    void copy() const;
    /// Adds what is on the clipboard to the canvas' target band.
    void paste();
    /// Asks for a picture's file and keeps its bytes in the layout; a picture that is selected
    /// alone shows it from now on. A file that is too large or can't be read is told.
    void insertPicture();

Q_SIGNALS:
    /// The window of the query, the list of attributes or the preview is wanted.
    void queryAsked();
    void attributesAsked();
    void previewAsked();

private:
    /// Makes an action that can be found by its name. Its keys hold on the canvas.
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
    /// Enables each action that can be done with what is selected now.
    void enable();
    /// -1 to the band above, 1 to the one below.
    void moveToNextBand(int direction);
    [[nodiscard]] bool canMoveToNextBand(int direction) const;
    /// Copies of the selected objects beside them, in their bands.
    void duplicate();
    /// All objects of the target band.
    void selectAll();
    void selectColumn();
    /// A change by a button stands for itself, whatever came before it.
    void change(const QString &name,
                const std::function<void(Layout &, const Selection &)> &change);
    void fill(QWidget *place, const QStringList &names) const;

    DesignDocument &m_document;
    DesignCanvas &m_canvas;
    StructureTree &m_tree;
    QWidget *m_owner;
    QHash<QString, QAction *> m_actions;
};

} // namespace report
