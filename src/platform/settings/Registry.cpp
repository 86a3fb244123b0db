#include "platform/settings/Registry.h"

#include "platform/base/Environment.h"
#include "platform/base/Error.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QSaveFile>
#include <QStringDecoder>
#include <QStringList>
#include <optional>

using namespace Qt::StringLiterals;

namespace settings {
namespace {

constexpr int LockWait = 5000; // milliseconds
constexpr QFileDevice::Permissions ownersOnly = QFileDevice::ReadOwner | QFileDevice::WriteOwner;

bool sameName(QStringView left, QStringView right)
{
    return left.compare(right, Qt::CaseInsensitive) == 0;
}

bool isComment(QStringView line)
{
    return line.isEmpty() || line.front() == u';' || line.front() == u'#';
}

std::optional<QStringView> keyOf(QStringView line)
{
    if (line.size() < 3 || line.front() != u'[' || line.back() != u']')
        return std::nullopt;
    return line.sliced(1, line.size() - 2).trimmed();
}

[[noreturn]] void raiseDamaged(const QString &file, qsizetype line)
{
    throw base::Error(
        RegistryDamaged,
        u"The file with the program's settings is damaged at line %1: %2"_s.arg(line).arg(
            QDir::toNativeSeparators(file)));
}

/// The file's lines, each one checked to be a key, a value or a comment; none for a missing file.
QStringList readLines(const QString &path)
{
    QFile file(path);
    if (!file.exists())
        return {};
    if (!file.open(QIODevice::ReadOnly)) {
        throw base::Error(base::ErrorNumber::PathAccess,
                          u"The file with the program's settings can't be read: %1 (%2)"_s.arg(
                              QDir::toNativeSeparators(path), file.errorString()));
    }
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString text = decoder(file.readAll());
    if (decoder.hasError())
        raiseDamaged(path, 1);
    QStringList lines = text.split(u'\n');
    // The end of the last line is no line of its own.
    if (lines.last().isEmpty())
        lines.removeLast();
    bool insideKey = false;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        // A disk that failed leaves zeros.
        if (lines[i].contains(QChar(0)))
            raiseDamaged(path, i + 1);
        const QStringView line = QStringView(lines[i]).trimmed();
        if (isComment(line))
            continue;
        if (keyOf(line))
            insideKey = true;
        else if (!insideKey || line.indexOf(u'=') < 1)
            raiseDamaged(path, i + 1);
    }
    return lines;
}

struct Place
{
    qsizetype value = -1;     ///< line of the value
    qsizetype lastOfKey = -1; ///< last line of the key that is no comment
};

Place find(const QStringList &lines, const QString &key, const QString &name)
{
    Place place;
    bool inside = false;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const QStringView line = QStringView(lines[i]).trimmed();
        if (isComment(line))
            continue;
        // Of a name that stands twice the first one counts.
        if (const auto opened = keyOf(line))
            inside = sameName(*opened, key);
        else if (inside && place.value < 0 &&
                 sameName(line.first(line.indexOf(u'=')).trimmed(), name))
            place.value = i;
        if (inside)
            place.lastOfKey = i;
    }
    return place;
}

void checkFitsOneLine(const QString &name, const QString &value)
{
    static const QString broken = u"\r\n"_s + QChar(0);
    const auto holdsBreak = [](const QString &text) {
        return std::any_of(text.begin(), text.end(), [](QChar c) { return broken.contains(c); });
    };
    const bool nameReadsBack = !name.trimmed().isEmpty() && !name.contains(u'=') &&
                               !isComment(QStringView(name).trimmed()) &&
                               !name.trimmed().startsWith(u'[') && !holdsBreak(name);
    if (!nameReadsBack || holdsBreak(value)) {
        throw base::Error(base::ErrorNumber::InvalidCall,
                          u"The setting \"%1\" can't be stored on one line."_s.arg(name));
    }
}

} // namespace

Registry::Registry(QString file)
    : m_file(std::move(file))
{}

QString Registry::value(const QString &key, const QString &name) const
{
    const QStringList lines = readLines(m_file);
    const qsizetype at = find(lines, key, name).value;
    if (at < 0)
        return {};
    const QString &line = lines[at];
    return line.sliced(line.indexOf(u'=') + 1).trimmed();
}

void Registry::setValue(const QString &key, const QString &name, const QString &value) const
{
    checkFitsOneLine(name, value);
    const auto refuse = [this](const QString &reason) {
        throw base::Error(base::ErrorNumber::PathAccess,
                          u"The file with the program's settings can't be written: %1 (%2)"_s.arg(
                              QDir::toNativeSeparators(m_file), reason));
    };
    const QString folder = QFileInfo(m_file).absolutePath();
    if (!QDir().mkpath(folder))
        refuse(u"the folder can't be made"_s);
    QLockFile lock(m_file + u".lock"_s);
    if (!lock.tryLock(LockWait)) {
        if (lock.error() != QLockFile::LockFailedError)
            refuse(u"the folder is read-only"_s);
        throw base::Error(
            base::ErrorNumber::PermissionDenied,
            u"The file with the program's settings is in use by another program: %1"_s.arg(
                QDir::toNativeSeparators(m_file)));
    }
    // Read under the lock: another program may have stored something since.
    QStringList lines = readLines(m_file);
    const QString entry = name.trimmed() + u'=' + value.trimmed();
    const Place place = find(lines, key, name);
    if (place.value >= 0)
        lines[place.value] = entry;
    else if (place.lastOfKey >= 0)
        lines.insert(place.lastOfKey + 1, entry);
    else
        lines << u'[' + key + u']' << entry;

    const bool isNew = !QFileInfo::exists(m_file);
    QSaveFile file(m_file);
    if (!file.open(QIODevice::WriteOnly))
        refuse(file.errorString());
    if (isNew)
        file.setPermissions(ownersOnly);
    file.write((lines.join(u'\n') + u'\n').toUtf8());
    if (!file.commit())
        refuse(file.errorString());
}

void Registry::keepPrivate() const
{
    constexpr QFileDevice::Permissions others = QFileDevice::ReadGroup | QFileDevice::WriteGroup |
                                                QFileDevice::ExeGroup | QFileDevice::ReadOther |
                                                QFileDevice::WriteOther | QFileDevice::ExeOther;
    if ((QFile::permissions(m_file) & others) != QFileDevice::Permissions())
        QFile::setPermissions(m_file, ownersOnly);
}

Registry registry()
{
    return Registry(base::environment().registryFile);
}

} // namespace settings
