#pragma once

#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QTimer>
#include <functional>
#include <gtest/gtest.h>

namespace test {

/// Runs an action in the next modal screen of that name, once it is shown; closes it afterwards if
/// the action did not. A screen that does not come within five seconds fails the test.
class InModal
{
public:
    InModal(QString name, std::function<void(QWidget &)> action)
        : m_name(std::move(name))
        , m_action(std::move(action))
    {
        m_elapsed.start();
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { look(); });
        m_timer.start(5);
    }
    ~InModal() { EXPECT_TRUE(m_done) << "never shown: " << qPrintable(m_name); }
    InModal(const InModal &) = delete;
    InModal &operator=(const InModal &) = delete;

private:
    void look()
    {
        QWidget *modal = QApplication::activeModalWidget();
        if (modal != nullptr && modal->objectName() == m_name) {
            m_timer.stop();
            m_done = true;
            m_action(*modal);
            if (modal == QApplication::activeModalWidget())
                qobject_cast<QDialog *>(modal)->done(QDialog::Rejected);
        } else if (m_elapsed.hasExpired(5000)) {
            m_timer.stop();
            if (modal != nullptr)
                modal->close();
        }
    }

    QString m_name;
    std::function<void(QWidget &)> m_action;
    QElapsedTimer m_elapsed;
    QTimer m_timer;
    bool m_done = false;
};

} // namespace test
