#pragma once

#include <QGuiApplication>

namespace administration {

/// The waiting pointer while a file is worked on.
class WaitPointer
{
public:
    WaitPointer() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitPointer() { QGuiApplication::restoreOverrideCursor(); }
    WaitPointer(const WaitPointer &) = delete;
    WaitPointer &operator=(const WaitPointer &) = delete;
};

} // namespace administration
