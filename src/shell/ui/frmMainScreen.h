#pragma once

#include <QHash>
#include <QMainWindow>
#include <array>
#include <functional>

class QAction;
class QMenu;

namespace input {
class QuickLink;
}
namespace shell {
class HeaderBar;
} // namespace shell

/// The main window: menus, header, side bar of quick links and the board. Its menus are those of
/// the list of what can be opened; an entry that nobody has joined to openings() is disabled.
class frmMainScreen : public QMainWindow
{
    Q_OBJECT

public:
    /// End ends the process at once.
    explicit frmMainScreen(std::function<void()> End, QWidget *parent = nullptr);

    /// Disables the entries whose right the user lacks, and those that nothing has joined.
    void CheckRole();
    /// Removes the rows without a part from six tables.
    [[nodiscard]] bool CleanUpParts() const;

    /// The action of a menu entry, or of a submenu; null for an unknown name.
    [[nodiscard]] QAction *menuAction(const QString &name) const { return m_actions.value(name); }
    /// Does what the menu entry does, if its right is granted.
    void openEntry(const QString &name);
    /// Does what a click on a quick link does.
    void lblQuickMenu_Click(int index);

protected:
    void closeEvent(QCloseEvent *event) override;
    bool event(QEvent *event) override;

private:
    /// Captions, colours, place and size, and what is grey.
    void MDIForm_Load();
    /// Reads the board again, for who comes back to the window.
    void MDIForm_Activate();
    /// Closes what belongs to the window, and stores its size.
    void MDIForm_QueryUnload();
    void MDIForm_Unload();

    /// Joins what this window opens by itself to the list of what can be opened.
    void joinOwnEntries();
    void buildMenu();
    void buildSideBar();
    void buildBoard();
    void buildStatusBar();
    void setCaptions();
    void ApplyMainFormColors();
    void ApplySideBarColors();
    /// Does what a link stands for; raises what its screen raises.
    void runQuickLink(int index);
    void mnuCompactDB_Click();
    void mnuUpdateDatabase_Click();

    std::function<void()> m_end;
    QHash<QString, QAction *> m_actions;
    QHash<QString, QMenu *> m_menus;

    shell::HeaderBar *picHeaderBar = nullptr;
    QWidget *picSideMenuBar = nullptr;
    std::array<input::QuickLink *, 8> lblQuickMenu{};
    /// Picture and label of one index are one control.
    std::array<input::QuickLink *, 8> &imgQuickMenu = lblQuickMenu;

    /// The board is being read. Who leaves the window then has been shown a box by it.
    bool m_activating = false;
    bool m_skipActivation = false;
};
