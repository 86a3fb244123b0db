#include "platform/system/Files.h"
#include "platform/system/OsVersion.h"
#include "platform/system/Process.h"
#include "platform/system/SingleInstance.h"
#include "platform/system/SlowFile.h"
#include "support/Raised.h"
#include "support/TestFiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <optional>
#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

using namespace Qt::StringLiterals;

namespace {

class Files : public testing::Test
{
protected:
    QString path(const QString &name) const { return m_folder.filePath(name); }
    void write(const QString &name, const QByteArray &bytes) const
    {
        test::writeFile(path(name), bytes);
    }
    QByteArray bytes(const QString &name) const { return test::readFile(path(name)); }
    QStringList names() const { return QDir(m_folder.path()).entryList(QDir::Files, QDir::Name); }

    QTemporaryDir m_folder;
};

template<class Action>
int errorOf(Action &&action)
{
    return test::raisedBy(action).number();
}

} // namespace

TEST_F(Files, ACopyReplacesAndIsWhole)
{
    const QByteArray large(3 * (1 << 20) + 17, 'q');
    write(u"a"_s, large);
    write(u"b"_s, "old");
    sys::copyFile(path(u"a"_s), path(u"b"_s));
    EXPECT_EQ(bytes(u"b"_s), large);
    EXPECT_EQ(names(), QStringList({u"a"_s, u"b"_s}));
    // From another file system the computer's own copy is refused.
    const QTemporaryDir elsewhere(u"/dev/shm/copy"_s);
    test::writeFile(elsewhere.filePath(u"c"_s), large + 'r');
    sys::copyFile(elsewhere.filePath(u"c"_s), path(u"b"_s));
    EXPECT_EQ(bytes(u"b"_s), large + 'r');
    write(u"empty"_s, {});
    sys::copyFile(path(u"empty"_s), path(u"b"_s));
    EXPECT_EQ(bytes(u"b"_s), "");
    // That of a read-only file can be written.
    QFile::setPermissions(path(u"a"_s), QFileDevice::ReadOwner);
    sys::copyFile(path(u"a"_s), path(u"d"_s));
    EXPECT_TRUE(QFile::permissions(path(u"d"_s)).testFlag(QFileDevice::WriteOwner));
}

TEST_F(Files, AFailedCopyHasItsNumberAndChangesNothing)
{
    write(u"a"_s, "new");
    write(u"b"_s, "old");
    QDir(m_folder.path()).mkdir(u"folder"_s);
    using Case = std::tuple<QString, QString, int>;
    for (const auto &[from, to, number] :
         {Case{u"none"_s, u"b"_s, 53}, Case{u"none/a"_s, u"b"_s, 76}, Case{u"a"_s, u"none/b"_s, 76},
          Case{u"a"_s, u"folder"_s, 75}, Case{u"folder"_s, u"b"_s, 75}}) {
        const auto copy = [&, &source = from, &target = to] {
            sys::copyFile(path(source), path(target));
        };
        EXPECT_EQ(errorOf(copy), number) << qUtf8Printable(from + u" to "_s + to);
    }
    EXPECT_EQ(errorOf([&] { sys::copyFile(path(u"a"_s), path(u"b"_s), [] { return false; }); }),
              70);
    EXPECT_EQ(bytes(u"b"_s), "old");
    EXPECT_EQ(names(), QStringList({u"a"_s, u"b"_s}));
}

TEST_F(Files, RemovingAndMakingFoldersReportTheirFailures)
{
    write(u"a"_s, "1");
    sys::removeFile(path(u"a"_s));
    EXPECT_EQ(errorOf([&] { sys::removeFile(path(u"a"_s)); }), 53);
    sys::removeIfThere(path(u"a"_s));
    sys::makeFolder(path(u"x/y"_s));
    sys::makeFolder(path(u"x/y"_s));
    EXPECT_TRUE(QFileInfo(path(u"x/y"_s)).isDir());
    EXPECT_EQ(errorOf([&] { sys::removeFile(path(u"x"_s)); }), 75);
    write(u"file"_s, "1");
    EXPECT_EQ(errorOf([&] { sys::makeFolder(path(u"file/below"_s)); }), 75);
}

TEST(WindowsName, FollowsPlatformAndVersion)
{
    using Case = std::tuple<int, int, int, const char *>;
    for (const auto &[platform, major, minor, name] :
         {Case{0, 3, 11, "Win32s"}, Case{1, 4, 0, "Windows 95"}, Case{1, 4, 90, "Windows ME"},
          Case{1, 4, 10, "Windows 98"}, Case{2, 5, 0, "Windows 2000"}, Case{2, 5, 1, "Windows XP"},
          Case{2, 5, 2, "Windows NT"}, Case{2, 4, 0, "Windows NT"}, Case{2, 10, 0, "Windows NT"},
          Case{3, 5, 1, ""}})
        EXPECT_EQ(sys::windowsName(platform, major, minor).toStdString(), name)
            << platform << ' ' << major << '.' << minor;
}

TEST(SingleInstance, OneForEachFolderUntilItEnds)
{
    const QTemporaryDir one;
    const QTemporaryDir other;
    std::optional<sys::SingleInstance> first(std::in_place, one.path());
    EXPECT_TRUE(first->isFirst());
    EXPECT_FALSE(sys::SingleInstance(one.path()).isFirst());
    EXPECT_FALSE(
        sys::SingleInstance(one.path() + u"/../"_s + QFileInfo(one.path()).fileName()).isFirst());
    EXPECT_TRUE(sys::SingleInstance(other.path()).isFirst());
    first.reset();
    EXPECT_TRUE(sys::SingleInstance(one.path()).isFirst());
}

TEST_F(Files, TheFirstLineComesOrIsNotWaitedFor)
{
    using namespace std::chrono_literals;
    const auto firstLine = [&](const QByteArray &content) {
        write(u"update.txt"_s, content);
        return sys::firstLine(path(u"update.txt"_s), 5s);
    };
    EXPECT_EQ(firstLine("1.2.0\r\n9.9\r\n"), u"1.2.0"_s);
    EXPECT_EQ(firstLine("1.2.0"), u"1.2.0"_s);
    EXPECT_EQ(firstLine(""), QString());
    EXPECT_EQ(firstLine("\n9.9"), QString());
    EXPECT_LT(firstLine(QByteArray(5000, '9'))->size(), 1001);
    EXPECT_EQ(errorOf([&] { static_cast<void>(sys::firstLine(path(u"none"_s), 5s)); }), 53);
    EXPECT_EQ(errorOf([&] { static_cast<void>(sys::firstLine(path(u"none/x"_s), 5s)); }), 76);
#ifdef Q_OS_UNIX
    // A pipe that nobody writes hangs as a share does.
    ASSERT_EQ(mkfifo(qPrintable(path(u"pipe"_s)), 0600), 0);
    EXPECT_EQ(sys::firstLine(path(u"pipe"_s), 50ms), std::nullopt);
#endif
}

#ifdef Q_OS_UNIX
TEST(RunAndWait, WaitsForTheEndAndTellsTheExitCode)
{
    const QTemporaryDir folder;
    const QString mark = folder.filePath(u"a mark"_s);
    EXPECT_EQ(sys::runAndWait(u"sh -c \"sleep 0.1; touch '%1'; exit 3\""_s.arg(mark)), 3);
    EXPECT_TRUE(QFileInfo::exists(mark));
    EXPECT_EQ(errorOf([] { sys::runAndWait(u"\"/no such/program\" -x"_s); }), 53);
    EXPECT_EQ(errorOf([] { sys::runAndWait(u" "_s); }), 5);
    EXPECT_EQ(errorOf([] { sys::runAndWait(u"sh -c \"kill -9 $$\""_s); }), 5);
    EXPECT_EQ(errorOf([&] { sys::runAndWait(u'"' + folder.path() + u'"'); }), 5);
}
#endif
