#include "exchange/Import.h"

#include "core/RegistryValues.h"
#include "core/Session.h"
#include "core/Told.h"
#include "exchange/Carrier.h"
#include "exchange/Commands.h"
#include "exchange/ImportQueue.h"
#include "platform/base/Environment.h"
#include "platform/base/Trapped.h"

#include <vector>

using namespace Qt::StringLiterals;

namespace exchange {
namespace {

/// How one of the two forms of the import works.
struct Form
{
    const char *module;
    QString folder;
    QString unmarked; ///< what the user is told when the transfer has not ended
    QString workPrefix;
    std::span<const commands::Kind> work;
    std::span<const commands::Kind> readings;
    bool usesIds;
};

const QString ReadingPrefix = u"Count"_s;

struct ReadFile
{
    QString name;
    std::span<const commands::Kind> kinds;
    CommandFile content;
};

QStringList elementsOf(std::span<const commands::Kind> kinds)
{
    QStringList names;
    for (const commands::Kind &kind : kinds)
        names.append(kind.element.toString());
    return names;
}

/// The files that hold commands, in the order in which they are worked off.
std::vector<ReadFile> readFiles(const Form &form, ImportQueue &queue)
{
    std::vector<ReadFile> files;
    for (const ImportQueue::File &file : queue.read({form.workPrefix, ReadingPrefix})) {
        // The letters are looked at as they stand: a "count2.xml" is none of the device's.
        if (file.name.startsWith(form.workPrefix))
            files.push_back(
                {file.name, form.work, CommandFile(file.content, elementsOf(form.work))});
        else if (file.name.startsWith(ReadingPrefix))
            files.push_back(
                {file.name, form.readings, CommandFile(file.content, elementsOf(form.readings))});
    }
    return files;
}

/// Carries out a command; whatever is wrong with it is told with the place where it stands.
void apply(const commands::Kind &kind, const Command &command, const QString &file,
           commands::Run &run)
{
    try {
        kind.apply(command, run);
    } catch (const base::Error &error) {
        throw base::Error(error.number(), u"%1, %2 number %3: %4"_s.arg(file, command.kind)
                                              .arg(command.number)
                                              .arg(error.description()));
    }
}

void applyAll(const std::vector<ReadFile> &files, const base::Progress &progress)
{
    qsizetype all = 0;
    for (const ReadFile &file : files)
        all += file.content.commandCount();
    commands::Run run;
    int done = 0;
    for (const ReadFile &file : files) {
        // Kind by kind and not in the file's order: orders before the services on them, and those
        // before their parts.
        for (const commands::Kind &kind : file.kinds) {
            for (const Command &command : file.content.commands(kind.element.toString())) {
                // Before each command, since it is where an import can be cancelled.
                if (progress)
                    progress(done++, static_cast<int>(all));
                apply(kind, command, file.name, run);
            }
        }
    }
}

/// True when all was committed; False when the user was told why not, or has cancelled.
bool commitAll(const std::vector<ReadFile> &files, const base::Progress &progress)
{
    TransactionScope transaction;
    try {
        applyAll(files, progress);
    } catch (const commands::Problem &problem) {
        told::information(problem.sentence());
        return false;
    } catch (const Cancelled &) {
        return false;
    }
    transaction.commit();
    return true;
}

/// What was no XML held nothing that could be carried out, and must not get lost with the rest.
void clear(ImportQueue &queue, const std::vector<ReadFile> &files)
{
    QStringList unreadable;
    QStringList reasons;
    for (const ReadFile &file : files) {
        if (file.content.fault().isEmpty())
            continue;
        unreadable.append(file.name);
        reasons.append(file.name + u": "_s + file.content.fault());
    }
    const QStringList aside = queue.clear(unreadable);
    if (!reasons.isEmpty())
        told::critical(u"Nothing could be imported from:\n"_s + reasons.join(u'\n') +
                       u"\n\nKept for you as:\n"_s + aside.join(u'\n'));
}

bool runImport(const Form &form, const base::Progress &progress)
{
    return base::trapped(form.module, "Importdata", false, [&] {
        ImportQueue queue(form.folder);
        if (!queue.isMarked())
            told::message(form.unmarked);
        // Before anything is read: two imports of one file would do everything twice.
        if (!queue.lock()) {
            told::message(u"Another workstation is importing these files. Please try again "
                          "when it has ended."_s);
            return false;
        }
        if (form.usesIds)
            // Outside of the transaction, since a table is made in one of its own.
            IdMap::prepare();
        const std::vector<ReadFile> files = readFiles(form, queue);
        if (!commitAll(files, progress))
            return false;
        // Not before all is committed: what fails stays where it is, and can be imported again.
        clear(queue, files);
        return true;
    });
}

} // namespace

bool Importdata(const base::Progress &progress)
{
    const QString place = GetRegistryValue(u"Path"_s);
    return runImport({.module = "frmMainScreen",
                      .folder = place.isEmpty() ? QString() : systemPath(place + u"Xml_IN"_s),
                      .unmarked = u"No files found for importing data"_s,
                      .workPrefix = u"Sy"_s,
                      .work = commands::workKinds(),
                      .readings = commands::readingKinds(),
                      .usesIds = true},
                     progress);
}

bool olderImportdata()
{
    return runImport({.module = "frmImportXml",
                      .folder = base::applicationPath(u"\\Development\\recive"_s),
                      .unmarked = u"done.txt is not found"_s,
                      .workPrefix = u"QV"_s,
                      .work = commands::olderWorkKinds(),
                      .readings = commands::olderReadingKinds(),
                      .usesIds = false},
                     {});
}

} // namespace exchange
