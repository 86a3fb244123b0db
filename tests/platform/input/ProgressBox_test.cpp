#include "platform/input/ProgressBox.h"

#include <QApplication>
#include <QDialog>
#include <QProgressBar>
#include <QTest>
#include <gtest/gtest.h>

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

TEST(ProgressBox, ComesUpOnlyWhenALongStepTellsOfItself)
{
    QWidget screen;
    screen.show();
    {
        input::ProgressBox box(u"Working..."_s, &screen, 30ms);
        box.tell(1, 4);
        EXPECT_FALSE(box.isShown()) << "a short step needs none";
        QTest::qWait(60);
        EXPECT_FALSE(box.isShown()) << "it would cover what the step asks meanwhile";
        box.progress()(3, 4);
        ASSERT_TRUE(box.isShown());
        auto *window = screen.findChild<QDialog *>(u"progressBox"_s);
        ASSERT_TRUE(window && window->isVisible() && window->isModal());
        EXPECT_EQ(window->findChild<QProgressBar *>()->value(), 3);
        QTest::keyClick(window, Qt::Key_Escape);
        EXPECT_TRUE(window->isVisible()) << "the step goes on";
    }
    EXPECT_EQ(screen.findChild<QDialog *>(), nullptr);
}
