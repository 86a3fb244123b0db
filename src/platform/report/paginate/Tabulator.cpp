#include "platform/report/paginate/Tabulator.h"

#include "platform/report/paginate/RowWalk.h"

namespace report {
namespace {

class TableWalk final : public RowWalk
{
public:
    TableWalk(const compiled::Report &report, const DataSource &rows, const Inputs &inputs,
              QStringList &problems, const TableSink &sink)
        : RowWalk(report, rows, inputs, problems)
        , m_sink(sink)
    {}

    void run()
    {
        placeAll(m_report.reportHeader);
        // Once, since it names the columns; a page's footer has nothing to tell without pages.
        placeAll(m_report.pageHeader);
        walk();
        placeAll(m_report.reportFooter);
    }

    [[nodiscard]] bool isStopped() const override
    {
        return m_stopped || (m_inputs.isCancelled && m_inputs.isCancelled());
    }

private:
    void place(const compiled::Band &band) override
    {
        MadeBand made = m_maker.makeCells(band);
        m_stopped = !m_sink({band.layout, m_row, std::move(made.cells), std::move(made.grids)});
    }

    /// The whole table counts as one page.
    void rowPlaced() override { addPageValues(pageValues()); }

    const TableSink &m_sink;
    bool m_stopped = false;
};

} // namespace

Outcome tabulate(const Layout &layout, const DataSource &rows, const Inputs &inputs,
                 const TableSink &sink)
{
    const compiled::Report report = compiled::compile(layout, rows, inputs);
    Outcome outcome;
    outcome.problems = report.problems;
    TableWalk walk(report, rows, inputs, outcome.problems, sink);
    walk.run();
    outcome.stopped = walk.isStopped();
    return outcome;
}

} // namespace report
