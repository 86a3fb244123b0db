#include "platform/input/ProgressBox.h"

#include "platform/base/Trapped.h"

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>
#include <functional>

namespace input {
namespace {

constexpr qint64 Interval = 50; ///< milliseconds between two looks at the window
constexpr int BarWidth = 320;

/// Ends with the step alone.
class StepWindow : public QDialog
{
public:
    using QDialog::QDialog;
    std::function<void()> cancel;

    void reject() override
    {
        if (cancel)
            cancel();
    }
};

} // namespace

ProgressBox::ProgressBox(QString text, QWidget *parent, std::chrono::milliseconds after)
    : m_text(std::move(text))
    , m_parent(parent)
    , m_next(after.count())
{
    m_clock.start();
}

ProgressBox::~ProgressBox() = default;

void ProgressBox::tell(int done, int all)
{
    // Asked for each row of a long step: a look at the clock is all that most of them may cost.
    if (m_clock.elapsed() < m_next)
        return;
    if (!m_window)
        open();
    m_bar->setRange(0, all);
    m_bar->setValue(done);
    // Whatever an event runs meanwhile is no part of the step, nor are its errors.
    const base::Interlude interlude;
    QCoreApplication::processEvents();
    m_next = m_clock.elapsed() + Interval;
}

base::Progress ProgressBox::progress()
{
    return [this](int done, int all) { tell(done, all); };
}

void ProgressBox::offerCancel(const QString &caption)
{
    m_cancelCaption = caption;
}

void ProgressBox::open()
{
    QWidget *owner =
        m_parent && m_parent->isVisible() ? m_parent->window() : QApplication::activeWindow();
    auto window = std::make_unique<StepWindow>(owner, Qt::Dialog | Qt::CustomizeWindowHint |
                                                          Qt::WindowTitleHint);
    StepWindow &step = *window;
    m_window = std::move(window);
    m_window->setObjectName(QStringLiteral("progressBox"));
    m_window->setWindowTitle(owner ? owner->windowTitle() : QString());
    m_window->setWindowModality(Qt::ApplicationModal);
    m_window->setCursor(Qt::WaitCursor);
    auto *column = new QVBoxLayout(m_window.get());
    column->addWidget(new QLabel(m_text, m_window.get()));
    m_bar = new QProgressBar(m_window.get());
    m_bar->setMinimumWidth(BarWidth);
    m_bar->setAccessibleName(m_text);
    column->addWidget(m_bar);
    if (!m_cancelCaption.isEmpty()) {
        auto *button = new QPushButton(m_cancelCaption, m_window.get());
        button->setObjectName(QStringLiteral("cmdCancel"));
        // The step itself looks at the answer at its next safe place.
        step.cancel = [this, button] {
            m_cancelled = true;
            button->setEnabled(false);
        };
        QObject::connect(button, &QPushButton::clicked, &step, step.cancel);
        column->addWidget(button, 0, Qt::AlignRight);
    }
    m_window->show();
}

} // namespace input
