#include "console/Console.h"

#include "company/SampleCompany.h"
#include "console/Imports.h"
#include "console/Releases.h"
#include "core/database/CreateDatabase.h"
#include "core/database/Csv.h"
#include "platform/base/Environment.h"
#include "platform/base/Format.h"
#include "platform/db/Maintenance.h"
#include "platform/db/Proof.h"
#include "platform/settings/Registry.h"
#include "platform/system/Files.h"
#include "reporting/ReportFiles.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <functional>

namespace console {
namespace {

using namespace Qt::StringLiterals;

/// The options of all commands.
struct Options
{
    QStringList files;
    company::SampleSize size = company::SampleSize::Small;
    int machines = 0; ///< 0: as many as the size has
    bool sample = false;
    QDate today;
    quint64 seed = company::UsualSeed;
    std::optional<administration::ImportKind> kind;
    bool dryRun = false;
    bool makesEntries = false;
};

struct Command
{
    QString name;
    int files; ///< how many it takes
    QString usage;
    std::function<int(const Options &, const Streams &)> action;
};

void report(const Streams &streams, const base::Error &error)
{
    streams.err << error.number() << ' ' << error.description() << Qt::endl;
}

/// A file, or host:path with a host of two characters at least, as a drive's letter has one.
db::Target targetOf(const QString &text)
{
    db::Target target;
    const qsizetype colon = text.indexOf(u':');
    if (colon > 1) {
        target.host = text.left(colon);
        target.file = text.mid(colon + 1);
        target.password = qEnvironmentVariable("QUORVANTIS_PASSWORD");
        return target;
    }
    target.file = QFileInfo(text).absoluteFilePath();
    return target;
}

int createEmpty(const Options &options, const Streams &streams)
{
    company::createEmptyDatabase(targetOf(options.files[0]));
    streams.out << options.files[0] << " is ready." << Qt::endl;
    return Success;
}

int createSample(const Options &options, const Streams &streams)
{
    company::sample::Plan plan = company::sample::planFor(options.size);
    if (options.machines > 0)
        plan.machines = options.machines;
    company::createSampleDatabase(targetOf(options.files[0]), options.today, plan, options.seed);
    streams.out << options.files[0] << " holds the sample company as of "
                << options.today.toString(Qt::ISODate) << '.' << Qt::endl;
    return Success;
}

constexpr auto carrierSettings = R"([Carrier]
; The folder that stands for the handheld: a mounted phone, a memory stick, a share.
Device=Device
; Seconds for which it is waited for.
Patience=20
)";

/// What an installer leaves behind: the version, which names the backup of each start, and the
/// program's icon, which the build draws beside the programs.
void installValues(const QDir &folder)
{
    const settings::Registry registry = settings::registry();
    const QString version = QStringLiteral(QUORVANTIS_VERSION);
    if (registry.value(settings::ProductKey, u"VERSION"_s) != version)
        registry.setValue(settings::ProductKey, u"VERSION"_s, version);
    const QString icon = QCoreApplication::applicationDirPath() + u"/../Lib/Icon.ico"_s;
    if (QFileInfo::exists(icon) && !folder.exists(u"Lib/Icon.ico"_s))
        sys::copyFile(icon, folder.filePath(u"Lib/Icon.ico"_s));
}

/// The programs that carry files to the handheld and back are one, which the build makes beside
/// this one. Until told otherwise the device is a folder here.
void installCarrier(const QDir &folder)
{
    const QString program =
        QCoreApplication::applicationDirPath() + u"/../bin/quorvantis-carrier"_s;
    if (!QFileInfo::exists(program))
        return;
    const QDir place(folder.filePath(u"Handheld"_s));
    for (const QString &name : {u"Device"_s, u"Xml_IN"_s})
        sys::makeFolder(place.filePath(name));
    for (const QString &name : {u"QuorvantisSync.exe"_s, u"QV2Go ImportSync.exe"_s})
        sys::copyFile(program, place.filePath(name));
    if (!place.exists(u"carrier.ini"_s))
        sys::writeFile(place.filePath(u"carrier.ini"_s), carrierSettings);
    const QString path = QDir::toNativeSeparators(place.absolutePath() + u'/');
    const settings::Registry registry = settings::registry();
    for (const QString &key : {settings::ProductKey, settings::MakerKey}) {
        if (registry.value(key, u"Path"_s).isEmpty())
            registry.setValue(key, u"Path"_s, path);
    }
}

/// Makes the folders that the program expects, and the database where there is none.
int setUp(const Options &options, const Streams &streams)
{
    const QDir folder(options.files[0]);
    for (const QString &name :
         {u"Data/Backup"_s, u"Custom Reports"_s, u"Doc"_s, u"Lib"_s, u"Log"_s, u"Script"_s,
          u"User Defined Reports"_s, u"XML_IN"_s, u"XML_OUT"_s}) {
        if (!folder.mkpath(name))
            throw base::Error(base::ErrorNumber::PathAccess,
                              u"The folder \"%1\" can't be made."_s.arg(folder.filePath(name)));
    }
    installValues(folder);
    installCarrier(folder);
    reportfiles::installDelivered(folder.path());
    Options database = options;
    database.files = {folder.filePath(u"Data/Quorvantis.mdb"_s)};
    if (QFileInfo::exists(database.files[0])) {
        putScriptBeside(folder.path());
        return Success;
    }
    return options.sample ? createSample(database, streams) : createEmpty(database, streams);
}

QString fieldText(const QVariant &value)
{
    return value.typeId() == QMetaType::QByteArray ? u"(%1 bytes)"_s.arg(value.toByteArray().size())
                                                   : base::toText(value);
}

void printRows(const db::Recordset &rows, QTextStream &out)
{
    QStringList header;
    for (int column = 0; column < rows.columnCount(); ++column)
        header << rows.columnName(column);
    out << company::csvLine(header) << '\n';
    for (int row = 0; row < rows.RecordCount(); ++row) {
        QStringList fields;
        for (int column = 0; column < rows.columnCount(); ++column)
            fields << fieldText(rows.value(row, column));
        out << company::csvLine(fields) << '\n';
    }
}

bool isQuery(const QString &statement)
{
    qsizetype begin = 0;
    while (begin < statement.size() && (statement[begin] == u'(' || statement[begin].isSpace()))
        ++begin;
    return QStringView(statement).mid(begin).startsWith(u"select"_s, Qt::CaseInsensitive);
}

void perform(db::Connection &connection, const Request &request, QTextStream &out)
{
    if (isQuery(request.statement)) {
        printRows(connection.Open(request.statement, request.parameters), out);
        return;
    }
    const qint64 rows = connection.Execute(request.statement, request.parameters);
    out << rows << (rows == 1 ? " row changed" : " rows changed") << '\n';
}

int runStatements(const Options &options, const Streams &streams)
{
    db::Connection connection(targetOf(options.files[0]));
    RequestReader reader(streams.in);
    bool failed = false;
    for (bool more = true; more;) {
        try {
            const std::optional<Request> request = reader.next();
            more = request.has_value();
            if (request)
                perform(connection, *request, streams.out);
        } catch (const base::Error &error) {
            failed = true;
            report(streams, error);
        }
        streams.out.flush();
    }
    return failed ? Failed : Success;
}

int check(const Options &options, const Streams &streams)
{
    const db::Findings findings = db::validate(targetOf(options.files[0]).file);
    if (!findings.remarks.isEmpty()) {
        streams.out << "Harmless traces of a program that was ended in the midst of its work:"
                    << Qt::endl;
        for (const QString &remark : findings.remarks)
            streams.out << "  " << remark << Qt::endl;
    }
    for (const QString &fault : findings.damage)
        streams.err << fault << Qt::endl;
    if (!findings.damage.isEmpty()) {
        streams.err << options.files[0] << " is damaged." << Qt::endl;
        return Failed;
    }
    streams.out << options.files[0] << " is sound." << Qt::endl;
    return Success;
}

int compact(const Options &options, const Streams &streams)
{
    const QString file = targetOf(options.files[0]).file;
    const QString compacted = file + u".compact"_s;
    const QString former = file + u".before"_s;
    QFile::remove(compacted);
    const qint64 before = QFileInfo(file).size();
    db::compact(file, compacted);
    // The old file stays until the new one stands in its place.
    QFile::remove(former);
    if (!QFile::rename(file, former) || !QFile::rename(compacted, file))
        throw base::Error(
            base::ErrorNumber::PathAccess,
            u"\"%1\" can't be replaced by its compacted copy \"%2\"."_s.arg(file, compacted));
    QFile::remove(former);
    streams.out << options.files[0] << ": " << before << " bytes before, " << QFileInfo(file).size()
                << " after." << Qt::endl;
    return Success;
}

int backup(const Options &options, const Streams &streams)
{
    const db::RowCounts counts = db::backupProven(targetOf(options.files[0]),
                                                  QFileInfo(options.files[1]).absoluteFilePath());
    qint64 rows = 0;
    for (const qint64 count : counts)
        rows += count;
    streams.out << options.files[1] << " is a copy of " << options.files[0]
                << "; it was opened, checked and counted: " << rows << " rows in " << counts.size()
                << " tables." << Qt::endl;
    return Success;
}

int exportTablesCommand(const Options &options, const Streams &streams)
{
    exportAll(targetOf(options.files[0]), options.files[1], streams);
    return Success;
}

int importTablesCommand(const Options &options, const Streams &streams)
{
    importAll(targetOf(options.files[0]), options.files[1], streams);
    return Success;
}

int importFileCommand(const Options &options, const Streams &streams)
{
    if (!options.kind) {
        streams.err << "What is to be imported? Please say --kind "
                    << administration::importKindNames().join(u'|') << '.' << Qt::endl;
        return WrongUsage;
    }
    return importRows({.company = targetOf(options.files[0]),
                       .file = options.files[1],
                       .kind = *options.kind,
                       .dryRun = options.dryRun,
                       .makesEntries = options.makesEntries},
                      streams);
}

int checkChangesCommand(const Options &options, const Streams &streams)
{
    if (!checkChanges(options.files[0], streams))
        return Failed;
    streams.out << options.files[0] << " leads from the first release to this one." << Qt::endl;
    return Success;
}

int makeScriptCommand(const Options &options, const Streams &streams)
{
    if (!makeScript(options.files[0], options.files[1], streams))
        return Failed;
    streams.out << options.files[1] << " is to be shipped as Script/DBChanges.mdb." << Qt::endl;
    return Success;
}

const std::vector<Command> &commands()
{
    static const std::vector<Command> all = {
        {u"create-empty"_s, 1, u"create-empty FILE             make a new database"_s, createEmpty},
        {u"create-sample"_s, 1, u"create-sample FILE            make one with the sample company"_s,
         createSample},
        {u"set-up"_s, 1,
         u"set-up FOLDER [--sample]      make the program's folder, and its database if missing"_s,
         setUp},
        {u"run"_s, 1, u"run FILE|HOST:FILE            run statements from standard input"_s,
         runStatements},
        {u"check"_s, 1, u"check FILE                    look for damage"_s, check},
        {u"compact"_s, 1, u"compact FILE                  give back unused room"_s, compact},
        {u"backup"_s, 2,
         u"backup FILE|HOST:FILE COPY    copy a database, also while it is in use"_s, backup},
        {u"export-tables"_s, 2,
         u"export-tables FILE ZIP        write all tables as text into an archive"_s,
         exportTablesCommand},
        {u"import-tables"_s, 2,
         u"import-tables FILE ZIP        make a company of such an archive; an empty one is replaced"_s,
         importTablesCommand},
        {u"import-file"_s, 2,
         u"import-file FILE TABLE        import machines, parts, employees or readings (--kind)"_s,
         importFileCommand},
        {u"check-changes"_s, 1,
         u"check-changes TEXT            check what a release changes in databases in use"_s,
         checkChangesCommand},
        {u"make-script"_s, 2,
         u"make-script TEXT SCRIPT       check it, and make the release's script database of it"_s,
         makeScriptCommand},
    };
    return all;
}

QString description()
{
    QStringList lines = {u"Looks after the databases of Quorvantis.\n\nCommands:"_s};
    for (const Command &command : commands())
        lines << u"  "_s + command.usage;
    lines << u"\nrun: a statement is one line, or ends with \";\" and spans several. The values of "
             u"its "
             "\"?\"\nstand behind it after a tab, as a JSON array. Rows are printed as "
             "comma-separated "
             "text with a\nheader line; a failure is printed on standard error as number and "
             "description, and the next\nstatement runs all the same.\n\nExit code: 0 when all was "
             "done, 1 when something failed, 2 for a wrong command line."_s;
    return lines.join(u'\n');
}

int wrongUsage(const Streams &streams, const QString &message)
{
    streams.err << message << "\nTry --help." << Qt::endl;
    return WrongUsage;
}

/// Fills the options; a message when a value is not understood.
QString readOptions(const QCommandLineParser &parser, Options &options)
{
    options.files = parser.positionalArguments().mid(1);
    if (parser.isSet(u"extra-large"_s))
        options.size = company::SampleSize::ExtraLarge;
    else if (parser.isSet(u"large"_s))
        options.size = company::SampleSize::Large;
    options.sample = parser.isSet(u"sample"_s);
    options.today = base::today();
    if (parser.isSet(u"today"_s)) {
        options.today = QDate::fromString(parser.value(u"today"_s), Qt::ISODate);
        if (!options.today.isValid())
            return u"\"%1\" is no date of the form 2024-03-15."_s.arg(parser.value(u"today"_s));
    }
    if (parser.isSet(u"seed"_s)) {
        bool isNumber = false;
        options.seed = parser.value(u"seed"_s).toULongLong(&isNumber);
        if (!isNumber)
            return u"\"%1\" is no whole number."_s.arg(parser.value(u"seed"_s));
    }
    options.dryRun = parser.isSet(u"dry-run"_s);
    options.makesEntries = parser.isSet(u"make-entries"_s);
    if (parser.isSet(u"kind"_s)) {
        options.kind = administration::importKindOf(parser.value(u"kind"_s));
        if (!options.kind)
            return u"\"%1\" is none of %2."_s.arg(parser.value(u"kind"_s),
                                                  administration::importKindNames().join(u", "_s));
    }
    if (parser.isSet(u"machines"_s)) {
        options.machines = parser.value(u"machines"_s).toInt();
        if (options.machines <= 0)
            return u"\"%1\" is no number of machines."_s.arg(parser.value(u"machines"_s));
    }
    return {};
}

} // namespace

int run(const QStringList &arguments, const Streams &streams)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(description());
    const QCommandLineOption help({u"h"_s, u"help"_s}, u"Shows this text."_s);
    parser.addOptions(
        {help,
         {u"large"_s, u"create-sample: 10,000 machines, for measuring."_s},
         {u"extra-large"_s, u"create-sample: 100,000 machines."_s},
         {u"machines"_s, u"create-sample: another number of machines."_s, u"number"_s},
         {u"sample"_s, u"set-up: with the sample company."_s},
         {u"today"_s, u"The day on which the sample company stands."_s, u"date"_s},
         {u"seed"_s, u"Another sample company for another number."_s, u"number"_s},
         {u"kind"_s, u"import-file: machines, parts, employees or readings."_s, u"kind"_s},
         {u"dry-run"_s, u"import-file: tells what would happen, and writes nothing."_s},
         {u"make-entries"_s, u"import-file: makes the entries that lists lack."_s}});
    parser.addPositionalArgument(u"command"_s, u"One of the commands above."_s);
    parser.addPositionalArgument(u"file"_s, u"The database."_s, u"file..."_s);
    if (!parser.parse(arguments))
        return wrongUsage(streams, parser.errorText());
    if (parser.isSet(help)) {
        streams.out << parser.helpText() << Qt::flush;
        return Success;
    }

    Options options;
    if (const QString message = readOptions(parser, options); !message.isEmpty())
        return wrongUsage(streams, message);
    const QString name = parser.positionalArguments().value(0);
    const auto command = std::ranges::find(commands(), name, &Command::name);
    if (command == commands().end())
        return wrongUsage(streams, name.isEmpty() ? u"A command is missing."_s
                                                  : u"There is no command \"%1\"."_s.arg(name));
    if (options.files.size() != command->files)
        return wrongUsage(streams, u"Use: %1"_s.arg(command->usage));
    try {
        return command->action(options, streams);
    } catch (const base::Error &error) {
        report(streams, error);
        return Failed;
    }
}

} // namespace console
