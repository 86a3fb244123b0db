#pragma once

#include <QString>

class QApplication;
class QLineEdit;

namespace input {

/// What a text box takes; the values are those that screens pass as numbers.
enum class TypeCheck { String = 0, Int = 1, Double = 2 };
/// The event whose key code is tested. Key presses carry character codes, the other two carry
/// codes of keys.
enum class KeyEvent { KeyUp = 0, KeyDown = 1, KeyPress = 2 };

/// True when the key may pass.
[[nodiscard]] bool Type_Check(int keyCode, TypeCheck type, KeyEvent event);
/// The same with words in any case, "STRING", "INT", "DOUBLE" and "KEYPRESS", "KEYUP", "KEYDOWN",
/// or their numbers as text; False for an unknown word.
[[nodiscard]] bool Type_Check(int keyCode, QStringView type, QStringView event);

/// The code of the capital letter for the codes of a to z, otherwise the code itself.
[[nodiscard]] int ChangeCase(int keyCode);

/// Lets the box take only what Type_Check passes for a key press, and the characters of
/// alsoAllowed; of pasted or dropped text the rest is left out. Double takes one point. Text that
/// the program sets stays as it is.
void restrictTo(QLineEdit *edit, TypeCheck type, const QString &alsoAllowed = {});
/// The same for what passes as either of two types (letters and digits).
void restrictTo(QLineEdit *edit, TypeCheck type, TypeCheck orType, const QString &alsoAllowed = {});

/// Turns letters into capitals as they are typed or pasted (ChangeCase).
void upperCaseAsTyped(QLineEdit *edit);

/// Keeps line breaks out of what is pasted or dropped into the box (base::onOneLine).
void keepOnOneLine(QLineEdit *edit);

/// Keeps characters pressed with Alt for menus and buttons. A letter that no button in sight has
/// would otherwise be typed into the text, or move the list, that has the focus.
void keepAltFromTyping(QApplication &application);

} // namespace input
