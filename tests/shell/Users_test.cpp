#include "core/InTheWay.h"
#include "core/Permission.h"
#include "shell/CleanUpParts.h"
#include "shell/Login.h"
#include "shell/Passwords.h"
#include "shell/RightsTable.h"
#include "shell/ShellSession.h"
#include "shell/clsUser_Manager.h"

#include "platform/db/DbError.h"

using namespace Qt::StringLiterals;
using shell::isUserPassword;

namespace {

struct Accounts : test::ShellSession
{
    static bool save(const clsUser &user, Mode mode, const std::optional<clsUser> &shown = {})
    {
        bool result = false;
        clsUser_Manager().SaveRecord(user, mode, result, shown);
        return result;
    }
    static bool remove(const QString &user)
    {
        bool result = false;
        clsUser_Manager().DeleteRecord(user, result);
        return result;
    }
};

} // namespace

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
    EXPECT_FALSE(shell::isHashedPassword(u"$argon2id$ is no hash"_s));
    EXPECT_TRUE(shell::passwordMatches(u"Mower"_s, u"mOWER"_s));
    EXPECT_FALSE(shell::passwordMatches(u"Mower"_s, u"Mower "_s));
}

TEST_F(Accounts, NameAndPasswordCountWithoutCaseAndAClearOneIsHashedOnceItMatched)
{
    addUser(u"Bob"_s, u"Secret"_s);
    addUser(u"Nopass"_s, {});
    EXPECT_FALSE(isUserPassword(u"Bob"_s, u"Secret1"_s));
    EXPECT_FALSE(isUserPassword(u"Rob"_s, u"Secret"_s));
    EXPECT_FALSE(isUserPassword({}, {}));
    EXPECT_EQ(storedPassword(u"Bob"_s), u"Secret"_s);
    EXPECT_TRUE(isUserPassword(u"bOB"_s, u"sECRET"_s));
    EXPECT_TRUE(shell::isHashedPassword(storedPassword(u"Bob"_s)));
    EXPECT_TRUE(isUserPassword(u"Bob "_s, u"SECRET"_s)) << "the database's comparison";
    const QString shipped = storedPassword(u"Admin"_s);
    ASSERT_FALSE(shell::isHashedPassword(shipped));
    EXPECT_TRUE(isUserPassword(u"ADMIN"_s, shipped));
}

TEST_F(Accounts, ASessionIsOfTheUserThatTheDatabaseFound)
{
    const std::array<QString, 3> rows[] = {
        // Rows from before, whose names upper-casing mixes up: each keeps its own rights.
        {u"adm\u0131n"_s, u"ADM\u0131N"_s, u"adm\u0131n"_s},
        {u"wei\u00DF"_s, u"WEI\u00DF"_s, u"wei\u00DF"_s},
        {u"r\u00FCben"_s, u"R\u00DCben"_s, u"R\u00DCBEN"_s},
        {u"Ann"_s, u"\uFF21nn"_s, u"ANN"_s},
    };
    for (const auto &[stored, typed, name] : rows) {
        addUser(stored, u"Secret"_s);
        gcnData->Execute(BuildQueryString(stored, {u"SerMod"_s}));
        gRights = {};
        shell::LoginAttempts attempts;
        EXPECT_EQ(attempts.attempt(typed, u"secret"_s), shell::LoginAttempts::Outcome::LoggedIn);
        EXPECT_EQ(gsLoginUser, name);
        SetUserRole();
        EXPECT_TRUE(gRights.SerMod && !gRights.EqDel) << qPrintable(stored);
        EXPECT_TRUE(isUserPassword(gsLoginUser, u"Secret"_s));
    }
}

TEST_F(Accounts, NoTwoNamesDifferInCapitalsOnly)
{
    addUser(u"Weiss"_s, u"x"_s);
    addUser(u"Bob"_s, u"x"_s);
    for (const QString &name : {u"adm\u0131n"_s, u"ADMIN "_s, u"wei\u00DF"_s, u"\uFF22ob"_s}) {
        EXPECT_TRUE(clsUser_Manager().IsUserExist(name)) << qPrintable(name);
        EXPECT_FALSE(save({name, u"y"_s, {}}, Mode::Add)) << qPrintable(name);
    }
    // One's own name is no other's.
    EXPECT_TRUE(save({u"wei\u00DF"_s, u"y"_s, {}}, Mode::Modify, clsUser{u"Weiss"_s, u"x"_s, {}}));
    EXPECT_FALSE(save({u"Adm\u0131n"_s, u"y"_s, {}}, Mode::Modify, clsUser{u"Bob"_s, {}, {}}));
    EXPECT_EQ(errors.take().size(), 5u);
    EXPECT_EQ(count(u"tblUser"_s, u"UserName = 'Bob'"_s), 1);
}

TEST_F(Accounts, GrantsAllWithoutALoginAndWhatIsStoredWithOne)
{
    SetUserRole();
    for (const shell::RightEntry &right : shell::rightsTable())
        EXPECT_TRUE(gRights.*right.member) << right.column;

    gRights = {};
    addUser(u"Bob"_s, u"Secret"_s);
    gcnData->Execute(BuildQueryString(u"bob"_s, {u"EqMod"_s, u"InvPartHistory"_s}));
    gcnData->Execute(u"update tblUser set SerAdd = Null where UserName = 'Bob'"_s);
    gsLoginUser = u"BOB"_s;
    SetUserRole();
    for (const shell::RightEntry &right : shell::rightsTable()) {
        const bool granted =
            right.member == &Rights::EqMod || right.member == &Rights::InvPartHistory;
        EXPECT_EQ(gRights.*right.member, granted) << right.column;
    }
    // A missing row leaves the rights.
    gRights = {};
    gsLoginUser = u"NOBODY"_s;
    gRights.EqAdd = true;
    SetUserRole();
    EXPECT_EQ(errors.takeOne().ProcedureName, u"SetUserRole"_s);
    EXPECT_TRUE(gRights.EqAdd);
    EXPECT_FALSE(gRights.EqMod);
}

TEST_F(Accounts, ANewUserIsHashedHasNoRightsIsListedAndDeleted)
{
    ASSERT_TRUE(save({u"O'Neil"_s, u"it's"_s, u"17"_s}, Mode::Add));
    EXPECT_TRUE(shell::passwordMatches(storedPassword(u"o'neil"_s), u"IT'S"_s));
    EXPECT_TRUE(shell::isHashedPassword(storedPassword(u"O'Neil"_s)));
    EXPECT_EQ(count(u"tblUser"_s, u"UserName = 'O''Neil' and EmployeeID = '17' and EqAdd is Null "
                                  "and InvPartHistory is Null"_s),
              1);
    EXPECT_FALSE(save({u"o'NEIL"_s, u"x"_s, {}}, Mode::Add));
    EXPECT_NE(errors.takeOne().ErrNumber, 0);
    ASSERT_EQ(clsUser_Manager().Users().RecordCount(), 1);
    EXPECT_TRUE(clsUser_Manager().IsUserExist(u"ADMIN"_s));
    EXPECT_TRUE(remove(u"o'neil"_s));
    EXPECT_TRUE(clsUser_Manager().Users().isEmpty());
    gcnData->Execute(u"drop table tblUser"_s);
    EXPECT_FALSE(remove(u"bob"_s)) << "the screen's message stands in for a report";
}

TEST_F(Accounts, ModifyKeepsAnUnchangedHashRenamesAndHashesTheRest)
{
    addUser(u"Bob"_s, u"Secret"_s);
    addUser(u"Ann"_s, u"Other"_s);
    // A clear password is hashed when its row is written.
    ASSERT_TRUE(save({u"Bob"_s, u"Secret"_s, u"3"_s}, Mode::Modify));
    const QString hash = storedPassword(u"Bob"_s);
    EXPECT_TRUE(shell::passwordMatches(hash, u"secret"_s));
    const clsUser renamed{u"Robert"_s, hash, u"4"_s};
    ASSERT_TRUE(save(renamed, Mode::Modify, clsUser{u"Bob"_s, hash, u"3"_s}));
    EXPECT_EQ(storedPassword(u"Robert"_s), hash);
    EXPECT_EQ(count(u"tblUser"_s, u"UserName = 'Bob'"_s), 0);
    // Another user's name is refused by the key, a deleted row by a word.
    EXPECT_FALSE(save({u"ann"_s, hash, {}}, Mode::Modify, renamed));
    EXPECT_FALSE(save({u"Gone"_s, u"x"_s, {}}, Mode::Modify));
    EXPECT_EQ(errors.take().size(), 2u);
    EXPECT_TRUE(shell::passwordMatches(storedPassword(u"Ann"_s), u"other"_s));
}

TEST_F(Accounts, WhatOthersHaveChangedMeanwhileStays)
{
    addUser(u"Bob"_s, u"Secret"_s, u"3"_s);
    const auto change = [](const clsUser &user) {
        return save(user, Mode::Modify, clsUser{u"Bob"_s, u"Secret"_s, u"3"_s});
    };
    // Bob gives himself a password while his row is on show elsewhere.
    shell::storePassword(u"Bob"_s, u"Fresh"_s);
    EXPECT_TRUE(change({u"Bob"_s, u"Secret"_s, u"4"_s}));
    EXPECT_TRUE(shell::passwordMatches(storedPassword(u"Bob"_s), u"fresh"_s));
    // A password that is typed here counts all the same, an employee given elsewhere stays.
    EXPECT_FALSE(change({u"Bob"_s, u"Typed"_s, u"5"_s}));
    EXPECT_EQ(errors.take().size(), 1u);
    EXPECT_TRUE(change({u"Bob"_s, u"Typed"_s, u"3"_s}));
    EXPECT_TRUE(shell::passwordMatches(storedPassword(u"Bob"_s), u"typed"_s));
    EXPECT_EQ(count(u"tblUser"_s, u"EmployeeID = '4'"_s), 1);
}

TEST_F(Accounts, AreKeptByTheAdministratorAlone)
{
    addUser(u"Bob"_s, u"Secret"_s);
    for (const auto &[login, may] : {std::pair(u"BOB"_s, false), std::pair(u"ADMIN"_s, true)}) {
        gsLoginUser = login;
        EXPECT_EQ(save({u"Bob"_s, u"New"_s, {}}, Mode::Modify), may);
        if (may)
            StoreRights(u"Bob"_s, {u"EqAdd"_s});
        else
            EXPECT_THROW(StoreRights(u"Bob"_s, {u"EqAdd"_s}), rights::Refused);
        EXPECT_EQ(GrantedRights(u"Bob"_s).size(), may ? 1 : 0);
        if (may) {
            EXPECT_THROW(StoreRights(u"Bob"_s, {}, QSet<QString>()), InTheWay) << "not as shown";
        }
        EXPECT_EQ(remove(u"Bob"_s), may);
    }
    EXPECT_EQ(errors.take().size(), 1u) << "of the save; a deletion is told by its screen";
    EXPECT_THROW(StoreRights(u"Bob"_s, {}), InTheWay) << "who is gone gets no rights unseen";
}

TEST_F(Accounts, CleaningUpRemovesTheRowsWithoutAPart)
{
    for (const QVariant &part : {QVariant(u""_s), QVariant(u"A1"_s)})
        insert(u"tblPart"_s, {{u"PartID"_s, part}});
    for (const QVariant &part : {QVariant(), QVariant(u"A1"_s)})
        insert(u"tblEquipmentPart"_s, {{u"EquipmentID"_s, 1}, {u"PartID"_s, part}});
    EXPECT_TRUE(CleanUpParts());
    EXPECT_EQ(count(u"tblPart"_s), 1);
    EXPECT_EQ(count(u"tblEquipmentPart"_s), 1);
}
