#include "platform/input/DateInput.h"

#include "platform/base/Environment.h"
#include "platform/base/Format.h"
#include "platform/base/Prompts.h"
#include "platform/input/Leaving.h"
#include "platform/input/Theme.h"

#include <QAction>
#include <QCalendarWidget>
#include <QFrame>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QScreen>
#include <QTextCharFormat>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

namespace input {
namespace {

/// Where month, day and year begin in the text.
constexpr int dayStart = 3;
constexpr int yearStart = 6;

QString shown(QDate date)
{
    return date.toString(QStringLiteral("MM/dd/yyyy"));
}

QDate dateIn(QString text)
{
    // The mask leaves blanks where a digit is missing.
    const auto parsed = base::parseMonthFirst(text.remove(u' '));
    return parsed ? parsed->date() : QDate();
}

/// Calendar, and buttons for today and for no date; gone once it loses the focus.
class CalendarPopup : public QFrame
{
public:
    CalendarPopup(DateInput *box, const std::function<void(QDate)> &choose)
        : QFrame(box, Qt::Popup)
        , m_calendar(new QCalendarWidget(this))
    {
        setObjectName(QStringLiteral("calendarPopup"));
        // A popup closes itself on any click outside, and nobody else holds it.
        setAttribute(Qt::WA_DeleteOnClose);
        setFrameShape(QFrame::StyledPanel);
        m_calendar->setObjectName(QStringLiteral("calendar"));
        m_calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
        m_calendar->setFirstDayOfWeek(Qt::Sunday);
        m_calendar->setMinimumDate(QDate(1900, 1, 1));
        m_calendar->setMaximumDate(QDate(2099, 12, 31));
        m_calendar->setSelectedDate(box->date().isValid() ? box->date() : base::today());
        dressUp();
        auto *todayButton = new QPushButton(QStringLiteral("&Today"), this);
        auto *noneButton = new QPushButton(QStringLiteral("&None"), this);
        for (QPushButton *button : {todayButton, noneButton}) {
            button->setFont(theme::buttonFont());
            // Enter is the calendar's: it takes the day.
            button->setAutoDefault(false);
        }
        auto *buttons = new QHBoxLayout;
        buttons->addWidget(todayButton);
        buttons->addStretch();
        buttons->addWidget(noneButton);
        auto *stack = new QVBoxLayout(this);
        stack->setContentsMargins(4, 4, 4, 4);
        stack->setSpacing(4);
        stack->addWidget(m_calendar);
        stack->addLayout(buttons);

        const auto chosen = [this, choose](QDate date) {
            // First closed, so that the focus is back in the box when it tells of its new date.
            close();
            choose(date);
        };
        connect(m_calendar, &QCalendarWidget::clicked, this, chosen);
        connect(m_calendar, &QCalendarWidget::activated, this, chosen);
        connect(todayButton, &QPushButton::clicked, this, [chosen] { chosen(base::today()); });
        connect(noneButton, &QPushButton::clicked, this, [chosen] { chosen({}); });
    }

    void popUpBelow(const QWidget *box)
    {
        adjustSize();
        const QRect screen = box->screen()->availableGeometry();
        QPoint place = box->mapToGlobal(QPoint(0, box->height()));
        if (place.y() + height() > screen.bottom())
            // Above the box where there is no room below it.
            place.setY(box->mapToGlobal(QPoint()).y() - height());
        place.setX(std::clamp(place.x(), screen.left(),
                              std::max(screen.left(), screen.right() - width())));
        move(place);
        show();
        m_calendar->setFocus();
    }

private:
    /// Gives the calendar the house's colours and pictures, and marks today by the program's clock.
    void dressUp()
    {
        QTextCharFormat today;
        today.setFontWeight(QFont::Bold);
        today.setFontUnderline(true);
        m_calendar->setDateTextFormat(base::today(), today);
        QTextCharFormat weekend;
        weekend.setForeground(theme::accentColor());
        m_calendar->setWeekdayTextFormat(Qt::Saturday, weekend);
        m_calendar->setWeekdayTextFormat(Qt::Sunday, weekend);
        if (auto *bar =
                m_calendar->findChild<QWidget *>(QStringLiteral("qt_calendar_navigationbar"))) {
            QPalette colors = bar->palette();
            colors.setColor(QPalette::Highlight, theme::mainColor());
            bar->setPalette(colors);
        }
        setArrow(QStringLiteral("qt_calendar_prevmonth"), QStringLiteral("previous"));
        setArrow(QStringLiteral("qt_calendar_nextmonth"), QStringLiteral("next"));
    }

    void setArrow(const QString &button, const QString &picture)
    {
        if (auto *arrow = m_calendar->findChild<QToolButton *>(button))
            arrow->setIcon(theme::icon(picture, theme::Tone::OnDark));
    }

    QCalendarWidget *m_calendar;
};

} // namespace

DateInput::DateInput(QWidget *parent)
    : MaskedInput(QStringLiteral("##/##/####"), parent)
    , m_calendarAction(
          addAction(theme::icon(QStringLiteral("calendar")), QLineEdit::TrailingPosition))
{
    m_calendarAction->setObjectName(QStringLiteral("openCalendar"));
    m_calendarAction->setToolTip(QStringLiteral("Choose from a calendar (Alt+Down)"));
    connect(m_calendarAction, &QAction::triggered, this, &DateInput::showCalendar);
    // Edited comes with the user alone, the date's change with whoever made it.
    connect(this, &QLineEdit::textEdited, this, &DateInput::edited);
    connect(this, &QLineEdit::textChanged, this, &DateInput::announceDate);
}

QDate DateInput::date() const
{
    return dateIn(text());
}

void DateInput::setDate(QDate date)
{
    showText(date.isValid() ? shown(date) : emptyText());
}

void DateInput::checkOnLeave()
{
    validateOnLeave(this, [this] {
        if (isValidOrEmpty())
            return true;
        base::showMessage(QStringLiteral("Please enter valid date."));
        return false;
    });
}

void DateInput::showCalendar()
{
    if (isReadOnly() || !isEnabled())
        return;
    auto *popup = new CalendarPopup(this, [this](QDate date) { chooseDate(date); });
    popup->popUpBelow(this);
}

void DateInput::chooseDate(QDate date)
{
    setFocus();
    // As an edit of the user's, who can undo it and whose form learns of it.
    applyEdit(date.isValid() ? shown(date) : emptyText(), date.isValid() ? mask().length() : 0);
}

void DateInput::announceDate()
{
    const QDate now = date();
    // Half a date is none, so that typing tells nothing until the last digit.
    if (now == m_announced)
        return;
    m_announced = now;
    Q_EMIT dateChanged(now);
}

std::optional<QString> DateInput::broughtIn(const QString &text) const
{
    if (mask().fits(text))
        return text;
    if (text.trimmed().isEmpty())
        return emptyText();
    const QDate parsed = dateIn(text);
    return parsed.isValid() ? std::optional(shown(parsed)) : std::nullopt;
}

std::optional<Mask::Edit> DateInput::typedInto(const QString &current, int caret,
                                               QChar character) const
{
    if (character != u'/' && character != u'-' && character != u'.')
        return MaskedInput::typedInto(current, caret, character);
    // The separator ends the part before the caret: "3" becomes "03".
    const int start = caret > dayStart ? dayStart : 0;
    const int next = caret > dayStart ? yearStart : dayStart;
    const QString part = current.mid(start, 2).trimmed();
    // There is no part before the caret that could be ended.
    if (caret == 0 || caret > yearStart || part.isEmpty())
        return std::nullopt;
    QString completed = current;
    completed.replace(start, 2, part.rightJustified(2, u'0'));
    return Mask::Edit{completed, next};
}

void DateInput::keyPressEvent(QKeyEvent *event)
{
    // Up and Down step through the days, and through the calendar with Alt or F4.
    const bool vertical = event->key() == Qt::Key_Down || event->key() == Qt::Key_Up;
    if (event->key() == Qt::Key_F4 ||
        (event->key() == Qt::Key_Down && event->modifiers() & Qt::AltModifier)) {
        showCalendar();
        return;
    }
    if (vertical && event->modifiers() == Qt::NoModifier && !isReadOnly() && isValidOrEmpty()) {
        const int step = event->key() == Qt::Key_Up ? 1 : -1;
        chooseDate(isEmpty() ? base::today() : date().addDays(step));
        return;
    }
    MaskedInput::keyPressEvent(event);
}

void DateInput::focusOutEvent(QFocusEvent *event)
{
    // A date with blanks among its digits gets its zeros.
    if (const QDate whole = date(); whole.isValid() && !isReadOnly() && text() != shown(whole)) {
        // Kept, since the box may only have lost the focus to a window that comes and goes.
        const int caret = cursorPosition();
        setText(shown(whole));
        setCursorPosition(caret);
    }
    MaskedInput::focusOutEvent(event);
}

void DateInput::changeEvent(QEvent *event)
{
    MaskedInput::changeEvent(event);
    if (event->type() == QEvent::ReadOnlyChange || event->type() == QEvent::EnabledChange)
        m_calendarAction->setEnabled(isEnabled() && !isReadOnly());
}

} // namespace input
