#pragma once

#include <functional>

class QWidget;

namespace shell {

/// The standing content of the main window, which knows no screen of another folder. The
/// application fills it at start; without it there is a start page.
struct MainBoard
{
    std::function<QWidget *(QWidget *parent)> make;
    /// Reads the board's rows anew.
    std::function<void()> LoadData;
    /// Whether the tree of reports stands on the board, and what shows or hides it.
    std::function<bool()> reportsVisible;
    std::function<void(bool show)> LoadUnloadReportsNavigator;

    [[nodiscard]] bool isEmpty() const { return !make; }
};

/// The board of this process.
[[nodiscard]] MainBoard &mainBoard();

} // namespace shell
