#include "platform/report/paginate/PagesAhead.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>
#include <thread>

namespace report {
namespace {

/// Enough that neither side waits for the other, and little memory.
constexpr std::size_t MostPagesWaiting = 32;
/// While no page comes, so often the caller is told how far it is, and asked whether to go on.
constexpr std::chrono::milliseconds Patience(50);

/// Pages on their way from one thread to the other.
class PageQueue
{
public:
    /// Waits while there are too many. False when nobody takes them any more.
    bool put(Page &&page)
    {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [this] { return m_pages.size() < MostPagesWaiting || m_isClosed; });
        if (m_isClosed)
            return false;
        m_pages.push_back(std::move(page));
        m_changed.notify_all();
        return true;
    }

    /// Waits for one, but not for long.
    std::optional<Page> take()
    {
        std::unique_lock lock(m_mutex);
        m_changed.wait_for(lock, Patience, [this] { return !m_pages.empty() || m_isEnded; });
        if (m_pages.empty())
            return std::nullopt;
        Page page = std::move(m_pages.front());
        m_pages.pop_front();
        m_changed.notify_all();
        return page;
    }

    /// True when there are none and will be no more.
    [[nodiscard]] bool isEmpty() const
    {
        const std::lock_guard lock(m_mutex);
        return m_pages.empty() && m_isEnded;
    }

    /// No more come.
    void end() { set(m_isEnded); }
    /// No more are taken.
    void close() { set(m_isClosed); }

private:
    void set(bool &flag)
    {
        const std::lock_guard lock(m_mutex);
        flag = true;
        m_changed.notify_all();
    }

    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<Page> m_pages;
    bool m_isEnded = false;
    bool m_isClosed = false;
};

/// The thread that makes the pages; however the caller leaves, it ends first.
class Maker
{
public:
    Maker(const Layout &layout, const DataSource &rows, const Inputs &inputs, PageQueue &queue)
        : m_inputs(inputs)
        , m_queue(queue)
    {
        m_inputs.progress = [this](int done, int all) {
            m_done = done;
            m_all = all;
        };
        m_inputs.isCancelled = [this] { return m_isCancelled.load(); };
        m_thread = std::thread([this, &layout, &rows] { run(layout, rows); });
    }
    ~Maker() { stop(); }
    Maker(const Maker &) = delete;
    Maker &operator=(const Maker &) = delete;

    /// In the caller's thread, with what the maker's has counted.
    void tell(const base::Progress &progress) const
    {
        if (progress)
            progress(m_done, m_all);
    }

    /// What came of it; what went wrong in the thread goes wrong here.
    Outcome outcome()
    {
        m_thread.join();
        if (m_error)
            std::rethrow_exception(m_error);
        return m_outcome;
    }

    /// Closing the queue wakes a maker that waits for room in it.
    void stop()
    {
        m_isCancelled = true;
        m_queue.close();
        if (m_thread.joinable())
            m_thread.join();
    }

private:
    void run(const Layout &layout, const DataSource &rows)
    {
        try {
            m_outcome = paginate(layout, rows, m_inputs,
                                 [this](Page &&page) { return m_queue.put(std::move(page)); });
        } catch (...) {
            m_error = std::current_exception();
        }
        m_queue.end();
    }

    Inputs m_inputs;
    PageQueue &m_queue;
    std::atomic<int> m_done = 0;
    std::atomic<int> m_all = 1;
    std::atomic<bool> m_isCancelled = false;
    Outcome m_outcome;
    std::exception_ptr m_error;
    std::thread m_thread; ///< the last: it uses all of the above
};

} // namespace

Outcome paginateAhead(const Layout &layout, const DataSource &rows, const Inputs &inputs,
                      const PageSink &sink)
{
    PageQueue queue;
    Maker maker(layout, rows, inputs, queue);
    int taken = 0;
    while (!queue.isEmpty()) {
        std::optional<Page> page = queue.take();
        maker.tell(inputs.progress);
        taken += page ? 1 : 0;
        if ((page && !sink(std::move(*page))) || (inputs.isCancelled && inputs.isCancelled())) {
            maker.stop();
            Outcome outcome;
            outcome.pages = taken;
            outcome.stopped = true;
            return outcome;
        }
    }
    return maker.outcome();
}

} // namespace report
