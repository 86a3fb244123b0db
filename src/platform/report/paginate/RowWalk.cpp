#include "platform/report/paginate/RowWalk.h"

#include "platform/report/paginate/ChartCollector.h"

#include <QScopedValueRollback>
#include <algorithm>

namespace report {

using compiled::ScopeKind;

RowWalk::RowWalk(const compiled::Report &report, const DataSource &rows, const Inputs &inputs,
                 QStringList &problems)
    : m_report(report)
    , m_rows(rows)
    , m_inputs(inputs)
    , m_maker(*report.layout, *this, inputs, problems)
    , m_lastShown(static_cast<std::size_t>(report.repeatSlots))
{
    for (const compiled::AggregateSlot &slot : report.slots)
        m_accumulators.emplace_back(slot.function);
}

void RowWalk::walk()
{
    for (m_row = 0; m_row < m_rows.rowCount() && !isStopped(); ++m_row) {
        takeRow();
        // Told after the row: the last call says that all is done.
        if (m_inputs.progress)
            m_inputs.progress(m_row + 1, m_rows.rowCount());
    }
    // The last footers show the last row, as those before did theirs.
    m_row = qMax(0, m_rows.rowCount() - 1);
    if (m_rows.rowCount() > 0)
        closeGroups(0);
}

void RowWalk::placeAll(const compiled::Bands &bands)
{
    for (const compiled::Band &band : bands)
        if (!isStopped() && m_maker.isPrinted(band))
            place(band);
}

std::optional<QVariant> RowWalk::value(const QString &key) const
{
    const Meaning &meaning = meaningOf(key);
    switch (meaning.kind) {
    case Meaning::Kind::PageNumber:
        return pageNumber();
    case Meaning::Kind::TotalPages:
        return totalPages();
    case Meaning::Kind::RowNumber:
        return m_sub.set ? static_cast<int>(m_sub.at) + 1 : m_row + 1;
    case Meaning::Kind::Constant:
        return meaning.constant;
    case Meaning::Kind::Formula:
        return evaluateFormula(*meaning.formula);
    case Meaning::Kind::SetField:
        return m_sub.set->rows->value((*m_sub.rows)[m_sub.at], meaning.field);
    case Meaning::Kind::Field:
        if (m_rows.rowCount() == 0)
            break;
        return m_rows.value(m_row, meaning.field);
    case Meaning::Kind::Nothing:
        break;
    }
    return std::nullopt;
}

QVariant RowWalk::aggregate(int number) const
{
    if (!m_slots || number >= static_cast<int>(m_slots->size()))
        return {};
    return m_accumulators[(*m_slots)[number]].result();
}

QVariant RowWalk::evaluate(const compiled::Value &value) const
{
    // An expression counts its aggregates from 0; the slots say which of the report's they are.
    // Formulas nest, so the former ones come back.
    const QScopedValueRollback slots(m_slots, &value.slots);
    return value.expression.evaluate(*this);
}

std::optional<QVariant> RowWalk::lastShown(int repeatSlot) const
{
    return m_lastShown[repeatSlot];
}

/// Sums and fields ask for the same formulas of a row again and again.
QVariant RowWalk::evaluateFormula(const compiled::Value &formula) const
{
    auto known = m_formulas.find(&formula);
    if (known == m_formulas.end())
        known = m_formulas.emplace(&formula, KnownFormula{isOfRow(formula), -1, {}, {}}).first;
    KnownFormula &last = known->second;
    if (!last.isOfRow)
        return evaluate(formula);
    if (last.row != m_row || last.place != m_sub) {
        last.value = evaluate(formula);
        last.row = m_row;
        last.place = m_sub;
    }
    return last.value;
}

/// True when it comes to the same wherever the row on hand is shown. Formulas that lead back to
/// themselves are Null, and so end here.
bool RowWalk::isOfRow(const compiled::Value &formula) const
{
    return formula.slots.empty() &&
           std::ranges::all_of(formula.expression.names(), [&](const QString &name) {
               const auto other = m_report.formulas.find(name);
               return name != u"pagenumber" && name != u"totalpages" &&
                      (other == m_report.formulas.end() || isOfRow(other->second));
           });
}

/// A name is looked for once for each set of rows, not in each row.
const RowWalk::Meaning &RowWalk::meaningOf(const QString &key) const
{
    QHash<QString, Meaning> &known = m_meanings[m_sub.set];
    auto found = known.constFind(key);
    if (found == known.cend())
        found = known.insert(key, foundMeaning(key));
    return *found;
}

RowWalk::Meaning RowWalk::foundMeaning(const QString &key) const
{
    using Kind = Meaning::Kind;
    if (key == u"pagenumber")
        return {Kind::PageNumber};
    if (key == u"totalpages")
        return {Kind::TotalPages};
    if (key == u"rownumber")
        return {Kind::RowNumber};
    if (key == u"now")
        return {Kind::Constant, -1, nullptr, m_inputs.now};
    if (key == u"today")
        return {Kind::Constant, -1, nullptr, QDateTime(m_inputs.now.date(), QTime(0, 0), Qt::UTC)};
    // A formula hides a field of its name, and a further row's field that of the report's row.
    const auto formula = m_report.formulas.find(key);
    if (formula != m_report.formulas.end())
        return {Kind::Formula, -1, &formula->second};
    if (m_sub.set) {
        if (const int field = m_sub.set->rows->fieldIndex(key); field >= 0)
            return {Kind::SetField, field};
    }
    const auto parameter = m_report.parameters.constFind(key);
    if (parameter != m_report.parameters.cend())
        return {Kind::Constant, -1, nullptr, *parameter};
    if (const int field = m_rows.fieldIndex(key); field >= 0)
        return {Kind::Field, field};
    return {};
}

void RowWalk::takeRow()
{
    std::vector<QVariant> keys = this->keys();
    // The first row begins all groups.
    const int changed = m_row == 0 ? 0 : firstChange(m_keys, keys);
    if (m_row > 0) {
        // Footers show the last row of their group.
        --m_row;
        closeGroups(changed);
        rowEnds();
        ++m_row;
    }
    m_keys = std::move(keys);
    // After the footers, which still show the sums of the rows before, and ahead of this row, which
    // is the first of its group.
    resetSlots(ScopeKind::Group, changed);
    accumulate();
    if (changed < groupCount())
        beginGroups(changed);
    for (int group = changed; group < groupCount(); ++group) {
        forgetShown();
        m_openGroups = group;
        openGroup(group);
        placeAll(m_report.groupHeaders[group]);
        m_openGroups = group + 1;
    }
    placeAll(m_report.detail);
    rowPlaced();
    placeSets();
}

void RowWalk::placeSets()
{
    for (std::size_t number = 0; number < m_report.sets.size() && !isStopped(); ++number) {
        const compiled::RowSet &set = m_report.sets[number];
        if (const std::vector<int> *rows = set.rowsOf(evaluate(set.of)))
            placeSet(number, *rows);
    }
}

void RowWalk::placeSet(std::size_t number, const std::vector<int> &rows)
{
    const compiled::RowSet &set = m_report.sets[number];
    resetSlots(ScopeKind::Set, static_cast<int>(number));
    for (int slot = set.firstRepeatSlot; slot < set.endRepeatSlot; ++slot)
        // What the rows of another machine have shown is no repeat for this one's.
        m_lastShown[static_cast<std::size_t>(slot)].reset();
    m_sub = {&set, &rows, 0};
    placeAll(set.header);
    for (m_sub.at = 0; m_sub.at < rows.size() && !isStopped(); ++m_sub.at) {
        accumulateSet(number);
        placeAll(set.detail);
        if (m_sub.at + 1 < rows.size())
            rowEnds();
    }
    // Footers show the last row, as those of groups do.
    m_sub.at = rows.size() - 1;
    placeAll(set.footer);
    m_sub = {};
}

std::vector<QVariant> RowWalk::keys() const
{
    std::vector<QVariant> keys;
    keys.reserve(m_report.groupBy.size());
    for (const compiled::Value &by : m_report.groupBy)
        keys.push_back(evaluate(by));
    return keys;
}

int RowWalk::firstChange(const std::vector<QVariant> &before, const std::vector<QVariant> &keys)
{
    std::size_t group = 0;
    while (group < keys.size() && compareValues(keys[group], before[group]) == 0)
        ++group;
    return static_cast<int>(group);
}

/// The rows of the group that the row on hand belongs to.
RowWalk::Span RowWalk::groupSpan(int group) const
{
    const QScopedValueRollback row(m_row);
    const int here = m_row;
    const std::vector<QVariant> own = keys();
    const auto belongs = [&](int other) {
        m_row = other;
        return firstChange(own, keys()) > group;
    };
    // Rows come in the order of the groups, so a group's rows lie together around this one.
    Span span{here, here + 1};
    while (span.first > 0 && belongs(span.first - 1))
        --span.first;
    while (span.end < m_rows.rowCount() && belongs(span.end))
        ++span.end;
    return span;
}

RowWalk::Span RowWalk::chartSpan(const compiled::Chart &chart) const
{
    if (chart.scope == ScopeKind::Set)
        return m_sub.rows ? Span{0, static_cast<int>(m_sub.rows->size())} : Span{0, 0};
    if (chart.scope == ScopeKind::Group && m_rows.rowCount() > 0)
        return groupSpan(chart.group);
    return {0, m_rows.rowCount()};
}

ChartData RowWalk::chartData(const compiled::Chart &chart) const
{
    // Those of a set are made once for each row.
    if (chart.scope == ScopeKind::Set)
        return collected(chart, chartSpan(chart));
    // A header that comes again on each page shows the same chart.
    const auto known = m_charts.find(&chart);
    if (known != m_charts.end() &&
        (chart.scope != ScopeKind::Group ||
         (known->second.span.first <= m_row && m_row < known->second.span.end)))
        return known->second.data;
    const Span span = chartSpan(chart);
    return m_charts.insert_or_assign(&chart, KnownChart{span, collected(chart, span)})
        .first->second.data;
}

ChartData RowWalk::collected(const compiled::Chart &chart, const Span &span) const
{
    const QScopedValueRollback row(m_row);
    // The walk stands in the middle of a band; it goes on from there when the chart is collected.
    const QScopedValueRollback sub(m_sub);
    const bool ofSet = chart.scope == ScopeKind::Set;
    const auto goTo = [&](int of) {
        if (ofSet)
            m_sub.at = static_cast<std::size_t>(of);
        else
            m_row = of;
    };
    ChartCollector collector(chart);
    for (int of = span.first; of < span.end && !isStopped(); ++of) {
        goTo(of);
        collector.add(*this, of);
    }
    return collector.result(*this, goTo);
}

void RowWalk::closeGroups(int outermost)
{
    for (int group = groupCount() - 1; group >= outermost; --group) {
        placeAll(m_report.groupFooters[group]);
        m_openGroups = group;
        closeGroup(group);
    }
}

void RowWalk::resetSlots(ScopeKind scope, int number)
{
    for (std::size_t slot = 0; slot < m_report.slots.size(); ++slot) {
        const compiled::AggregateSlot &known = m_report.slots[slot];
        // An outer group that begins anew takes the inner ones with it.
        if (known.scope == scope && (scope != ScopeKind::Group || known.group >= number) &&
            (scope != ScopeKind::Set || known.group == number))
            m_accumulators[slot].reset();
    }
}

/// The aggregates of the page are left out: they take a row only once it stands on its page.
void RowWalk::accumulate()
{
    for (std::size_t slot = 0; slot < m_report.slots.size(); ++slot)
        if (m_report.slots[slot].scope != ScopeKind::Page &&
            m_report.slots[slot].scope != ScopeKind::Set)
            m_accumulators[slot].add(m_report.slots[slot].argument.evaluate(*this));
}

void RowWalk::accumulateSet(std::size_t number)
{
    for (std::size_t slot = 0; slot < m_report.slots.size(); ++slot)
        if (m_report.slots[slot].scope == ScopeKind::Set &&
            m_report.slots[slot].group == static_cast<int>(number))
            m_accumulators[slot].add(m_report.slots[slot].argument.evaluate(*this));
}

RowWalk::PageValues RowWalk::pageValues() const
{
    PageValues values;
    for (std::size_t slot = 0; slot < m_report.slots.size(); ++slot)
        if (m_report.slots[slot].scope == ScopeKind::Page)
            values.emplace_back(slot, m_report.slots[slot].argument.evaluate(*this));
    return values;
}

void RowWalk::addPageValues(const PageValues &values)
{
    for (const auto &[slot, value] : values)
        m_accumulators[slot].add(value);
}

void RowWalk::rememberShown(const MadeBand &made)
{
    for (const auto &[slot, value] : made.shown)
        m_lastShown[slot] = value;
}

void RowWalk::forgetShown()
{
    std::fill(m_lastShown.begin(), m_lastShown.end(), std::nullopt);
}

} // namespace report
