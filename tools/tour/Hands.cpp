#include "tour/Hands.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QProgressDialog>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <QWindow>

namespace tour {
namespace {

using namespace Qt::StringLiterals;

constexpr int LookEvery = 5;        // milliseconds
constexpr int RestfulLooks = 2;     // one behind another: what was posted has come
constexpr int Patience = 30 * 1000; // milliseconds

/// A window as a fault names it.
QString describe(const QWidget &window)
{
    const QString name = window.objectName().isEmpty()
                             ? QString::fromLatin1(window.metaObject()->className())
                             : window.objectName();
    const auto *box = qobject_cast<const QMessageBox *>(&window);
    return box ? u"the message \"%1\""_s.arg(box->text())
               : u"%1 (\"%2\")"_s.arg(name, window.windowTitle());
}

/// From the bar's heading through submenus to an entry; nothing when there is none of that name.
QList<QAction *> wayTo(const QList<QAction *> &entries, const QString &name)
{
    for (QAction *entry : entries) {
        if (entry->objectName() == name && !entry->menu())
            return {entry};
        if (entry->menu())
            if (const QList<QAction *> way = wayTo(entry->menu()->actions(), name); !way.isEmpty())
                return QList<QAction *>{entry} + way;
    }
    return {};
}

} // namespace

Hands::Hands()
{
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { look(); });
}

// --- Waiting -------------------------------------------------------------------------------------

Hands::Rest Hands::perform(std::function<void()> action)
{
    m_posted = true;
    // Not from here: an action may last until the window that it opens is closed.
    const auto act = [this, action = std::move(action)] {
        m_posted = false;
        m_running.push_back(QApplication::activeModalWidget());
        action();
        m_running.pop_back();
    };
    QMetaObject::invokeMethod(&m_timer, act, Qt::QueuedConnection);
    return rest();
}

void Hands::waitFor(std::coroutine_handle<> waiting)
{
    m_waiting = waiting;
    m_restful = 0;
    m_since.start();
    m_timer.start(LookEvery);
}

void Hands::look()
{
    m_restful = isAtRest() ? m_restful + 1 : 0;
    if (m_restful < RestfulLooks && !m_since.hasExpired(Patience))
        return;
    if (m_restful < RestfulLooks)
        m_fault = u"The program doesn't come to rest; in front is %1."_s.arg(frontText());
    m_timer.stop();
    std::exchange(m_waiting, {}).resume();
}

bool Hands::isAtRest() const
{
    QWidget *modal = QApplication::activeModalWidget();
    // A menu waits for its entry as a window does for its button.
    const bool asks = qobject_cast<QMenu *>(QApplication::activePopupWidget()) != nullptr;
    const bool atWork = m_posted || (!asks && !m_running.empty() && m_running.back() == modal);
    if (atWork || qobject_cast<QProgressDialog *>(modal) != nullptr)
        return false;
    QWidget *window = front();
    // Without a desktop nobody hands the keys back to the window below a closed one. A list that a
    // box of choices leaves behind takes them from the window without anybody being told, who then
    // has to lose them first.
    if (window != nullptr && window->isVisible() && !window->isActiveWindow()) {
        if (QGuiApplication::focusWindow() == window->windowHandle())
            windows().first()->activateWindow();
        window->activateWindow();
    }
    return window != nullptr && window->isVisible() && window->isActiveWindow();
}

void Hands::raiseFault()
{
    if (!m_fault.isEmpty())
        throw Fault(std::exchange(m_fault, {}));
}

// --- Looking -------------------------------------------------------------------------------------

/// While nothing is active yet, the lowest of the visible windows.
QWidget *Hands::front()
{
    if (QWidget *modal = QApplication::activeModalWidget())
        return modal;
    if (QWidget *active = QApplication::activeWindow())
        return active;
    const QList<QWidget *> visible = windows();
    return visible.isEmpty() ? nullptr : visible.first();
}

QString Hands::frontText()
{
    const QWidget *window = front();
    return window != nullptr ? describe(*window) : u"no window"_s;
}

QWidget &Hands::requireWindow(const QString &name) const
{
    QWidget *window = front();
    require(window != nullptr && window->objectName() == name,
            u"The window %1 must be in front, but it is %2."_s.arg(name, frontText()));
    return *window;
}

bool Hands::isInFront(const QString &name) const
{
    const QWidget *window = front();
    return window != nullptr && window->objectName() == name;
}

QWidget &Hands::find(const QString &name) const
{
    QWidget *found = nullptr;
    if (const QWidget *window = front()) {
        for (QWidget *each : window->findChildren<QWidget *>(name)) {
            if (each->isVisible())
                found = each;
        }
    }
    require(found != nullptr, u"There is no %1 in %2."_s.arg(name, frontText()));
    return *found;
}

QString Hands::message()
{
    const auto *box = qobject_cast<const QMessageBox *>(front());
    return box != nullptr ? box->text() : QString();
}

QList<QWidget *> Hands::windows()
{
    QList<QWidget *> visible;
    for (const QWindow *window : QGuiApplication::topLevelWindows()) {
        for (QWidget *widget : QApplication::topLevelWidgets()) {
            if (widget->windowHandle() == window && widget->isVisible())
                visible.append(widget);
        }
    }
    return visible;
}

// --- Acting --------------------------------------------------------------------------------------

/// A user reaches no more than this either.
QPoint Hands::reach(const QWidget &widget, QPoint place)
{
    const QWidget *window = widget.window();
    const QPoint there = widget.mapTo(window, place);
    require(widget.isEnabled(),
            u"%1 of %2 is disabled."_s.arg(widget.objectName(), describe(*window)));
    require(window->rect().contains(there),
            u"%1 lies outside of %2."_s.arg(widget.objectName(), describe(*window)));
    const QWidget *hit = window->childAt(there);
    require(hit == &widget || widget.isAncestorOf(hit),
            u"%1 of %2 is covered."_s.arg(widget.objectName(), describe(*window)));
    return there;
}

Hands::Rest Hands::clickAt(QWidget &widget, QPoint place, Qt::MouseButton button)
{
    const QPoint there = reach(widget, place);
    QWindow *window = widget.window()->windowHandle();
    return perform(
        [window, there, button] { QTest::mouseClick(window, button, Qt::NoModifier, there); });
}

Hands::Rest Hands::doubleClickAt(QWidget &widget, QPoint place)
{
    const QPoint there = reach(widget, place);
    QWindow *window = widget.window()->windowHandle();
    return perform(
        [window, there] { QTest::mouseDClick(window, Qt::LeftButton, Qt::NoModifier, there); });
}

Hands::Rest Hands::drag(QWidget &widget, QPoint from, QPoint to)
{
    return drag(widget, from, widget, to);
}

Hands::Rest Hands::drag(QWidget &widget, QPoint from, QWidget &target, QPoint to)
{
    // On the way, so that what is dragged can begin to follow and line up.
    constexpr int Steps = 8;
    const QPoint begin = reach(widget, from);
    const QPoint end = reach(target, to);
    QList<QPoint> places;
    for (int step = 0; step <= Steps; ++step)
        places.append(begin + (end - begin) * step / Steps);
    m_posted = true;
    dragOn(widget.window()->windowHandle(), places, 0);
    return rest();
}

/// Each step by itself: what is dragged out of a list has a loop of its own until it is let go.
void Hands::dragOn(QWindow *window, const QList<QPoint> &places, qsizetype step)
{
    QTimer::singleShot(LookEvery, &m_timer, [this, window, places, step] {
        if (step < places.size())
            dragOn(window, places, step + 1);
        else
            m_posted = false;
        if (step == 0)
            QTest::mousePress(window, Qt::LeftButton, Qt::NoModifier, places.first());
        else if (step < places.size())
            QTest::mouseMove(window, places[step]);
        else
            QTest::mouseRelease(window, Qt::LeftButton, Qt::NoModifier, places.last());
    });
}

Hands::Rest Hands::press(const QString &name)
{
    auto &button = control<QAbstractButton>(name);
    // A box to tick is wider than what can be clicked of it.
    const bool tick = qobject_cast<QCheckBox *>(&button) != nullptr;
    return clickAt(button, tick ? QPoint(button.height() / 2, button.height() / 2)
                                : button.rect().center());
}

Hands::Rest Hands::answer(const QString &text, const QString &caption)
{
    require(message() == text,
            u"The message \"%1\" must be in front, but it is %2."_s.arg(text, frontText()));
    for (QAbstractButton *button : front()->findChildren<QAbstractButton *>()) {
        if (button->isVisible() && button->text().remove(u'&') == caption)
            return clickAt(*button, button->rect().center());
    }
    throw Fault(u"The message \"%1\" has no button \"%2\"."_s.arg(text, caption));
}

Hands::Rest Hands::chooseEntry(const QString &name)
{
    const QWidget *window = front();
    auto *bar = window != nullptr ? window->findChild<QMenuBar *>() : nullptr;
    require(bar != nullptr, u"%1 has no menus."_s.arg(frontText()));
    const QList<QAction *> way = wayTo(bar->actions(), name);
    require(!way.isEmpty(), u"%1 has no menu entry %2."_s.arg(frontText(), name));
    require(way.last()->isEnabled() && way.last()->isVisible(), u"%1 is disabled."_s.arg(name));
    // Menu by menu: each must have opened for the click on the next.
    return perform([window, bar, way] {
        QTest::mouseClick(window->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                          bar->mapTo(window, bar->actionGeometry(way.first()).center()));
        for (qsizetype entry = 1; entry < way.size(); ++entry) {
            QMenu *menu = way[entry - 1]->menu();
            if (menu->isVisible())
                QTest::mouseClick(menu->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                                  menu->actionGeometry(way[entry]).center());
        }
    });
}

Hands::Rest Hands::chooseTab(const QString &name, int index)
{
    QTabBar *bar = control<QTabWidget>(name).tabBar();
    return clickAt(*bar, bar->tabRect(index).center());
}

Hands::Rest Hands::click(const QString &gridName, int row, const QString &column)
{
    grid::GridView &view = grid(gridName);
    require(row >= 0, u"%1 lacks the row for a click in \"%2\"."_s.arg(gridName, column));
    view.scrollTo(view.rows().indexOf(row, view.rows().columnIndex(column)));
    return clickAt(*view.viewport(), view.cellRect(row, column).center());
}

QRect Hands::lineOf(QAbstractItemView &view, const QString &text)
{
    const QAbstractItemModel &lines = *view.model();
    const QModelIndexList found =
        lines.match(lines.index(0, 0), Qt::DisplayRole, text, 1,
                    Qt::MatchExactly | Qt::MatchCaseSensitive | Qt::MatchRecursive);
    require(!found.isEmpty(), u"%1 has no line \"%2\"."_s.arg(view.objectName(), text));
    view.scrollTo(found.first());
    return view.visualRect(found.first());
}

Hands::Rest Hands::clickLine(const QString &name, const QString &text)
{
    auto &view = control<QAbstractItemView>(name);
    return clickAt(*view.viewport(), lineOf(view, text).center());
}

Hands::Rest Hands::tickLine(const QString &name, const QString &text)
{
    auto &view = control<QAbstractItemView>(name);
    const QRect line = lineOf(view, text);
    return clickAt(*view.viewport(), line.topLeft() + QPoint(line.height(), line.height()) / 2);
}

Hands::Rest Hands::choose(const QString &name, const QString &text)
{
    auto &box = control<QComboBox>(name);
    const QPoint there = reach(box, box.rect().center());
    require(box.findText(text) >= 0, u"%1 doesn't offer \"%2\"."_s.arg(name, text));
    return perform([&box, there, text] {
        QTest::mouseClick(box.window()->windowHandle(), Qt::LeftButton, Qt::NoModifier, there);
        QAbstractItemView &offered = *box.view();
        const QModelIndex line = offered.model()->index(box.findText(text), box.modelColumn());
        offered.scrollTo(line);
        QTest::mouseClick(
            offered.window()->windowHandle(), Qt::LeftButton, Qt::NoModifier,
            offered.viewport()->mapTo(offered.window(), offered.visualRect(line).center()));
    });
}

Hands::Rest Hands::chooseFromMenu(const QString &text)
{
    auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    require(menu != nullptr, u"No menu is open in %1."_s.arg(frontText()));
    for (QAction *entry : menu->actions()) {
        if (entry->text().remove(u'&') != text)
            continue;
        require(entry->isEnabled(), u"\"%1\" is disabled."_s.arg(text));
        return perform([menu, entry] {
            QTest::mouseClick(menu->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                              menu->actionGeometry(entry).center());
        });
    }
    throw Fault(u"The menu has no entry \"%1\"."_s.arg(text));
}

Hands::Rest Hands::type(const QString &name, const QString &text)
{
    QWidget &box = control(name);
    QWidget *window = box.window();
    require(box.isEnabled(), u"%1 is disabled."_s.arg(name));
    return perform([&box, window, text] {
        QTest::mouseClick(window->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                          box.mapTo(window, box.rect().center()));
        QTest::keyClick(window->windowHandle(), Qt::Key_A, Qt::ControlModifier);
        for (const QChar each : text)
            QTest::keyClick(window->windowHandle(), each.toLatin1());
    });
}

Hands::Rest Hands::type(const QString &text)
{
    QWindow *window = front()->windowHandle();
    return perform([window, text] {
        for (const QChar each : text)
            QTest::keyClick(window, each.toLatin1());
    });
}

Hands::Rest Hands::key(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QWindow *window = front()->windowHandle();
    return perform([window, key, modifiers] { QTest::keyClick(window, key, modifiers); });
}

} // namespace tour
