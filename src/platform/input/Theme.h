#pragma once

#include <QColor>
#include <QFont>
#include <QIcon>
#include <QPixmap>

class QApplication;
class QLabel;
class QPainter;
class QWidget;

/// Colours, fonts and pictures that all screens share.
namespace theme {

inline constexpr QRgb mainRgb = qRgb(36, 71, 109);

[[nodiscard]] inline QColor mainColor()
{
    return QColor::fromRgb(mainRgb);
}
[[nodiscard]] inline QColor formColor()
{
    return {241, 239, 226};
}
[[nodiscard]] inline QColor panelColor()
{
    return {231, 232, 231};
}
[[nodiscard]] inline QColor selectionColor()
{
    return {49, 101, 255};
}
[[nodiscard]] inline QColor selectionTextColor()
{
    return {255, 255, 255};
}
/// Locked columns and alternate rows of grids.
[[nodiscard]] inline QColor lockedColor()
{
    return {240, 240, 240};
}
/// The second colour of the pictures.
[[nodiscard]] inline QColor accentColor()
{
    return {200, 105, 30};
}
/// Lines around boxes, groups and buttons.
[[nodiscard]] inline QColor lineColor()
{
    return {150, 158, 164};
}
/// Text that is no caption: what the user typed, list items.
[[nodiscard]] inline QColor textColor()
{
    return {24, 28, 34};
}
/// Text and pictures of what can't be used now.
[[nodiscard]] inline QColor disabledColor()
{
    return {128, 132, 136};
}

/// "Arial", or the installed face of its measures.
[[nodiscard]] QFont font(int points, bool bold = false);
[[nodiscard]] inline QFont labelFont()
{
    return font(9, true);
}
[[nodiscard]] inline QFont buttonFont()
{
    return font(8, true);
}
[[nodiscard]] inline QFont textFont()
{
    return font(8);
}
[[nodiscard]] inline QFont listFont()
{
    return font(9);
}

/// Gives a label a font and colour of its own, which ApplyFormColors then leaves as they are.
void setOwnLook(QLabel *label, const QFont &font, const QColor &color = mainColor());

/// Gives the program its style, palette, font and icon. Once, before the first window.
void install(QApplication &application);

/// Sets fonts and colours of all controls below the form by their class, and the form's own
/// background.
void ApplyFormColors(QWidget *form);

/// For which ground a picture is drawn.
enum class Tone { OnLight, OnDark };
/// A picture of the family by name, "add", "save", ..., sharp at every size and scale, greyed when
/// disabled; an empty icon for an unknown name.
[[nodiscard]] QIcon icon(const QString &name, Tone tone = Tone::OnLight);
/// The names of the family.
[[nodiscard]] QStringList iconNames();
/// The program's own icon in the usual sizes.
[[nodiscard]] QIcon programIcon();
/// The header picture of the main window, drawn to fill the rectangle: the mark and the product's
/// name at the left, the ground stretching to any width.
void paintHeader(QPainter &painter, const QRect &rectangle);
/// The height in pixels that suits the header picture.
inline constexpr int headerHeight = 64;

} // namespace theme
