#pragma once

#include <firebird/Interface.h>
#include <ibase.h>

#include <QByteArray>
#include <QString>
#include <utility>

/// The few things over the engine's own interface that the files of this folder share. Never
/// included from outside it.
namespace db::engine {

/// The status that every call of the engine takes; a call that fails raises DbError. Costs nothing
/// while nothing fails.
class Status final : public Firebird::BaseStatusWrapper<Status>
{
public:
    Status();
    ~Status() override;
    Status(const Status &) = delete;
    Status &operator=(const Status &) = delete;

    /// Called by the engine's interface after every call.
    static void checkException(Status *status)
    {
        if (status->dirty && (status->getState() & Firebird::IStatus::STATE_ERRORS) != 0)
            status->raise();
    }

private:
    [[noreturn]] void raise();
};

/// Holds one count of an object that the engine counts.
template<class T>
class Ref
{
public:
    Ref() = default;
    explicit Ref(T *object)
        : m_object(object)
    {}
    Ref(Ref &&other) noexcept
        : m_object(std::exchange(other.m_object, nullptr))
    {}
    Ref &operator=(Ref &&other) noexcept
    {
        reset(std::exchange(other.m_object, nullptr));
        return *this;
    }
    ~Ref() { reset(); }

    /// Gives up the count that is held, and takes over that of another object.
    void reset(T *object = nullptr)
    {
        if (T *former = std::exchange(m_object, object))
            former->release();
    }
    /// For calls that use up the count themselves, such as commit or close.
    T *take() { return std::exchange(m_object, nullptr); }
    /// Without passing the count on; null when it holds nothing.
    [[nodiscard]] T *get() const { return m_object; }
    T *operator->() const { return m_object; }
    explicit operator bool() const { return m_object != nullptr; }

private:
    T *m_object = nullptr;
};

/// The engine's root object; readies the engine's folder first.
Firebird::IMaster *master();
/// What attaches, creates and serves. From the first call on, the engine is shut down when the
/// process ends by itself: its threads must not run on while its code is unloaded under them.
Firebird::IProvider *provider();

/// A block of parameters for attaching, transactions or services.
class ParameterBlock
{
public:
    enum class Kind { Attach, Transaction, ServiceAttach, ServiceStart };
    explicit ParameterBlock(Kind kind);
    ~ParameterBlock();
    ParameterBlock(const ParameterBlock &) = delete;
    ParameterBlock &operator=(const ParameterBlock &) = delete;

    /// An entry of the block: a bare tag, or one with a number or a text (sent as UTF-8). Raise
    /// DbError.
    void tag(unsigned char tag);
    void number(unsigned char tag, int value);
    void text(unsigned char tag, const QString &value);
    /// The bytes of all entries so far, which belong to this object.
    [[nodiscard]] unsigned length();
    [[nodiscard]] const unsigned char *data();

private:
    Status m_status;
    Firebird::IXpbBuilder *m_builder;
};

/// Text for the engine.
inline QByteArray utf8(const QString &text)
{
    return text.toUtf8();
}

} // namespace db::engine
