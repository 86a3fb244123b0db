#pragma once

namespace app {

/// From now on no socket of this process listens on other addresses than this computer's own. The
/// window is served over VNC without a password, and the library that serves it can't be told an
/// address. Call before anything listens; only for a program without a display.
void listenOnLoopbackOnly();

} // namespace app
