#include "platform/report/designer/DataTree.h"

#include "platform/input/Theme.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMimeData>

namespace report {
namespace {

using namespace Qt::StringLiterals;

constexpr int NumberRole = Qt::UserRole;

QString typeName(FieldType type)
{
    switch (type) {
    case FieldType::Text:
        return u"text"_s;
    case FieldType::Number:
        return u"number"_s;
    case FieldType::Date:
        return u"date"_s;
    case FieldType::YesNo:
        break;
    }
    return u"yes or no"_s;
}

QString shownName(const DesignField &field)
{
    const bool isCaptioned = !field.caption.isEmpty() && field.caption != field.name;
    return isCaptioned ? u"%1 (%2)"_s.arg(field.caption, field.name) : field.name;
}

} // namespace

DataTree::DataTree(DesignDocument &document, QWidget *parent)
    : QTreeWidget(parent)
    , m_document(document)
{
    setObjectName(u"data"_s);
    setAccessibleName(u"Data"_s);
    setHeaderHidden(true);
    setIndentation(14);
    setUniformRowHeights(true);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setDragEnabled(true);
    // Fields stay in the tree when they are dragged: a report may show one in several places.
    setDragDropMode(QAbstractItemView::DragOnly);
    connect(this, &QTreeWidget::itemDoubleClicked, this, [this](QTreeWidgetItem *item) {
        if (const QList<DesignField> fields = fieldsOf({item}); !fields.isEmpty())
            Q_EMIT fieldsChosen(fields);
    });
    connect(&document, &DesignDocument::layoutChanged, this, &DataTree::refresh);
    refresh();
}

void DataTree::setFields(const QList<DesignField> &fields)
{
    // Names that no layout has: the tree is filled whatever was shown before.
    m_given = fields;
    m_names = {u"-"_s};
    refresh();
}

void DataTree::setFilter(const QString &words)
{
    m_filter = words.trimmed();
    m_names = {u"-"_s};
    refresh();
}

void DataTree::refresh()
{
    const Layout &layout = m_document.layout();
    QList<DesignField> formulas, parameters;
    QStringList names;
    for (const Formula &formula : layout.formulas)
        formulas.append({{}, formula.name, {}, FieldType::Number, true});
    for (const Parameter &parameter : layout.parameters)
        parameters.append({{}, parameter.name, parameter.prompt, FieldType::Text, true});
    for (const DesignField &field : formulas + parameters)
        names.append(field.name);
    // Most changes touch no name; the tree would lose what is open and selected in it.
    if (names == m_names)
        return;
    m_names = names;
    clear();
    m_fields.clear();
    QList<DesignField> own;
    QStringList tables;
    for (const DesignField &field : std::as_const(m_given)) {
        if (field.isInQuery)
            own.append(field);
        else if (!tables.contains(field.table))
            tables.append(field.table);
    }
    addAll(u"This report's rows"_s, own, true);
    addAll(u"Formulas"_s, formulas, true);
    addAll(u"Parameters"_s, parameters, true);
    addAll(u"Page and date"_s,
           {{{}, u"PageNumber"_s, u"Page"_s, FieldType::Number, true},
            {{}, u"TotalPages"_s, u"Pages"_s, FieldType::Number, true},
            {{}, u"RowNumber"_s, u"Number"_s, FieldType::Number, true},
            {{}, u"Today"_s, u"Today"_s, FieldType::Date, true},
            {{}, u"Now"_s, u"Now"_s, FieldType::Date, true}},
           own.isEmpty());
    for (const QString &table : std::as_const(tables)) {
        QList<DesignField> columns;
        for (const DesignField &field : std::as_const(m_given))
            if (!field.isInQuery && field.table == table)
                columns.append(field);
        addAll(table, columns, false);
    }
}

void DataTree::addAll(const QString &title, const QList<DesignField> &fields, bool isOpen)
{
    QTreeWidgetItem *root = nullptr;
    for (const DesignField &field : fields) {
        if (!m_filter.isEmpty() && !field.name.contains(m_filter, Qt::CaseInsensitive) &&
            !field.caption.contains(m_filter, Qt::CaseInsensitive))
            continue;
        if (!root) {
            root = new QTreeWidgetItem(this, {title});
            root->setFlags(Qt::ItemIsEnabled);
            root->setFont(0, theme::labelFont());
            root->setForeground(0, theme::mainColor());
        }
        auto *item = new QTreeWidgetItem(root, {shownName(field)});
        item->setData(0, NumberRole, static_cast<int>(m_fields.size()));
        item->setToolTip(0, u"%1, %2"_s.arg(field.name, typeName(field.type)));
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled);
        m_fields.append(field);
    }
    if (root)
        root->setExpanded(isOpen || !m_filter.isEmpty());
}

QList<DesignField> DataTree::fieldsOf(const QList<QTreeWidgetItem *> &items) const
{
    QList<DesignField> fields;
    for (const QTreeWidgetItem *item : items)
        if (const QVariant number = item->data(0, NumberRole); number.isValid())
            fields.append(m_fields[number.toInt()]);
    return fields;
}

QMimeData *DataTree::mimeData(const QList<QTreeWidgetItem *> &items) const
{
    // As bytes and not by a pointer: the tree may be filled anew while they are dragged.
    auto dragged = std::make_unique<QMimeData>();
    dragged->setData(fieldMimeType(), fieldBytes(fieldsOf(items)));
    return dragged.release();
}

QStringList DataTree::mimeTypes() const
{
    return {fieldMimeType()};
}

void DataTree::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        if (const QList<DesignField> fields = fieldsOf(selectedItems()); !fields.isEmpty())
            Q_EMIT fieldsChosen(fields);
        return;
    }
    QTreeWidget::keyPressEvent(event);
}

} // namespace report
