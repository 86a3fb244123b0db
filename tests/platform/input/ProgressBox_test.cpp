#include "platform/input/ProgressBox.h"

#include <QApplication>
#include <QDialog>
#include <QProgressBar>
#include <QPushButton>
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

TEST(ProgressBox, AsksTheStepToEndWhereThatIsOffered)
{
    for (const bool byKey : {false, true}) {
        input::ProgressBox box(u"Working..."_s, nullptr, 0ms);
        box.offerCancel();
        box.tell(1, 4);
        auto *window = QApplication::activeModalWidget();
        ASSERT_NE(window, nullptr);
        auto *button = window->findChild<QPushButton *>(u"cmdCancel"_s);
        ASSERT_NE(button, nullptr);
        EXPECT_FALSE(box.wasCancelled());
        if (byKey)
            QTest::keyClick(window, Qt::Key_Escape);
        else
            QTest::mouseClick(button, Qt::LeftButton);
        EXPECT_TRUE(box.wasCancelled());
        EXPECT_TRUE(window->isVisible()) << "the step is still at work";
    }
}
