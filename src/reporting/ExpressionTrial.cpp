#include "reporting/ExpressionTrial.h"

#include "platform/base/Environment.h"
#include "platform/report/expr/Expression.h"
#include "platform/report/paginate/Tabulator.h"
#include "platform/report/query/ReportReader.h"

#include <QRegularExpression>

namespace expressions {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype MostValues = 8;

/// The layout with nothing in it but what expressions read, and the one object of its detail.
report::Layout detailOf(const report::Layout &layout, const QString &text, bool isWords)
{
    report::Layout trial;
    trial.parameters = layout.parameters;
    trial.formulas = layout.formulas;
    trial.groups = layout.groups;
    report::Object object;
    object.kind = isWords ? report::ObjectKind::Text : report::ObjectKind::Field;
    object.content = text;
    report::Band detail;
    if (!text.isEmpty())
        detail.objects = {object};
    trial.bands = {detail};
    return trial;
}

struct Run
{
    QStringList problems;
    QStringList values;
};

/// Lays the trial out on the rows, with what is usually answered, until there are values enough.
Run run(const report::Layout &layout, const report::DataSource &rows)
{
    report::Inputs inputs;
    inputs.now = base::now();
    for (const report::Parameter &parameter : layout.parameters) {
        QStringList unheard;
        inputs.parameters.insert(parameter.name.toLower(),
                                 report::usualAnswer(parameter, inputs.now, unheard));
    }
    Run result;
    result.problems = report::tabulate(layout, rows, inputs, [&](const report::TableBand &band) {
                          for (const report::TableCell &cell : band.cells)
                              result.values.append(cell.text);
                          return result.values.size() < MostValues;
                      }).problems;
    return result;
}

/// A field that an object in a band of further rows may read.
bool isKnownField(const QString &problem, const QSet<QString> &known)
{
    static const QRegularExpression field(u"there is no field \"([^\"]*)\""_s);
    const QRegularExpressionMatch match = field.match(problem);
    return match.hasMatch() && known.contains(match.captured(1).toLower());
}

} // namespace

Trial tried(const QString &text, bool isWords, const report::Layout &layout,
            const report::DataSource &rows, const QSet<QString> &knownElsewhere)
{
    Trial trial;
    if (text.trimmed().isEmpty())
        return trial;
    if (!isWords) {
        static_cast<void>(report::Expression::parse(text, &trial.error));
        if (!trial.error.isEmpty())
            return trial;
    }
    // What is wrong elsewhere in the layout is not to be told here.
    const QStringList others = run(detailOf(layout, {}, isWords), rows).problems;
    const Run result = run(detailOf(layout, text, isWords), rows);
    bool isUnseen = false;
    for (const QString &problem : result.problems) {
        if (others.contains(problem))
            continue;
        if (isKnownField(problem, knownElsewhere)) {
            isUnseen = true;
            continue;
        }
        // Where it stands is before the user's eyes.
        trial.error = problem.contains(u": "_s) ? problem.section(u": "_s, 1) : problem;
        return trial;
    }
    if (!isUnseen)
        trial.values = result.values;
    return trial;
}

} // namespace expressions
