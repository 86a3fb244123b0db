#include "reporting/Preparation.h"

#include "core/Options.h"
#include "platform/base/Environment.h"
#include "reporting/PostedLabor.h"

namespace catalogue {

using namespace Qt::StringLiterals;

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
    source->sortFor(layout, inputs);
    if (!report.once.name.isEmpty())
        source->addOnce(report.once.name, report.once.field, report.once.key);
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
    const report::Length inner = page.innerWidth();
    page.paper = paper;
    const report::Length beside = page.width() - inner;
    page.left = beside / 2;
    page.right = beside - page.left;
}

} // namespace catalogue
