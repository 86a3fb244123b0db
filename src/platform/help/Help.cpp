#include "platform/help/Help.h"

#include "platform/base/Trapped.h"
#include "platform/help/HelpBook.h"
#include "platform/help/HelpWindow.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPointer>

// The pages live in a static library, which would otherwise leave them out. Outside any namespace.
static void useHelpPages()
{
    Q_INIT_RESOURCE(help);
}

using namespace Qt::StringLiterals;

namespace help {
namespace {

const HelpBook &book()
{
    useHelpPages();
    static const HelpBook pages(u":/help"_s);
    return pages;
}

QList<QPointer<HelpWindow>> &windows()
{
    static QList<QPointer<HelpWindow>> all;
    return all;
}

/// The window that can be used now: while a modal screen is open only one that belongs to it can.
HelpWindow *reachableWindow(const QWidget *modal)
{
    windows().removeIf([](const QPointer<HelpWindow> &window) { return window.isNull(); });
    for (const QPointer<HelpWindow> &window : windows()) {
        if (modal == nullptr || window->parentWidget() == modal)
            return window;
    }
    return nullptr;
}

class HelpKey : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() != QEvent::KeyPress || !watched->isWidgetType())
            return false;
        const auto *key = static_cast<QKeyEvent *>(event);
        if (key->key() != Qt::Key_F1 || key->modifiers() != Qt::NoModifier)
            return false;
        // The control that has the focus sees the key first, and knows its form.
        showHelpFor(qobject_cast<QWidget *>(watched));
        return true;
    }
};

} // namespace

void showHelp(QWidget *parent, const QString &topic)
{
    base::trapped("Help", "ShowHelp", [&] {
        QWidget *modal = QApplication::activeModalWidget();
        HelpWindow *window = reachableWindow(modal);
        if (window == nullptr) {
            // Without a modal screen it is free of the main window, which may then cover it.
            window = new HelpWindow(book(), modal);
            if (parent != nullptr)
                window->setWindowIcon(parent->windowIcon());
            // It deletes itself when it is closed, which the pointer notices.
            windows().append(window);
        }
        window->openTopic(topic);
        window->show();
        window->raise();
        window->activateWindow();
    });
}

void showHelpFor(QWidget *widget)
{
    QString topic;
    // Outwards from the control: a page of a form may have a topic of its own.
    for (const QWidget *each = widget; each != nullptr && topic.isEmpty();
         each = each->parentWidget())
        topic = base::trapped("Help", "ShowHelpFor", QString(),
                              [each] { return book().topicOfForm(each->objectName()); });
    showHelp(widget, topic);
}

void closeAll()
{
    const auto all = std::exchange(windows(), {});
    for (const QPointer<HelpWindow> &window : all) {
        if (window != nullptr)
            window->close();
    }
}

void installHelpKey()
{
    qApp->installEventFilter(new HelpKey(qApp));
}

} // namespace help
