#pragma once

#include <QDateTime>
#include <QString>

class QWidget;

namespace input {

/// The stamp of a moment: date, a blank, and the time as hour, colon, minute without leading zeros,
/// and AM or PM: "3/15/2024 9:5 AM".
[[nodiscard]] QString dateStamp(const QDateTime &moment);

/// Inserts the stamp of now at the caret of a text box of one or many lines, and leaves the caret
/// behind it. Nothing happens in a box that can't be edited.
void insertDateStamp(QWidget *noteBox);

/// Lets Ctrl+D insert the stamp in this box, ahead of any shortcut of its window.
void installDateStamp(QWidget *noteBox);

} // namespace input
