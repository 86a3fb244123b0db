#pragma once

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <functional>
#include <gtest/gtest.h>

namespace test {

/// Shows a window and waits until keys reach it.
inline void bringUp(QWidget &window)
{
    window.show();
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
}

/// Runs an action on the next modal window, once it is shown; a window that is still open after it
/// is closed and fails the test, so that nothing hangs.
inline void onNextModal(std::function<void(QWidget &)> action)
{
    const auto tick = [](const auto &self, const QElapsedTimer &since, const QWidget *former,
                         const std::function<void(QWidget &)> &act) -> void {
        QWidget *window = QApplication::activeModalWidget();
        // Keys and mnemonics reach an active window only.
        if (window && window != former && window == QApplication::activeWindow()) {
            const QPointer<QWidget> guard(window);
            act(*window);
            if (guard && guard->isVisible()) {
                ADD_FAILURE() << "still open: " << guard->objectName().toStdString();
                qobject_cast<QDialog *>(guard)->QDialog::done(0);
            }
            return;
        }
        if (since.elapsed() > 5000) {
            ADD_FAILURE() << "no modal window came";
            return;
        }
        QTimer::singleShot(5, [self, since, former, act] { self(self, since, former, act); });
    };
    QElapsedTimer since;
    since.start();
    const QWidget *former = QApplication::activeModalWidget();
    QTimer::singleShot(0, [tick, since, former, action = std::move(action)] {
        tick(tick, since, former, action);
    });
}

/// A control by its name; fails the test when there is none.
template<class Control>
Control &named(const QWidget &form, const QString &name)
{
    auto *control = form.findChild<Control *>(name);
    if (!control)
        throw std::runtime_error("no control " + name.toStdString());
    return *control;
}

} // namespace test
