#include "console/Imports.h"

#include "administration/FileImport.h"
#include "administration/ImportTables.h"
#include "core/Session.h"
#include "platform/base/Error.h"

#include <QFileInfo>

namespace console {
namespace {

using namespace administration;

/// A session at a company for as long as a command runs. Support may do what any user may.
class SupportSession
{
public:
    explicit SupportSession(const db::Target &company)
    {
        gsDatabasePath = company.file;
        gcnData = std::make_unique<db::Connection>(company);
        gcnLookup = std::make_unique<db::Connection>(company);
        gRights.EqAdd = gRights.PaAdd = gRights.EqCountSheet = true;
    }
    ~SupportSession()
    {
        gRights = {};
        closeConnections();
    }
    SupportSession(const SupportSession &) = delete;
    SupportSession &operator=(const SupportSession &) = delete;
};

void tell(const ImportFindings &findings, const Streams &streams)
{
    for (const ImportProblem &problem : findings.problems)
        streams.err << problem.text() << Qt::endl;
    if (findings.problemCount > static_cast<qint64>(findings.problems.size()))
        streams.err << "The first " << findings.problems.size() << " problems are listed."
                    << Qt::endl;
    if (!findings.isWritten) {
        for (const NewEntry &entry : findings.newEntries)
            streams.out << "New: " << entry.text() << Qt::endl;
    }
    streams.out << findings.summary() << Qt::endl;
}

void tell(const char *what, const Exported &all, const QString &place, const Streams &streams)
{
    streams.out << place << what << all.rows << " rows of " << all.tables << " tables." << Qt::endl;
}

} // namespace

int importRows(const FileRequest &request, const Streams &streams)
{
    const SupportSession session(request.company);
    const ImportFindings found = checkFile(request.kind, request.file);
    const bool mayGoOn = found.problemCount == 0 && !request.dryRun &&
                         (request.makesEntries || found.newEntries.empty());
    if (!mayGoOn) {
        tell(found, streams);
        return request.dryRun && found.problemCount == 0 ? Success : Failed;
    }
    const ImportFindings imported = importFile(request.kind, request.file, found.newEntries);
    tell(imported, streams);
    return imported.isWritten ? Success : Failed;
}

void exportAll(const db::Target &company, const QString &zip, const Streams &streams)
{
    tell(" holds ", exportTables(company, QFileInfo(zip).absoluteFilePath()), zip, streams);
}

void importAll(const db::Target &company, const QString &zip, const Streams &streams)
{
    const QString archive = QFileInfo(zip).absoluteFilePath();
    const bool isThere = company.host.isEmpty() && QFileInfo::exists(company.file);
    tell(" has got ",
         isThere ? replaceEmptyCompany(archive, company.file) : importTables(archive, company),
         company.file, streams);
}

} // namespace console
