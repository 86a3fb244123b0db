#include "app/Program.h"
#include "core/Session.h"
#include "support/CompanyDatabase.h"
#include "support/TestEnvironment.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// Runs the whole program until it rests, and ends it; the name of the window that then waits for
/// the user.
std::string waitingAtStart()
{
    std::string waiting;
    (void)app::runProgram(*qApp, [&](QWidget &mainScreen) {
        QTimer::singleShot(500, &mainScreen, [&] {
            QWidget *modal = QApplication::activeModalWidget();
            waiting = (modal ? *modal : mainScreen).objectName().toStdString();
            if (modal)
                modal->findChild<QPushButton *>(u"cmdLater"_s)->click();
            QTimer::singleShot(0, &mainScreen, [&] { mainScreen.close(); });
        });
    });
    return waiting;
}

/// The same with a company that has this name.
std::string waitingAtStartOf(const QString &companyName)
{
    const test::TestEnvironment environment;
    const test::CompanyDatabase company;
    company.open()->Execute(
        u"Update tblSysOption set itemValue = ? where SysOption = 'GEN_COMPANY_NAME'"_s,
        {companyName});
    QDir().mkpath(base::applicationPath(u"\\Data\\Backup"_s));
    QFile::copy(company.file(), base::applicationPath(u"\\Data\\Quorvantis.mdb"_s));
    return waitingAtStart();
}

} // namespace

TEST(LostCompany, IsBroughtBackBeforeTheStartGoesOn)
{
    const test::TestEnvironment environment;
    const test::CompanyDatabase company;
    QDir().mkpath(base::applicationPath(u"\\Data\\Backup"_s));
    QFile::copy(company.file(), base::applicationPath(u"\\Data\\Backup\\Quorvantis101.mdb"_s));
    QStringList told;
    // Says yes to whatever is asked, and presses Process once.
    QTimer user;
    QObject::connect(&user, &QTimer::timeout, &user, [&] {
        QWidget *window = QApplication::activeModalWidget();
        if (auto *box = qobject_cast<QMessageBox *>(window)) {
            told.append(box->text().section(u'\n', 0, 0));
            QAbstractButton *yes = box->button(QMessageBox::Yes);
            (yes ? yes : box->buttons().constFirst())->click();
        } else if (window && window->objectName() == u"frmRestore") {
            // The questions come within the click, in which this timer rests.
            QTimer::singleShot(0, window->findChild<QPushButton *>(u"cmdRestore"_s),
                               &QPushButton::click);
        }
    });
    user.start(100);
    EXPECT_EQ(waitingAtStart(), "frmFirstStart");
    const QString live = base::applicationPath(u"\\Data\\Quorvantis.mdb"_s);
    EXPECT_TRUE(QFile::exists(live));
    EXPECT_TRUE(told.contains(u"Could not find file '%1'."_s.arg(live)))
        << told.join(u'|').toStdString();
    EXPECT_EQ(told.last(), u"Restore Database Succesfully"_s);
}

TEST(FirstStart, IsOfferedToANewCompanyOnly)
{
    EXPECT_EQ(waitingAtStartOf({}), "frmFirstStart");
    EXPECT_EQ(waitingAtStartOf(u"Greenways"_s), "frmMainScreen");
}
