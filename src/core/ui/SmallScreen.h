#pragma once

class QSize;
class QWidget;

/// Lets a form's content scroll when the room on the screen, in pixels and without the window's
/// frame, can't hold all that the form needs. Its last row, that of the buttons, stays in view.
/// Nothing happens to a form that fits.
void letScroll(QWidget &form, QSize room);
