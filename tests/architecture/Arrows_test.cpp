#include <QDir>
#include <QDirIterator>
#include <QLibraryInfo>
#include <QRegularExpression>
#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

/// From the ground up: a folder includes only itself and what stands before it.
const QStringList Platform{u"base"_s,   u"settings"_s, u"sql"_s,  u"db"_s,
                           u"system"_s, u"web"_s,      u"mail"_s, u"odbc"_s,
                           u"input"_s,  u"grid"_s,     u"help"_s, u"report"_s};
/// The order of the subsystems, which their screens keep as well as their logic.
const QStringList Subsystems{
    u"core"_s,       u"organisation"_s, u"parts"_s,    u"scheduling"_s,     u"equipment"_s,
    u"workorders"_s, u"reporting"_s,    u"exchange"_s, u"administration"_s, u"shell"_s};

struct Place
{
    int rank = -1; ///< -1: not one of the house's folders
    QString subsystem;
    bool isLogic = false;
    bool isScreen = false;
};

/// Where a file stands, by its path from src/.
Place placeOf(const QString &path)
{
    const QStringList parts = path.split(u'/');
    if (parts.size() < 2)
        return {};
    if (parts[0] == u"platform")
        return {.rank = static_cast<int>(Platform.indexOf(parts[1])), .subsystem = {}};
    if (parts[0] == u"app")
        return {.rank = 1000, .subsystem = {}};
    const int order = static_cast<int>(Subsystems.indexOf(parts[0]));
    if (order < 0)
        return {};
    if (parts[1] == u"ui")
        return {.rank = 200 + order, .subsystem = parts[0], .isScreen = true};
    return {.rank = 100 + order, .subsystem = parts[0], .isLogic = true};
}

struct Source
{
    QString file; ///< from src/
    QString text; ///< without comments that have lines of their own
};

const QList<Source> &allSources()
{
    static const QList<Source> sources = [] {
        const QDir folder(QStringLiteral(QUORVANTIS_SOURCE_FOLDER));
        static const QRegularExpression comment(u"^\\s*//.*$|///<.*$"_s,
                                                QRegularExpression::MultilineOption);
        QList<Source> found;
        QDirIterator files(folder.path(), {u"*.h"_s, u"*.cpp"_s}, QDir::Files,
                           QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile file(files.next());
            EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(file.fileName());
            found.append({folder.relativeFilePath(file.fileName()),
                          QString::fromUtf8(file.readAll()).remove(comment)});
        }
        return found;
    }();
    return sources;
}

struct Include
{
    QString file; ///< from src/
    QString included;
};

QList<Include> allIncludes()
{
    static const QRegularExpression pattern(u"^\\s*#include [\"<]([^\">]+)[\">]"_s,
                                            QRegularExpression::MultilineOption);
    QList<Include> includes;
    for (const Source &source : allSources()) {
        for (const QRegularExpressionMatch &match : pattern.globalMatch(source.text))
            includes.append({source.file, match.captured(1)});
    }
    return includes;
}

/// Expects that no source matches, but those below a folder.
void expectOnlyBelow(const QString &folder, const QRegularExpression &pattern)
{
    ASSERT_TRUE(pattern.isValid()) << qPrintable(pattern.errorString());
    for (const Source &source : allSources()) {
        if (source.file.startsWith(folder))
            continue;
        const QRegularExpressionMatch match = pattern.match(source.text);
        EXPECT_FALSE(match.hasMatch())
            << qPrintable(source.file) << " has " << qPrintable(match.captured());
    }
}

/// The file's name without its folders.
QString nameOf(const QString &file)
{
    return file.section(u'/', -1);
}

/// A form: a window of its own, told by the names that the system gives to forms.
bool isForm(const QString &file)
{
    return placeOf(file).isScreen && nameOf(file).startsWith(u"frm");
}

/// True when a text between quotes, pieces on several lines joined, begins a statement.
bool hasStatement(QString text)
{
    static const QRegularExpression seam(u"\"(?:_s)?\\s*\\n\\s*u?\""_s);
    static const QRegularExpression statement(
        u"\"\\s*(?:select\\s[^\"]*\\s(?:from|as)\\s|insert\\s+into\\s|update\\s+\\S+\\s+set\\s|"
        "delete\\s+from\\s)"_s,
        QRegularExpression::CaseInsensitiveOption);
    return text.remove(seam).contains(statement);
}

TEST(Arrows, PointToFoldersBelow)
{
    const QList<Include> includes = allIncludes();
    ASSERT_GT(includes.size(), 500);
    for (const Include &include : includes) {
        if (!QFile::exists(QStringLiteral(QUORVANTIS_SOURCE_FOLDER "/") + include.included))
            continue; // a header of the system or of a library
        const Place from = placeOf(include.file);
        const Place to = placeOf(include.included);
        EXPECT_GE(from.rank, 0) << qPrintable(include.file) << " stands in no known folder";
        EXPECT_LE(to.rank, from.rank)
            << qPrintable(include.file) << " includes " << qPrintable(include.included);
    }
}

TEST(Arrows, LeaveWidgetsToScreens)
{
    const QDir toolkit(QLibraryInfo::path(QLibraryInfo::HeadersPath));
    const QStringList modules{u"QtWidgets/"_s, u"QtGui/"_s, u"QtPrintSupport/"_s, u"QtCharts/"_s};
    ASSERT_TRUE(toolkit.exists(u"QtWidgets/QWidget"_s)) << qPrintable(toolkit.path());
    for (const Include &include : allIncludes()) {
        if (!placeOf(include.file).isLogic)
            continue;
        for (const QString &module : modules) {
            EXPECT_FALSE(include.included.startsWith(module) ||
                         toolkit.exists(module + include.included))
                << qPrintable(include.file) << " includes " << qPrintable(include.included);
        }
        EXPECT_FALSE(include.included.startsWith(u"platform/input/") ||
                     include.included.startsWith(u"platform/grid/") ||
                     include.included.startsWith(u"platform/help/") ||
                     include.included.startsWith(u"platform/report/viewer/"))
            << qPrintable(include.file) << " includes " << qPrintable(include.included);
    }
}

/// Logic says what is to be told (core/Told.h) and asks its caller; a box is the screen's.
TEST(Arrows, LeaveBoxesToScreens)
{
    for (const Include &include : allIncludes()) {
        EXPECT_FALSE(placeOf(include.file).isLogic && include.file != u"core/Told.cpp" &&
                     include.included == u"platform/base/Prompts.h")
            << qPrintable(include.file) << " opens boxes";
    }
}

TEST(Arrows, KeepTheDoorsToTheOutsideInOnePlaceEach)
{
    const QList<std::pair<QString, QString>> doors{
        {u"firebird/"_s, u"platform/db/"_s},       {u"QMessageBox"_s, u"platform/input/"_s},
        {u"QInputDialog"_s, u"platform/input/"_s}, {u"QFileDialog"_s, u"platform/input/"_s},
        {u"QProcess"_s, u"platform/system/"_s},    {u"QDesktopServices"_s, u"platform/system/"_s},
        {u"curl/"_s, u"platform/web/"_s},          {u"sql.h"_s, u"platform/odbc/"_s},
        {u"sqlext.h"_s, u"platform/odbc/"_s}};
    for (const Include &include : allIncludes()) {
        for (const auto &[header, folder] : doors) {
            const bool used = include.included == header ||
                              include.included.endsWith(u'/' + header) ||
                              (header.endsWith(u'/') && include.included.startsWith(header));
            EXPECT_TRUE(!used || include.file.startsWith(folder))
                << qPrintable(include.file) << " includes " << qPrintable(include.included);
        }
    }
}

TEST(Arrows, TakeTheClockFromTheEnvironment)
{
    expectOnlyBelow(
        u"platform/base/Environment.cpp"_s,
        QRegularExpression(
            u"\\bcurrent(?:Date|DateTime|DateTimeUtc|Time|MSecsSinceEpoch|SecsSinceEpoch)\\s*\\(|"
            "\\bsystem_clock\\b|\\bgettimeofday\\b|\\bclock_gettime\\b|\\bstd::time\\s*\\(|"
            "(?<![\\w.>:])time\\s*\\(\\s*(?:nullptr|NULL|0|&\\s*\\w+)\\s*\\)"_s));
}

/// A right that is written down twice is asked on one road and forgotten on the other.
TEST(Arrows, NameRightsInTheListOfOpeningsAndWithTheirRecords)
{
    const QRegularExpression named(u"&\\s*Rights::|\\bgRights\\b"_s);
    for (const Source &source : allSources()) {
        if (source.file.startsWith(u"core/") || source.file.startsWith(u"shell/RightsTable"))
            continue;
        EXPECT_FALSE(named.match(source.text).hasMatch())
            << qPrintable(source.file) << " names a right of its own";
    }
}

TEST(Arrows, StartProcessesInOnePlace)
{
    expectOnlyBelow(u"platform/system/"_s,
                    QRegularExpression(u"\\bstd::system\\s*\\(|\\bpopen\\s*\\(|\\bposix_spawn|"
                                       "(?<![\\w.>:])(?:system|fork|execv\\w*)\\s*\\("_s));
}

TEST(Arrows, KeepFormsOutOfHeaders)
{
    for (const Include &include : allIncludes()) {
        EXPECT_FALSE(placeOf(include.file).isScreen && include.file.endsWith(u".h") &&
                     isForm(include.included))
            << qPrintable(include.file) << " includes " << qPrintable(include.included);
    }
}

/// The pages that the machine's screen takes in stand in the folder of their subject, so a
/// page may be included like a folder's entries.
TEST(Arrows, ReachTheScreensOfOtherFoldersByTheirEntries)
{
    for (const Include &include : allIncludes()) {
        const Place from = placeOf(include.file);
        const Place to = placeOf(include.included);
        if (!from.isScreen || !to.isScreen || to.subsystem == from.subsystem ||
            to.subsystem == u"core")
            continue;
        EXPECT_TRUE(include.included.endsWith(u"Entries.h") || include.included.endsWith(u"Page.h"))
            << qPrintable(include.file) << " includes " << qPrintable(include.included);
    }
}

TEST(Arrows, LeaveStatementsToLogic)
{
    for (const Source &source : allSources()) {
        const Place place = placeOf(source.file);
        if (!place.isScreen || place.subsystem == u"core")
            continue;
        EXPECT_FALSE(hasStatement(source.text)) << qPrintable(source.file) << " has a statement";
    }
}

} // namespace
