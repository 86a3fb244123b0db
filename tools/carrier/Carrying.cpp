#include "carrier/Carrying.h"

#include "carrier/Journal.h"
#include "platform/base/Error.h"
#include "platform/settings/Registry.h"
#include "platform/system/Files.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QThread>

using namespace Qt::StringLiterals;

namespace carrier {
namespace {

constexpr unsigned long LookAgain = 200; ///< milliseconds
const QString Marker = u"done.txt"_s;
const QString DataFile = u"Data.xml"_s;

[[noreturn]] void raise(int number, const QString &sentence)
{
    throw base::Error(number, sentence);
}

void waitForDevice(const Settings &settings)
{
    if (settings.device.isEmpty())
        raise(base::ErrorNumber::PathNotFound,
              u"It is not said where the handheld is. Write its folder behind \"Device=\" in "
              "carrier.ini."_s);
    QElapsedTimer clock;
    clock.start();
    while (!QFileInfo(settings.device).isDir()) {
        if (std::chrono::milliseconds(clock.elapsed()) >= settings.patience)
            raise(base::ErrorNumber::PathNotFound,
                  u"The handheld isn't there. Put it into the cradle, or connect it, and try "
                  "again.\n\nIts folder is "_s +
                      QDir::toNativeSeparators(settings.device));
        QThread::msleep(LookAgain);
    }
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        raise(base::ErrorNumber::PathAccess,
              u"The file can't be read (%1): "_s.arg(file.errorString()) +
                  QDir::toNativeSeparators(path));
    const QByteArray content = file.readAll();
    if (file.error() != QFileDevice::NoError || content.size() != QFileInfo(path).size())
        raise(base::ErrorNumber::PathAccess,
              u"The file can't be read whole, or is still being written: "_s +
                  QDir::toNativeSeparators(path));
    return content;
}

bool holds(const QString &path, const QByteArray &content)
{
    return QFileInfo(path).isFile() && contentOf(path) == content;
}

QStringList filesOf(const QString &folder)
{
    QStringList names;
    for (const QString &name : QDir(folder).entryList(QDir::Files, QDir::Name | QDir::IgnoreCase)) {
        if (name.startsWith(u"Sy") || name.startsWith(u"Count"))
            names.append(name);
    }
    return names;
}

/// The device's files on their way to the inbox.
class Transfer
{
public:
    Transfer(const Settings &settings, const Company &company)
        : m_settings(settings)
        , m_company(company)
        , m_journal(settings.copies)
        , m_stage(settings.inbox + u".part"_s)
    {}

    void run()
    {
        sys::makeFolder(m_settings.inbox);
        sys::makeFolder(m_stage);
        const QStringList names = filesOf(m_settings.device);
        QStringList staged;
        for (const QString &name : names) {
            if (stage(name))
                staged.append(name);
            m_company.alive();
        }
        // All at once: one may speak of what another has made.
        for (const QString &name : std::as_const(staged))
            move(name);
        if (!filesOf(m_settings.inbox).isEmpty())
            sys::writeFile(m_settings.inbox + u'/' + Marker, {});
        // What is safe here may go there.
        for (const QString &name : names)
            sys::removeFile(m_settings.device + u'/' + name);
        m_company.alive();
    }

private:
    /// Puts a file beside the inbox; False when it is there already, or is not to be brought.
    [[nodiscard]] bool stage(const QString &name)
    {
        const QByteArray content = contentOf(m_settings.device + u'/' + name);
        if (isWaiting(content))
            return false;
        const QString staged = m_stage + u'/' + name;
        const bool interrupted = holds(staged, content);
        if (const QString copy = m_journal.copyOf(content);
            !copy.isEmpty() && !interrupted && !mayBringAgain(name, copy))
            return false;
        sys::writeFile(staged, content);
        m_journal.keep(name, content);
        return true;
    }

    void move(const QString &name)
    {
        const QString place = freeName(name);
        if (!QFile::rename(m_stage + u'/' + name, place))
            raise(base::ErrorNumber::PathAccess,
                  u"The file can't be written: "_s + QDir::toNativeSeparators(place));
    }

    /// True when the import has not taken it in yet.
    [[nodiscard]] bool isWaiting(const QByteArray &content) const
    {
        for (const QString &name : filesOf(m_settings.inbox)) {
            if (holds(m_settings.inbox + u'/' + name, content))
                return true;
        }
        return false;
    }

    [[nodiscard]] bool mayBringAgain(const QString &name, const QString &copy) const
    {
        return m_company.ask(u"The file \"%1\" of the handheld was imported already (as \"%2\"). "
                             "Importing it once more would make its work orders and services "
                             "twice.\n\nImport it once more?"_s.arg(name, copy));
    }

    /// A place in the inbox where nothing stands: what waits there is never overwritten.
    [[nodiscard]] QString freeName(const QString &name) const
    {
        const QFileInfo parts(name);
        const QString ending = parts.suffix().isEmpty() ? QString() : u'.' + parts.suffix();
        QString place = m_settings.inbox + u'/' + name;
        for (int number = 2; QFileInfo::exists(place); ++number)
            place = u"%1/%2-%3%4"_s.arg(m_settings.inbox, parts.completeBaseName())
                        .arg(number)
                        .arg(ending);
        return place;
    }

    const Settings &m_settings;
    const Company &m_company;
    Journal m_journal;
    QString m_stage;
};

} // namespace

Settings readSettings(const QString &folder)
{
    const QString file = folder + u"/carrier.ini"_s;
    if (!QFileInfo::exists(file))
        raise(base::ErrorNumber::FileNotFound,
              u"The settings are missing: "_s + QDir::toNativeSeparators(file));
    const settings::Registry values(file);
    const auto value = [&](const QString &name) { return values.value(u"Carrier"_s, name); };
    const auto place = [&](const QString &name, const QString &usual) {
        const QString given = value(name).isEmpty() ? usual : value(name);
        return given.isEmpty() ? given : QDir::cleanPath(QDir(folder).absoluteFilePath(given));
    };
    Settings read;
    read.device = place(u"Device"_s, {});
    read.data = place(u"Data"_s, u"../XML_OUT/Data.xml"_s);
    read.inbox = place(u"Inbox"_s, u"Xml_IN"_s);
    read.copies = place(u"Copies"_s, u"Copies"_s);
    read.textOnly = value(u"Messages"_s).compare(u"text"_s, Qt::CaseInsensitive) == 0;
    if (const QString seconds = value(u"Patience"_s); !seconds.isEmpty()) {
        bool isNumber = false;
        read.patience = std::chrono::seconds(seconds.toUInt(&isNumber));
        if (!isNumber)
            raise(base::ErrorNumber::InvalidCall,
                  u"\"Patience=%1\" in carrier.ini is no number of seconds."_s.arg(seconds));
    }
    return read;
}

void toDevice(const Settings &settings, const Company &company)
{
    if (!QFileInfo(settings.data).isFile())
        raise(base::ErrorNumber::FileNotFound, u"There is nothing to take to the handheld yet: "_s +
                                                   QDir::toNativeSeparators(settings.data));
    waitForDevice(settings);
    company.alive();
    const QByteArray content = contentOf(settings.data);
    sys::writeFile(settings.device + u'/' + DataFile, content);
    company.alive();
    Journal(settings.copies).keep(DataFile, content);
}

void fromDevice(const Settings &settings, const Company &company)
{
    waitForDevice(settings);
    company.alive();
    Transfer(settings, company).run();
}

} // namespace carrier
