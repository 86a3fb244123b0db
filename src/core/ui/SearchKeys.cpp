#include "core/ui/SearchKeys.h"

#include "platform/grid/GridView.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>

namespace {

class RowKeys final : public QObject
{
public:
    RowKeys(QLineEdit *box, grid::GridView *grid)
        : QObject(box)
        , m_grid(grid)
    {
        box->installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::KeyPress) {
            switch (static_cast<QKeyEvent *>(event)->key()) {
            case Qt::Key_Up:
            case Qt::Key_Down:
            case Qt::Key_PageUp:
            case Qt::Key_PageDown:
                QCoreApplication::sendEvent(m_grid, event);
                return true;
            default:
                break;
            }
        }
        return QObject::eventFilter(watched, event);
    }

private:
    grid::GridView *m_grid;
};

} // namespace

void moveRowsFrom(QLineEdit *box, grid::GridView *grid)
{
    new RowKeys(box, grid);
}
