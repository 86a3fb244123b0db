#include "console/Console.h"
#include "core/Options.h"
#include "core/Session.h"
#include "core/StartUp.h"
#include "platform/base/Environment.h"
#include "reporting/Preparation.h"
#include "reports/Gallery.h"

#include <QCommandLineParser>
#include <QGuiApplication>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

constexpr int Success = 0;
constexpr int Failed = 1;
constexpr int WrongUsage = 2;

/// The program in a folder of its own, on a day that doesn't go on.
void takeOwnSurroundings(const QString &folder, QDate today)
{
    base::Environment surroundings;
    surroundings.clock = [today] { return base::wallClock(today, QTime(9, 30)); };
    surroundings.clockIsFixed = true;
    surroundings.applicationFolder = folder + u"/app"_s;
    surroundings.appData = folder + u"/appdata"_s;
    surroundings.computerName = u"REPORTS"_s;
    surroundings.registryFile = folder + u"/registry.ini"_s;
    base::setEnvironment(surroundings);
}

void setUpCompany(QDate today, const QString &paper, QTextStream &err)
{
    QString said;
    QTextStream in(&said);
    QTextStream out(&said);
    if (console::run({u"quorvantis-console"_s, u"set-up"_s, base::environment().applicationFolder,
                      u"--sample"_s, u"--today"_s, today.toString(Qt::ISODate)},
                     {in, out, err}) != console::Success)
        throw base::Error(base::ErrorNumber::InvalidCall, u"There is no sample company."_s);
    gsDatabasePath = base::applicationPath(u"\\Data\\Quorvantis.mdb"_s);
    openConnections();
    // A workstation that has never kept an option has no identifier, and reads none.
    SetOption(catalogue::paperOption(), paper, true);
    gcnData->Execute(u"Insert into tblErrorList(ErrNumber, ErrDescription, LineNumber, ModuleName, "
                     "ProcedureName, ErrDateTime, UserMsg) values(3218, 'Another workstation is "
                     "changing this record.', 0, 'Equipment', 'SaveRecord', '3/15/2024 9:30:00 "
                     "AM', 'Saved again a minute later.')"_s);
}

int renderAll(const QDir &folder, QDate today, const QString &only, QTextStream &out)
{
    bool clean = true;
    QList<gallery::Rendered> all;
    for (const catalogue::Request &asked : gallery::requests(today)) {
        if (!asked.layout.contains(only, Qt::CaseInsensitive))
            continue;
        gallery::Rendered rendered{.layout = asked.layout};
        try {
            rendered = gallery::render(asked, folder);
        } catch (const base::Error &failure) {
            rendered.problems.append(failure.description());
        }
        out << rendered.layout.leftJustified(38) << rendered.rows << " rows, " << rendered.pages
            << " pages" << Qt::endl;
        for (const QString &problem : rendered.problems)
            out << "    " << problem << Qt::endl;
        clean = clean && rendered.problems.isEmpty() && rendered.pages > 0;
        all.append(rendered);
    }
    gallery::writeIndex(all, folder);
    return clean && !all.isEmpty() ? Success : Failed;
}

} // namespace

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QTextStream out(stdout);
    QTextStream err(stderr);
    const QTemporaryDir surroundings;
    try {
        const QGuiApplication application(argc, argv);
        QCommandLineParser parser;
        parser.setApplicationDescription(
            u"Renders every report on a fresh sample company: PDF, a picture of the first page, "
            "the spreadsheet, and a page that shows all pictures."_s);
        parser.addHelpOption();
        parser.addPositionalArgument(u"folder"_s, u"Where these go (build/reports)."_s,
                                     u"[folder]"_s);
        const QCommandLineOption day(u"today"_s, u"The day of the reports, as 2024-03-15."_s,
                                     u"date"_s, QDate::currentDate().toString(Qt::ISODate));
        const QCommandLineOption only(u"only"_s, u"Only layouts with this in their name."_s,
                                      u"text"_s);
        const QCommandLineOption wide(u"wide"_s, u"With long names, large amounts and empty "
                                                 "columns."_s);
        const QCommandLineOption paper(u"paper"_s, u"The paper of the workstation."_s, u"name"_s,
                                       catalogue::papers().front());
        parser.addOptions({day, only, wide, paper});
        parser.process(application);
        const QDate today = QDate::fromString(parser.value(day), Qt::ISODate);
        if (parser.positionalArguments().size() > 1 || !today.isValid() ||
            !catalogue::papers().contains(parser.value(paper))) {
            err << parser.helpText() << Qt::flush;
            return WrongUsage;
        }
        const QDir folder(parser.positionalArguments().value(0, u"build/reports"_s));
        if (!QDir().mkpath(folder.path()))
            throw base::Error(base::ErrorNumber::PathAccess,
                              u"The folder \"%1\" can't be used."_s.arg(folder.path()));
        takeOwnSurroundings(surroundings.path(), today);
        setUpCompany(today, parser.value(paper), err);
        if (parser.isSet(wide))
            gallery::widen();
        const int result = renderAll(folder, today, parser.value(only), out);
        closeConnections();
        return result;
    } catch (const std::exception &error) {
        closeConnections();
        err << error.what() << Qt::endl;
        return Failed;
    }
}
