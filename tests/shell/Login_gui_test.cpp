#include "shell/Modal.h"
#include "shell/Passwords.h"
#include "shell/ShellSession.h"
#include "shell/ui/frmChangePassword.h"
#include "shell/ui/frmLogin.h"
#include "support/ScriptedPrompts.h"

#include "platform/db/DbError.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;
using test::child;
using test::ScriptedPrompts;
using test::ShellSession;
using Icon = base::Prompts::Icon;

namespace {

void type(QWidget &form, const QString &box, const QString &text)
{
    auto &line = child<QLineEdit>(form, box);
    line.selectAll();
    QTest::keyClick(&line, Qt::Key_Delete);
    QTest::keyClicks(&line, text);
}

void press(QWidget &form, const QString &button)
{
    QTest::mouseClick(&child<QPushButton>(form, button), Qt::LeftButton);
}

/// A login dialog on the screen, over a database with the user Bob, password Secret.
struct Login : testing::Test
{
    Login()
    {
        ShellSession::addUser(u"Bob"_s, u"Secret"_s);
        login.show();
    }
    void attempt(const QString &name, const QString &password)
    {
        type(login, u"txtUserName"_s, name);
        type(login, u"txtPassword"_s, password);
        press(login, u"cmdContinue"_s);
    }
    ShellSession session;
    ScriptedPrompts prompts;
    frmLogin login;
};

} // namespace

TEST_F(Login, WrongCaseLogsInAndTheNameIsKeptInUpperCase)
{
    EXPECT_EQ(child<QLabel>(login, u"lblVersion"_s).text(), u"Version 2.3.1"_s);
    EXPECT_EQ(login.focusWidget(), &child<QLineEdit>(login, u"txtUserName"_s));
    attempt(u"bOb"_s, u"sECRET"_s);
    EXPECT_FALSE(login.isVisible());
    EXPECT_EQ(gsLoginUser, u"BOB"_s);
    EXPECT_TRUE(shell::isHashedPassword(ShellSession::storedPassword(u"Bob"_s)));
}

TEST_F(Login, TheThirdRefusalClosesTheDialog)
{
    prompts.expect(u"Invalid Username or Password!"_s, Icon::None);
    attempt(u"Bob"_s, u"secrets"_s);
    EXPECT_EQ(login.focusWidget(), &child<QLineEdit>(login, u"txtPassword"_s));
    prompts.expect(u"Invalid Username or Password!"_s, Icon::None);
    attempt(u"Rob"_s, u"Secret"_s);
    EXPECT_TRUE(login.isVisible());
    prompts.expect(u"you have try all three Chance"_s, Icon::None);
    attempt({}, {});
    EXPECT_FALSE(login.isVisible());
    EXPECT_TRUE(gsLoginUser.isEmpty());
}

TEST_F(Login, AnApostropheGoesToTheErrorPathAndRunsNothing)
{
    // Without a connection a statement could not even begin.
    const auto connection = std::exchange(gcnData, nullptr);
    attempt(u"Bob' or '1'='1"_s, u"x"_s);
    attempt(u"Bob"_s, u"' or ''='"_s);
    ASSERT_EQ(session.errors.size(), 2u);
    for (const auto &error : session.errors) {
        EXPECT_EQ(error.procedure, u"cmdContinue_Click"_s);
        EXPECT_EQ(error.number, db::ErrorNumber::Syntax);
        EXPECT_FALSE(error.description.isEmpty());
    }
    EXPECT_TRUE(login.isVisible());
    EXPECT_TRUE(gsLoginUser.isEmpty());
}

TEST_F(Login, EnterContinuesAndEscapeGivesUp)
{
    type(login, u"txtUserName"_s, u"Bob"_s);
    type(login, u"txtPassword"_s, u"Secret"_s);
    QTest::keyClick(&child<QLineEdit>(login, u"txtPassword"_s), Qt::Key_Return);
    EXPECT_EQ(gsLoginUser, u"BOB"_s);
    EXPECT_FALSE(login.isVisible());

    gsLoginUser.clear();
    bool result = true;
    const test::InModal modal(u"frmLogin"_s,
                              [](QWidget &form) { QTest::keyClick(&form, Qt::Key_Escape); });
    frmLogin::ShowLoginForm(result);
    EXPECT_FALSE(result);
}

TEST(frmLogin, ShowLoginFormTellsThatAUserLoggedIn)
{
    const ShellSession session;
    ShellSession::addUser(u"Bob"_s, u"Secret"_s);
    bool result = false;
    const test::InModal modal(u"frmLogin"_s, [](QWidget &form) {
        type(form, u"txtUserName"_s, u"bob"_s);
        type(form, u"txtPassword"_s, u"secret"_s);
        press(form, u"cmdContinue"_s);
    });
    frmLogin::ShowLoginForm(result);
    EXPECT_TRUE(result);
}

namespace {

struct ChangePassword : testing::Test
{
    ChangePassword()
    {
        ShellSession::addUser(u"Bob"_s, u"Secret"_s);
        gsLoginUser = u"BOB"_s;
        form.show();
    }
    void change(const QString &existing, const QString &wanted, const QString &confirmed)
    {
        type(form, u"txtOldPassword"_s, existing);
        type(form, u"txtNewPassword"_s, wanted);
        type(form, u"txtConfirmPassword"_s, confirmed);
        press(form, u"cmdSave"_s);
    }
    ShellSession session;
    ScriptedPrompts prompts;
    frmChangePassword form;
};

} // namespace

TEST_F(ChangePassword, StoresTheNewOneHashed)
{
    prompts.expect(u"Your password changed Succesfully."_s, Icon::None);
    change(u"SECRET"_s, u"New one"_s, u"New one"_s);
    EXPECT_FALSE(form.isVisible());
    const QString stored = ShellSession::storedPassword(u"Bob"_s);
    EXPECT_TRUE(shell::isHashedPassword(stored));
    EXPECT_TRUE(shell::passwordMatches(stored, u"new ONE"_s));
}

TEST_F(ChangePassword, RefusesAWrongOneAndOnesThatDiffer)
{
    prompts.expect(u"Existing password did not match."_s, Icon::None);
    change(u"wrong"_s, u"a"_s, u"b"_s);
    EXPECT_EQ(form.focusWidget(), &child<QLineEdit>(form, u"txtOldPassword"_s));
    // Between the two new ones case counts.
    prompts.expect(u"New password and Confirm Password are not same."_s, Icon::None);
    change(u"Secret"_s, u"New"_s, u"new"_s);
    EXPECT_TRUE(form.isVisible());
    EXPECT_TRUE(shell::passwordMatches(ShellSession::storedPassword(u"Bob"_s), u"Secret"_s));
    // One that nobody could log in with is an error.
    change(u"Secret"_s, u"it's"_s, u"it's"_s);
    ASSERT_EQ(session.errors.size(), 1u);
    EXPECT_EQ(session.errors[0].number, db::ErrorNumber::Syntax);
    press(form, u"cmdExit"_s);
    EXPECT_FALSE(form.isVisible());
}

TEST_F(ChangePassword, WithSecurityOffNoRowMatches)
{
    gsLoginUser.clear();
    prompts.expect(u"Existing password did not match."_s, Icon::None);
    change({}, u"a"_s, u"a"_s);
}
