#include "reporting/Preparation.h"

#include "core/Options.h"
#include "core/Session.h"
#include "platform/base/Environment.h"
#include "platform/report/expr/Expression.h"
#include "platform/report/query/ReportReader.h"
#include "reporting/GuardedRunner.h"
#include "reporting/PostedLabor.h"

namespace catalogue {

using namespace Qt::StringLiterals;

namespace {

/// What a layout's further rows may ask by, so that those of a single machine don't read the tables
/// whole: of each field that rows go by its lowest and highest value, and the one that all rows
/// share, Null where they differ.
report::Answers keysOf(const report::Layout &layout, const report::DataSource &rows)
{
    report::Answers keys;
    for (const report::RowSet &set : layout.rowSets) {
        const QString name = set.of.toLower();
        const int field = rows.fieldIndex(name);
        if (field < 0 || keys.contains(u"first"_s + name))
            continue;
        QVariant first;
        QVariant last;
        for (int row = 0; row < rows.rowCount(); ++row) {
            const QVariant key = rows.value(row, field);
            if (key.isNull())
                continue;
            if (first.isNull() || report::compareValues(key, first) < 0)
                first = key;
            if (last.isNull() || report::compareValues(key, last) > 0)
                last = key;
        }
        keys.insert(u"first"_s + name, first);
        keys.insert(u"last"_s + name, last);
        keys.insert(u"only"_s + name, report::compareValues(first, last) == 0 ? first : QVariant());
    }
    return keys;
}

} // namespace

QList<report::Parameter> parametersToAsk(const report::Layout &layout)
{
    QStringList answered;
    for (const report::RowSet &set : layout.rowSets)
        for (const char *which : {"first", "last", "only"})
            answered.append(QLatin1StringView(which) + set.of.toLower());
    QList<report::Parameter> asked = layout.parameters;
    asked.removeIf([&](const report::Parameter &parameter) {
        return answered.contains(parameter.name.toLower());
    });
    return asked;
}

Prepared prepare(const Request &asked, report::Layout layout, const db::Recordset &rows)
{
    const Report &report = reportOf(asked.layout);
    changePaper(layout, GetOption(paperOption(), true));

    report::Inputs inputs;
    inputs.texts = namedTexts(report);
    inputs.texts.insert(u"lblAsked"_s, asked.asked);
    inputs.texts.insert(asked.texts);
    inputs.formulas = asked.formulas;
    inputs.now = base::now();
    inputs.folder = base::applicationPath(u"\\Reports"_s);

    auto source = std::make_shared<report::RecordsetSource>(rows);
    if (report.addsLabor)
        source->addValues(u"Labor"_s, postedlabor::ofSummary(rows));
    // The fields that are summed once look at the row before, so the order comes first.
    source->sortFor(layout, inputs);
    if (!report.once.name.isEmpty())
        source->addOnce(report.once.name, report.once.field, report.once.key);
    inputs.parameters = asked.answers;
    if (!layout.rowSets.isEmpty()) {
        report::Answers answers = asked.answers;
        answers.insert(keysOf(layout, *source));
        ownreports::GuardedRunner runner(gcnData->target());
        inputs.rowSets = report::readRowSets(layout, answers, runner);
    }
    return {std::move(layout), std::move(source), std::move(inputs)};
}

QStringList papers()
{
    return {u"Letter"_s, u"A4"_s};
}

QString paperOption()
{
    return u"REPORT PAPER"_s;
}

void changePaper(report::Layout &layout, const QString &paper)
{
    report::PageSetup &page = layout.page;
    if (!papers().contains(paper) || !papers().contains(page.paper) || paper == page.paper)
        return;
    // Objects are placed for the width between the margins, so it stays, and both margins share
    // what the other paper has more or less.
    const report::Length inner = page.innerWidth();
    page.paper = paper;
    const report::Length beside = page.width() - inner;
    page.left = beside / 2;
    page.right = beside - page.left;
}

} // namespace catalogue
