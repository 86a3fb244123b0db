#include "platform/input/Leaving.h"

#include "platform/input/DateInput.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QFocusEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPointer>
#include <QTextEdit>
#include <utility>

namespace input {
namespace {

constexpr char causesValidationProperty[] = "causesValidation";

QString valueText(const QWidget *control)
{
    if (const auto *date = qobject_cast<const DateInput *>(control))
        return date->isEmpty() ? QString() : date->text();
    if (const auto *line = qobject_cast<const QLineEdit *>(control))
        return line->text();
    if (const auto *combo = qobject_cast<const QComboBox *>(control))
        return combo->currentText();
    if (const auto *plain = qobject_cast<const QPlainTextEdit *>(control))
        return plain->toPlainText();
    if (const auto *rich = qobject_cast<const QTextEdit *>(control))
        return rich->toPlainText();
    if (const auto *label = qobject_cast<const QLabel *>(control))
        return label->text();
    if (const auto *spin = qobject_cast<const QAbstractSpinBox *>(control))
        return spin->text();
    return control ? control->property("text").toString() : QString();
}

/// Asks once the focus has arrived at the next control, when the left one has completed its text,
/// and before that one sees the click.
class LeavingRule : public QObject
{
public:
    LeavingRule(QWidget *control, std::function<bool()> mayLeave)
        : QObject(control)
        , m_control(control)
        , m_mayLeave(std::move(mayLeave))
    {
        control->installEventFilter(this);
        connect(qApp, &QApplication::focusChanged, this, &LeavingRule::focusMoved);
    }

    bool mayLeave()
    {
        // A rule that asks the user moves the focus, and must not be asked again by that.
        if (m_asking || !m_control->isEnabled() || !m_control->isVisible())
            return true;
        m_asking = true;
        const bool may = m_mayLeave();
        m_asking = false;
        return may;
    }

private:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (watched == m_control && event->type() == QEvent::FocusOut)
            m_reason = static_cast<QFocusEvent *>(event)->reason();
        return QObject::eventFilter(watched, event);
    }

    [[nodiscard]] bool isOwn(const QWidget *widget) const
    {
        return widget == m_control || m_control->isAncestorOf(widget);
    }

    [[nodiscard]] bool byUser() const
    {
        return m_reason == Qt::MouseFocusReason || m_reason == Qt::TabFocusReason ||
               m_reason == Qt::BacktabFocusReason || m_reason == Qt::ShortcutFocusReason;
    }

    void focusMoved(QWidget *left, QWidget *next)
    {
        // To another window, a menu or nowhere is no leaving: the user comes back.
        if (m_asking || !left || !next || !isOwn(left) || isOwn(next) || !byUser() ||
            next->window() != m_control->window())
            return;
        const QVariant causes = next->property(causesValidationProperty);
        if ((causes.isValid() && !causes.toBool()) || mayLeave())
            return;
        // Queued, for the press that moved the focus is still on its way to the next control.
        const QPointer<QWidget> pressed(next);
        QMetaObject::invokeMethod(
            m_control,
            [control = m_control, pressed] {
                // The button has been pressed and will not see the release that ends it.
                if (auto *button = qobject_cast<QAbstractButton *>(pressed.data()))
                    button->setDown(false);
                control->setFocus(Qt::OtherFocusReason);
                if (auto *line = qobject_cast<QLineEdit *>(control))
                    line->selectAll();
            },
            Qt::QueuedConnection);
    }

    QWidget *m_control;
    std::function<bool()> m_mayLeave;
    Qt::FocusReason m_reason = Qt::NoFocusReason;
    bool m_asking = false;
};

} // namespace

bool isBlank(const QWidget *control)
{
    return valueText(control).trimmed().isEmpty();
}

void validateOnLeave(QWidget *control, std::function<bool()> mayLeave)
{
    new LeavingRule(control, std::move(mayLeave));
}

bool focusedMayLeave(const QWidget *window)
{
    for (const QWidget *control = window->focusWidget(); control && control != window;
         control = control->parentWidget()) {
        for (QObject *child : control->children()) {
            if (auto *rule = dynamic_cast<LeavingRule *>(child); rule && !rule->mayLeave())
                return false;
        }
    }
    return true;
}

void setCausesValidation(QWidget *control, bool causes)
{
    control->setProperty(causesValidationProperty, causes);
}

} // namespace input
