#pragma once

#include <QLockFile>
#include <QString>

namespace sys {

/// Tells whether this program runs already, for this user and application folder, on this
/// computer. The first one made holds the place until it is destroyed or its process ends.
class SingleInstance
{
public:
    explicit SingleInstance(const QString &applicationFolder);

    /// False when another one was there first.
    [[nodiscard]] bool isFirst() const { return m_first; }

private:
    QLockFile m_lock;
    bool m_first;
};

} // namespace sys
