#pragma once

#include <QDialog>

class QTabWidget;

namespace gallery {

/// Every control of the house once, for looking at and for tests that drive real keys and clicks.
/// Each is named as in a screen; messages of the controls go to the line at the foot (lblEcho).
class GalleryWindow final : public QDialog
{
    Q_OBJECT

public:
    explicit GalleryWindow(QWidget *parent = nullptr);

    /// Brings a page ("Inputs", "Grid", "Messages", "Pictures") to the front.
    void showPage(const QString &title);

private:
    [[nodiscard]] QWidget *makeInputs();
    [[nodiscard]] QWidget *makeGrid();
    [[nodiscard]] QWidget *makeMessages();
    [[nodiscard]] QWidget *makePictures();
    void echo(const QString &text);

    QTabWidget *m_pages;
};

} // namespace gallery
