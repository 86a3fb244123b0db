#pragma once

#include "platform/report/paginate/Paginator.h"
#include "platform/report/viewer/PageStore.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

namespace report {

/// Lays a report out in a thread of its own while its first pages are looked at already. The rows
/// are only read, and must bear being read from another thread.
class PageMaker
{
public:
    /// Begins at once. The pages go to the store, which must outlive it.
    PageMaker(const Layout &layout, std::shared_ptr<const DataSource> rows, const Inputs &inputs,
              PageStore &pages);
    /// Cancels and waits until the thread has ended.
    ~PageMaker();
    PageMaker(const PageMaker &) = delete;
    PageMaker &operator=(const PageMaker &) = delete;

    /// Ends the work soon; the pages that are whole stay.
    void cancel() { m_isCancelled = true; }
    /// True once the last page is in the store, or the work was cancelled or failed.
    [[nodiscard]] bool isDone() const { return m_isDone; }
    /// Waits so long at most; True when all is laid out.
    bool wait(std::chrono::milliseconds atMost);
    /// Waits as wait() does, but gives up as soon as there is a page to look at and the work goes
    /// so slowly that it won't be whole by then.
    void waitForShortReport(std::chrono::milliseconds atMost);
    /// What came of it, once it is done.
    [[nodiscard]] const Outcome &outcome() const { return m_outcome; }
    /// Of the rows in the pass that is running, from 0 to 1.
    [[nodiscard]] double share() const { return m_share; }

private:
    void run();

    const Layout m_layout;
    const std::shared_ptr<const DataSource> m_rows;
    Inputs m_inputs;
    PageStore &m_pages;
    Outcome m_outcome;
    std::atomic<bool> m_isCancelled = false;
    std::atomic<bool> m_isDone = false;
    std::atomic<double> m_share = 0;
    std::mutex m_mutex;
    std::condition_variable m_ended;
    std::thread m_thread; ///< the last: it uses all of the above
};

} // namespace report
