#include "reporting/ReportDrafts.h"

#include "platform/base/Environment.h"
#include "platform/base/Error.h"
#include "platform/report/layout/LayoutFile.h"
#include "platform/system/Files.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace drafts {

using namespace Qt::StringLiterals;

namespace {

QString folder()
{
    return base::appDataPath(u"\\Drafts"_s);
}

/// Two paths never share a draft, and no path leads out of the folder.
QString draftPath(const QString &path)
{
    const QByteArray name =
        QCryptographicHash::hash(path.toUtf8(), QCryptographicHash::Sha256).first(16).toHex();
    return folder() + u'/' + QString::fromLatin1(name) + u".draft"_s;
}

} // namespace

void keep(const QString &path, const report::Layout &layout, const QByteArray &base)
{
    try {
        sys::makeFolder(folder());
        sys::writeFile(draftPath(path), base + '\n' + report::writeLayout(layout));
    } catch (const base::Error &error) {
        qWarning("A draft could not be kept: %s", qPrintable(error.description()));
    }
}

std::optional<Draft> find(const QString &path)
{
    QFile file(draftPath(path));
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QByteArray base = file.readLine().trimmed();
    report::LayoutReading reading = report::readLayout(file.readAll());
    if (!reading.layout)
        return std::nullopt;
    return Draft{*std::move(reading.layout), base, QFileInfo(file).lastModified()};
}

void drop(const QString &path)
{
    QFile::remove(draftPath(path));
}

} // namespace drafts
