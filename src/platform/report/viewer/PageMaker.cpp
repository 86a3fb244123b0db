#include "platform/report/viewer/PageMaker.h"

#include "platform/base/Error.h"

namespace report {

PageMaker::PageMaker(const Layout &layout, std::shared_ptr<const DataSource> rows,
                     const Inputs &inputs, PageStore &pages)
    : m_layout(layout)
    , m_rows(std::move(rows))
    , m_inputs(inputs)
    , m_pages(pages)
{
    // Both are called in the other thread; what they touch is atomic.
    m_inputs.progress = [this](int done, int all) { m_share = double(done) / qMax(1, all); };
    m_inputs.isCancelled = [this] { return m_isCancelled.load(); };
    // Last: from here on the thread uses all that stands above.
    m_thread = std::thread([this] { run(); });
}

PageMaker::~PageMaker()
{
    cancel();
    // Rows and pages belong to whoever made this and may go right after it.
    m_thread.join();
}

bool PageMaker::wait(std::chrono::milliseconds atMost)
{
    std::unique_lock lock(m_mutex);
    return m_ended.wait_for(lock, atMost, [this] { return m_isDone.load(); });
}

void PageMaker::waitForShortReport(std::chrono::milliseconds atMost)
{
    constexpr std::chrono::milliseconds Step(10);
    const auto steps = atMost / Step;
    int withPage = 0; ///< steps since the first page
    for (int step = 0; step < steps && !wait(Step); ++step)
        if (m_pages.count() > 0 && share() * double(steps) < withPage++)
            return;
}

void PageMaker::run()
{
    // No error may leave the thread; what fails here is one of the report's remarks.
    try {
        if (countsPages(m_layout, *m_rows, m_inputs))
            m_pages.appendProvisional(firstPage(m_layout, *m_rows, m_inputs));
        m_outcome = paginate(m_layout, *m_rows, m_inputs, [this](Page &&page) {
            m_pages.append(page);
            return true;
        });
    } catch (const base::Error &error) {
        m_outcome.stopped = true;
        m_outcome.problems.append(error.description());
    } catch (const std::exception &error) {
        m_outcome.stopped = true;
        m_outcome.problems.append(QString::fromUtf8(error.what()));
    }
    // Under the lock, so that no waiter falls asleep between its look and the news.
    const std::lock_guard lock(m_mutex);
    m_isDone = true;
    m_ended.notify_all();
}

} // namespace report
