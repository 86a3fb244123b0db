#pragma once

#include <QRect>
#include <QString>

class QWidget;

/// Where forms stand and how large they are, kept for each workstation in twips.

/// 15 twips a pixel, at 96 pixels an inch.
[[nodiscard]] int twipsOf(int pixels);
[[nodiscard]] int pixelsOf(int twips);

/// Gives a form its icon, its stored place and size, and its colours. Without a stored place a form
/// stands beside the main window's side bar; one that keeps its size only is centred. It is kept
/// within the visible desktop.
void ApplyFormLayout(QWidget *form, const QString &formName);
/// The same for a form that is centred.
void ApplyCenteredFormLayout(QWidget *form, const QString &formName);

/// Stores the form's place and size, or its size only, under its name.
void StoreFormLayout(const QWidget &form, const QString &formName, bool withPlace);

/// The parts of the main form that the first place of other forms follows. Registered by the main
/// window; without one forms are centred on the screen.
struct MainFormParts
{
    const QWidget *window = nullptr;
    int headerBarHeight = 0; ///< pixels
    int sideBarWidth = 0;
};
void setMainFormParts(const MainFormParts &parts);

/// The rectangle moved, and where it must be shrunk, so that it lies within the area.
[[nodiscard]] QRect keptWithin(QRect rectangle, const QRect &area);
