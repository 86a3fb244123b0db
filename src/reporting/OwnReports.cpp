#include "reporting/OwnReports.h"

#include "platform/base/Environment.h"
#include "platform/base/Error.h"
#include "platform/report/layout/LayoutFile.h"
#include "platform/system/Files.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <algorithm>

namespace ownreports {

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView Ending = u".rpt";
constexpr qsizetype LongestName = 80;
constexpr int WriterPatience = 10'000; // milliseconds

QString deliveredFolder()
{
    return base::applicationPath(u"\\Reports"_s);
}

QString customFolder()
{
    return base::applicationPath(u"\\Custom Reports"_s);
}

QString userFolder()
{
    return base::applicationPath(u"\\User Defined Reports"_s);
}

bool isOneOf(QStringView text, std::initializer_list<QStringView> words)
{
    return std::ranges::any_of(
        words, [&](QStringView word) { return text.compare(word, Qt::CaseInsensitive) == 0; });
}

/// Layouts that are not offered for changing: of the program's own report, and the second forms of
/// two others.
bool isHidden(const QString &file)
{
    return isOneOf(file, {u"rptErrorReport.rpt", u"rptServiceHistoryTimesCDate.rpt",
                          u"rptInventoryPartHistoryCDate.rpt"});
}

/// A name that some file systems take for a device, whatever ending it has.
bool isDevice(QStringView name)
{
    const QStringView stem = name.left(name.indexOf(u'.')).trimmed();
    if (isOneOf(stem, {u"CON", u"PRN", u"AUX", u"NUL", u"CONIN$", u"CONOUT$"}))
        return true;
    return stem.size() == 4 && isOneOf(stem.first(3), {u"COM", u"LPT"}) &&
           (stem[3].isDigit() || QStringView(u"\u00b9\u00b2\u00b3").contains(stem[3]));
}

bool isIn(const QString &folder, const QString &path)
{
    return QFileInfo(path).absolutePath() == QFileInfo(folder).absoluteFilePath();
}

/// The file under which a name is known already, letters of either case being the same; the path
/// itself when there is none.
QString existingPath(const QString &path)
{
    const QFileInfo wanted(path);
    for (const QString &file : wanted.dir().entryList(QDir::Files))
        if (file.compare(wanted.fileName(), Qt::CaseInsensitive) == 0)
            return wanted.dir().filePath(file);
    return path;
}

/// One for a name in all letters that it may be written in.
QString lockPath(const QString &path)
{
    const QFileInfo file(path);
    return file.path() + u'/' + file.fileName().toLower() + u".lock"_s;
}

} // namespace

QString folderPath(Folder folder)
{
    return folder == Folder::Delivered ? deliveredFolder() : userFolder();
}

QList<Entry> list(Folder folder)
{
    const bool isDelivered = folder == Folder::Delivered;
    const QDir files(folderPath(folder));
    QList<Entry> entries;
    for (const QFileInfo &file : files.entryInfoList({u'*' + Ending.toString()}, QDir::Files)) {
        Entry entry{file.completeBaseName(), file.filePath()};
        if (isDelivered && isHidden(file.fileName()))
            continue;
        if (isDelivered) {
            // All delivered files begin so, which says nothing to a user.
            entry.name.remove(u"rpt"_s);
            const QString own = customFolder() + u'/' + file.fileName();
            if (QFile::exists(own))
                entry.path = own;
        }
        entries.append(entry);
    }
    std::ranges::sort(entries, [](const Entry &left, const Entry &right) {
        return left.name.compare(right.name, Qt::CaseInsensitive) < 0;
    });
    return entries;
}

Kind kindOf(const QString &path)
{
    return isIn(customFolder(), path) || isIn(deliveredFolder(), path) ? Kind::DefaultReport
                                                                       : Kind::NewReport;
}

QString savePath(Kind kind, const QString &fileName)
{
    return (kind == Kind::NewReport ? userFolder() : customFolder()) + u'/' + fileName;
}

QString fileNameOf(const QString &typed)
{
    QString name = typed.trimmed();
    if (name.endsWith(Ending, Qt::CaseInsensitive))
        name = name.chopped(Ending.size()).trimmed();
    return name.isEmpty() ? name : name + Ending.toString();
}

QString problemOf(const QString &typed)
{
    const QString name = fileNameOf(typed).chopped(Ending.size());
    if (std::ranges::any_of(name, [](QChar letter) {
            return QStringView(u"\\/:*?\"<>|").contains(letter) ||
                   (!letter.isPrint() && !letter.isSurrogate());
        }))
        return u"A report's name can't have any of these characters: \\ / : * ? \" < > |"_s;
    if (name.startsWith(u'.') || name.endsWith(u'.'))
        return u"A report's name can't begin or end with a period."_s;
    if (isDevice(name))
        return u"\"%1\" is the name of a device. Please give another name."_s.arg(name);
    if (name.size() > LongestName)
        return u"A report's name can have %1 characters at most."_s.arg(LongestName);
    return {};
}

Version versionOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QCryptographicHash hash(QCryptographicHash::Sha256);
    hash.addData(&file);
    return hash.result().toHex();
}

bool save(const report::Layout &layout, const QString &path, Version &known,
          const MayReplace &mayReplace)
{
    if (!isIn(customFolder(), path) && !isIn(userFolder(), path))
        throw base::Error(base::ErrorNumber::PathAccess,
                          u"A report is never saved to this place: %1"_s.arg(path));
    sys::makeFolder(userFolder());
    sys::makeFolder(customFolder());
    // Asking takes as long as the user likes: what he has agreed to replace must still be there,
    // else he is asked about what has come since.
    for (;;) {
        const QString target = existingPath(path);
        const Version present = versionOf(target);
        if (!present.isEmpty() && present != known &&
            !mayReplace(known.isEmpty() ? InPlace::AnotherReport : InPlace::ChangedMeanwhile))
            return false;
        // Two workstations that save at once take turns; who comes second asks like others.
        QLockFile writer(lockPath(path));
        if (!writer.tryLock(WriterPatience))
            throw base::Error(base::ErrorNumber::PermissionDenied,
                              u"Another workstation is saving this report: %1"_s.arg(path));
        if (versionOf(target) == present) {
            report::writeLayoutFile(layout, target);
            known = versionOf(target);
            return true;
        }
    }
}

} // namespace ownreports
