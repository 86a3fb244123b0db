#pragma once

#include "platform/grid/GridView.h"
#include "tour/Fault.h"

#include <QAbstractItemView>
#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>
#include <coroutine>
#include <functional>
#include <vector>

namespace tour {

/// The user's hands on the window in front: clicks and keys that go in where the system's own
/// would, so that they reach only what lies uncovered, enabled and in front.
///
///     co_await hands.press("cmdPost");
///     co_await hands.answer("No Work Order is selected to post", "OK");
///
/// Each call comes back when the program rests again: when what was set off has ended, or asks in a
/// new window. A program that doesn't rest within half a minute, and a control that the window in
/// front lacks, raise a Fault that names the window; so a box that nobody expected stops the tour.
class Hands
{
public:
    Hands();
    Hands(const Hands &) = delete;
    Hands &operator=(const Hands &) = delete;

    /// Waits until the program rests.
    class Rest
    {
    public:
        explicit Rest(Hands &hands)
            : m_hands(hands)
        {}
        [[nodiscard]] bool await_ready() const { return false; }
        void await_suspend(std::coroutine_handle<> waiting) { m_hands.waitFor(waiting); }
        void await_resume() const { m_hands.raiseFault(); }

    private:
        Hands &m_hands;
    };
    Rest rest() { return Rest(*this); }

    /// The window in front; raises a Fault unless it has that name.
    QWidget &requireWindow(const QString &name) const;
    /// True when the window of that name is the one in front.
    [[nodiscard]] bool isInFront(const QString &name) const;
    /// A visible control of the window in front.
    template<class Control = QWidget>
    [[nodiscard]] Control &control(const QString &name) const
    {
        auto *found = qobject_cast<Control *>(&find(name));
        require(found != nullptr, QStringLiteral("%1 is of another kind.").arg(name));
        return *found;
    }
    /// A grid of the window in front; raises a Fault when there is none of that name.
    [[nodiscard]] grid::GridView &grid(const QString &name) const
    {
        return control<grid::GridView>(name);
    }

    /// Clicks in the middle of a button, of a box to tick at its left.
    Rest press(const QString &name);
    /// Answers the message in front, which has to have this text, by the button of that caption.
    Rest answer(const QString &text, const QString &caption);
    /// Opens the menu that holds an entry of the window in front, and clicks on the entry.
    Rest chooseEntry(const QString &name);
    /// Clicks on a page's name in a row of tabs.
    Rest chooseTab(const QString &name, int index);
    /// Clicks in a cell, after scrolling to it.
    Rest click(const QString &gridName, int row, const QString &column);
    /// Clicks on a line of a list or a tree, which it shows by this text, after scrolling to it; on
    /// the box before it to tick it.
    Rest clickLine(const QString &name, const QString &text);
    Rest tickLine(const QString &name, const QString &text);
    /// Where such a line stands, after scrolling to it.
    [[nodiscard]] static QRect lineOf(QAbstractItemView &view, const QString &text);
    /// Opens a box to choose from, and clicks on a line of it.
    Rest choose(const QString &name, const QString &text);
    /// Clicks on an entry of the menu that is open.
    Rest chooseFromMenu(const QString &text);
    /// At a place of a control.
    Rest clickAt(QWidget &widget, QPoint place, Qt::MouseButton button = Qt::LeftButton);
    Rest doubleClickAt(QWidget &widget, QPoint place);
    /// Holds the button down between two places of a control, or of two of them.
    Rest drag(QWidget &widget, QPoint from, QPoint to);
    Rest drag(QWidget &widget, QPoint from, QWidget &target, QPoint to);
    /// Types over what a box holds.
    Rest type(const QString &name, const QString &text);
    /// Types into whatever has the focus.
    Rest type(const QString &text);
    /// Presses and releases a key where the focus is.
    Rest key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

    /// The text of a message in front, empty when it is none.
    [[nodiscard]] static QString message();
    /// All visible windows, the one in front last.
    [[nodiscard]] static QList<QWidget *> windows();

private:
    [[nodiscard]] static QWidget *front();
    [[nodiscard]] static QString frontText();
    [[nodiscard]] QWidget &find(const QString &name) const;
    Rest perform(std::function<void()> action);
    /// The place in its window, which a click has to reach.
    [[nodiscard]] static QPoint reach(const QWidget &widget, QPoint place);
    void dragOn(QWindow *window, const QList<QPoint> &places, qsizetype step);
    /// Looks every few milliseconds whether the program rests, and goes on then.
    void waitFor(std::coroutine_handle<> waiting);
    void look();
    /// True when no action is at work and the window in front can be worked in.
    [[nodiscard]] bool isAtRest() const;
    /// Raises what went wrong while it was waited for.
    void raiseFault();

    QTimer m_timer;
    QElapsedTimer m_since;
    std::coroutine_handle<> m_waiting;
    bool m_posted = false; ///< an action is on its way, or a drag is under way
    /// The modal window in front at the begin of each action that has not ended: those that wait in
    /// a window which they have opened, the last one perhaps still at work.
    std::vector<QWidget *> m_running;
    QString m_fault;
    int m_restful = 0;
};

} // namespace tour
