#pragma once

#include "platform/db/Field.h"

#include <QVariant>

#include <span>
#include <vector>

namespace db::engine {

/// The values for the parameters of a prepared statement. The message has the form that the engine
/// described as long as the values fit it; for others, such as a text in place of a number, it
/// changes to one that the engine converts.
class InputMessage
{
public:
    explicit InputMessage(Ref<Firebird::IMessageMetadata> described);

    [[nodiscard]] std::size_t count() const { return m_described.size(); }
    /// Writes the values, one for each parameter. False when one can't be written without changing
    /// what it is compared with: the statement needs it as a literal then. Raises DbError.
    [[nodiscard]] bool bind(std::span<const QVariant *const> values, const Context &context);

    [[nodiscard]] Firebird::IMessageMetadata *metadata() const { return m_metadata.get(); }
    [[nodiscard]] void *buffer() { return m_buffer.data(); }

private:
    enum class Form { Null, Whole, Real, Date, Text };
    /// A value in the form in which it is written.
    struct Bound
    {
        Form form = Form::Null;
        qint64 whole = 0; ///< of an exact field with its decimals
        double real = 0;
    };

    [[nodiscard]] static Bound bound(const QVariant &value);
    /// changed: set when the message has to be laid out anew.
    [[nodiscard]] bool chooseField(std::size_t parameter, const QVariant &value, bool &changed);
    void rebuild();
    void write(std::size_t parameter, const QVariant &value, const Context &context);

    Ref<Firebird::IMessageMetadata> m_describedMetadata;
    Ref<Firebird::IMessageMetadata> m_metadata;
    std::vector<Field> m_described;
    std::vector<qint64> m_divisors; ///< of the described fields
    std::vector<Field> m_fields;    ///< the form now in use
    std::vector<Bound> m_bound;
    std::vector<unsigned char> m_buffer;
    Status m_status;
};

} // namespace db::engine
