#include "platform/help/Help.h"
#include "platform/help/HelpBook.h"

#include "platform/base/Error.h"

#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QWidget *helpWindow()
{
    for (QWidget *each : QApplication::topLevelWidgets()) {
        if (each->objectName() == u"frmHelp" && each->isVisible())
            return each;
    }
    return nullptr;
}

QString page(const QWidget &window)
{
    return window.findChild<QTextBrowser *>(u"txtPage"_s)->source().fileName();
}

/// Closes the windows of a test.
struct Help : testing::Test
{
    ~Help() override { help::closeAll(); }
};

} // namespace

TEST_F(Help, ItsPagesExistOnceAndAreFoundByTopicFormAndWord)
{
    help::showHelp(nullptr); // makes the pages known
    const help::HelpBook book(u":/help"_s);
    EXPECT_GE(book.pages().size(), 10u);
    QStringList listed;
    for (const help::Page &each : book.pages()) {
        for (const QString &topicOrForm : QStringList(each.topic) + each.forms) {
            EXPECT_FALSE(listed.contains(topicOrForm)) << qPrintable(topicOrForm) << " twice";
            listed.append(topicOrForm);
        }
        QTextBrowser browser;
        browser.setSource(book.url(each.topic));
        EXPECT_FALSE(browser.toPlainText().isEmpty()) << qPrintable(each.topic);
        for (QTextBlock block = browser.document()->begin(); block.isValid();
             block = block.next()) {
            for (auto part = block.begin(); !part.atEnd(); ++part) {
                const QTextCharFormat format = part.fragment().charFormat();
                const QString picture = format.toImageFormat().name();
                EXPECT_TRUE(picture.isEmpty() || QFile::exists(u":/help/"_s + picture))
                    << qPrintable(each.topic) << " shows " << qPrintable(picture);
                const QString link = format.anchorHref();
                EXPECT_TRUE(link.isEmpty() || book.indexOf(link.section(u'.', 0, 0)) >= 0)
                    << qPrintable(each.topic) << " leads to " << qPrintable(link);
            }
        }
    }
    EXPECT_THROW(help::HelpBook(QTemporaryDir().path()), base::Error);

    EXPECT_EQ(book.topicOfForm(u"frmUserRoles"_s), u"rights"_s);
    EXPECT_EQ(book.topicOfForm(u"frmNothing"_s), QString());
    EXPECT_TRUE(book.url(u"users#x"_s).toString().endsWith(u"/users.html#x"_s));
    EXPECT_EQ(book.url(u"no such topic"_s), book.url({}));

    const auto found = book.search(u"ROLES tick"_s);
    ASSERT_FALSE(found.empty());
    EXPECT_EQ(book.pages()[static_cast<size_t>(found.front())].topic, u"users"_s);
    EXPECT_TRUE(book.search(u"  "_s).empty());
    EXPECT_TRUE(book.search(u"roles zebra"_s).empty());
}

TEST_F(Help, OpensAtATopicSearchesAndIsUsedAgain)
{
    help::showHelp(nullptr, u"login"_s);
    QWidget *window = helpWindow();
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(page(*window), u"login.html"_s);
    help::showHelp(nullptr);
    EXPECT_EQ(helpWindow(), window);
    EXPECT_EQ(page(*window), u"start.html"_s);

    auto *words = window->findChild<QLineEdit *>(u"txtSearch"_s);
    QTest::keyClicks(words, u"forgotten"_s);
    auto *list = window->findChild<QListWidget *>(u"lstFound"_s);
    ASSERT_EQ(list->count(), 1);
    QTest::keyClick(words, Qt::Key_Return);
    EXPECT_EQ(page(*window), u"password.html"_s);
    EXPECT_FALSE(window->findChild<QTextBrowser *>(u"txtPage"_s)->extraSelections().isEmpty());
    QTest::keyClick(window, Qt::Key_Escape);
    EXPECT_EQ(helpWindow(), nullptr);
}

TEST_F(Help, OpensThePageOfTheScreenAlsoFromAModalOne)
{
    help::installHelpKey();
    QDialog screen;
    screen.setObjectName(u"frmUserManageMent"_s);
    screen.setModal(true);
    auto *box = new QLineEdit(&screen);
    screen.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&screen));
    QTest::keyClick(box, Qt::Key_F1);
    QWidget *window = helpWindow();
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(page(*window), u"users.html"_s);
    EXPECT_EQ(window->parentWidget(), &screen) << "or it could not be used";
}
