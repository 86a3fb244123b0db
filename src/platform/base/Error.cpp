#include "platform/base/Error.h"

namespace base {

Error::Error(int number, QString description)
    : m_number(number)
    , m_description(std::move(description))
    , m_utf8(m_description.toUtf8())
{}

} // namespace base
