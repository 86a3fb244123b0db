#pragma once

#include <coroutine>
#include <exception>
#include <utility>

namespace tour {

/// A piece of the tour, written as one sequence though the windows work in between: at each
/// co_await it gives way to whichever event loop is running, that of a dialog included. So a
/// question is answered on the line below the click that brought it. It begins when it is awaited;
/// its exception goes to whoever awaits it, and never through an event loop.
class [[nodiscard]] Task
{
public:
    struct promise_type
    {
        struct GoOn
        {
            [[nodiscard]] bool await_ready() const noexcept { return false; }
            std::coroutine_handle<>
            await_suspend(std::coroutine_handle<promise_type> ended) const noexcept
            {
                return ended.promise().awaiting;
            }
            void await_resume() const noexcept {}
        };
        Task get_return_object()
        {
            return Task(std::coroutine_handle<promise_type>::from_promise(*this));
        }
        std::suspend_always initial_suspend() noexcept { return {}; }
        GoOn final_suspend() noexcept { return {}; }
        void return_void() {}
        void unhandled_exception() { failure = std::current_exception(); }

        std::coroutine_handle<> awaiting = std::noop_coroutine();
        std::exception_ptr failure;
    };

    Task(Task &&other) noexcept
        : m_piece(std::exchange(other.m_piece, {}))
    {}
    Task &operator=(Task &&) = delete;
    Task(const Task &) = delete;
    ~Task()
    {
        if (m_piece)
            m_piece.destroy();
    }

    [[nodiscard]] bool await_ready() const { return false; }
    std::coroutine_handle<> await_suspend(std::coroutine_handle<> awaiting)
    {
        m_piece.promise().awaiting = awaiting;
        return m_piece;
    }
    void await_resume() const { rethrow(); }

    /// Begins a piece that nobody awaits.
    void start() { m_piece.resume(); }
    [[nodiscard]] bool isDone() const { return m_piece.done(); }
    /// Raises what ended it before its time.
    void rethrow() const
    {
        if (m_piece.promise().failure)
            std::rethrow_exception(m_piece.promise().failure);
    }

private:
    explicit Task(std::coroutine_handle<promise_type> piece)
        : m_piece(piece)
    {}
    std::coroutine_handle<promise_type> m_piece;
};

} // namespace tour
