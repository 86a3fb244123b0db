#include "gallery/GalleryWindow.h"

#include "platform/input/Theme.h"
#include "support/TestEnvironment.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <gtest/gtest.h>
#include <set>

TEST(Gallery, FitsTheSmallestScreenAndTabReachesEveryInput)
{
    const test::TestEnvironment environment;
    theme::install(*qApp);
    gallery::GalleryWindow window;
    window.resize(1366, 728);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    EXPECT_EQ(window.size(), QSize(1366, 728));
    std::set<QString> reached;
    window.findChild<QLineEdit *>(QStringLiteral("txtName"))->setFocus();
    for (int i = 0; i < 60; ++i) {
        reached.insert(QApplication::focusWidget()->objectName());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    for (const char *name : {"txtUnitNo", "txtJobNo", "txtNotes", "datInspection", "timeStart",
                             "txtPhone", "curBudget", "RRSpin1", "cboState", "cmdState",
                             "chkInactive", "lstSkills", "lnkSite", "lblQuickMenu0", "cmdExit"})
        EXPECT_TRUE(reached.contains(QString::fromLatin1(name))) << name;
    EXPECT_FALSE(reached.contains(QStringLiteral("txtDisabled")));
    auto *date = window.findChild<QLineEdit *>(QStringLiteral("datInspection"));
    date->setFocus();
    QTest::keyClicks(date, QStringLiteral("3/9/2024"));
    EXPECT_EQ(window.findChild<QLabel *>(QStringLiteral("lblEcho"))->text().toStdString(),
              "Date: 2024-03-09");
}
