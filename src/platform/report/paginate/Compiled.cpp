#include "platform/report/paginate/Compiled.h"

#include "platform/base/Format.h"
#include "platform/report/paginate/FormulaCosts.h"

#include <QSet>
#include <algorithm>

namespace report::compiled {
namespace {

using namespace Qt::StringLiterals;

constexpr QStringView SpecialNames[] = {u"pagenumber", u"totalpages", u"rownumber", u"today",
                                        u"now"};

/// Texts that differ only in case are one key, and 5 is one however it is stored.
QString keyText(const QVariant &value)
{
    return base::toText(value).toCaseFolded();
}

class Compiler
{
public:
    Compiler(const Layout &layout, const DataSource &rows, const Inputs &inputs)
        : m_layout(layout)
        , m_rows(rows)
        , m_inputs(inputs)
        , m_costs(layout, inputs)
    {
        m_report.layout = &layout;
        for (auto text = inputs.texts.cbegin(); text != inputs.texts.cend(); ++text)
            m_texts.insert(text.key().toLower(), text.value());
        for (auto answer = inputs.parameters.cbegin(); answer != inputs.parameters.cend(); ++answer)
            m_report.parameters.insert(answer.key().toLower(), answer.value());
        for (const Parameter &parameter : layout.parameters)
            if (!m_report.parameters.contains(parameter.name.toLower()))
                m_report.parameters.insert(parameter.name.toLower(), QVariant());
        for (auto text = inputs.formulas.cbegin(); text != inputs.formulas.cend(); ++text)
            m_formulas.insert(text.key().toLower(), text.value());
    }

    Report run()
    {
        for (const Formula &formula : m_layout.formulas)
            m_formulaNames.insert(formula.name.toLower());
        for (const Formula &formula : m_layout.formulas)
            addFormula(formula);
        for (const Group &group : m_layout.groups)
            m_report.groupBy.push_back(
                value(group.by, u"group %1"_s.arg(group.name), {ScopeKind::Report, -1}));
        m_report.groupHeaders.resize(m_report.groupBy.size());
        m_report.groupFooters.resize(m_report.groupBy.size());
        for (const report::RowSet &set : m_layout.rowSets)
            addSet(set);
        for (const report::Band &band : m_layout.bands)
            addBand(band);
        return std::move(m_report);
    }

private:
    struct Scope
    {
        ScopeKind kind;
        int group;
    };

    /// Nobody reads more remarks, and a bad layout could ask for any number.
    void tell(const QString &problem)
    {
        constexpr qsizetype Most = 1000;
        if (m_report.problems.size() < Most)
            m_report.problems.append(problem);
    }

    void addFormula(const Formula &formula)
    {
        m_dependsOnPage = false;
        const QString name = formula.name.toLower();
        if (const QString fault = m_costs.fault(name); !fault.isEmpty()) {
            m_report.formulas[name] = {};
            tell(u"formula %1: %2."_s.arg(formula.name, fault));
            return;
        }
        m_report.formulas[name] = value(m_formulas.value(name, formula.expression),
                                        u"formula %1"_s.arg(formula.name), {ScopeKind::Report, -1});
        if (m_dependsOnPage)
            m_pageFormulas.insert(name);
    }

    /// Finds the rows of each key once, so that no row of the report has to look for its own.
    void addSet(const report::RowSet &set)
    {
        RowSet compiled;
        compiled.of = value(set.of, u"rows %1"_s.arg(set.name), {ScopeKind::Report, -1});
        for (auto rows = m_inputs.rowSets.cbegin(); rows != m_inputs.rowSets.cend(); ++rows)
            if (rows.key().compare(set.name, Qt::CaseInsensitive) == 0)
                compiled.rows = rows.value();
        const int key = compiled.rows ? compiled.rows->fieldIndex(set.key) : -1;
        if (!compiled.rows)
            tell(u"The rows \"%1\" were not given."_s.arg(set.name));
        else if (key < 0)
            tell(u"rows %1: there is no field \"%2\"."_s.arg(set.name, set.key));
        else
            for (int row = 0; row < compiled.rows->rowCount(); ++row)
                if (const QVariant value = compiled.rows->value(row, key); !value.isNull())
                    compiled.byKey[keyText(value)].push_back(row);
        m_report.sets.push_back(std::move(compiled));
    }

    static bool isSub(BandKind kind)
    {
        return kind == BandKind::SubHeader || kind == BandKind::SubDetail ||
               kind == BandKind::SubFooter;
    }

    void addSubBand(const report::Band &band)
    {
        const int number = m_layout.rowSetIndex(band.rows);
        if (number < 0) {
            tell(u"There are no rows \"%1\" for one of the bands."_s.arg(band.rows));
            return;
        }
        RowSet &set = m_report.sets[number];
        m_set = set.rows.get();
        const int repeatSlots = m_report.repeatSlots;
        Band compiled = compileBand(band, {ScopeKind::Set, number});
        m_set = nullptr;
        if (m_report.repeatSlots > repeatSlots) {
            // Slots of other sets in between are taken along: they begin anew with their own rows.
            if (set.endRepeatSlot == 0)
                set.firstRepeatSlot = repeatSlots;
            set.endRepeatSlot = m_report.repeatSlots;
        }
        (band.kind == BandKind::SubHeader   ? set.header
         : band.kind == BandKind::SubFooter ? set.footer
                                            : set.detail)
            .push_back(std::move(compiled));
    }

    void addBand(const report::Band &band)
    {
        if (isSub(band.kind)) {
            addSubBand(band);
            return;
        }
        const int group = m_layout.groupIndex(band.group);
        const bool ofGroup =
            band.kind == BandKind::GroupHeader || band.kind == BandKind::GroupFooter;
        if (ofGroup && group < 0) {
            tell(u"There is no group \"%1\" for one of the bands."_s.arg(band.group));
            return;
        }
        bandsOf(band.kind, group).push_back(compileBand(band, scopeOf(band.kind, group)));
    }

    Band compileBand(const report::Band &band, Scope scope)
    {
        Band compiled;
        compiled.layout = &band;
        m_dependsOnPage = false;
        const std::size_t slotsBefore = m_report.slots.size();
        if (!band.printIf.isEmpty())
            compiled.printIf = value(band.printIf, u"a band's condition"_s, scope);
        for (const report::Object &object : band.objects)
            compiled.objects.push_back(compileObject(object, scope));
        compiled.dependsOnPage = m_dependsOnPage;
        compiled.hasAggregates = m_report.slots.size() > slotsBefore;
        return compiled;
    }

    static Scope scopeOf(BandKind kind, int group)
    {
        switch (kind) {
        case BandKind::GroupHeader:
        case BandKind::GroupFooter:
            return {ScopeKind::Group, group};
        case BandKind::PageHeader:
        case BandKind::PageFooter:
            return {ScopeKind::Page, -1};
        case BandKind::ReportHeader:
        case BandKind::ReportFooter:
        case BandKind::Detail:
        case BandKind::SubHeader:
        case BandKind::SubDetail:
        case BandKind::SubFooter:
            break;
        }
        return {ScopeKind::Report, -1};
    }

    Bands &bandsOf(BandKind kind, int group)
    {
        switch (kind) {
        case BandKind::ReportHeader:
            return m_report.reportHeader;
        case BandKind::PageHeader:
            return m_report.pageHeader;
        case BandKind::GroupHeader:
            return m_report.groupHeaders[group];
        case BandKind::GroupFooter:
            return m_report.groupFooters[group];
        case BandKind::PageFooter:
            return m_report.pageFooter;
        case BandKind::ReportFooter:
            return m_report.reportFooter;
        case BandKind::Detail:
        case BandKind::SubHeader:
        case BandKind::SubDetail:
        case BandKind::SubFooter:
            break;
        }
        return m_report.detail;
    }

    Object compileObject(const report::Object &object, Scope scope)
    {
        const QString where = object.name.isEmpty() ? u"an object"_s : object.name;
        Object compiled;
        compiled.layout = &object;
        const PageSetup &page = m_layout.page;
        if (object.x < -page.left || object.x + object.width > page.width() - page.left)
            tell(u"%1 (%2): goes beyond the edge of the paper."_s.arg(where, object.content));
        switch (object.kind) {
        case ObjectKind::Text:
            compiled.pieces =
                pieces(!object.name.isEmpty() && m_texts.contains(object.name.toLower())
                           ? plainText(m_texts.value(object.name.toLower()))
                           : split(object.content, where),
                       where, scope);
            break;
        case ObjectKind::Field:
        case ObjectKind::BarCode:
            compiled.value = value(object.content, where, scope);
            break;
        case ObjectKind::Picture:
            if (object.content.startsWith(u'='))
                compiled.value = value(object.content.sliced(1), where, scope);
            break;
        case ObjectKind::Chart:
            compiled.chart =
                compileChart(std::make_shared<report::Chart>(object.chart), where, scope);
            break;
        case ObjectKind::CrossTab:
            compileCrossTab(object.crossTab, where, scope, compiled);
            break;
        case ObjectKind::Line:
        case ObjectKind::Box:
            break;
        }
        if (!object.visibleIf.isEmpty())
            compiled.visibleIf = value(object.visibleIf, where, scope);
        for (const report::ConditionalStyle &style : object.conditionalStyles)
            compiled.styles.push_back({value(style.when, where, scope), &style});
        if (object.hideRepeated) {
            // A repeat hangs on what the page has shown so far.
            compiled.repeatSlot = m_report.repeatSlots++;
            m_dependsOnPage = true;
        }
        return compiled;
    }

    Chart compileChart(std::shared_ptr<const report::Chart> layout, const QString &where,
                       Scope scope)
    {
        const report::Chart &chart = *layout;
        Chart compiled;
        // The rows of a page are known only when it is full.
        compiled.scope = scope.kind == ScopeKind::Page ? ScopeKind::Report : scope.kind;
        compiled.group = scope.group;
        compiled.category = rowValue(chart.category, where);
        for (const report::Series &series : chart.series)
            compiled.series.push_back(
                {&series, categoryValue(series.value, where),
                 series.by.isEmpty() ? std::nullopt : std::optional(rowValue(series.by, where))});
        compiled.title = pieces(split(chart.title, where), where, scope);
        compiled.categoryTitle = pieces(split(chart.categoryTitle, where), where, scope);
        compiled.valueTitle = pieces(split(chart.valueTitle, where), where, scope);
        compiled.layout = std::move(layout);
        return compiled;
    }

    /// A cross-tab is collected as a chart whose categories are its lines; the line of totals as
    /// one that has all rows in a single category.
    void compileCrossTab(const report::CrossTab &table, const QString &where, Scope scope,
                         Object &compiled)
    {
        report::Chart chart;
        chart.title = table.title;
        chart.category = table.rows;
        chart.categoryFormat = table.rowsFormat;
        chart.categoryTitle = table.rowsTitle;
        chart.order = ChartOrder::Category;
        chart.series.append({{}, table.value, table.columns, table.columnsFormat, {}});
        if (table.totals)
            chart.series.append({u"Total"_s, table.value, {}, {}, {}});
        compiled.chart = compileChart(std::make_shared<report::Chart>(chart), where, scope);
        if (!table.totals)
            return;
        chart.title.clear();
        chart.category = u"'Total'"_s;
        chart.categoryFormat.clear();
        compiled.columnTotals = compileChart(std::make_shared<report::Chart>(chart), where, scope);
    }

    /// A value of single rows.
    Value rowValue(const QString &text, const QString &where)
    {
        Value result = parsed(text, where);
        if (!result.expression.aggregates().isEmpty()) {
            tell(
                u"%1: \"%2\" is asked of each row and can't hold an aggregate."_s.arg(where, text));
            return {};
        }
        return result;
    }

    /// A value of all rows of a category; what names no aggregate is summed.
    Value categoryValue(const QString &text, const QString &where)
    {
        Value result = parsed(text, where);
        if (result.expression.aggregates().isEmpty() && !result.expression.names().isEmpty())
            result = parsed(u"sum(%1)"_s.arg(text), where);
        const QList<Aggregate> &aggregates = result.expression.aggregates();
        for (int number = 0; number < aggregates.size(); ++number) {
            checkNames(result.expression.aggregateArgument(number), where);
            result.slots.push_back(number);
            if (!aggregates[number].scope.isEmpty())
                tell(u"%1: an aggregate counts over its category and takes no \"%2\"."_s.arg(
                    where, aggregates[number].scope));
        }
        return result;
    }

    struct RawPiece
    {
        QString text;
        bool isExpression;
    };

    /// A text that the program sets is never read as an expression.
    static std::vector<RawPiece> plainText(const QString &text) { return {{text, false}}; }

    /// Parts words and expressions in braces; "{{" is a brace among the words.
    std::vector<RawPiece> split(const QString &content, const QString &where)
    {
        std::vector<RawPiece> raw;
        qsizetype at = 0;
        while (at < content.size()) {
            const qsizetype open = content.indexOf(u'{', at);
            if (open < 0)
                break;
            if (open + 1 < content.size() && content[open + 1] == u'{') {
                raw.push_back({content.sliced(at, open + 1 - at), false});
                at = open + 2;
                continue;
            }
            const qsizetype close = content.indexOf(u'}', open);
            if (close < 0) {
                tell(u"The text of %1 has no closing brace."_s.arg(where));
                break;
            }
            if (open > at)
                raw.push_back({content.sliced(at, open - at), false});
            raw.push_back({content.sliced(open + 1, close - open - 1), true});
            at = close + 1;
        }
        if (at < content.size())
            raw.push_back({content.sliced(at), false});
        return raw;
    }

    std::vector<Piece> pieces(const std::vector<RawPiece> &raw, const QString &where, Scope scope)
    {
        std::vector<Piece> result;
        for (const RawPiece &piece : raw) {
            // A field's name may hold blanks.
            // Asked before it is parsed: to a parser "Labor Cost" is two words without an operator.
            const bool isField = piece.isExpression && isFieldName(piece.text.trimmed());
            if (piece.isExpression)
                result.push_back(
                    {{}, value(isField ? u"[%1]"_s.arg(piece.text) : piece.text, where, scope)});
            else
                result.push_back({piece.text, std::nullopt});
        }
        return result;
    }

    /// An expression whose aggregates have no places yet.
    Value parsed(const QString &text, const QString &where)
    {
        QString error;
        Value result;
        result.expression = Expression::parse(text, &error);
        if (error.isEmpty())
            checkNames(result.expression, where);
        else
            tell(u"%1: %2"_s.arg(where, error));
        // Formulas that name each other twice grow with each step: a few lines could take years.
        if (m_costs.isTooMuch(result.expression)) {
            tell(u"%1: it is made of too many formulas."_s.arg(where));
            return {};
        }
        return result;
    }

    Value value(const QString &text, const QString &where, Scope scope)
    {
        Value result = parsed(text, where);
        const QList<Aggregate> &aggregates = result.expression.aggregates();
        for (int number = 0; number < aggregates.size(); ++number)
            result.slots.push_back(slotFor(
                aggregates[number], result.expression.aggregateArgument(number), scope, where));
        return result;
    }

    [[nodiscard]] bool isFieldName(const QString &name) const
    {
        return (m_set && m_set->fieldIndex(name) >= 0) || m_rows.fieldIndex(name) >= 0;
    }

    void checkNames(const Expression &expression, const QString &where)
    {
        for (const QString &name : expression.names()) {
            if (name == u"totalpages")
                m_report.needsTotalPages = true;
            if (name == u"pagenumber" || name == u"totalpages" || m_pageFormulas.contains(name))
                m_dependsOnPage = true;
            const bool special = std::find(std::begin(SpecialNames), std::end(SpecialNames),
                                           name) != std::end(SpecialNames);
            if (!special && !m_formulaNames.contains(name) && !m_report.parameters.contains(name) &&
                !isFieldName(name))
                tell(u"%1: there is no field \"%2\"."_s.arg(where, name));
        }
    }

    int slotFor(const Aggregate &aggregate, const Expression &argument, Scope scope,
                const QString &where)
    {
        AggregateSlot slot;
        slot.function = aggregate.function;
        slot.argument = argument;
        slot.scope = scope.kind;
        slot.group = scope.group;
        if (scope.kind == ScopeKind::Set && !aggregate.scope.isEmpty()) {
            tell(
                u"%1: an aggregate of further rows counts over those of a row, and takes no \"%2\"."_s
                    .arg(where, aggregate.scope));
        } else if (aggregate.scope.compare(u"page", Qt::CaseInsensitive) == 0) {
            slot.scope = ScopeKind::Page;
            m_dependsOnPage = true;
        } else if (aggregate.scope.compare(u"report", Qt::CaseInsensitive) == 0) {
            slot.scope = ScopeKind::Report;
        } else if (!aggregate.scope.isEmpty()) {
            slot.scope = ScopeKind::Group;
            slot.group = m_layout.groupIndex(aggregate.scope);
            if (slot.group < 0) {
                tell(u"%1: there is no group \"%2\"."_s.arg(where, aggregate.scope));
                slot.scope = ScopeKind::Report;
            }
        }
        m_report.slots.push_back(std::move(slot));
        return static_cast<int>(m_report.slots.size()) - 1;
    }

    const Layout &m_layout;
    const DataSource &m_rows;
    const Inputs &m_inputs;
    const DataSource *m_set = nullptr;  ///< of the sub bands that are being compiled
    QHash<QString, QString> m_texts;    ///< of the inputs, by name in lower case
    QHash<QString, QString> m_formulas; ///< the same
    const FormulaCosts m_costs;
    QSet<QString> m_formulaNames;
    QSet<QString> m_pageFormulas;
    bool m_dependsOnPage = false; ///< something compiled since it was cleared shows the page
    Report m_report;
};

} // namespace

const std::vector<int> *RowSet::rowsOf(const QVariant &key) const
{
    const auto found = key.isNull() ? byKey.cend() : byKey.constFind(keyText(key));
    return found == byKey.cend() ? nullptr : &*found;
}

Report compile(const Layout &layout, const DataSource &rows, const Inputs &inputs)
{
    Report report = Compiler(layout, rows, inputs).run();
    report.problems.removeDuplicates();
    return report;
}

} // namespace report::compiled
