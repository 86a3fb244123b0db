#include "core/ui/Openings.h"
#include "core/ui/ScreenDriver.h"
#include "shell/FirstStart.h"
#include "shell/Login.h"
#include "shell/ShellSession.h"
#include "shell/ui/FirstStartEntries.h"

using namespace Qt::StringLiterals;
using test::ScreenDriver;

namespace {

struct FirstStart : test::ShellSession
{
    FirstStart() { SetOption(u"SERVICE_LATE_RED"_s, u"14"_s, false); }
    ~FirstStart() override { openings() = {}; }
    static QString option(const QString &key) { return GetOption(key, false); }
};

} // namespace

TEST_F(FirstStart, IsOverWithAMachineOrAName)
{
    EXPECT_TRUE(shell::isFirstStart());
    gcnData->Execute(u"Insert into tblEquipment (EquipmentID) values (1)"_s);
    EXPECT_FALSE(shell::isFirstStart());
    gcnData->Execute(u"Delete from tblEquipment"_s);
    SetOption(u"GEN_COMPANY_NAME"_s, u"  "_s, false);
    EXPECT_TRUE(shell::isFirstStart());
    SetOption(u"GEN_COMPANY_NAME"_s, u"Greenways"_s, false);
    EXPECT_FALSE(shell::isFirstStart());
    SetOption(u"GEN_COMPANY_NAME"_s, {}, false);
    for (const auto &[user, mayTake] :
         {std::pair{u"ADMIN"_s, true}, std::pair{u"BOB"_s, false}, std::pair{QString(), true}}) {
        gsLoginUser = user;
        EXPECT_EQ(shell::isFirstStart(), mayTake) << user.toStdString();
    }
}

TEST_F(FirstStart, APasswordThatWasGivenIsNotGivenAgain)
{
    shell::storePassword(u"Admin"_s, u"turnip"_s);
    test::inScreen(ShowFirstStart, [&](const ScreenDriver &screen) {
        EXPECT_FALSE(screen.isEnabled("txtNewPassword"));
        EXPECT_FALSE(screen.isEnabled("chkSecurity"));
        screen.press("cmdLater");
    });
    EXPECT_EQ(test::raisedBy([] {
                  shell::storeFirstSteps(
                      {.name = u"A"_s, .password = u"beet"_s, .passwordAgain = u"beet"_s});
              }).description(),
              u"The password of the first user has been changed already. Nothing was stored."_s);
    EXPECT_EQ(option(u"GEN_COMPANY_NAME"_s), QString());
    EXPECT_TRUE(shell::isUserPassword(u"Admin"_s, u"turnip"_s));
}

TEST_F(FirstStart, StoresWhatIsTypedAndLeadsToTheImport)
{
    int imports = 0;
    openings().join(u"frmImport"_s, [&imports] { ++imports; });
    test::inScreen(ShowFirstStart, [&](const ScreenDriver &screen) {
        prompts.say(u"Please enter the company's name."_s);
        screen.press("cmdSave");
        screen.type("txtCompanyName", u" Greenways "_s);
        screen.type("txtCompanyPhone", u"555"_s);
        prompts.inform(u"Invalid phone No."_s);
        QTest::keyClick(&screen.control("txtCompanyPhone"), Qt::Key_Return);
        ASSERT_TRUE(screen.isOpen()) << "Enter saves without leaving the field";
        screen.type("txtCompanyPhone", u"3195550124"_s);
        screen.type("txtCompanyAddress1", u"1 Mill Lane"_s);
        screen.type("txtCompanyAddress2", u"Springfield"_s);
        screen.type("txtCompanyEmail", u"office@greenways.example"_s);
        screen.type("txtCompanyWebSite", u"greenways.example"_s);
        screen.control<QCheckBox>("chkSecurity").click();
        prompts.say(
            u"Please give a password first: everybody knows the one that a new company has."_s);
        screen.press("cmdSave");
        screen.type("txtNewPassword", u"turnip"_s);
        prompts.say(u"New password and Confirm Password are not same."_s);
        screen.press("cmdSave");
        screen.type("txtConfirmPassword", u"turnip"_s);
        screen.press("cmdImport");
        EXPECT_FALSE(screen.isOpen());
    });
    EXPECT_EQ(imports, 1);
    QStringList stored;
    for (const auto &key :
         {u"NAME"_s, u"ADDRESS1"_s, u"ADDRESS2"_s, u"PHONE"_s, u"EMAIL"_s, u"WEBSITE"_s})
        stored.append(option(u"GEN_COMPANY_"_s + key));
    EXPECT_EQ(stored.join(u'|'),
              u"Greenways|1 Mill Lane|Springfield|(319) 555-0124|office@greenways.example|"
              "greenways.example"_s);
    EXPECT_EQ(option(u"SECURITYONOFF"_s), u"1"_s);
    EXPECT_TRUE(shell::isUserPassword(u"Admin"_s, u"turnip"_s));
    EXPECT_FALSE(storedPassword(u"Admin"_s).contains(u"turnip"_s));
}

TEST_F(FirstStart, CanBePutOffAndLeavesThePassword)
{
    test::inScreen(ShowFirstStart, [&](const ScreenDriver &screen) {
        EXPECT_FALSE(screen.isEnabled("cmdImport")) << "nothing has joined it";
        screen.type("txtCompanyName", u"Greenways"_s);
        screen.press("cmdLater");
    });
    EXPECT_TRUE(shell::isFirstStart());
    shell::storeFirstSteps({.name = u"Greenways"_s});
    EXPECT_TRUE(shell::isUserPassword(u"Admin"_s, u"admin"_s));
    EXPECT_EQ(option(u"SECURITYONOFF"_s), u"0"_s);
}

TEST_F(FirstStart, IsStoredWholeOrNotAtAllAndOnce)
{
    db::Connection other(databaseTarget());
    other.BeginTrans();
    other.Execute(u"Update tblUser set [Password] = [Password]"_s);
    const shell::FirstSteps steps{
        .name = u"Greenways"_s, .password = u"turnip"_s, .passwordAgain = u"turnip"_s};
    EXPECT_EQ(test::raisedBy([&] { shell::storeFirstSteps(steps); }).description(),
              u"Another workstation is just changing the company's settings. Nothing was stored. "
              "Please try again."_s);
    EXPECT_EQ(option(u"GEN_COMPANY_NAME"_s), QString());
    other.RollbackTrans();
    EXPECT_FALSE(test::raisedBy([] {
                     shell::storeFirstSteps(
                         {.name = u"A"_s, .password = u"o'clock"_s, .passwordAgain = u"o'clock"_s});
                 })
                     .description()
                     .isEmpty());
    shell::storeFirstSteps(steps);
    EXPECT_EQ(test::raisedBy([] { shell::storeFirstSteps({.name = u"Blueways"_s}); }).description(),
              u"The company's name has been entered on another workstation meanwhile. Nothing was "
              "stored."_s);
    EXPECT_EQ(option(u"GEN_COMPANY_NAME"_s), u"Greenways"_s);
}
