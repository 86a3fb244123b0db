#include "core/ui/SmallScreen.h"

#include <QApplication>
#include <QPointer>
#include <QScrollArea>
#include <QVBoxLayout>

namespace {

/// The scrolled part, which lies on the form's own ground. The controls may not leave their window
/// on the way, or Tab would go through them in another order.
QScrollArea *makeArea(QWidget &form, QVBoxLayout *stack)
{
    auto *area = new QScrollArea(&form);
    auto *content = new QWidget(area);
    content->setLayout(stack);
    area->setWidget(content);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    for (QWidget *ground : {content, area->viewport()})
        ground->setAutoFillBackground(false);
    // What gets the focus from a check or a mnemonic comes into view as well.
    QObject::connect(qApp, &QApplication::focusChanged, area, [area](QWidget *, QWidget *now) {
        if (now && area->widget()->isAncestorOf(now))
            area->ensureWidgetVisible(now);
    });
    return area;
}

} // namespace

void letScroll(QWidget &form, QSize room)
{
    auto *stack = qobject_cast<QVBoxLayout *>(form.layout());
    const QSize needed = form.minimumSizeHint();
    if (!stack || needed.boundedTo(room) == needed)
        return;
    const int last = stack->count() - 1;
    QLayout *buttons = last > 0 ? stack->itemAt(last)->layout() : nullptr;
    if (buttons)
        stack->takeAt(last);
    const QPointer<QWidget> focus = form.focusWidget();
    const QMargins margins = stack->contentsMargins();
    stack->setContentsMargins(0, 0, 0, 0);
    QScrollArea *area = makeArea(form, stack);
    auto *whole = new QVBoxLayout(&form);
    whole->setContentsMargins(margins);
    whole->addWidget(area, 1);
    if (buttons)
        whole->addLayout(buttons);
    if (focus)
        focus->setFocus();
}
