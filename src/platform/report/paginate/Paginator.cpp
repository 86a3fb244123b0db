#include "platform/report/paginate/Paginator.h"

#include "platform/report/paginate/BandMaker.h"
#include "platform/report/paginate/Compiled.h"

#include <QScopedValueRollback>

namespace report {
namespace {

using namespace Qt::StringLiterals;
using compiled::Bands;
using compiled::ScopeKind;

void moveItem(PageItem &item, QPoint by)
{
    std::visit(
        [by](auto &one) {
            using Item = std::decay_t<decltype(one)>;
            if constexpr (std::is_same_v<Item, LineItem>) {
                one.from += by;
                one.to += by;
            } else {
                one.frame.translate(by);
            }
            if constexpr (std::is_same_v<Item, TextItem>)
                for (TextLine &line : one.lines) {
                    line.x += by.x();
                    line.baseline += by.y();
                }
            if constexpr (std::is_same_v<Item, BarCodeItem>)
                for (QRect &bar : one.bars)
                    bar.translate(by);
        },
        item);
}

/// One pass over the rows.
class Run final : public EvaluationContext, public BandContext
{
public:
    Run(const compiled::Report &report, const DataSource &rows, const Inputs &inputs,
        QStringList &problems, const PageSink &sink, int totalPages)
        : m_report(report)
        , m_page(report.layout->page)
        , m_rows(rows)
        , m_inputs(inputs)
        , m_sink(sink)
        , m_maker(*this, inputs, problems)
        , m_totalPages(totalPages)
        , m_lastShown(static_cast<std::size_t>(report.repeatSlots))
    {
        for (const compiled::AggregateSlot &slot : report.slots)
            m_accumulators.emplace_back(slot.function);
        for (const compiled::Band &band : report.pageFooter)
            m_footerHeight += band.layout->height;
    }

    /// Returns the number of pages.
    int run()
    {
        startPage(true);
        for (m_row = 0; m_row < m_rows.rowCount() && !m_stopped; ++m_row)
            takeRow();
        m_row = qMax(0, m_rows.rowCount() - 1);
        if (m_rows.rowCount() > 0)
            closeGroups(0);
        placeAll(m_report.reportFooter);
        finishPage();
        return m_sheet;
    }

    [[nodiscard]] bool stopped() const { return m_stopped; }

    std::optional<QVariant> value(const QString &name) const override
    {
        const QString key = name.toLower();
        if (key == u"pagenumber")
            return m_pageNumber;
        if (key == u"totalpages")
            return m_totalPages;
        if (key == u"rownumber")
            return m_row + 1;
        if (key == u"now")
            return m_inputs.now;
        if (key == u"today")
            return QDateTime(m_inputs.now.date(), QTime(0, 0), Qt::UTC);
        const auto formula = m_report.formulas.find(key);
        if (formula != m_report.formulas.end())
            return evaluateFormula(formula->second);
        const int field = fieldIndex(key);
        if (field < 0 || m_rows.rowCount() == 0)
            return std::nullopt;
        return m_rows.value(m_row, field);
    }

    QVariant aggregate(int number) const override
    {
        if (!m_slots || number >= static_cast<int>(m_slots->size()))
            return {};
        return m_accumulators[(*m_slots)[number]].result();
    }

    QVariant evaluate(const compiled::Value &value) const override
    {
        const QScopedValueRollback slots(m_slots, &value.slots);
        return value.expression.evaluate(*this);
    }

    std::optional<QVariant> lastShown(int repeatSlot) const override
    {
        return m_lastShown[repeatSlot];
    }

private:
    /// A formula may name others; one that names itself ends in Null.
    QVariant evaluateFormula(const compiled::Value &formula) const
    {
        constexpr int MaximumDepth = 50;
        if (m_formulaDepth >= MaximumDepth)
            return {};
        const QScopedValueRollback depth(m_formulaDepth, m_formulaDepth + 1);
        return evaluate(formula);
    }

    int fieldIndex(const QString &key) const
    {
        auto found = m_fieldIndexes.constFind(key);
        if (found == m_fieldIndexes.cend())
            found = m_fieldIndexes.insert(key, m_rows.fieldIndex(key));
        return *found;
    }

    // --- Rows and groups ---------------------------------------------------------------------

    void takeRow()
    {
        std::vector<QVariant> keys;
        for (const compiled::Value &by : m_report.groupBy)
            keys.push_back(evaluate(by));
        const int changed = m_row == 0 ? 0 : firstChange(keys);
        if (m_row > 0 && changed < groupCount()) {
            --m_row;
            closeGroups(changed);
            ++m_row;
        }
        m_keys = std::move(keys);
        for (int group = changed; group < groupCount(); ++group)
            resetSlots(ScopeKind::Group, group);
        accumulate(false);
        for (int group = changed; group < groupCount(); ++group)
            openGroup(group);
        placeAll(m_report.detail);
        accumulate(true);
    }

    [[nodiscard]] int groupCount() const { return static_cast<int>(m_report.groupBy.size()); }

    [[nodiscard]] int firstChange(const std::vector<QVariant> &keys) const
    {
        int group = 0;
        while (group < groupCount() && compareValues(keys[group], m_keys[group]) == 0)
            ++group;
        return group;
    }

    void openGroup(int group)
    {
        const Group &layout = m_report.layout->groups[group];
        if (layout.newPage && m_row > 0 && !m_buffering)
            breakPage(layout.resetPageNumber ? 1 : m_pageNumber + 1);
        else if (layout.resetPageNumber && !m_buffering)
            m_pageNumber = 1;
        forgetShown();
        if (layout.keepTogether && !m_buffering) {
            m_buffering = true;
            m_bufferedGroup = group;
        }
        m_openGroups = group;
        placeAll(m_report.groupHeaders[group]);
        m_openGroups = group + 1;
    }

    void closeGroups(int outermost)
    {
        for (int group = groupCount() - 1; group >= outermost; --group) {
            placeAll(m_report.groupFooters[group]);
            m_openGroups = group;
            if (m_buffering && m_bufferedGroup == group)
                flushBuffer();
        }
    }

    void resetSlots(ScopeKind scope, int group)
    {
        for (std::size_t slot = 0; slot < m_report.slots.size(); ++slot)
            if (m_report.slots[slot].scope == scope &&
                (scope != ScopeKind::Group || m_report.slots[slot].group == group))
                m_accumulators[slot].reset();
    }

    /// Page aggregates take a row only once it stands on its page.
    void accumulate(bool ofPage)
    {
        for (std::size_t slot = 0; slot < m_report.slots.size(); ++slot) {
            const compiled::AggregateSlot &aggregate = m_report.slots[slot];
            if ((aggregate.scope == ScopeKind::Page) == ofPage)
                m_accumulators[slot].add(aggregate.argument.evaluate(*this));
        }
    }

    // --- Placing -----------------------------------------------------------------------------

    [[nodiscard]] Length bodyBottom() const { return m_page.innerHeight() - m_footerHeight; }

    void placeAll(const Bands &bands)
    {
        for (const compiled::Band &band : bands)
            if (!m_stopped && m_maker.isPrinted(band))
                place(band);
    }

    void place(const compiled::Band &band)
    {
        if (band.layout->newPageBefore && !m_buffering && !m_bodyIsEmpty)
            breakPage(m_pageNumber + 1);
        MadeBand made = m_maker.make(band);
        if (m_buffering) {
            keepForLater(std::move(made));
            return;
        }
        if (m_y + made.height > bodyBottom() && !m_bodyIsEmpty) {
            breakPage(m_pageNumber + 1);
            made = m_maker.make(band); // page numbers and repeats have changed
        }
        if (band.layout->atBottom)
            m_y = qMax(m_y, bodyBottom() - made.height);
        put(std::move(made));
        m_bodyIsEmpty = false;
        if (band.layout->newPageAfter)
            m_breakPending = true;
    }

    void put(MadeBand &&made)
    {
        if (std::exchange(m_breakPending, false))
            breakPage(m_pageNumber + 1);
        for (PageItem &item : made.items) {
            moveItem(item, {m_page.left, m_page.top + m_y});
            m_current.items.append(std::move(item));
        }
        m_y += made.height;
        for (const auto &[slot, value] : std::as_const(made.shown))
            m_lastShown[slot] = value;
    }

    void keepForLater(MadeBand &&made)
    {
        m_bufferedHeight += made.height;
        for (const auto &[slot, value] : std::as_const(made.shown))
            m_lastShown[slot] = value;
        m_buffer.push_back(std::move(made));
        // What is longer than a page can't be kept together, and needs no room in memory.
        if (m_bufferedHeight > bodyBottom())
            flushBuffer();
    }

    void flushBuffer()
    {
        m_buffering = false;
        std::vector<MadeBand> buffer;
        buffer.swap(m_buffer);
        const Length height = std::exchange(m_bufferedHeight, 0);
        if (m_y + height > bodyBottom() && !m_bodyIsEmpty)
            breakPage(m_pageNumber + 1);
        for (MadeBand &made : buffer) {
            if (m_y + made.height > bodyBottom() && !m_bodyIsEmpty)
                breakPage(m_pageNumber + 1);
            put(std::move(made));
            m_bodyIsEmpty = false;
        }
    }

    // --- Pages -------------------------------------------------------------------------------

    void breakPage(int nextNumber)
    {
        finishPage();
        m_pageNumber = nextNumber;
        startPage(false);
    }

    void startPage(bool first)
    {
        m_current = Page{++m_sheet, {}};
        m_y = 0;
        m_breakPending = false;
        forgetShown();
        if (first)
            putAll(m_report.reportHeader);
        putAll(m_report.pageHeader);
        if (!first)
            for (int group = 0; group < m_openGroups; ++group)
                if (m_report.layout->groups[group].repeatHeader)
                    putAll(m_report.groupHeaders[group]);
        m_bodyIsEmpty = true;
    }

    /// Bands that take their place without asking for room.
    void putAll(const Bands &bands)
    {
        for (const compiled::Band &band : bands)
            if (m_maker.isPrinted(band))
                put(m_maker.make(band));
    }

    void finishPage()
    {
        m_y = bodyBottom();
        putAll(m_report.pageFooter);
        resetSlots(ScopeKind::Page, -1);
        if (!m_stopped && m_sink && !m_sink(std::move(m_current)))
            m_stopped = true;
        m_current = {};
    }

    void forgetShown() { std::fill(m_lastShown.begin(), m_lastShown.end(), std::nullopt); }

    const compiled::Report &m_report;
    const PageSetup &m_page;
    const DataSource &m_rows;
    const Inputs &m_inputs;
    const PageSink &m_sink;
    BandMaker m_maker;
    const int m_totalPages;

    int m_row = 0;
    std::vector<QVariant> m_keys;
    int m_openGroups = 0; ///< groups whose headers have been printed
    std::vector<Accumulator> m_accumulators;
    mutable const std::vector<int> *m_slots = nullptr;
    mutable int m_formulaDepth = 0;
    mutable QHash<QString, int> m_fieldIndexes;
    std::vector<std::optional<QVariant>> m_lastShown;

    Page m_current;
    int m_sheet = 0;
    int m_pageNumber = 1;
    Length m_y = 0; ///< from the upper margin
    Length m_footerHeight = 0;
    bool m_bodyIsEmpty = true;
    bool m_breakPending = false;
    bool m_stopped = false;

    bool m_buffering = false;
    int m_bufferedGroup = -1;
    std::vector<MadeBand> m_buffer;
    Length m_bufferedHeight = 0;
};

} // namespace

Outcome paginate(const Layout &layout, const DataSource &rows, const Inputs &inputs,
                 const PageSink &sink)
{
    const compiled::Report report = compiled::compile(layout, rows, inputs);
    Outcome outcome;
    outcome.problems = report.problems;
    int totalPages = 0;
    if (report.needsTotalPages) {
        QStringList sameProblems;
        totalPages = Run(report, rows, inputs, sameProblems, {}, 0).run();
    }
    Run run(report, rows, inputs, outcome.problems, sink, totalPages);
    outcome.pages = run.run();
    outcome.stopped = run.stopped();
    return outcome;
}

QList<Page> allPages(const Layout &layout, const DataSource &rows, const Inputs &inputs,
                     QStringList *problems)
{
    QList<Page> pages;
    const Outcome outcome = paginate(layout, rows, inputs, [&](Page &&page) {
        pages.append(std::move(page));
        return true;
    });
    if (problems)
        *problems = outcome.problems;
    return pages;
}

} // namespace report
