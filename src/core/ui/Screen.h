#pragma once

#include "core/Mode.h"

#include <QDialog>
#include <QList>
#include <QString>

namespace grid {
class GridView;
}

/// What all screens share: placement and size that are kept between two openings, the mode of a
/// record screen, a close box that follows it, and the layouts of grids.
///
/// A screen is opened with showModal() or show(), and closed by unload(), its close box or Escape.
class Screen : public QDialog
{
    Q_OBJECT

public:
    using Mode = ::Mode;
    /// What of a screen's place is kept for the workstation. A screen that keeps its size only is
    /// centred, or opens at the usual place (SizeAtUsualPlace).
    enum class StoreWhat { Placement, SizeOnly, SizeAtUsualPlace };

    /// formName: the screen's fixed name ("frmCrew"), which its stored layout goes by.
    Screen(const QString &formName, const QString &title, QWidget *parent = nullptr,
           StoreWhat storeWhat = StoreWhat::Placement);
    ~Screen() override;

    [[nodiscard]] const QString &formName() const { return m_formName; }
    [[nodiscard]] StoreWhat storeWhat() const { return m_storeWhat; }

    [[nodiscard]] Mode mode() const { return m_mode; }
    /// Sets the mode and calls EnableControls.
    void setMode(Mode mode);
    /// The user changed something: in Browse the mode turns to Modify.
    void edited();

    /// EnableCloseButton: greys the close box, and makes Escape do nothing, while False.
    void setCloseEnabled(bool enabled);
    [[nodiscard]] bool isCloseEnabled() const { return m_closeEnabled; }

    /// Shows the screen and waits until it is closed.
    int showModal();
    /// Closes the screen, whatever its close box says.
    void unload();

    void setVisible(bool visible) override;
    void reject() override;
    void done(int result) override;

protected:
    /// Makes controls follow mode(). Called after each change of it.
    virtual void EnableControls() {}
    /// Asked when the user closes the screen by its box or Escape; False keeps it open.
    virtual bool mayClose() { return true; }
    /// Called once, when the screen is closed and before its layout is stored.
    virtual void unloading() {}

    /// Lets the user's changes of these controls (line, memo, date, box to tick, option, list,
    /// spin box, grid) call edited(). Changes by the program don't count.
    void watch(const QList<QWidget *> &controls);
    /// Restores the grid's stored layout now, so its columns have to exist, and stores it when the
    /// screen is closed.
    void adoptGrid(grid::GridView *grid, const QString &name);

    /// While one lives, changes of watched controls count as the program's: DisplayData holds one.
    class Displaying
    {
    public:
        explicit Displaying(Screen &screen)
            : m_screen(screen)
        {
            ++m_screen.m_displaying;
        }
        ~Displaying() { --m_screen.m_displaying; }
        Displaying(const Displaying &) = delete;
        Displaying &operator=(const Displaying &) = delete;

    private:
        Screen &m_screen;
    };

private:
    Q_SLOT void changedByUser();

    struct AdoptedGrid
    {
        grid::GridView *view;
        QString name;
    };

    void watch(QWidget *control);
    void applyCloseButton();

    QString m_formName;
    StoreWhat m_storeWhat;
    Mode m_mode = Mode::Browse;
    bool m_closeEnabled = true;
    bool m_loaded = false;
    int m_displaying = 0;
    QList<AdoptedGrid> m_grids;
};
