#pragma once

#include "platform/report/paginate/BandMaker.h"

#include <QStringList>

namespace report {

/// Goes through the rows: finds where groups begin and end, keeps the aggregates, and gives each
/// expression the values of the row on hand. What becomes of a band is for the class behind it.
class RowWalk : public EvaluationContext, public BandContext
{
public:
    /// All arguments must outlive it; problems that show only on the way are added to the list.
    RowWalk(const compiled::Report &report, const DataSource &rows, const Inputs &inputs,
            QStringList &problems);

    [[nodiscard]] std::optional<QVariant> value(const QString &key) const override;
    [[nodiscard]] QVariant aggregate(int number) const override;
    [[nodiscard]] QVariant evaluate(const compiled::Value &value) const override;
    [[nodiscard]] std::optional<QVariant> lastShown(int repeatSlot) const override;
    [[nodiscard]] ChartData chartData(const compiled::Chart &chart) const override;

protected:
    /// Walks all rows; every band comes to place.
    void walk();
    /// Brings the bands of one place whose conditions hold to place, until the report is stopped.
    void placeAll(const compiled::Bands &bands);

    /// What becomes of a band for the row on hand: it is made, put on a page or into a table.
    virtual void place(const compiled::Band &band) = 0;
    /// Groups from this one on begin with the row on hand; nothing of them is placed yet.
    virtual void beginGroups(int outermost) { Q_UNUSED(outermost) }
    /// The headers of a group come next.
    virtual void openGroup(int group) { Q_UNUSED(group) }
    /// The footers of a group have been placed.
    virtual void closeGroup(int group) { Q_UNUSED(group) }
    /// The detail bands of the row on hand have been placed.
    virtual void rowPlaced() {}
    /// The next row comes, or the next one of a further set, and the groups that end with this one
    /// have been closed. The aggregates are still those of this row.
    virtual void rowEnds() {}
    /// Asked at each row and band; True ends the walk.
    [[nodiscard]] virtual bool isStopped() const { return false; }
    [[nodiscard]] virtual QVariant pageNumber() const { return 1; }
    [[nodiscard]] virtual QVariant totalPages() const { return 1; }

    [[nodiscard]] int groupCount() const { return static_cast<int>(m_report.groupBy.size()); }
    /// How many groups, from the outermost on, have their headers printed.
    [[nodiscard]] int openGroups() const { return m_openGroups; }

    /// Begins the aggregates of a scope anew: those of groups from one on, those of one set.
    void resetSlots(compiled::ScopeKind scope, int number);
    /// The values that the row on hand adds to the aggregates of the page, by their slots.
    using PageValues = std::vector<std::pair<std::size_t, QVariant>>;
    [[nodiscard]] PageValues pageValues() const;
    /// Once the row's bands stand on the page, which may be a later one.
    void addPageValues(const PageValues &values);

    /// What a band has shown hides its repeats from now on; all shows anew behind a page's or
    /// group's beginning.
    void rememberShown(const MadeBand &made);
    void forgetShown();

    const compiled::Report &m_report;
    const DataSource &m_rows;
    const Inputs &m_inputs;
    BandMaker m_maker;
    /// Where a sub band stands: at a row of a further set.
    struct SubPlace
    {
        const compiled::RowSet *set = nullptr;  ///< null in all other bands
        const std::vector<int> *rows = nullptr; ///< those that belong to the row on hand
        std::size_t at = 0;

        bool operator==(const SubPlace &) const = default;
    };

    /// The row on hand; a chart goes through others and comes back.
    mutable int m_row = 0;
    mutable SubPlace m_sub;

private:
    /// Rows from one on to before another.
    struct Span
    {
        int first;
        int end;

        bool operator==(const Span &) const = default;
    };
    struct KnownChart
    {
        Span span;
        ChartData data;
    };
    /// The further rows that belong to the row on hand, set by set, behind its detail.
    void placeSets();
    void placeSet(std::size_t number, const std::vector<int> &rows);
    /// Goes through the rows of a chart and comes back.
    [[nodiscard]] ChartData collected(const compiled::Chart &chart, const Span &span) const;
    [[nodiscard]] Span chartSpan(const compiled::Chart &chart) const;
    [[nodiscard]] Span groupSpan(int group) const;
    [[nodiscard]] std::vector<QVariant> keys() const;

    /// Closes the groups that end before the row on hand, opens those that begin with it, and
    /// places what it prints.
    void takeRow();
    [[nodiscard]] static int firstChange(const std::vector<QVariant> &before,
                                         const std::vector<QVariant> &keys);
    /// From the innermost outwards to this one: places their footers.
    void closeGroups(int outermost);
    /// Adds the row on hand to the aggregates of groups and report, or of one set.
    void accumulate();
    void accumulateSet(std::size_t number);
    /// Works a formula out once for each row, where it hangs on nothing else.
    [[nodiscard]] QVariant evaluateFormula(const compiled::Value &formula) const;
    [[nodiscard]] bool isOfRow(const compiled::Value &formula) const;

    /// What a name in an expression stands for.
    struct Meaning
    {
        enum class Kind {
            Nothing,
            PageNumber,
            TotalPages,
            RowNumber,
            Constant, ///< the clock, or an answer to a parameter
            Formula,
            SetField, ///< of the further rows on hand
            Field,
        };
        Kind kind = Kind::Nothing;
        int field = -1;
        const compiled::Value *formula = nullptr;
        QVariant constant{};
    };
    [[nodiscard]] const Meaning &meaningOf(const QString &key) const;
    [[nodiscard]] Meaning foundMeaning(const QString &key) const;

    std::vector<QVariant> m_keys;
    int m_openGroups = 0;
    std::vector<Accumulator> m_accumulators;
    mutable const std::vector<int> *m_slots = nullptr;
    /// What a formula came to last.
    struct KnownFormula
    {
        bool isOfRow;
        int row;
        SubPlace place;
        QVariant value;
    };
    mutable std::map<const compiled::Value *, KnownFormula> m_formulas;
    /// By the set whose rows are on hand, null for none.
    mutable std::map<const compiled::RowSet *, QHash<QString, Meaning>> m_meanings;
    std::vector<std::optional<QVariant>> m_lastShown;
    /// A band may be made several times, on page after page.
    mutable std::map<const compiled::Chart *, KnownChart> m_charts;
};

} // namespace report
