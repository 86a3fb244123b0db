#pragma once

#include <QWidget>

namespace shell {

/// The band at the head of the main window, filled by the header picture.
class HeaderBar : public QWidget
{
public:
    explicit HeaderBar(QWidget *parent = nullptr);
    [[nodiscard]] QSize sizeHint() const override;

private:
    class Picture;
    Picture *imgQV;

protected:
    void resizeEvent(QResizeEvent *event) override;
};

} // namespace shell
