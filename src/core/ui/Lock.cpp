#include "core/ui/Lock.h"

#include "platform/grid/GridView.h"
#include "platform/input/Theme.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextEdit>

namespace {

/// The style greys a locked line; a memo has the ground of its palette.
template<class Memo>
void lockMemo(Memo *memo, bool locked)
{
    memo->setReadOnly(locked);
    QPalette colors = memo->palette();
    colors.setColor(QPalette::Base, locked ? theme::panelColor()
                                           : memo->parentWidget()->palette().color(QPalette::Base));
    memo->setPalette(colors);
}

} // namespace

void setLocked(QWidget *control, bool locked)
{
    if (auto *line = qobject_cast<QLineEdit *>(control))
        line->setReadOnly(locked);
    else if (auto *memo = qobject_cast<QPlainTextEdit *>(control))
        lockMemo(memo, locked);
    else if (auto *text = qobject_cast<QTextEdit *>(control))
        lockMemo(text, locked);
    else if (auto *grid = qobject_cast<grid::GridView *>(control))
        grid->setEditing(!locked);
    else
        control->setEnabled(!locked);
}
