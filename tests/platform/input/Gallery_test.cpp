#include "gallery/GalleryWindow.h"

#include "platform/input/DateInput.h"
#include "platform/input/SpinInput.h"
#include "platform/input/Theme.h"
#include "support/ScriptedPrompts.h"
#include "support/TestEnvironment.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <gtest/gtest.h>
#include <set>

using Prompts = base::Prompts;

namespace {

class GalleryTest : public testing::Test
{
protected:
    void SetUp() override
    {
        theme::install(*qApp);
        window = std::make_unique<gallery::GalleryWindow>();
        window->resize(1366, 728);
        window->show();
        window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    }
    template<typename Control>
    Control *control(const char *name)
    {
        return window->findChild<Control *>(QString::fromLatin1(name));
    }
    std::string echo() { return control<QLabel>("lblEcho")->text().toStdString(); }

    test::TestEnvironment environment;
    std::unique_ptr<gallery::GalleryWindow> window;
};

} // namespace

TEST_F(GalleryTest, FitsTheSmallestScreen)
{
    EXPECT_LE(window->minimumSizeHint().width(), 1366);
    EXPECT_LE(window->minimumSizeHint().height(), 768 - 40);
    EXPECT_EQ(window->size(), QSize(1366, 728));
}

TEST_F(GalleryTest, TabReachesEveryInputOfThePage)
{
    std::set<QString> reached;
    control<QLineEdit>("txtName")->setFocus();
    for (int i = 0; i < 60; ++i) {
        reached.insert(QApplication::focusWidget()->objectName());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    for (const char *name : {"txtUnitNo", "txtJobNo", "txtNotes", "datInspection", "timeStart",
                             "txtPhone", "curBudget", "RRSpin1", "cboState", "cmdState",
                             "chkInactive", "lstSkills", "lnkSite", "lblQuickMenu0", "cmdExit"})
        EXPECT_TRUE(reached.contains(QString::fromLatin1(name))) << name;
    EXPECT_FALSE(reached.contains(QStringLiteral("txtDisabled")));
}

TEST_F(GalleryTest, ControlsReportWhatTheUserDid)
{
    auto *date = control<input::DateInput>("datInspection");
    date->setFocus();
    QTest::keyClicks(date, QStringLiteral("3/9/2024"));
    EXPECT_EQ(echo(), "Date: 2024-03-09");
    QTest::keyClick(control<input::SpinInput>("RRSpin1"), Qt::Key_Plus);
    EXPECT_EQ(echo(), "Interval: 2");
    QTest::mouseClick(control<QAbstractButton>("lblQuickMenu4"), Qt::LeftButton);
    EXPECT_EQ(echo(), "Quick link: Help && Support");
}

TEST_F(GalleryTest, MessagesComeBackWithTheirAnswer)
{
    test::ScriptedPrompts prompts;
    window->showPage(QStringLiteral("Messages"));
    prompts.expect(QStringLiteral("Do you want to save changes?"), Prompts::Icon::Question,
                   Prompts::Buttons::YesNoCancel, Prompts::Answer::No);
    QTest::mouseClick(control<QAbstractButton>("cmdChanges"), Qt::LeftButton);
    EXPECT_EQ(echo(), "No");
}
