#include "core/ui/ScreenDriver.h"
#include "shell/Login.h"
#include "shell/Passwords.h"
#include "shell/ShellSession.h"
#include "shell/ui/frmChangePassword.h"
#include "shell/ui/frmLogin.h"

#include "platform/db/DbError.h"

using namespace Qt::StringLiterals;
using test::ScreenDriver;

namespace {

/// A login dialog on the screen, over a database with the user Bob, password Secret.
struct Login : test::ShellSession
{
    Login()
    {
        addUser(u"Bob"_s, u"Secret"_s);
        login.show();
    }
    void attempt(const QString &name, const QString &password)
    {
        screen.type("txtUserName", name);
        screen.type("txtPassword", password);
        screen.press("cmdContinue");
    }
    frmLogin login;
    const ScreenDriver screen{login};
};

} // namespace

TEST_F(Login, TheThirdRefusalClosesTheDialogAndAnApostropheCountsAndRunsNothing)
{
    prompts.say(u"Invalid Username or Password!"_s);
    attempt(u"Bob"_s, u"secrets"_s);
    EXPECT_EQ(screen.focused(), "txtPassword");
    // Without a connection a statement could not even begin.
    auto connection = std::exchange(gcnData, nullptr);
    attempt(u"Bob' or '1'='1"_s, u"x"_s);
    EXPECT_EQ(errors.takeOne().ErrNumber, db::ErrorNumber::Syntax);
    gcnData = std::move(connection);
    EXPECT_TRUE(login.isVisible());
    prompts.say(u"you have try all three Chance"_s);
    attempt(u"Rob"_s, u"Secret"_s);
    EXPECT_FALSE(login.isVisible());
    EXPECT_TRUE(gsLoginUser.isEmpty());
    EXPECT_THROW((void)shell::isUserPassword(u"Bob"_s, u"' or ''='"_s), db::DbError);
}

TEST_F(Login, AnyCaseLogsInByEnterEscapeGivesUpAndTheCallerIsTold)
{
    EXPECT_EQ(screen.text("lblVersion"), u"Version 2.3.1"_s);
    EXPECT_EQ(screen.focused(), "txtUserName");
    screen.type("txtUserName", u"bOb"_s);
    screen.type("txtPassword", u"sECRET"_s);
    QTest::keyClick(&screen.control("txtPassword"), Qt::Key_Return);
    EXPECT_EQ(gsLoginUser, u"BOB"_s);
    EXPECT_TRUE(shell::isHashedPassword(storedPassword(u"Bob"_s)));
    EXPECT_FALSE(login.isVisible());

    bool result = true;
    const auto open = [&] { frmLogin::ShowLoginForm(result); };
    test::inScreen(
        open, [](const ScreenDriver &again) { QTest::keyClick(&again.screen(), Qt::Key_Escape); });
    EXPECT_FALSE(result);
    test::inScreen(open, [](const ScreenDriver &again) {
        again.type("txtUserName", u"bob"_s);
        again.type("txtPassword", u"secret"_s);
        again.press("cmdContinue");
    });
    EXPECT_TRUE(result);
}

namespace {

struct ChangePassword : test::ShellSession
{
    ChangePassword()
    {
        addUser(u"Bob"_s, u"Secret"_s);
        gsLoginUser = u"BOB"_s;
        form.show();
    }
    void change(const QString &existing, const QString &wanted, const QString &confirmed)
    {
        screen.type("txtOldPassword", existing);
        screen.type("txtNewPassword", wanted);
        screen.type("txtConfirmPassword", confirmed);
        screen.press("cmdSave");
    }
    frmChangePassword form;
    const ScreenDriver screen{form};
};

} // namespace

TEST_F(ChangePassword, RefusesWrongOnesAndStoresAGoodOneHashed)
{
    // With security off nobody is logged in, and no row matches.
    const QString user = std::exchange(gsLoginUser, QString());
    prompts.say(u"Existing password did not match."_s);
    change({}, u"a"_s, u"a"_s);
    gsLoginUser = user;
    prompts.say(u"Existing password did not match."_s);
    change(u"wrong"_s, u"a"_s, u"b"_s);
    EXPECT_EQ(screen.focused(), "txtOldPassword");
    // Between the two new ones case counts.
    prompts.say(u"New password and Confirm Password are not same."_s);
    change(u"Secret"_s, u"New"_s, u"new"_s);
    EXPECT_TRUE(form.isVisible());
    EXPECT_TRUE(shell::passwordMatches(storedPassword(u"Bob"_s), u"Secret"_s));
    // One that nobody could log in with.
    prompts.say(u"A user name or password can't hold an apostrophe (')."_s);
    change(u"Secret"_s, u"it's"_s, u"it's"_s);
    EXPECT_EQ(screen.focused(), "txtNewPassword");
    prompts.say(u"Your password changed Succesfully."_s);
    change(u"SECRET"_s, u"New one"_s, u"New one"_s);
    EXPECT_FALSE(form.isVisible());
    const QString stored = storedPassword(u"Bob"_s);
    EXPECT_TRUE(shell::isHashedPassword(stored));
    EXPECT_TRUE(shell::passwordMatches(stored, u"new ONE"_s));
}
