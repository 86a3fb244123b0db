#include "core/ui/Openings.h"
#include "core/ui/ScreenDriver.h"
#include "shell/Passwords.h"
#include "shell/RightsTable.h"
#include "shell/ShellSession.h"
#include "shell/ui/frmUserManageMent.h"
#include "shell/ui/frmUserRoles.h"

#include <QTabWidget>

using namespace Qt::StringLiterals;
using test::named;
using test::ScreenDriver;

namespace {

struct Users : test::ShellSession
{
    Users()
    {
        gcnData->Execute(u"insert into tblEmployee(EmployeeID,FirstName,Lastname) "
                         u"values('17','Ann','Miller')"_s);
        addUser(u"Ann"_s, u"Secret"_s, u"17"_s);
        addUser(u"Bob"_s, u"Other"_s);
        screen = std::make_unique<frmUserManageMent>();
        screen->show();
    }
    ~Users() override { openings() = {}; }

    [[nodiscard]] ScreenDriver driver() const { return ScreenDriver(*screen); }
    void press(const char *name) const { driver().press(name); }
    void type(const char *name, const QString &text) const { driver().type(name, text); }
    [[nodiscard]] QString text(const char *name) const { return driver().text(name); }
    void select(const QString &user)
    {
        auto &grid = named<grid::GridView>(*screen, u"grdUser"_s);
        grid.selectRow(grid.rows().findRow(u"UserName", user));
    }

    std::unique_ptr<frmUserManageMent> screen;
};

} // namespace

TEST_F(Users, ShowsAllButTheBuiltInUserAndNeverAPassword)
{
    auto &grid = named<grid::GridView>(*screen, u"grdUser"_s);
    EXPECT_EQ(grid.rows().rowCount(), 2);
    EXPECT_EQ(grid.rows().findRow(u"UserName", u"Admin"_s), -1);
    EXPECT_FALSE(grid.rows().column(u"Password").visible);
    select(u"Ann"_s);
    EXPECT_EQ(text("txtUserName"), u"Ann"_s);
    EXPECT_EQ(text("txtPassword"), QString());
    EXPECT_EQ(text("cboEmployee"), u"17   Miller, Ann"_s);
    EXPECT_FALSE(driver().isEnabled("cmdSave"));
}

TEST_F(Users, ANewUserNeedsANameOfItsOwn)
{
    press("cmdAdd");
    EXPECT_EQ(screen->mode(), Mode::Add);
    EXPECT_EQ(text("txtUserName"), QString());
    EXPECT_FALSE(driver().isEnabled("cmdExit"));
    prompts.say(u"User Name should not be blank."_s);
    press("cmdSave");
    type("txtUserName", u"aDMIN"_s);
    prompts.say(u"User Name should be unique."_s);
    press("cmdSave");
    EXPECT_EQ(driver().focused(), "txtUserName");
    prompts.say(u"Please save this record first then goto next screen"_s);
    press("cmdRole");

    type("txtUserName", u"Carl"_s);
    for (const char *box : {"txtUserName", "txtPassword"}) {
        const QString good = text(box);
        type(box, u"it's"_s);
        prompts.say(u"A user name or password can't hold an apostrophe (')."_s);
        press("cmdSave");
        EXPECT_EQ(driver().focused(), box);
        type(box, good);
    }
    type("txtPassword", u"Pass"_s);
    press("cmdSave");
    EXPECT_EQ(screen->mode(), Mode::Browse);
    EXPECT_EQ(text("txtUserName"), u"Carl"_s);
    EXPECT_TRUE(shell::passwordMatches(storedPassword(u"Carl"_s), u"pass"_s));
}

TEST_F(Users, TypingTurnsTheScreenToModifyAndAnUntouchedPasswordStays)
{
    select(u"Ann"_s);
    type("txtUserName", u"Anna"_s);
    press("cmdSave");
    EXPECT_EQ(screen->mode(), Mode::Browse);
    EXPECT_TRUE(shell::passwordMatches(storedPassword(u"Anna"_s), u"secret"_s));
    EXPECT_EQ(count(u"tblUser"_s, u"UserName = 'Ann'"_s), 0);

    type("txtPassword", u"Fresh"_s);
    press("cmdSave");
    EXPECT_TRUE(shell::passwordMatches(storedPassword(u"Anna"_s), u"fresh"_s));
    EXPECT_EQ(count(u"tblUser"_s, u"UserName = 'Anna' and EmployeeID = '17'"_s), 1);

    type("txtUserName", u"Nobody"_s);
    press("cmdCancel");
    EXPECT_EQ(text("txtUserName"), u"Anna"_s);
}

TEST_F(Users, DeletesAfterAYes)
{
    select(u"Bob"_s);
    prompts.no(u"Are you sure you want to Delete this record?"_s);
    press("cmdDelete");
    EXPECT_EQ(count(u"tblUser"_s, u"UserName = 'Bob'"_s), 1);
    prompts.yes(u"Are you sure you want to Delete this record?"_s);
    press("cmdDelete");
    EXPECT_EQ(count(u"tblUser"_s, u"UserName = 'Bob'"_s), 0);
    EXPECT_EQ(text("txtUserName"), u"Ann"_s);

    gcnLookup.reset();
    gcnData->Execute(u"drop table tblUser"_s);
    prompts.yes(u"Are you sure you want to Delete this record?"_s);
    prompts.say(u"Deletion not allowed."_s);
    press("cmdDelete");
}

TEST_F(Users, TheEmployeeButtonWaitsForTheEmployeeScreen)
{
    EXPECT_FALSE(driver().isEnabled("cmdEmployee"));
    openings().join(u"frmEmployee"_s, [] {
        gcnData->Execute(u"insert into tblEmployee(EmployeeID) values('18')"_s);
    });
    frmUserManageMent again;
    again.show();
    ScreenDriver(again).press("cmdEmployee");
    EXPECT_GE(named<input::IdCombo>(again, u"cboEmployee"_s).findText(u"18"_s), 0);
    EXPECT_TRUE(again.mode() == Mode::Browse);
}

TEST_F(Users, RolesAreSavedWithAllBoxesAndReloaded)
{
    select(u"Bob"_s);
    test::onNextModal([&](QWidget &form) {
        EXPECT_TRUE(form.windowTitle().contains(u"Bob"_s));
        form.close();
    });
    press("cmdRole");
    gcnData->Execute(BuildQueryString(u"Bob"_s, {u"SerAdd"_s}));
    frmUserRoles roles(u"Bob"_s);
    roles.show();
    EXPECT_EQ(named<QTabWidget>(roles, u"SSTab1"_s).count(), 3);
    for (const shell::RightEntry &right : shell::rightsTable()) {
        const QString name = QString::fromLatin1(right.column);
        auto &box = named<QCheckBox>(roles, u"chk"_s + name);
        EXPECT_EQ(box.text(), QString::fromLatin1(right.caption));
        EXPECT_EQ(box.isChecked(), name == u"SerAdd") << right.column;
    }
    const ScreenDriver driver(roles);
    EXPECT_FALSE(driver.isEnabled("cmdUpdate"));
    named<QTabWidget>(roles, u"SSTab1"_s).setCurrentIndex(0);
    auto &list = driver.control<QCheckBox>("chkEqList");
    QTest::keyClick(&list, Qt::Key_Space);
    driver.press("cmdCancel");
    EXPECT_FALSE(list.isChecked() || driver.isEnabled("cmdUpdate"));
    QTest::keyClick(&list, Qt::Key_Space);
    driver.press("cmdUpdate");
    EXPECT_TRUE(list.isChecked() && !driver.isEnabled("cmdUpdate"));
    EXPECT_EQ(count(u"tblUser"_s, u"UserName = 'Bob' and EqList = '1' and "
                                  u"SerAdd = '1' and EqAdd = '0' and "
                                  u"InvPartHistory = '0'"_s),
              1);
}
