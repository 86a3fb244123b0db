#include "platform/input/DateStamp.h"

#include "platform/base/Environment.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextEdit>

namespace input {
namespace {

class StampKey : public QObject
{
public:
    explicit StampKey(QWidget *noteBox)
        : QObject(noteBox)
    {
        noteBox->installEventFilter(this);
    }

private:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() != QEvent::KeyPress && event->type() != QEvent::ShortcutOverride)
            return QObject::eventFilter(watched, event);
        const auto *key = static_cast<QKeyEvent *>(event);
        if (key->key() != Qt::Key_D || key->modifiers() != Qt::ControlModifier)
            return QObject::eventFilter(watched, event);
        // Taken first, or a shortcut of the window would get the key.
        if (event->type() == QEvent::ShortcutOverride)
            event->accept();
        else
            insertDateStamp(qobject_cast<QWidget *>(watched));
        return true;
    }
};

} // namespace

QString dateStamp(const QDateTime &moment)
{
    const QDate date = moment.date();
    const QTime time = moment.time();
    // Written without leading zeros, which the notes of offices have always had.
    const int hour = time.hour() % 12 == 0 ? 12 : time.hour() % 12;
    return QStringLiteral("%1/%2/%3 %4:%5 %6")
        .arg(date.month())
        .arg(date.day())
        .arg(date.year())
        .arg(hour)
        .arg(time.minute())
        .arg(time.hour() < 12 ? QStringLiteral("AM") : QStringLiteral("PM"));
}

void insertDateStamp(QWidget *noteBox)
{
    const QString stamp = dateStamp(base::now());
    // Put in where the caret stands, over a selection, and undone as one step.
    if (auto *plain = qobject_cast<QPlainTextEdit *>(noteBox); plain && !plain->isReadOnly())
        plain->insertPlainText(stamp);
    else if (auto *rich = qobject_cast<QTextEdit *>(noteBox); rich && !rich->isReadOnly())
        rich->insertPlainText(stamp);
    else if (auto *line = qobject_cast<QLineEdit *>(noteBox); line && !line->isReadOnly())
        line->insert(stamp);
}

void installDateStamp(QWidget *noteBox)
{
    new StampKey(noteBox);
}

} // namespace input
