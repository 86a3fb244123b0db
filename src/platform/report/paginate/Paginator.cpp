#include "platform/report/paginate/Paginator.h"

#include "platform/report/paginate/Compiled.h"
#include "platform/report/paginate/RowWalk.h"
#include "platform/report/paginate/SplitBand.h"

#include <QScopedValueRollback>

namespace report {
namespace {

using compiled::Bands;
using compiled::ScopeKind;

/// Of a band that goes on over pages.
constexpr Length SmallestPart = 500;

/// Bands of a bad layout would be higher together than a length can say.
Length stacked(Length above, Length height)
{
    constexpr qint64 Highest = 1'000'000'000;
    return static_cast<Length>(qMin(Highest, qint64(above) + height));
}

/// The numbers of pages of each run of page numbers; a new run begins where numbering begins anew.
using PageRuns = std::vector<int>;

/// One pass over the rows that fills pages.
class PageWalk final : public RowWalk
{
public:
    PageWalk(const compiled::Report &report, const DataSource &rows, const Inputs &inputs,
             QStringList &problems, const PageSink &sink, std::optional<PageRuns> counted)
        : RowWalk(report, rows, inputs, problems)
        , m_page(report.layout->page)
        , m_sink(sink)
        , m_isCounting(!counted)
        , m_counted(std::move(counted).value_or(PageRuns()))
    {
        for (const compiled::Band &band : report.pageFooter)
            m_footerHeight += band.layout->height;
    }

    /// The report from its header to its last footer; the sink has had every page then.
    void run()
    {
        startPage(true);
        walk();
        placeAll(m_report.reportFooter);
        release();
        if (!isStopped())
            finishPage();
    }

    [[nodiscard]] bool isStopped() const override
    {
        m_stopped = m_stopped || (m_inputs.isCancelled && m_inputs.isCancelled());
        return m_stopped;
    }
    [[nodiscard]] int pages() const { return m_pages; }
    [[nodiscard]] const PageRuns &pageRuns() const { return m_runs; }

private:
    /// A band that waits for those that must stand on one page with it.
    struct Kept
    {
        const compiled::Band *band;
        MadeBand made;
        int row;
        int sheet;      ///< for which it was made
        int openGroups; ///< whose headers stand above it
        SubPlace sub;
        PageValues pageValues;
    };

    [[nodiscard]] QVariant pageNumber() const override { return m_pageNumber; }
    [[nodiscard]] QVariant totalPages() const override
    {
        const std::size_t run = m_runs.size() - 1;
        return run < m_counted.size() ? QVariant(m_counted[run]) : QVariant(QString(QChar(0x2026)));
    }

    /// While pages are only counted, a band's height is all that is asked of it. Of high ones it
    /// matters where they can be cut.
    [[nodiscard]] MadeBand make(const compiled::Band &band)
    {
        return m_isCounting && 2 * band.layout->height < room() ? m_maker.measure(band)
                                                                : m_maker.make(band);
    }

    // --- Groups ------------------------------------------------------------------------------

    /// An outer group's header goes to the new page that an inner group asks for.
    void beginGroups(int outermost) override
    {
        bool newPage = m_breakPending;
        bool fromOne = false;
        for (int group = outermost; group < groupCount(); ++group) {
            const Group &layout = m_report.layout->groups[group];
            newPage |= layout.newPage;
            fromOne |= layout.resetPageNumber;
        }
        if (!newPage || m_row == 0)
            return;
        release();
        if (!m_bodyIsEmpty)
            breakPage(fromOne);
    }

    void openGroup(int group) override
    {
        if (!m_keptGroup && m_report.layout->groups[group].keepTogether)
            m_keptGroup = group;
    }

    /// The footers of outer groups that follow stay with it.
    void closeGroup(int group) override
    {
        if (m_keptGroup == group)
            m_keptGroup.reset();
    }

    void rowPlaced() override
    {
        const PageValues values = pageValues();
        if (m_kept.empty())
            addPageValues(values);
        else
            m_kept.back().pageValues.insert(m_kept.back().pageValues.end(), values.begin(),
                                            values.end());
    }

    void rowEnds() override
    {
        if (!m_keptGroup && !m_kept.empty() && !leads(*m_kept.back().band))
            release();
    }

    // --- What stands together ----------------------------------------------------------------

    /// A header waits for what it heads, so that none ends a page by itself.
    static bool leads(const compiled::Band &band)
    {
        return band.layout->kind == BandKind::GroupHeader ||
               band.layout->kind == BandKind::SubHeader;
    }

    /// A footer stays with what it sums up, so that no total stands alone on a page.
    static bool follows(const compiled::Band &band)
    {
        return band.layout->kind == BandKind::GroupFooter ||
               band.layout->kind == BandKind::SubFooter ||
               band.layout->kind == BandKind::ReportFooter;
    }

    /// The first of the further rows that belong to a detail.
    static bool continues(const compiled::Band &upper, const compiled::Band &lower)
    {
        return upper.layout->kind == BandKind::Detail &&
               (lower.layout->kind == BandKind::SubHeader ||
                lower.layout->kind == BandKind::SubDetail);
    }

    static bool mayPart(const compiled::Band &upper, const compiled::Band &lower)
    {
        return !leads(upper) && !follows(lower) && !continues(upper, lower);
    }

    // --- Placing -----------------------------------------------------------------------------

    [[nodiscard]] Length bodyBottom() const { return m_page.innerHeight() - m_footerHeight; }
    [[nodiscard]] bool fits(Length height) const { return stacked(m_y, height) <= bodyBottom(); }

    void place(const compiled::Band &band) override
    {
        if (band.layout->newPageBefore) {
            release();
            if (!m_bodyIsEmpty)
                breakPage();
        }
        if (!m_keptGroup && !m_kept.empty() && mayPart(*m_kept.back().band, band))
            release();
        if (m_breakPending)
            breakPage();
        m_kept.push_back({&band, make(band), m_row, m_sheet, openGroups(), m_sub, {}});
        rememberShown(m_kept.back().made);
        m_keptHeight = stacked(m_keptHeight, m_kept.back().made.height);
        if (band.layout->newPageAfter)
            release();
        else if (m_keptGroup && m_keptHeight > room())
            dissolve();
    }

    [[nodiscard]] Length room() const { return bodyBottom() - m_bodyTop; }

    /// A group that is longer than a page can't be kept together, and shall not fill the memory:
    /// all goes but the last bands that stand together.
    void dissolve()
    {
        std::size_t last = m_kept.size() - 1;
        while (last > 0 && !mayPart(*m_kept[last - 1].band, *m_kept[last].band))
            --last;
        std::vector<Kept> rest(std::make_move_iterator(m_kept.begin() + qsizetype(last)),
                               std::make_move_iterator(m_kept.end()));
        m_kept.resize(last);
        release();
        m_kept = std::move(rest);
        for (const Kept &kept : m_kept)
            m_keptHeight = stacked(m_keptHeight, kept.made.height);
    }

    /// Places what waits, on a new page when it doesn't fit here; what is longer than a page, part
    /// by part.
    void release()
    {
        m_keptGroup.reset();
        std::swap(m_kept, m_released);
        const Length height = std::exchange(m_keptHeight, 0);
        std::size_t first = 0;
        while (first < m_released.size() && !m_stopped) {
            std::size_t end = height <= room() ? m_released.size() : first + 1;
            while (end < m_released.size() &&
                   !mayPart(*m_released[end - 1].band, *m_released[end].band))
                ++end;
            putTogether(first, end);
            first = end;
        }
        m_released.clear();
    }

    /// Places bands on one page; where they are too long for one, the first two.
    void putTogether(std::size_t first, std::size_t end)
    {
        const auto heightOf = [&](std::size_t until) {
            Length height = 0;
            for (std::size_t at = first; at < until; ++at)
                height = stacked(height, m_released[at].made.height);
            return height;
        };
        Length height = heightOf(end);
        if (height > room())
            height = heightOf(qMin(first + 2, end));
        const QScopedValueRollback<const Kept *> placing(m_placing, &m_released[first]);
        if (!fits(height) && !m_bodyIsEmpty)
            breakPage();
        for (std::size_t at = first; at < end && !m_stopped; ++at) {
            Kept &kept = m_released[at];
            m_placing = &kept;
            // A later row's totals must not get into a band made anew.
            // Further rows add nothing to the totals of the report's own.
            const bool isCurrent =
                kept.row == m_row &&
                (!kept.sub.set || (kept.sub.set == m_sub.set && kept.sub.at == m_sub.at));
            const bool mayRemake = isCurrent || !kept.band->hasAggregates;
            const QScopedValueRollback row(m_row, kept.row);
            const QScopedValueRollback sub(m_sub, kept.sub);
            if (kept.sheet != m_sheet && kept.band->dependsOnPage && mayRemake)
                kept.made = make(*kept.band);
            putOnPage(*kept.band, std::move(kept.made), mayRemake);
            addPageValues(kept.pageValues);
        }
    }

    /// Places a band where there is room: here, on the next page, or over several.
    void putOnPage(const compiled::Band &band, MadeBand made, bool mayRemake)
    {
        if (m_breakPending || (!fits(made.height) && !m_bodyIsEmpty)) {
            breakPage();
            if (mayRemake && band.dependsOnPage)
                made = make(band);
        }
        if (band.layout->atBottom)
            m_y = qMax(m_y, bodyBottom() - made.height);
        while (!fits(made.height) && !m_stopped) {
            // Slices over page after page would help nobody where headers fill the page.
            const Length left = bodyBottom() - m_y;
            std::optional<MadeBand> rest =
                left < SmallestPart ? std::nullopt : splitBand(made, left);
            if (!rest)
                break;
            put(std::move(made));
            breakPage();
            made = std::move(*rest);
        }
        put(std::move(made));
        m_bodyIsEmpty = false;
        m_breakPending = band.layout->newPageAfter;
    }

    /// From here on the band counts as printed: its items are the page's, its values remembered.
    void put(MadeBand &&made)
    {
        for (PageItem &item : made.items) {
            movePageItem(item, {m_page.left, m_page.top + m_y});
            m_current.items.append(std::move(item));
        }
        m_y = stacked(m_y, made.height);
        rememberShown(made);
    }

    // --- Pages -------------------------------------------------------------------------------

    /// The numbers of pages begin anew with a group that asks for it.
    void breakPage(bool fromOne = false)
    {
        finishPage();
        if (m_stopped)
            return;
        m_pageNumber = fromOne ? 1 : m_pageNumber + 1;
        if (fromOne)
            m_runs.push_back(0);
        startPage(false);
    }

    /// Headers stand above whatever comes; the report's own only on the first page.
    void startPage(bool first)
    {
        m_current = Page{++m_sheet, {}};
        ++m_runs.back();
        m_y = 0;
        m_breakPending = false;
        forgetShown();
        if (first)
            putAll(m_report.reportHeader);
        putAll(m_report.pageHeader);
        m_bodyTop = m_y;
        if (first)
            for (const compiled::Band &band : m_report.reportHeader)
                m_breakPending |= band.layout->newPageAfter;
        else
            repeatHeaders();
        m_bodyIsEmpty = !m_breakPending;
    }

    void repeatHeaders()
    {
        const int groups = m_placing ? m_placing->openGroups : openGroups();
        // Headers that leave no room for what they head would come again on page after page.
        for (int group = 0; group < groups && m_y < bodyBottom(); ++group)
            if (m_report.layout->groups[group].repeatHeader)
                putAll(m_report.groupHeaders[group]);
        // Further rows that go on here would stand without their headings.
        if (m_placing && m_placing->band->layout->kind == BandKind::SubDetail)
            putAll(m_placing->sub.set->header, m_placing->sub);
    }

    /// Bands that take their place without asking for room. A page may end among further rows, of
    /// which those of others know nothing.
    void putAll(const Bands &bands, const SubPlace &place = {})
    {
        const QScopedValueRollback sub(m_sub, place);
        for (const compiled::Band &band : bands)
            if (m_maker.isPrinted(band))
                put(make(band));
    }

    /// The footer's totals are those of the page, and begin anew behind it.
    void finishPage()
    {
        m_y = bodyBottom();
        putAll(m_report.pageFooter);
        resetSlots(ScopeKind::Page, -1);
        ++m_pages;
        if (m_sink && !m_sink(std::move(m_current)))
            m_stopped = true;
        m_current = {};
    }

    const PageSetup &m_page;
    const PageSink &m_sink;
    const bool m_isCounting;
    const PageRuns m_counted;
    PageRuns m_runs{0};

    Page m_current;
    int m_pages = 0; ///< finished ones
    int m_sheet = 0;
    int m_pageNumber = 1;
    Length m_y = 0; ///< from the upper margin
    Length m_bodyTop = 0;
    Length m_footerHeight = 0;
    bool m_bodyIsEmpty = true;
    bool m_breakPending = false;
    mutable bool m_stopped = false;

    std::optional<int> m_keptGroup; ///< the group that waits for its end
    std::vector<Kept> m_kept;
    std::vector<Kept> m_released; ///< those that are being placed
    const Kept *m_placing = nullptr;
    Length m_keptHeight = 0;
};

} // namespace

Outcome paginate(const Layout &layout, const DataSource &rows, const Inputs &inputs,
                 const PageSink &sink)
{
    const compiled::Report report = compiled::compile(layout, rows, inputs);
    Outcome outcome;
    outcome.problems = report.problems;
    PageRuns counted;
    if (report.needsTotalPages) {
        // The first pass only counts; its problems would be told twice.
        QStringList sameProblems;
        const PageSink none;
        PageWalk counting(report, rows, inputs, sameProblems, none, std::nullopt);
        counting.run();
        if (counting.isStopped()) {
            outcome.stopped = true;
            return outcome;
        }
        counted = counting.pageRuns();
    }
    PageWalk walk(report, rows, inputs, outcome.problems, sink, counted);
    walk.run();
    outcome.pages = walk.pages();
    outcome.stopped = walk.isStopped();
    return outcome;
}

Page firstPage(const Layout &layout, const DataSource &rows, const Inputs &inputs)
{
    const compiled::Report report = compiled::compile(layout, rows, inputs);
    QStringList problems;
    Page first;
    const PageSink takeOne = [&](Page &&page) {
        first = std::move(page);
        return false;
    };
    PageWalk(report, rows, inputs, problems, takeOne, PageRuns()).run();
    return first;
}

bool countsPages(const Layout &layout, const DataSource &rows, const Inputs &inputs)
{
    return compiled::compile(layout, rows, inputs).needsTotalPages;
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
