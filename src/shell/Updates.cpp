#include "shell/Updates.h"

#include "core/RegistryValues.h"
#include "core/Told.h"
#include "platform/base/Error.h"
#include "platform/base/Trapped.h"
#include "platform/system/Process.h"
#include "platform/system/SlowFile.h"

#include <QXmlStreamReader>

using namespace Qt::StringLiterals;

namespace updates {
namespace {

constexpr auto Module = "Main Funtions";
constexpr std::chrono::seconds LongestWait(2);
const QString Product = u"Quorvantis"_s;
const QString FirstClientVersion = u"1.1.0"_s;
const QString LastClientVersion = u"1.1.1"_s;

/// A stored path in the form that this system's files need.
QString path(QString stored)
{
    return stored.replace(u'\\', u'/');
}

QString value(const QString &name)
{
    return GetRegistryValue(name).trimmed();
}

/// The version of the release on a share; empty where there is none, or no answer in time.
QString releaseOn(const ReleaseShare &share)
{
    try {
        const auto line = sys::firstLine(share.folder + u"/update.txt"_s, LongestWait);
        if (!line)
            qWarning("no answer from %s, looking for a newer release at the next start",
                     qUtf8Printable(share.folder));
        return line.value_or(QString()).trimmed();
    } catch (const base::Error &error) {
        if (share.isNamed || error.number() != base::ErrorNumber::PathNotFound)
            throw;
        return {};
    }
}

Offer readOffer(QXmlStreamReader &feed)
{
    QStringList children;
    while (feed.readNextStartElement())
        children.append(feed.readElementText(QXmlStreamReader::IncludeChildElements).trimmed());
    return {children.value(0), children.value(1), children.value(2)};
}

} // namespace

std::optional<ReleaseShare> releaseShare()
{
    const QString version = value(u"Version"_s);
    const QString source = value(u"SRCPATH"_s);
    if ((version >= FirstClientVersion || !source.isEmpty()) && version <= LastClientVersion) {
        if (source.isEmpty())
            return std::nullopt;
        return ReleaseShare{path(source), value(u"CLIENTVERSION"_s), true};
    }
    const QString place = value(u"PATH"_s);
    if (place.isEmpty())
        return std::nullopt;
    return ReleaseShare{path(place + u"Client"_s), value(u"VERSION"_s), false};
}

bool CheckForUpdate()
{
    return base::trapped(Module, "CheckForUpdate", false, [] {
        const std::optional<ReleaseShare> share = releaseShare();
        if (!share || value(AtStartValue) == u"0")
            return false;
        if (releaseOn(*share) <= share->installed)
            return false;
        told::information(
            u"System found an update for Quorvantis. It will start automatically in a moment."_s);
        sys::startProgram(u"\"%1/Setup.exe\""_s.arg(share->folder));
        return true;
    });
}

QString feedAddress()
{
    QString site = GetMakerRegistryValue(u"UpdateSite"_s).trimmed();
    if (site.isEmpty())
        return {};
    while (site.endsWith(u'/'))
        site.chop(1);
    return site + u"/setup/LatestUPT/Quorvantis.xml"_s;
}

Offer offerIn(const QByteArray &feed)
{
    QXmlStreamReader reader(feed);
    Offer offer;
    while (!reader.atEnd()) {
        if (reader.readNext() == QXmlStreamReader::StartElement &&
            reader.name() == Product.toUpper())
            offer = readOffer(reader);
    }
    if (reader.hasError())
        throw base::Error(base::ErrorNumber::InvalidCall,
                          u"What the update site sent is no list of releases (line %1: %2)."_s
                              .arg(reader.lineNumber())
                              .arg(reader.errorString()));
    return offer;
}

bool isNewer(const Offer &offer)
{
    return value(u"Version"_s) < offer.version;
}

QString sentenceOf(const Offer &offer)
{
    return offer.text.isEmpty() ? QString() : Product + u' ' + offer.text + u" is available."_s;
}

} // namespace updates
