#pragma once

#include "platform/input/Mask.h"

#include <QLineEdit>

namespace input {

/// A line for text of a fixed pattern (see Mask). text() holds the fixed characters and blanks for
/// empty places, and so is never empty. A text set by the program that can't be brought into the
/// pattern is shown as it stands and edited freely until it fits or is emptied, so that stored
/// values survive being looked at.
class MaskedInput : public QLineEdit
{
    Q_OBJECT

public:
    explicit MaskedInput(const QString &pattern, QWidget *parent = nullptr);

    [[nodiscard]] const Mask &mask() const { return m_mask; }
    /// The text that stands for no value, as "(   )    -    ".
    [[nodiscard]] const QString &emptyText() const { return m_mask.empty(); }
    [[nodiscard]] bool isEmptyMask() const { return text() == emptyText(); }
    /// Blanks all places.
    void clearPlaces() { setText(emptyText()); }

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void changeEvent(QEvent *event) override;
    /// Shows a text of the program's. A box that the user has just entered stays selected, ready to
    /// be typed over.
    void showText(const QString &newText);
    /// Applies an edit of the user's: keeps undo, and signals textEdited.
    void applyEdit(const QString &newText, int caret);
    /// Types characters one after another at the caret, over the selection.
    void typeText(const QString &characters);
    /// What typing one character makes of a text. Derived classes complete parts here.
    [[nodiscard]] virtual std::optional<Mask::Edit> typedInto(const QString &current, int caret,
                                                              QChar character) const;

    /// A text that the program sets, brought into the pattern; nothing when it can't be.
    [[nodiscard]] virtual std::optional<QString> broughtIn(const QString &text) const;

private:
    void fitProgramText();
    void widenBlanks();
    bool eraseKey(QKeyEvent *event);

    Mask m_mask;
};

} // namespace input
