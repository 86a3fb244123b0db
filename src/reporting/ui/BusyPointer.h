#pragma once

#include <QGuiApplication>

/// The hourglass for as long as it lives.
class BusyPointer
{
public:
    BusyPointer() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~BusyPointer() { QGuiApplication::restoreOverrideCursor(); }
    BusyPointer(const BusyPointer &) = delete;
    BusyPointer &operator=(const BusyPointer &) = delete;
};
