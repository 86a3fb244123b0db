#include <QDir>
#include <QDirIterator>
#include <QRegularExpression>
#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

/// From the ground up: a folder includes only itself and what stands before it.
const QStringList Platform{u"base"_s,  u"settings"_s, u"sql"_s,  u"db"_s,    u"system"_s,
                           u"input"_s, u"grid"_s,     u"help"_s, u"report"_s};
/// The logic folders in the order of their arrows; their screens keep an order of their own.
const QStringList Logic{u"core"_s,      u"scheduling"_s, u"organisation"_s,
                        u"parts"_s,     u"equipment"_s,  u"workorders"_s,
                        u"reporting"_s, u"exchange"_s,   u"shell"_s};
const QStringList Screens{u"core"_s,       u"organisation"_s, u"parts"_s,
                          u"scheduling"_s, u"equipment"_s,    u"workorders"_s,
                          u"reporting"_s,  u"exchange"_s,     u"shell"_s};

struct Place
{
    int rank = -1; ///< -1: not one of the house's folders
    bool isLogic = false;
};

/// Where a file stands, by its path from src/.
Place placeOf(const QString &path)
{
    const QStringList parts = path.split(u'/');
    if (parts.size() < 2)
        return {};
    if (parts[0] == u"platform")
        return {static_cast<int>(Platform.indexOf(parts[1])), false};
    if (parts[0] == u"app")
        return {1000, false};
    if (parts[1] == u"ui")
        return {200 + static_cast<int>(Screens.indexOf(parts[0])), false};
    return {100 + static_cast<int>(Logic.indexOf(parts[0])), true};
}

struct Include
{
    QString file; ///< from src/
    QString included;
};

QList<Include> allIncludes()
{
    const QDir source(QStringLiteral(QUORVANTIS_SOURCE_FOLDER));
    static const QRegularExpression pattern(u"^\\s*#include [\"<]([^\">]+)[\">]"_s,
                                            QRegularExpression::MultilineOption);
    QList<Include> includes;
    QDirIterator files(source.path(), {u"*.h"_s, u"*.cpp"_s}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(file.fileName());
        const QString text = QString::fromUtf8(file.readAll());
        for (const QRegularExpressionMatch &match : pattern.globalMatch(text))
            includes.append({source.relativeFilePath(file.fileName()), match.captured(1)});
    }
    return includes;
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
    static const QStringList widgets{u"QWidget"_s,     u"QDialog"_s,     u"QApplication"_s,
                                     u"QMessageBox"_s, u"QMainWindow"_s, u"QLineEdit"_s};
    for (const Include &include : allIncludes()) {
        if (!placeOf(include.file).isLogic)
            continue;
        EXPECT_FALSE(widgets.contains(include.included) ||
                     include.included.startsWith(u"platform/input/") ||
                     include.included.startsWith(u"platform/grid/"))
            << qPrintable(include.file) << " includes " << qPrintable(include.included);
    }
}

TEST(Arrows, KeepTheDoorsToTheOutsideInOnePlaceEach)
{
    const QList<std::pair<QString, QString>> doors{
        {u"firebird/"_s, u"platform/db/"_s},       {u"QMessageBox"_s, u"platform/input/"_s},
        {u"QInputDialog"_s, u"platform/input/"_s}, {u"QFileDialog"_s, u"platform/input/"_s},
        {u"QProcess"_s, u"platform/system/"_s},    {u"QDesktopServices"_s, u"platform/system/"_s}};
    for (const Include &include : allIncludes()) {
        for (const auto &[header, folder] : doors) {
            const bool used = include.included == header ||
                              (header.endsWith(u'/') && include.included.startsWith(header));
            EXPECT_TRUE(!used || include.file.startsWith(folder))
                << qPrintable(include.file) << " includes " << qPrintable(include.included);
        }
    }
}

} // namespace
