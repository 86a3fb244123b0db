#include "shell/CleanUpParts.h"
#include "shell/Login.h"
#include "shell/Passwords.h"
#include "shell/RightsTable.h"
#include "shell/ShellSession.h"
#include "shell/clsUser_Manager.h"

#include "platform/db/DbError.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using test::ShellSession;

TEST(Passwords, AHashMatchesInAnyCaseAndDiffersEachTime)
{
    const QString hash = shell::hashedPassword(u"Rüben 42"_s);
    EXPECT_TRUE(shell::isHashedPassword(hash));
    EXPECT_LE(hash.size(), 200) << "the column's width";
    EXPECT_NE(hash, shell::hashedPassword(u"Rüben 42"_s));
    EXPECT_TRUE(shell::passwordMatches(hash, u"rÜBEN 42"_s));
    EXPECT_FALSE(shell::passwordMatches(hash, u"Ruben 42"_s));
    EXPECT_FALSE(shell::passwordMatches(hash, hash)) << "the stored text opens nothing";
    EXPECT_FALSE(shell::passwordMatches(hash, {}));
}

TEST(Passwords, AClearRowIsComparedAsItStands)
{
    EXPECT_FALSE(shell::isHashedPassword(u"$argon2id$ is no hash"_s));
    EXPECT_TRUE(shell::passwordMatches(u"Mower"_s, u"mOWER"_s));
    EXPECT_FALSE(shell::passwordMatches(u"Mower"_s, u"Mower "_s));
}

TEST(isUserPassword, NameAndPasswordCountWithoutCase)
{
    ShellSession session;
    ShellSession::addUser(u"Bob"_s, u"Secret"_s);
    ShellSession::addUser(u"Nopass"_s, {});
    EXPECT_TRUE(shell::isUserPassword(u"bOB"_s, u"sECRET"_s));
    EXPECT_FALSE(shell::isUserPassword(u"Bob"_s, u"Secret1"_s));
    EXPECT_TRUE(shell::isUserPassword(u"Bob "_s, u"Secret"_s)) << "the database's comparison";
    EXPECT_FALSE(shell::isUserPassword(u"Rob"_s, u"Secret"_s));
    EXPECT_FALSE(shell::isUserPassword({}, {}));
}

TEST(isUserPassword, AClearRowIsHashedOnceItMatchedAndGoesOnWorking)
{
    ShellSession session;
    ShellSession::addUser(u"Bob"_s, u"Secret"_s);
    EXPECT_FALSE(shell::isUserPassword(u"Bob"_s, u"wrong"_s));
    EXPECT_EQ(ShellSession::storedPassword(u"Bob"_s), u"Secret"_s);
    EXPECT_TRUE(shell::isUserPassword(u"Bob"_s, u"secret"_s));
    EXPECT_TRUE(shell::isHashedPassword(ShellSession::storedPassword(u"Bob"_s)));
    EXPECT_TRUE(shell::isUserPassword(u"Bob"_s, u"SECRET"_s));
}

TEST(isUserPassword, TheShippedUserLogsIn)
{
    ShellSession session;
    const QString stored = ShellSession::storedPassword(u"Admin"_s);
    ASSERT_FALSE(shell::isHashedPassword(stored));
    EXPECT_TRUE(shell::isUserPassword(u"ADMIN"_s, stored));
}

TEST(LoginAttempts, TheThirdRefusalIsTheLast)
{
    using enum shell::LoginAttempts::Outcome;
    ShellSession session;
    ShellSession::addUser(u"Bob"_s, u"Secret"_s);
    shell::LoginAttempts attempts;
    EXPECT_EQ(attempts.attempt(u"Bob"_s, u"1"_s), Refused);
    EXPECT_THROW(attempts.attempt(u"Bob"_s, u"'"_s), db::DbError); // counts too
    EXPECT_EQ(attempts.attempt(u"Bob"_s, u"3"_s), LastRefused);
    EXPECT_TRUE(gsLoginUser.isEmpty());
    shell::LoginAttempts others;
    EXPECT_EQ(others.attempt(u"bob"_s, u"secret"_s), LoggedIn);
    EXPECT_EQ(gsLoginUser, u"BOB"_s);
}

TEST(LoginAttempts, ASessionIsOfTheUserThatTheDatabaseFound)
{
    ShellSession session;
    struct Case
    {
        QString stored;
        QString typed;
        QString session;
    };
    // Rows from before, whose names upper-casing mixes up: each keeps its own rights.
    for (const auto &[stored, typed, name] :
         {Case{u"adm\u0131n"_s, u"ADM\u0131N"_s, u"adm\u0131n"_s},
          Case{u"wei\u00DF"_s, u"WEI\u00DF"_s, u"wei\u00DF"_s},
          Case{u"r\u00FCben"_s, u"R\u00DCben"_s, u"R\u00DCBEN"_s},
          Case{u"Ann"_s, u"\uFF21nn"_s, u"ANN"_s}}) {
        ShellSession::addUser(stored, u"Secret"_s);
        gcnData->Execute(BuildQueryString(stored, {u"SerMod"_s}));
        gRights = {};
        shell::LoginAttempts attempts;
        EXPECT_EQ(attempts.attempt(typed, u"secret"_s), shell::LoginAttempts::Outcome::LoggedIn);
        EXPECT_EQ(gsLoginUser, name);
        SetUserRole();
        EXPECT_TRUE(gRights.SerMod) << qPrintable(stored);
        EXPECT_FALSE(gRights.EqDel) << qPrintable(stored);
        EXPECT_TRUE(shell::isUserPassword(gsLoginUser, u"Secret"_s));
    }
    EXPECT_TRUE(session.errors.empty());
}

TEST(clsUser_Manager, NoTwoNamesDifferInCapitalsOnly)
{
    ShellSession session;
    ShellSession::addUser(u"Weiss"_s, u"x"_s);
    ShellSession::addUser(u"Bob"_s, u"x"_s);
    bool result = false;
    for (const QString &name : {u"adm\u0131n"_s, u"ADMIN "_s, u"wei\u00DF"_s, u"\uFF22ob"_s}) {
        EXPECT_TRUE(clsUser_Manager().IsUserExist(name)) << qPrintable(name);
        clsUser_Manager().SaveRecord({name, u"y"_s, {}}, Mode::Add, result);
        EXPECT_FALSE(result) << qPrintable(name);
    }
    EXPECT_EQ(session.errors.size(), 4u);
    // One's own name is no other's.
    clsUser_Manager().SaveRecord({u"wei\u00DF"_s, u"y"_s, {}}, Mode::Modify, result, u"weiss"_s);
    EXPECT_TRUE(result);
    clsUser_Manager().SaveRecord({u"Adm\u0131n"_s, u"y"_s, {}}, Mode::Modify, result, u"Bob"_s);
    EXPECT_FALSE(result);
    EXPECT_EQ(ShellSession::count(u"tblUser"_s, u"UserName = 'Bob'"_s), 1);
}

TEST(SetUserRole, GrantsAllWithoutALoginAndWhatIsStoredWithOne)
{
    ShellSession session;
    SetUserRole();
    for (const shell::RightEntry &right : shell::rightsTable())
        EXPECT_TRUE(gRights.*right.member) << right.column;

    gRights = {};
    ShellSession::addUser(u"Bob"_s, u"Secret"_s);
    gcnData->Execute(BuildQueryString(u"bob"_s, {u"EqMod"_s, u"InvPartHistory"_s}));
    gcnData->Execute(u"update tblUser set SerAdd = Null where UserName = 'Bob'"_s);
    gsLoginUser = u"BOB"_s;
    SetUserRole();
    for (const shell::RightEntry &right : shell::rightsTable()) {
        const bool granted =
            right.member == &Rights::EqMod || right.member == &Rights::InvPartHistory;
        EXPECT_EQ(gRights.*right.member, granted) << right.column;
    }
    EXPECT_TRUE(session.errors.empty());
}

TEST(SetUserRole, AMissingRowIsReportedAndLeavesTheRights)
{
    ShellSession session;
    gsLoginUser = u"NOBODY"_s;
    gRights.EqAdd = true;
    SetUserRole();
    ASSERT_EQ(session.errors.size(), 1u);
    EXPECT_EQ(session.errors[0].procedure, u"SetUserRole"_s);
    EXPECT_TRUE(gRights.EqAdd);
    EXPECT_FALSE(gRights.EqMod);
}

TEST(clsUser_Manager, ANewUserIsHashedAndHasNoRights)
{
    ShellSession session;
    bool result = false;
    clsUser_Manager().SaveRecord({u"O'Neil"_s, u"it's"_s, u"17"_s}, Mode::Add, result);
    ASSERT_TRUE(result);
    EXPECT_TRUE(shell::passwordMatches(ShellSession::storedPassword(u"o'neil"_s), u"IT'S"_s));
    EXPECT_TRUE(shell::isHashedPassword(ShellSession::storedPassword(u"O'Neil"_s)));
    EXPECT_EQ(ShellSession::count(u"tblUser"_s, u"UserName = 'O''Neil' and EmployeeID = '17' and "
                                                u"EqAdd is Null and InvPartHistory is Null"_s),
              1);
    clsUser_Manager().SaveRecord({u"o'NEIL"_s, u"x"_s, {}}, Mode::Add, result);
    EXPECT_FALSE(result);
    EXPECT_EQ(session.errors.size(), 1u);
}

TEST(clsUser_Manager, ModifyKeepsAnUnchangedHashRenamesAndHashesTheRest)
{
    ShellSession session;
    bool result = false;
    const clsUser_Manager manager;
    ShellSession::addUser(u"Bob"_s, u"Secret"_s);
    ShellSession::addUser(u"Ann"_s, u"Other"_s);
    // A clear password is hashed when its row is written.
    manager.SaveRecord({u"Bob"_s, u"Secret"_s, u"3"_s}, Mode::Modify, result);
    ASSERT_TRUE(result);
    const QString hash = ShellSession::storedPassword(u"Bob"_s);
    EXPECT_TRUE(shell::passwordMatches(hash, u"secret"_s));

    manager.SaveRecord({u"Robert"_s, hash, u"4"_s}, Mode::Modify, result, u"Bob"_s);
    ASSERT_TRUE(result);
    EXPECT_EQ(ShellSession::storedPassword(u"Robert"_s), hash);
    EXPECT_EQ(ShellSession::count(u"tblUser"_s, u"UserName = 'Bob'"_s), 0);
    EXPECT_TRUE(session.errors.empty());

    // Another user's name is refused by the key, a deleted row by a word.
    manager.SaveRecord({u"ann"_s, hash, {}}, Mode::Modify, result, u"Robert"_s);
    EXPECT_FALSE(result);
    manager.SaveRecord({u"Gone"_s, u"x"_s, {}}, Mode::Modify, result);
    EXPECT_FALSE(result);
    EXPECT_EQ(session.errors.size(), 2u);
    EXPECT_TRUE(shell::passwordMatches(ShellSession::storedPassword(u"Ann"_s), u"other"_s));
}

TEST(clsUser_Manager, ListsAllButTheBuiltInUserAndDeletes)
{
    ShellSession session;
    bool result = false;
    ShellSession::addUser(u"Bob"_s, u"Secret"_s);
    ASSERT_EQ(clsUser_Manager().Users().RecordCount(), 1);
    EXPECT_TRUE(clsUser_Manager().IsUserExist(u"ADMIN"_s));
    clsUser_Manager().DeleteRecord(u"bob"_s, result);
    EXPECT_TRUE(result);
    EXPECT_TRUE(clsUser_Manager().Users().isEmpty());

    gcnData->Execute(u"drop table tblUser"_s);
    clsUser_Manager().DeleteRecord(u"bob"_s, result);
    EXPECT_FALSE(result);
    EXPECT_TRUE(session.errors.empty()) << "the screen's message stands in for the report";
}

TEST(CleanUpParts, RemovesTheRowsWithoutAPart)
{
    ShellSession session;
    gcnData->Execute(u"insert into tblPart(PartID) values('')"_s);
    gcnData->Execute(u"insert into tblPart(PartID) values('A1')"_s);
    gcnData->Execute(u"insert into tblEquipmentPart(EquipmentID) values(1)"_s);
    gcnData->Execute(u"insert into tblEquipmentPart(EquipmentID,PartID) values(1,'A1')"_s);
    EXPECT_TRUE(CleanUpParts());
    EXPECT_EQ(ShellSession::count(u"tblPart"_s, u"1 = 1"_s), 1);
    EXPECT_EQ(ShellSession::count(u"tblEquipmentPart"_s, u"1 = 1"_s), 1);
    EXPECT_TRUE(session.errors.empty());
}
