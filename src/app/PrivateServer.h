#pragma once

#include <QByteArray>

namespace app {

/// From now on what this process would serve to every network it serves privately: over a socket
/// with this path that only the user can open, or, with an empty path, to this computer's own
/// address. The window is served over VNC without a password, and the library that serves it can't
/// be told an address. Call before anything listens; only for a program without a display.
void servePrivately(const QByteArray &socketPath);

} // namespace app
