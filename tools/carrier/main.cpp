#include "carrier/Carrying.h"
#include "platform/base/Error.h"
#include "platform/base/Prompts.h"
#include "platform/input/DialogPrompts.h"
#include "platform/input/Theme.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QProgressDialog>
#include <QTextStream>
#include <QTimer>

#include <atomic>
#include <cstdlib>
#include <thread>

/// The name under which it is installed says which way it carries; it is given no arguments.
namespace {

using namespace Qt::StringLiterals;

constexpr int Done = 0;
constexpr int Failed = 1;
constexpr int WindowAfter = 1000; ///< milliseconds
/// What a slow device may take for a file.
constexpr std::chrono::seconds ShortestPatience(20);

/// Runs the carrying beside the windows: a share that has gone away may hold up whoever asks for
/// it, for minutes.
class Porter : public QObject
{
public:
    Porter(carrier::Settings settings, bool fetches)
        : m_settings(std::move(settings))
        , m_fetches(fetches)
    {
        m_clock.start();
        m_window.setWindowTitle(QApplication::applicationName());
        m_window.setMinimumDuration(WindowAfter);
        m_window.setValue(0);
        if (m_settings.textOnly)
            m_window.reset();
        // What is written appears whole or not at all, so the worker need not be asked.
        connect(&m_window, &QProgressDialog::canceled, this, [] { std::_Exit(Failed); });
        connect(&m_watch, &QTimer::timeout, this, [this] { watch(); });
        m_watch.start(std::chrono::milliseconds(200));
        m_worker = std::thread([this] { carry(); });
    }
    ~Porter() override
    {
        if (m_worker.joinable())
            m_worker.join();
    }

private:
    void carry()
    {
        QString failure;
        try {
            const carrier::Company company{
                [this] { m_alive = m_clock.elapsed(); },
                [this](const QString &question) { return ask(question); }};
            if (m_fetches)
                carrier::fromDevice(m_settings, company);
            else
                carrier::toDevice(m_settings, company);
        } catch (const std::exception &error) {
            failure = QString::fromUtf8(error.what());
        }
        m_alive = Ended;
        QMetaObject::invokeMethod(this, [this, failure] { end(failure); });
    }

    bool ask(const QString &question)
    {
        bool yes = false;
        m_alive = Ended; // the user may think as long as he likes
        QMetaObject::invokeMethod(
            this,
            [&] {
                m_window.reset();
                if (m_settings.textOnly)
                    QTextStream(stderr) << question << "\nNo." << Qt::endl;
                else
                    yes = base::askYesNo(question);
            },
            Qt::BlockingQueuedConnection);
        m_alive = m_clock.elapsed();
        return yes;
    }

    void tell(const QString &failure)
    {
        m_window.reset();
        if (m_settings.textOnly)
            QTextStream(stderr) << failure << Qt::endl;
        else
            base::showCritical(failure);
    }

    void end(const QString &failure)
    {
        m_watch.stop();
        if (!failure.isEmpty())
            tell(failure);
        QCoreApplication::exit(failure.isEmpty() ? Done : Failed);
    }

    void watch()
    {
        const qint64 alive = m_alive;
        // Waiting for the device has its own end within that time.
        if (alive == Ended || std::chrono::milliseconds(m_clock.elapsed() - alive) <=
                                  m_settings.patience + ShortestPatience)
            return;
        m_watch.stop();
        tell(u"The handheld doesn't answer any more. Take it out, connect it again, and repeat the "
             "transfer: nothing is lost."_s);
        // The worker can't be called back; what it writes appears whole or not at all.
        std::_Exit(Failed);
    }

    static constexpr qint64 Ended = -1;

    carrier::Settings m_settings;
    bool m_fetches;
    QProgressDialog m_window{QStringLiteral("Waiting for the handheld..."),
                             QStringLiteral("Cancel"), 0, 0};
    QElapsedTimer m_clock;
    std::atomic<qint64> m_alive{0};
    QTimer m_watch;
    std::thread m_worker;
};

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(u"Quorvantis"_s);
    theme::install(application);
    input::DialogPrompts dialogs;
    const base::ScopedPrompts prompts(dialogs);
    const QString name = QFileInfo(QString::fromLocal8Bit(argv[0])).fileName();
    try {
        const Porter porter(carrier::readSettings(QCoreApplication::applicationDirPath()),
                            name.contains(u"ImportSync"_s, Qt::CaseInsensitive));
        return QApplication::exec();
    } catch (const base::Error &error) {
        base::showCritical(error.description());
        return Failed;
    }
}
