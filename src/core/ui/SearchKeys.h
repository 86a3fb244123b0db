#pragma once

class QLineEdit;

namespace grid {
class GridView;
}

/// Lets Up, Down, Page Up and Page Down in a search box move the rows that it searches, so that a
/// find takes no hand off the keyboard.
void moveRowsFrom(QLineEdit *box, grid::GridView *grid);
