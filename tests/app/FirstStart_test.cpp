#include "app/Program.h"
#include "core/Session.h"
#include "platform/base/Environment.h"
#include "support/CompanyDatabase.h"
#include "support/TestEnvironment.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QPushButton>
#include <QTimer>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// Runs the whole program until it rests, with a company that has this name; the name of the window
/// that then waits for the user.
std::string waitingAtStart(const QString &companyName)
{
    const test::TestEnvironment environment;
    const test::CompanyDatabase company;
    company.open()->Execute(
        u"Update tblSysOption set itemValue = ? where SysOption = 'GEN_COMPANY_NAME'"_s,
        {companyName});
    QDir().mkpath(base::applicationPath(u"\\Data\\Backup"_s));
    QFile::copy(company.file(), base::applicationPath(u"\\Data\\Quorvantis.mdb"_s));
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

} // namespace

TEST(FirstStart, IsOfferedToANewCompanyOnly)
{
    EXPECT_EQ(waitingAtStart({}), "frmFirstStart");
    EXPECT_EQ(waitingAtStart(u"Greenways"_s), "frmMainScreen");
}
