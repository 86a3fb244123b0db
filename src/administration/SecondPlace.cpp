#include "administration/SecondPlace.h"

#include "core/Options.h"
#include "core/Session.h"
#include "core/Told.h"
#include "platform/base/Environment.h"
#include "platform/db/Maintenance.h"
#include "platform/db/Proof.h"

#include <QDir>
#include <QFileInfo>

namespace administration {
namespace {

using namespace Qt::StringLiterals;

/// Copies, proves and prunes; raises base::Error, with a clause for the user when the folder is
/// away.
void copyDay(const EndingCopy &copy)
{
    if (!QFileInfo(copy.folder).isDir())
        throw base::Error(base::ErrorNumber::PathNotFound, u"the folder can't be reached"_s);
    const QDir folder(copy.folder);
    db::backupProven(databaseTarget(), folder.filePath(copies::nameOfDay(base::today())));
    copies::prune(folder.path(), base::today(), copy.rule);
}

} // namespace

QString secondPlace()
{
    return GetOption(SecondPlaceOption.toString(), true).trimmed();
}

std::optional<EndingCopy> endingCopy()
{
    // Of a host's database there is no file here to copy.
    if (!connectionsAreOpen() || !databaseTarget().host.isEmpty())
        return std::nullopt;
    const QString folder = secondPlace();
    if (folder.isEmpty())
        return std::nullopt;
    return EndingCopy{.folder = folder, .rule = copies::keepRuleOf(lookupConnection())};
}

void copyAtEnd(const EndingCopy &copy)
{
    // Or this program itself would be the one that holds the file.
    closeConnections();
    try {
        // Whoever ends last makes the copy, with the work of the whole day in it.
        if (!db::isHeld(gsDatabasePath))
            copyDay(copy);
    } catch (const base::Error &error) {
        told::information(
            u"Today's copy for %1 could not be made: %2.\nThe database itself is as it was."_s.arg(
                QDir::toNativeSeparators(copy.folder), error.description()));
    }
}

} // namespace administration
