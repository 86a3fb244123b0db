#include "core/ui/Lock.h"

#include "platform/grid/GridView.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextEdit>

void setLocked(QWidget *control, bool locked)
{
    if (auto *line = qobject_cast<QLineEdit *>(control))
        line->setReadOnly(locked);
    else if (auto *memo = qobject_cast<QPlainTextEdit *>(control))
        memo->setReadOnly(locked);
    else if (auto *text = qobject_cast<QTextEdit *>(control))
        text->setReadOnly(locked);
    else if (auto *grid = qobject_cast<grid::GridView *>(control))
        grid->setEditing(!locked);
    else
        control->setEnabled(!locked);
}
