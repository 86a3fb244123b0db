#include "reporting/ReportFiles.h"

#include "platform/base/Environment.h"
#include "platform/base/Error.h"
#include "platform/report/layout/LayoutFile.h"
#include "platform/system/Files.h"

#include <QDir>
#include <QFile>

/// The layouts lie in a library, whose resources have to be asked for by a function outside of all
/// namespaces.
static void useReports()
{
    Q_INIT_RESOURCE(reports);
}

namespace reportfiles {

using namespace Qt::StringLiterals;

namespace {

QString ownPath(const QString &report)
{
    return base::applicationPath(u"\\Custom Reports\\%1.rpt"_s.arg(report));
}

QString deliveredPath(const QString &report)
{
    return base::applicationPath(u"\\Reports\\%1.rpt"_s.arg(report));
}

} // namespace

QString layoutPath(const QString &report)
{
    return hasOwnLayout(report) ? ownPath(report) : deliveredPath(report);
}

bool hasOwnLayout(const QString &report)
{
    return QFile::exists(ownPath(report));
}

bool isDelivered(const QString &report)
{
    return QFile::exists(deliveredPath(report));
}

report::Layout readLayoutAt(const QString &path)
{
    if (!QFile::exists(path))
        throw base::Error(base::ErrorNumber::FileNotFound,
                          u"The layout of this report is missing: %1"_s.arg(path));
    report::LayoutReading reading = report::readLayoutFile(path);
    if (!reading.layout)
        throw base::Error(
            base::ErrorNumber::InvalidCall,
            u"The layout of this report can't be read.\n%1\n%2"_s.arg(path, reading.error));
    return *std::move(reading.layout);
}

report::Layout readLayout(const QString &report)
{
    return readLayoutAt(layoutPath(report));
}

report::Layout readDelivered(const QString &report)
{
    return readLayoutAt(deliveredPath(report));
}

void installDelivered(const QString &applicationFolder)
{
    useReports();
    const QDir delivered(u":/reports"_s);
    const QDir target(applicationFolder + u"/Reports"_s);
    sys::makeFolder(target.path());
    for (const QString &file : delivered.entryList(QDir::Files))
        sys::copyFile(delivered.filePath(file), target.filePath(file));
}

} // namespace reportfiles
