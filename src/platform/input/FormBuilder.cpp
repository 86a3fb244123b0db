#include "platform/input/FormBuilder.h"

#include "platform/input/Theme.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

namespace input {
namespace {

constexpr int formMargin = 12;
constexpr int groupMargin = 10;
constexpr int rowSpacing = 6;
constexpr int columnSpacing = 8;
constexpr int betweenColumns = 16;
constexpr int buttonWidth = 84;
QHBoxLayout *makeLine()
{
    auto *line = new QHBoxLayout;
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(columnSpacing);
    return line;
}

QString withoutMnemonic(const QString &caption)
{
    QString result;
    for (int i = 0; i < caption.size(); ++i) {
        if (caption[i] == u'&' && ++i == caption.size())
            break;
        result += caption[i];
    }
    return result;
}

} // namespace

QString plainCaption(QString caption)
{
    caption = caption.trimmed();
    while (caption.endsWith(u':'))
        caption.chop(1);
    return withoutMnemonic(caption).trimmed();
}

FormBuilder::FormBuilder(QWidget *form)
    : m_form(form)
{
    auto *stack = new QVBoxLayout(form);
    stack->setContentsMargins(formMargin, formMargin, formMargin, formMargin);
    beginBlock(form, stack);
}

QLabel *FormBuilder::note(const QString &text, const QString &name)
{
    auto *label = new QLabel(text, block().owner);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    block().rows = nullptr;
    block().stack->addWidget(label);
    return label;
}

void FormBuilder::widget(QWidget *control, bool stretch)
{
    m_order += control;
    if (m_line) {
        m_line->addWidget(control, stretch ? 1 : 0);
        m_lineIsWide = m_lineIsWide || stretch;
        return;
    }
    block().rows = nullptr;
    block().stack->addWidget(control, stretch ? 1 : 0);
    block().stretches = block().stretches || stretch;
}

void FormBuilder::stretch()
{
    block().rows = nullptr;
    block().stack->addStretch(1);
    block().stretches = true;
}

void FormBuilder::beginBlock(QWidget *owner, QVBoxLayout *stack, QHBoxLayout *columns)
{
    stack->setSpacing(rowSpacing);
    Block next;
    next.owner = owner;
    next.stack = stack;
    next.columns = columns;
    m_blocks += next;
}

QGroupBox *FormBuilder::beginGroup(const QString &title, const QString &name)
{
    auto *group = new QGroupBox(title, block().owner);
    group->setObjectName(name);
    auto *stack = new QVBoxLayout(group);
    stack->setContentsMargins(groupMargin, groupMargin - 2, groupMargin, groupMargin);
    block().rows = nullptr;
    block().stack->addWidget(group);
    beginBlock(group, stack);
    return group;
}

void FormBuilder::endGroup()
{
    const Block group = m_blocks.takeLast();
    if (!group.stretches) {
        // Height that is left goes below the group, not into it.
        group.owner->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
        return;
    }
    block().stretches = true;
    block().stack->setStretchFactor(group.owner, 1);
}

void FormBuilder::beginColumns()
{
    QHBoxLayout *columns = makeLine();
    columns->setSpacing(betweenColumns);
    block().rows = nullptr;
    block().stack->addLayout(columns);
    auto *stack = new QVBoxLayout;
    columns->addLayout(stack, 1);
    beginBlock(block().owner, stack, columns);
}

void FormBuilder::closeColumn()
{
    // What stands in a column stays at its top when nothing in it takes the height.
    if (!block().stretches)
        block().stack->addStretch();
}

void FormBuilder::nextColumn(int widthFactor)
{
    closeColumn();
    const Block former = m_blocks.takeLast();
    auto *stack = new QVBoxLayout;
    former.columns->addLayout(stack, widthFactor);
    beginBlock(former.owner, stack, former.columns);
    block().earlierColumnStretches = former.stretches || former.earlierColumnStretches;
}

void FormBuilder::endColumns()
{
    closeColumn();
    const Block former = m_blocks.takeLast();
    if (!former.stretches && !former.earlierColumnStretches)
        return;
    block().stretches = true;
    block().stack->setStretchFactor(former.columns, 1);
}

void FormBuilder::beginRow(const QString &label)
{
    m_line = nullptr;
    QHBoxLayout *line = makeLine();
    QGridLayout *grid = rows();
    const int row = grid->rowCount();
    if (!label.isEmpty())
        grid->addWidget(makeLabel(label, nullptr), row, 0);
    grid->addLayout(line, row, 1);
    m_line = line;
    m_lineIsWide = false;
}

void FormBuilder::endRow()
{
    if (!m_lineIsWide)
        m_line->addStretch();
    m_line = nullptr;
}

QPushButton *FormBuilder::inlineButton(const QString &name, const QString &caption,
                                       const QIcon &icon)
{
    QPushButton *made = makeButton(name, caption, icon);
    m_order += made;
    place(nullptr, made, Fill::Narrow);
    return made;
}

QPushButton *FormBuilder::makeButton(const QString &name, const QString &caption, const QIcon &icon)
{
    auto *made = new QPushButton(icon, caption, block().owner);
    made->setObjectName(name);
    made->setAccessibleName(plainCaption(caption));
    // Enter in a field must not press whatever button comes first.
    made->setAutoDefault(false);
    made->setMinimumWidth(buttonWidth);
    return made;
}

QPushButton *FormBuilder::button(const QString &name, const QString &caption, const QIcon &icon)
{
    QPushButton *made = makeButton(name, caption, icon);
    m_rightButtons += made;
    return made;
}

QPushButton *FormBuilder::leftButton(const QString &name, const QString &caption, const QIcon &icon)
{
    QPushButton *made = makeButton(name, caption, icon);
    m_leftButtons += made;
    return made;
}

QToolButton *FormBuilder::toolButton(const QString &name, const QString &tip, const QIcon &icon)
{
    auto *made = new QToolButton(m_form);
    made->setObjectName(name);
    made->setAccessibleName(plainCaption(tip));
    made->setToolTip(plainCaption(tip));
    made->setIcon(icon);
    made->setIconSize({18, 18});
    made->setFocusPolicy(Qt::StrongFocus);
    m_leftButtons += made;
    return made;
}

FormBuilder::Navigation FormBuilder::navigation(const QString &first, const QString &previous,
                                                const QString &next, const QString &last)
{
    const auto make = [this](const QString &name, const QString &tip, const QString &picture) {
        return toolButton(name, tip, theme::icon(picture));
    };
    Navigation made{};
    made.first = make(first, QStringLiteral("First record"), QStringLiteral("first"));
    made.previous = make(previous, QStringLiteral("Previous record"), QStringLiteral("previous"));
    made.next = make(next, QStringLiteral("Next record"), QStringLiteral("next"));
    made.last = make(last, QStringLiteral("Last record"), QStringLiteral("last"));
    return made;
}

void FormBuilder::addButtonRow()
{
    if (m_leftButtons.isEmpty() && m_rightButtons.isEmpty())
        return;
    QHBoxLayout *line = makeLine();
    line->setContentsMargins(0, rowSpacing, 0, 0);
    for (QWidget *left : std::as_const(m_leftButtons))
        line->addWidget(left);
    line->addStretch();
    for (QWidget *right : std::as_const(m_rightButtons))
        line->addWidget(right);
    block().stack->addLayout(line);
    m_order += m_leftButtons;
    m_order += m_rightButtons;
}

void FormBuilder::finish()
{
    if (!block().stretches)
        block().stack->addStretch(1);
    addButtonRow();
    for (int i = 1; i < m_order.size(); ++i)
        QWidget::setTabOrder(m_order[i - 1], m_order[i]);
    theme::ApplyFormColors(m_form);
}

QGridLayout *FormBuilder::rows()
{
    if (!block().rows) {
        auto *grid = new QGridLayout;
        grid->setHorizontalSpacing(columnSpacing);
        grid->setVerticalSpacing(rowSpacing);
        grid->setColumnStretch(1, 1);
        block().stack->addLayout(grid);
        block().rows = grid;
    }
    return block().rows;
}

void FormBuilder::prepare(QWidget *control, const QString &name, const QString &caption)
{
    control->setObjectName(name);
    control->setAccessibleName(plainCaption(caption));
    m_order += control;
}

QLabel *FormBuilder::makeLabel(const QString &text, QWidget *buddy)
{
    // An underlined letter that leads nowhere must not be shown.
    const bool reachable = buddy && buddy->focusPolicy() & Qt::TabFocus;
    auto *label = new QLabel(reachable ? text : withoutMnemonic(text), block().owner);
    label->setTextFormat(Qt::PlainText);
    if (reachable)
        label->setBuddy(buddy);
    return label;
}

void FormBuilder::addField(const QString &name, const QString &label, QWidget *control, Fill fill)
{
    prepare(control, name, label);
    place(label.isEmpty() ? nullptr : makeLabel(label, control), control, fill);
}

void FormBuilder::place(QLabel *label, QWidget *control, Fill fill)
{
    m_lastLabel = label;
    m_lastControl = control;
    if (m_line) {
        // The first label of a line stands in the column of labels when that is free.
        QGridLayout *grid = rows();
        const int row = grid->rowCount() - 1;
        if (label && m_line->count() == 0 && !grid->itemAtPosition(row, 0))
            grid->addWidget(label, row, 0);
        else if (label)
            m_line->addWidget(label);
        m_line->addWidget(control, fill == Fill::Narrow ? 0 : 1);
        m_lineIsWide = m_lineIsWide || fill != Fill::Narrow;
        m_lastCell = m_line;
        return;
    }
    QGridLayout *grid = rows();
    const int row = grid->rowCount();
    if (label)
        grid->addWidget(label, row, 0, fill == Fill::Tall ? Qt::AlignTop : Qt::AlignVCenter);
    QHBoxLayout *cell = makeLine();
    cell->setSpacing(columnSpacing / 2);
    cell->addWidget(control, fill == Fill::Narrow ? 0 : 1);
    if (fill == Fill::Narrow)
        cell->addStretch();
    grid->addLayout(cell, row, 1);
    m_lastCell = cell;
    if (fill == Fill::Tall) {
        grid->setRowStretch(row, 1);
        block().stack->setStretchFactor(grid, 1);
        block().stretches = true;
    }
}

} // namespace input
