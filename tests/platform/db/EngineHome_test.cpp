#include "platform/db/EngineHome.h"

#include "platform/db/HelperProcess.h"
#include "platform/db/Maintenance.h"
#include "platform/db/TestDatabase.h"
#include "support/TestFiles.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <memory>

namespace {

using namespace Qt::StringLiterals;
using test::HelperProcess;

QProcessEnvironment withHome(const QString &folder)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"QUORVANTIS_ENGINE"_s, folder);
    return environment;
}

TEST(EngineHome, IsMadeOnceByProgramsThatStartTogether)
{
    const QTemporaryDir folder;
    const QString home = folder.filePath(u"a/b/engine"_s);
    std::vector<std::unique_ptr<HelperProcess>> programs;
    for (int i = 0; i < 6; ++i)
        programs.push_back(std::make_unique<HelperProcess>(
            u"create"_s, folder.filePath(u"%1.mdb"_s.arg(i)), withHome(home)));
    for (const auto &program : programs)
        EXPECT_EQ(program->line(), u"created"_s);
    // Links and settings, the engine's log and the locks; nothing that was on its way into place.
    for (const QString &name : QDir(home).entryList(QDir::AllEntries | QDir::NoDotAndDotDot))
        EXPECT_FALSE(name.contains(QRegularExpression(u"\\.\\d+$"_s))) << name.toStdString();
    EXPECT_TRUE(QFileInfo(home + u"/plugins"_s).isSymbolicLink());
    EXPECT_TRUE(QFileInfo(home + u"/lock"_s).isDir());
}

TEST(EngineHome, RepairsALinkThatLeadsNowhereAndOldSettings)
{
    const QTemporaryDir folder;
    const QString home = folder.filePath(u"engine"_s);
    ASSERT_TRUE(QDir().mkpath(home));
    ASSERT_TRUE(QFile::link(u"/nowhere/at/all"_s, home + u"/plugins"_s));
    test::writeFile(home + u"/firebird.conf"_s, "ServerMode = Super\n");
    HelperProcess program(u"create"_s, folder.filePath(u"x.mdb"_s), withHome(home));
    EXPECT_EQ(program.line(), u"created"_s);
    EXPECT_TRUE(test::readFile(home + u"/firebird.conf"_s).contains("ServerMode = SuperClassic"));
}

TEST(EngineHome, AFolderThatCanNotBeMadeIsToldInWords)
{
    const QTemporaryDir folder;
    const QString inTheWay = folder.filePath(u"engine"_s);
    test::writeFile(inTheWay, {});
    HelperProcess program(u"create"_s, folder.filePath(u"x.mdb"_s), withHome(inTheWay));
    EXPECT_TRUE(program.line().contains(inTheWay));
    EXPECT_FALSE(QFile::exists(folder.filePath(u"x.mdb"_s)));
}

TEST(EngineHome, WithLocksOfItsOwnNobodyEntersADatabaseInUse)
{
    const QTemporaryDir folder;
    const test::TestDatabase database;
    const auto attached = [&](const QString &home) {
        return std::make_unique<HelperProcess>(u"attach"_s, database.file(),
                                               withHome(folder.filePath(home)));
    };
    auto first = attached(u"one"_s);
    ASSERT_EQ(first->line(), u"attached"_s);
    EXPECT_EQ(attached(u"one"_s)->line(), u"attached"_s) << "the same locks";
    EXPECT_NE(attached(u"two"_s)->line(), u"attached"_s);
    first.reset();
    EXPECT_EQ(attached(u"two"_s)->line(), u"attached"_s);
}

TEST(EngineHome, ALockFolderOfEverybodyIsRefused)
{
    const QTemporaryDir folder;
    const QString lock = folder.filePath(u"engine/lock"_s);
    const auto answer = [&] {
        return HelperProcess(u"create"_s, folder.filePath(u"x.mdb"_s),
                             withHome(folder.filePath(u"engine"_s)))
            .line();
    };
    ASSERT_TRUE(QDir().mkpath(lock));
    ASSERT_TRUE(QFile::setPermissions(lock, QFile::Permissions(0x7777)));
    EXPECT_TRUE(answer().contains(lock));
    ASSERT_TRUE(QDir().rmdir(lock));
    ASSERT_TRUE(QFile::link(folder.path(), lock));
    EXPECT_TRUE(answer().contains(lock));
    ASSERT_TRUE(QFile::remove(lock));
    EXPECT_EQ(answer(), u"created"_s);
    EXPECT_EQ(QFileInfo(lock).permissions() & QFile::Permissions(0x0077), QFile::Permissions());
}

TEST(EngineHome, WhatAnEndedProgramLeftLockedIsClearedByTheNextThatIsAlone)
{
    const QTemporaryDir folder;
    const test::TestDatabase database;
    const auto attached = [&] {
        return std::make_unique<HelperProcess>(u"attach"_s, database.file(),
                                               withHome(folder.filePath(u"engine"_s)));
    };
    const QString left = folder.filePath(u"engine/lock/fb_left"_s);
    auto first = attached();
    ASSERT_EQ(first->line(), u"attached"_s);
    test::writeFile(left, {});
    auto second = attached();
    ASSERT_EQ(second->line(), u"attached"_s);
    EXPECT_TRUE(QFile::exists(left)) << "in use by others";
    first->kill();
    second->kill();
    EXPECT_EQ(attached()->line(), u"attached"_s);
    EXPECT_FALSE(QFile::exists(left));
}

/// The engine's thread for a check lives a moment longer than the check: of programs that ended
/// without regard to it every second one crashed.
TEST(EngineEnd, AProgramEndsWellAfterACheck)
{
    const test::TestDatabase database;
    for (int i = 0; i < 10; ++i) {
        HelperProcess program(u"check"_s, database.file());
        EXPECT_EQ(program.line(), u"0"_s);
        EXPECT_TRUE(program.finish());
    }
}

} // namespace
