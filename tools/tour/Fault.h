#pragma once

#include <QString>
#include <stdexcept>

namespace tour {

/// What is seen is not what must be.
class Fault : public std::runtime_error
{
public:
    explicit Fault(const QString &text)
        : std::runtime_error(text.toStdString())
    {}
};

/// Raises a Fault unless the condition holds.
inline void require(bool condition, const QString &otherwise)
{
    if (!condition)
        throw Fault(otherwise);
}

} // namespace tour
