#pragma once

#include <functional>

class QWidget;

namespace input {

/// True when the value that the control shows, trimmed, is empty. The value of a text box or list
/// is its text (of a masked box with its mask), that of a date its date.
[[nodiscard]] bool isBlank(const QWidget *control);

/// Runs a rule each time the user leaves the control for another one of its window, by key or
/// click; when the rule answers False the focus comes back and the click does not reach the other
/// control. Going to a control that doesn't cause validation, to another window or to a menu runs
/// no rule, nor does leaving a control that can't be edited.
void validateOnLeave(QWidget *control, std::function<bool()> mayLeave);

/// Runs the rule of the control that has the focus in a window, for a key that presses a button
/// without going there (Alt+S). False when the rule refuses.
[[nodiscard]] bool focusedMayLeave(const QWidget *window);

/// Whether going to this control runs the rule of the one that is left (True unless set). False
/// suits buttons that throw an edit away.
void setCausesValidation(QWidget *control, bool causes);

} // namespace input
