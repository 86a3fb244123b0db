#include "platform/db/EngineHome.h"

#include "platform/db/HelperProcess.h"
#include "platform/db/Maintenance.h"
#include "platform/db/TestDatabase.h"
#include "support/TestFiles.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <memory>

namespace {

using namespace Qt::StringLiterals;
using test::HelperProcess;

class EngineHome : public testing::Test
{
protected:
    /// A program with an engine folder of its own, below the test's.
    std::unique_ptr<HelperProcess> start(const QString &command, const QString &file,
                                         const QString &home = u"engine"_s) const
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"QUORVANTIS_ENGINE"_s, path(home));
        return std::make_unique<HelperProcess>(command, path(file), QString(), environment);
    }
    [[nodiscard]] QString path(const QString &name) const
    {
        return QDir(folder.path()).absoluteFilePath(name);
    }

    QTemporaryDir folder;
    const test::TestDatabase database;
};

TEST_F(EngineHome, IsMadeOnceByProgramsThatStartTogether)
{
    const QString home = path(u"a/b/engine"_s);
    std::vector<std::unique_ptr<HelperProcess>> programs;
    for (int i = 0; i < 6; ++i)
        programs.push_back(start(u"create"_s, u"%1.mdb"_s.arg(i), home));
    for (const auto &program : programs)
        EXPECT_EQ(program->line(), u"created"_s);
    // Links and settings, the engine's log and the locks; nothing that was on its way into place.
    for (const QString &name : QDir(home).entryList(QDir::AllEntries | QDir::NoDotAndDotDot))
        EXPECT_FALSE(name.contains(QRegularExpression(u"\\.\\d+$"_s))) << name.toStdString();
    EXPECT_TRUE(QFileInfo(home + u"/plugins"_s).isSymbolicLink());
    EXPECT_TRUE(QFileInfo(home + u"/lock"_s).isDir());
}

TEST_F(EngineHome, RepairsALinkThatLeadsNowhereAndOldSettings)
{
    const QString home = path(u"engine"_s);
    ASSERT_TRUE(QDir().mkpath(home));
    ASSERT_TRUE(QFile::link(u"/nowhere/at/all"_s, home + u"/plugins"_s));
    test::writeFile(home + u"/firebird.conf"_s, "ServerMode = Super\n");
    EXPECT_EQ(start(u"create"_s, u"x.mdb"_s)->line(), u"created"_s);
    EXPECT_TRUE(test::readFile(home + u"/firebird.conf"_s).contains("ServerMode = SuperClassic"));
}

TEST_F(EngineHome, AFolderThatCanNotBeMadeIsToldInWords)
{
    test::writeFile(path(u"engine"_s), {});
    EXPECT_TRUE(start(u"create"_s, u"x.mdb"_s)->line().contains(path(u"engine"_s)));
    EXPECT_FALSE(QFile::exists(path(u"x.mdb"_s)));
}

TEST_F(EngineHome, WithLocksOfItsOwnNobodyEntersADatabaseInUse)
{
    const auto attached = [&](const QString &home) {
        return start(u"attach"_s, database.file(), home);
    };
    auto first = attached(u"one"_s);
    ASSERT_EQ(first->line(), u"attached"_s);
    EXPECT_EQ(attached(u"one"_s)->line(), u"attached"_s) << "the same locks";
    EXPECT_NE(attached(u"two"_s)->line(), u"attached"_s);
    first.reset();
    EXPECT_EQ(attached(u"two"_s)->line(), u"attached"_s);
}

TEST_F(EngineHome, ALockFolderOfEverybodyIsRefused)
{
    const QString lock = path(u"engine/lock"_s);
    const auto answer = [&] { return start(u"create"_s, u"x.mdb"_s)->line(); };
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

TEST_F(EngineHome, WhatAnEndedProgramLeftLockedIsClearedByTheNextThatIsAlone)
{
    const auto attached = [&] { return start(u"attach"_s, database.file()); };
    const QString left = path(u"engine/lock/fb_left"_s);
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
