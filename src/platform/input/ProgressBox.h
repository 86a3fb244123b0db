#pragma once

#include "platform/base/Progress.h"

#include <QElapsedTimer>
#include <QPointer>
#include <QString>
#include <chrono>
#include <memory>

class QDialog;
class QProgressBar;
class QWidget;

namespace input {

/// The window that tells how far a long step is. It comes up by itself once the step has taken a
/// second, and only when the step tells of itself: a question that the step asks is never covered.
/// Meanwhile no other window takes clicks or keys, and this one can't be closed.
///
///     input::ProgressBox box(u"Posting work orders..."_s, this);
///     post(orders, box.progress());
class ProgressBox
{
public:
    explicit ProgressBox(QString text, QWidget *parent = nullptr,
                         std::chrono::milliseconds after = std::chrono::seconds(1));
    ~ProgressBox();
    ProgressBox(const ProgressBox &) = delete;
    ProgressBox &operator=(const ProgressBox &) = delete;

    /// Shows how far the step is, at most twenty times a second, and lets the window be painted.
    /// done and all are in units of the step's own.
    void tell(int done, int all);
    /// tell() as what long steps take; holds as long as the box.
    [[nodiscard]] base::Progress progress();
    /// Lets the user ask the step to end, by a button of that caption or Escape. The step looks at
    /// wasCancelled() and decides.
    void offerCancel(const QString &caption = QStringLiteral("Cancel"));
    [[nodiscard]] bool wasCancelled() const { return m_cancelled; }
    /// False for a step that ended before the box was worth showing.
    [[nodiscard]] bool isShown() const { return m_window != nullptr; }

private:
    void open();

    QString m_text;
    QPointer<QWidget> m_parent;
    QElapsedTimer m_clock;
    qint64 m_next; ///< milliseconds of the clock before which nothing is shown anew
    std::unique_ptr<QDialog> m_window;
    QProgressBar *m_bar = nullptr;
    QString m_cancelCaption; ///< empty when the step can't be ended
    bool m_cancelled = false;
};

} // namespace input
