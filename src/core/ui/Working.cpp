#include "core/ui/Working.h"

#include "platform/base/Trapped.h"
#include "platform/input/Theme.h"

#include <QApplication>
#include <QDialog>
#include <QEventLoop>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>
#include <atomic>
#include <exception>
#include <thread>

using namespace Qt::StringLiterals;

namespace working {
namespace {

constexpr int WidthOfSteps = 380; // pixels

/// Ends with the work alone.
class StepsWindow final : public QDialog
{
public:
    StepsWindow(const QString &title, QWidget *parent)
        : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint)
        , lblSteps(new QLabel(this))
        , cmdCancel(new QPushButton(u"&Cancel"_s, this))
    {
        setObjectName(u"working"_s);
        setWindowTitle(title);
        setWindowModality(Qt::ApplicationModal);
        lblSteps->setObjectName(u"lblSteps"_s);
        lblSteps->setMinimumWidth(WidthOfSteps);
        lblSteps->setWordWrap(true);
        auto *bar = new QProgressBar(this);
        bar->setAccessibleName(title);
        bar->setRange(0, 0);
        bar->setTextVisible(false);
        cmdCancel->setObjectName(u"cmdCancel"_s);
        auto *column = new QVBoxLayout(this);
        column->addWidget(lblSteps);
        column->addWidget(bar);
        column->addWidget(cmdCancel, 0, Qt::AlignRight);
        theme::ApplyFormColors(this);
        connect(cmdCancel, &QPushButton::clicked, this, &StepsWindow::cancel);
    }

    void reject() override { cancel(); }
    void add(const QString &step)
    {
        m_steps.append(step);
        lblSteps->setText(m_steps.join(u'\n'));
        adjustSize();
    }
    [[nodiscard]] bool isCancelled() const { return m_cancelled; }

private:
    void cancel()
    {
        m_cancelled = true;
        cmdCancel->setEnabled(false);
        add(u"Cancelling..."_s);
    }

    QLabel *lblSteps;
    QPushButton *cmdCancel;
    QStringList m_steps;
    std::atomic<bool> m_cancelled = false;
};

} // namespace

void run(const Work &work, const std::function<void(const QString &)> &told,
         const std::function<bool()> &cancelled)
{
    // Steps come to this thread as events for this object.
    QObject here;
    QEventLoop loop;
    std::exception_ptr failure;
    base::Steps steps;
    steps.cancelled = cancelled;
    if (told)
        steps.tell = [&](const QString &step) {
            QMetaObject::invokeMethod(
                &here, [&told, step] { told(step); }, Qt::QueuedConnection);
        };
    {
        const std::jthread thread([&] {
            try {
                work(steps);
            } catch (...) {
                failure = std::current_exception();
            }
            QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
        });
        const base::Interlude interlude;
        loop.exec();
    }
    // The thread has ended with its block.
    if (failure)
        std::rethrow_exception(failure);
}

void runShown(const QString &title, const Work &work, QWidget *parent)
{
    StepsWindow window(title, parent ? parent->window() : QApplication::activeWindow());
    window.show();
    run(
        work, [&](const QString &step) { window.add(step); }, [&] { return window.isCancelled(); });
}

} // namespace working
