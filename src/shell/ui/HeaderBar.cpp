#include "shell/ui/HeaderBar.h"

#include "platform/input/Theme.h"

#include <QPainter>

using namespace Qt::StringLiterals;

namespace shell {

/// Painted and not loaded: it is sharp at any width and enlargement.
class HeaderBar::Picture : public QWidget
{
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        theme::paintHeader(painter, rect());
    }
};

HeaderBar::HeaderBar(QWidget *parent)
    : QWidget(parent)
    , imgQV(new Picture(this))
{
    setObjectName(u"picHeaderBar"_s);
    imgQV->setObjectName(u"imgQV"_s);
    setFixedHeight(theme::headerHeight);
}

QSize HeaderBar::sizeHint() const
{
    return {400, theme::headerHeight};
}

void HeaderBar::resizeEvent(QResizeEvent *)
{
    imgQV->setGeometry(rect());
}

} // namespace shell
