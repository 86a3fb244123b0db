#include "platform/report/designer/PropertyPanel.h"

#include "platform/input/Theme.h"
#include "platform/report/designer/PropertyEditors.h"
#include "platform/report/designer/Remarks.h"
#include "platform/report/designer/Structure.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QToolButton>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>

namespace report {
namespace {

using namespace Qt::StringLiterals;

constexpr int NumberRole = Qt::UserRole;
const QColor FaultColor(176, 0, 0);

bool isExpression(const Property &property)
{
    return property.kind == PropertyKind::Expression || property.kind == PropertyKind::Words;
}

/// True when both lists have the same rows, so that only values need to be shown anew.
bool haveSameRows(const QList<Property> &a, const QList<Property> &b)
{
    return std::equal(
        a.cbegin(), a.cend(), b.cbegin(), b.cend(), [](const Property &x, const Property &y) {
            return x.section == y.section && x.caption == y.caption && x.kind == y.kind;
        });
}

} // namespace

PropertyPanel::PropertyPanel(DesignDocument &document, QWidget *parent)
    : QWidget(parent)
    , m_document(document)
    , m_headline(new QLabel(this))
    , m_tree(new QTreeWidget(this))
    , m_ask(new QToolButton(this))
    , m_fault(new QLabel(this))
{
    m_headline->setObjectName(u"attributesOf"_s);
    m_headline->setFont(theme::labelFont());
    m_tree->setObjectName(u"attributes"_s);
    m_tree->setAccessibleName(u"Attributes"_s);
    m_tree->setColumnCount(2);
    m_tree->setHeaderHidden(true);
    m_tree->setIndentation(10);
    m_tree->setItemDelegate(new PropertyDelegate(*this));
    // A click edits too, by itemClicked below: one that selects as well as one on the current row.
    m_tree->setEditTriggers(QAbstractItemView::EditKeyPressed | QAbstractItemView::AnyKeyPressed);
    m_tree->header()->setStretchLastSection(true);
    m_tree->header()->setMinimumSectionSize(40);
    m_tree->header()->resizeSection(0, 118);
    m_tree->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_tree->installEventFilter(this);
    m_ask->setObjectName(u"askExpression"_s);
    m_ask->setIcon(theme::icon(u"edit"_s));
    m_ask->setAutoRaise(true);
    m_ask->setToolTip(u"Edit this expression in a window (Ctrl+Enter)"_s);
    m_ask->setAccessibleName(u"Edit this expression in a window"_s);
    m_fault->setObjectName(u"fault"_s);
    m_fault->setWordWrap(true);
    m_fault->setTextFormat(Qt::PlainText);
    m_fault->setMinimumHeight(34);
    m_fault->setAlignment(Qt::AlignLeft | Qt::AlignTop);

    auto *rows = new QVBoxLayout(this);
    rows->setContentsMargins(4, 4, 4, 4);
    rows->setSpacing(3);
    rows->addWidget(m_headline);
    rows->addWidget(m_tree, 1);
    auto *foot = new QHBoxLayout;
    foot->addWidget(m_fault, 1);
    foot->addWidget(m_ask, 0, Qt::AlignTop);
    rows->addLayout(foot);
    setFocusProxy(m_tree);

    connect(m_tree, &QTreeWidget::currentItemChanged, this, &PropertyPanel::showFault);
    connect(m_tree, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem *item) {
        const Property *property = current();
        if (property && property->kind == PropertyKind::Action)
            activate(item);
        else if (property && property->kind != PropertyKind::Flag)
            m_tree->editItem(item, 1);
    });
    connect(m_tree, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem *item, int column) {
        if (m_isShowing || column != 1)
            return;
        const int number = item->data(0, NumberRole).toInt();
        if (m_properties[number].kind == PropertyKind::Flag)
            apply(m_properties[number], item->checkState(1) == Qt::Checked);
    });
    connect(m_ask, &QToolButton::clicked, this, &PropertyPanel::askExpression);
    connect(&document, &DesignDocument::layoutChanged, this, &PropertyPanel::refresh);
    connect(&document, &DesignDocument::selectionChanged, this, &PropertyPanel::refresh);
    refresh();
}

void PropertyPanel::setFields(const QList<DesignField> &fields)
{
    m_fields = fields;
    refresh();
}

void PropertyPanel::setExpressionAsker(ExpressionAsker asker)
{
    m_askExpression = std::move(asker);
    showFault();
}

QString PropertyPanel::headline() const
{
    const Selection &selection = m_document.selection();
    switch (selection.part) {
    case Selection::Part::Report:
        return u"The report"_s;
    case Selection::Part::Band:
        return bandName(m_document.layout().bands[selection.index]);
    case Selection::Part::Objects:
        return selection.objects.size() > 1 ? u"%1 objects"_s.arg(selection.objects.size())
                                            : objectTitle(m_document.object(selection.lead));
    case Selection::Part::Group:
        return u"Group %1"_s.arg(m_document.layout().groups[selection.index].name);
    case Selection::Part::Sort:
        return u"Sort order"_s;
    case Selection::Part::Query:
        return u"Query"_s;
    case Selection::Part::Formula:
        return u"Formula %1"_s.arg(m_document.layout().formulas[selection.index].name);
    case Selection::Part::Parameter:
        return u"Parameter %1"_s.arg(m_document.layout().parameters[selection.index].name);
    case Selection::Part::Rows:
        return u"Rows %1"_s.arg(m_document.layout().rowSets[selection.index].name);
    case Selection::Part::Style:
        return u"Style %1"_s.arg(m_document.layout().styles[selection.index].name);
    }
    return {};
}

void PropertyPanel::refresh()
{
    QList<Property> properties = propertiesOf(m_document.layout(), m_document.selection());
    const bool isSame = haveSameRows(properties, m_properties);
    m_properties = std::move(properties);
    m_isShowing = true;
    m_headline->setText(
        m_headline->fontMetrics().elidedText(headline(), Qt::ElideRight, qMax(180, width() - 12)));
    // A tree that is made anew loses its place and an editor that is open in it.
    if (!isSame)
        rebuild();
    for (QTreeWidgetItemIterator item(m_tree); *item; ++item)
        if ((*item)->parent())
            showValue(*item, m_properties[(*item)->data(0, NumberRole).toInt()]);
    m_isShowing = false;
    showFault();
}

/// The row that was current stays so, when what is selected now has it too.
void PropertyPanel::rebuild()
{
    const QTreeWidgetItem *former = m_tree->currentItem();
    const QString caption = former ? former->text(0) : QString();
    m_tree->clear();
    QTreeWidgetItem *section = nullptr;
    QTreeWidgetItem *again = nullptr;
    for (int number = 0; number < m_properties.size(); ++number) {
        const Property &property = m_properties[number];
        if (!section || section->text(0) != property.section) {
            section = new QTreeWidgetItem(m_tree, {property.section});
            section->setFlags(Qt::ItemIsEnabled);
            section->setFirstColumnSpanned(true);
            section->setFont(0, theme::labelFont());
            section->setForeground(0, theme::mainColor());
            section->setBackground(0, theme::panelColor());
            section->setExpanded(true);
        }
        auto *item = new QTreeWidgetItem(section, {property.caption});
        item->setData(0, NumberRole, number);
        item->setFirstColumnSpanned(property.kind == PropertyKind::Action);
        if (property.caption == caption && !again)
            again = item;
    }
    m_tree->setCurrentItem(again, again ? 1 : 0);
}

void PropertyPanel::showValue(QTreeWidgetItem *item, const Property &property)
{
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (property.kind == PropertyKind::Flag) {
        flags |= Qt::ItemIsUserCheckable;
        item->setCheckState(1, property.isMixed          ? Qt::PartiallyChecked
                               : property.value.toBool() ? Qt::Checked
                                                         : Qt::Unchecked);
    } else if (property.kind == PropertyKind::Action) {
        item->setIcon(0, theme::icon(property.caption.startsWith(u"Add") ? u"plus"_s : u"minus"_s));
    } else {
        flags |= Qt::ItemIsEditable;
    }
    item->setFlags(flags);
    item->setText(1, shownValue(property).replace(u'\n', u' '));
    item->setToolTip(1, property.isMixed ? QString() : shownValue(property));
    item->setIcon(1, property.kind == PropertyKind::Color && !property.isMixed
                         ? colorIcon(property.value.value<QColor>())
                         : QIcon());
    const bool isWrong = isExpression(property) && !property.isMixed &&
                         !faultOf(property.value.toString(), property.kind == PropertyKind::Words,
                                  m_document.layout(), m_document.selection(), m_fields)
                              .isEmpty();
    item->setForeground(1, isWrong            ? FaultColor
                           : property.isMixed ? theme::disabledColor()
                                              : theme::textColor());
}

const Property *PropertyPanel::propertyAt(const QModelIndex &index) const
{
    const QVariant number = index.sibling(index.row(), 0).data(NumberRole);
    return number.isValid() && number.toInt() < m_properties.size() ? &m_properties[number.toInt()]
                                                                    : nullptr;
}

const Property *PropertyPanel::current() const
{
    return propertyAt(m_tree->currentIndex());
}

void PropertyPanel::give(const QModelIndex &index, const QVariant &value)
{
    if (const Property *property = propertyAt(index))
        apply(*property, value);
}

void PropertyPanel::apply(const Property &property, const QVariant &value)
{
    // The list is made anew while the change is told.
    const auto set = property.set;
    const QString name = property.kind == PropertyKind::Action
                             ? property.caption
                             : u"%1 of %2"_s.arg(property.caption, headline());
    m_document.endSeries();
    m_document.change(name,
                      [&](Layout &layout, Selection &selection) { set(layout, selection, value); });
}

void PropertyPanel::activate(QTreeWidgetItem *item)
{
    const Property &property = m_properties[item->data(0, NumberRole).toInt()];
    if (property.kind == PropertyKind::Action)
        apply(property, {});
}

void PropertyPanel::showFault()
{
    const Property *property = current();
    const bool isAskable = property && isExpression(*property);
    m_ask->setVisible(isAskable && m_askExpression);
    m_fault->clear();
    if (isAskable && !property->isMixed)
        checkTyped(*property, property->value.toString());
}

void PropertyPanel::checkTyped(const Property &property, const QString &text)
{
    const QString fault = isExpression(property)
                              ? faultOf(text, property.kind == PropertyKind::Words,
                                        m_document.layout(), m_document.selection(), m_fields)
                              : QString();
    QPalette colors = m_fault->palette();
    colors.setColor(QPalette::WindowText, FaultColor);
    m_fault->setPalette(colors);
    m_fault->setText(fault);
}

void PropertyPanel::askExpression()
{
    finishEditing();
    const Property *property = current();
    if (!property || !isExpression(*property) || !m_askExpression)
        return;
    ExpressionQuestion question;
    question.caption = property->caption;
    // Of several texts none is offered: it would be taken for that of all.
    question.text = property->isMixed ? QString() : property->value.toString();
    question.fields = m_fields;
    question.isWords = property->kind == PropertyKind::Words;
    const Layout &layout = m_document.layout();
    for (const Formula &formula : layout.formulas)
        question.formulas.append(formula.name);
    for (const Parameter &parameter : layout.parameters)
        question.parameters.append(parameter.name);
    for (const Group &group : layout.groups)
        question.groups.append(group.name);
    // A copy, since the window may outlive the list that it was asked from.
    const Property asked = *property;
    if (const auto answer = m_askExpression(question, this))
        apply(asked, *answer);
}

QString PropertyPanel::fromFile()
{
    return u"From a file..."_s;
}

void PropertyPanel::fillPictures(QComboBox *box) const
{
    box->setEditable(true);
    for (const StoredPicture &picture : m_document.layout().pictures)
        box->addItem(picture.name);
    if (!m_choosePicture)
        return;
    box->addItem(fromFile());
    const int last = box->count() - 1;
    QObject::connect(box, &QComboBox::activated, box,
                     [box, last, choose = m_choosePicture](int at) {
                         // The box goes with the choice; the file is asked for when it has gone.
                         if (at == last)
                             QMetaObject::invokeMethod(box->window(), choose, Qt::QueuedConnection);
                     });
}

void PropertyPanel::fillStyles(QComboBox *box) const
{
    box->addItem(u"(none)"_s, QString());
    for (const NamedStyle &style : m_document.layout().styles)
        box->addItem(style.name, style.name);
}

void PropertyPanel::edit(const QString &caption)
{
    for (QTreeWidgetItemIterator item(m_tree); *item; ++item)
        if ((*item)->parent() && (*item)->text(0) == caption) {
            m_tree->setCurrentItem(*item, 1);
            m_tree->setFocus();
            m_tree->editItem(*item, 1);
            return;
        }
}

void PropertyPanel::finishEditing()
{
    const QList<QWidget *> editors = m_tree->findChildren<QWidget *>(u"attribute"_s);
    // An editor gives what it has when it loses the focus.
    if (std::any_of(editors.cbegin(), editors.cend(),
                    [](const QWidget *editor) { return editor->isVisible(); }))
        m_tree->setFocus();
}

bool PropertyPanel::eventFilter(QObject *watched, QEvent *event)
{
    // Keys that an editor has had come by here too.
    if (watched != m_tree || event->type() != QEvent::KeyPress || !m_tree->hasFocus())
        return QWidget::eventFilter(watched, event);
    const auto *key = static_cast<QKeyEvent *>(event);
    const bool isReturn = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
    if (isReturn && key->modifiers() & Qt::ControlModifier) {
        askExpression();
        return true;
    }
    QTreeWidgetItem *item = m_tree->currentItem();
    if (!item || !item->parent() || (!isReturn && key->key() != Qt::Key_Space))
        return false;
    const Property &property = m_properties[item->data(0, NumberRole).toInt()];
    if (property.kind == PropertyKind::Action)
        activate(item);
    else if (property.kind == PropertyKind::Flag)
        item->setCheckState(1, item->checkState(1) == Qt::Checked ? Qt::Unchecked : Qt::Checked);
    else if (isReturn)
        m_tree->editItem(item, 1);
    else
        return false;
    return true;
}

} // namespace report
