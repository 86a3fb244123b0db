#pragma once

#include <functional>

class QApplication;
class QWidget;

namespace app {

/// Runs the program from its first step to the end of its main window, as its user starts it.
/// shown is told of the main window once it stands. Returns the exit code.
int runProgram(QApplication &application, const std::function<void(QWidget &)> &shown = {});

} // namespace app
