#include "report/ReportCommand.h"

#include "platform/base/Environment.h"
#include "platform/base/Error.h"
#include "platform/report/layout/LayoutFile.h"
#include "platform/report/paginate/CsvSource.h"
#include "platform/report/query/ReportReader.h"
#include "platform/report/render/Export.h"

#include <QCommandLineParser>
#include <QFile>
#include <QFileInfo>

namespace report_command {
namespace {

using namespace Qt::StringLiterals;

constexpr QStringView usage =
    u"Use: quorvantis-report LAYOUT.rpt DATA.csv OUTPUT\n"
    "     quorvantis-report LAYOUT.rpt DATABASE --query STATEMENT OUTPUT\n"
    "     quorvantis-report LAYOUT.rpt DATABASE OUTPUT     (a layout with a query of its own)\n"
    "     quorvantis-report --rewrite LAYOUT.rpt...\n"
    "OUTPUT ends in .pdf, .xlsx, .csv or .html.\n"
    "  --rewrite             writes layouts as the designer saves them\n"
    "  --text NAME=VALUE     the text of a named object\n"
    "  --formula NAME=TEXT   an expression in place of the layout's\n"
    "  --parameter NAME=TEXT the answer to a parameter of the layout, else its default\n";

/// A command line that can't be understood, and why.
struct UsageError
{
    QString what;
};

struct Request
{
    QString layout;
    QString data;
    QString query;
    QString output;
    report::ExportFormat format = report::ExportFormat::Pdf;
    QHash<QString, QString> parameters;
    report::Inputs inputs;
};

QHash<QString, QString> assignments(const QStringList &texts)
{
    QHash<QString, QString> values;
    for (const QString &text : texts) {
        const qsizetype equals = text.indexOf(u'=');
        if (equals <= 0)
            throw UsageError{u"\"%1\" is not of the form name=value."_s.arg(text)};
        values.insert(text.first(equals), text.sliced(equals + 1));
    }
    return values;
}

Request parse(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.addOptions({{u"text"_s, {}, u"name=value"_s},
                       {u"formula"_s, {}, u"name=expression"_s},
                       {u"parameter"_s, {}, u"name=value"_s},
                       {u"query"_s, {}, u"statement"_s}});
    if (!parser.parse(arguments))
        throw UsageError{parser.errorText()};
    const QStringList places = parser.positionalArguments();
    if (places.size() != 3)
        throw UsageError{u"A layout, the data and an output are wanted."_s};
    Request request;
    request.layout = places[0];
    request.data = places[1];
    request.output = places[2];
    request.query = parser.value(u"query"_s);
    const auto format = report::exportFormat(request.output);
    if (!format)
        throw UsageError{u"The form of \"%1\" is not known."_s.arg(request.output)};
    request.format = *format;
    request.inputs.texts = assignments(parser.values(u"text"_s));
    request.inputs.formulas = assignments(parser.values(u"formula"_s));
    request.parameters = assignments(parser.values(u"parameter"_s));
    request.inputs.now = base::now();
    request.inputs.folder = QFileInfo(request.layout).absolutePath();
    return request;
}

report::LayoutReading readLayout(const QString &path)
{
    report::LayoutReading reading = report::readLayoutFile(path);
    if (!reading.layout)
        throw base::Error(base::ErrorNumber::InvalidCall, u"%1: %2"_s.arg(path, reading.error));
    return reading;
}

/// What this program doesn't know would be lost, so a layout that has such stays as it is.
void rewrite(const QString &path, QTextStream &out)
{
    const report::LayoutReading reading = readLayout(path);
    if (!reading.warnings.isEmpty())
        throw base::Error(base::ErrorNumber::InvalidCall,
                          u"%1: %2"_s.arg(path, reading.warnings.first()));
    report::writeLayoutFile(*reading.layout, path);
    out << path << u'\n';
}

/// What was given for a layout's parameters, and their defaults.
report::Answers answersOf(const report::Layout &layout, const Request &request)
{
    report::Answers answers;
    QStringList problems;
    for (const report::Parameter &parameter : layout.parameters) {
        QVariant answer = report::usualAnswer(parameter, request.inputs.now, problems);
        for (auto given = request.parameters.cbegin(); given != request.parameters.cend();
             ++given) {
            if (given.key().compare(parameter.name, Qt::CaseInsensitive) != 0)
                continue;
            const auto read = report::answerOf(parameter, given.value());
            if (!read)
                throw UsageError{u"\"%1\" can't be read as a value of \"%2\"."_s.arg(
                    given.value(), parameter.name)};
            answer = *read;
        }
        answers.insert(parameter.name.toLower(), answer);
    }
    return answers;
}

/// The report's rows; further ones and the answers to its parameters go into the inputs.
std::shared_ptr<const report::DataSource> openData(const report::Layout &layout, Request &request)
{
    if (!request.query.isEmpty() || !layout.query.isEmpty()) {
        db::Target target;
        target.file = QFileInfo(request.data).absoluteFilePath();
        report::DatabaseRunner runner(target);
        request.inputs.parameters = answersOf(layout, request);
        request.inputs.rowSets = report::readRowSets(layout, request.inputs.parameters, runner);
        report::Layout asked = layout;
        if (!request.query.isEmpty())
            asked.query = request.query;
        asked.rowSets.clear();
        return report::readRows(asked, request.inputs.parameters, runner).rows;
    }
    QFile file(request.data);
    if (!file.open(QIODevice::ReadOnly))
        throw base::Error(base::ErrorNumber::FileNotFound,
                          u"\"%1\" can't be opened: %2."_s.arg(request.data, file.errorString()));
    return std::make_shared<report::CsvSource>(file.readAll());
}

} // namespace

int run(const QStringList &arguments, QTextStream &out, QTextStream &err)
{
    try {
        if (arguments.value(1) == u"--rewrite" && arguments.size() > 2) {
            for (const QString &path : arguments.sliced(2))
                rewrite(path, out);
            return Success;
        }
        Request request = parse(arguments);
        const report::LayoutReading reading = readLayout(request.layout);
        for (const QString &warning : reading.warnings)
            err << request.layout << u": "_s << warning << u'\n';
        const auto rows = openData(*reading.layout, request);
        const report::Outcome outcome = report::exportReport(*reading.layout, *rows, request.inputs,
                                                             request.output, request.format);
        for (const QString &problem : outcome.problems)
            err << request.layout << u": "_s << problem << u'\n';
        out << u"%1 rows"_s.arg(rows->rowCount());
        if (outcome.pages > 0)
            out << u", %1 pages"_s.arg(outcome.pages);
        out << u'\n';
        return Success;
    } catch (const UsageError &error) {
        err << error.what << u'\n' << usage;
        return WrongUsage;
    } catch (const base::Error &error) {
        err << error.description() << u'\n';
        return Failed;
    }
}

} // namespace report_command
