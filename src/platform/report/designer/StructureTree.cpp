#include "platform/report/designer/StructureTree.h"

#include "platform/input/Theme.h"
#include "platform/report/designer/HouseStyles.h"
#include "platform/report/designer/Normalised.h"
#include "platform/report/designer/Structure.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace report {
namespace {

using namespace Qt::StringLiterals;

using Part = Selection::Part;

constexpr int LineRole = Qt::UserRole;

template<class List>
QString nextName(const List &list, const QString &wanted)
{
    QStringList taken;
    for (const auto &one : list)
        taken.append(one.name);
    return freeName(wanted, taken);
}

} // namespace

StructureTree::StructureTree(DesignDocument &document, QWidget *parent)
    : QWidget(parent)
    , m_document(document)
    , m_tree(new QTreeWidget(this))
{
    m_tree->setObjectName(u"structure"_s);
    m_tree->setAccessibleName(u"Parts of the report"_s);
    m_tree->setHeaderHidden(true);
    m_tree->setIndentation(14);
    m_tree->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_tree->setUniformRowHeights(true);
    m_tree->setContextMenuPolicy(Qt::CustomContextMenu);
    // Enter opens the attributes; the tree itself would only unfold the line.
    m_tree->installEventFilter(this);
    auto *rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->addWidget(m_tree);
    setFocusProxy(m_tree);
    connect(m_tree, &QTreeWidget::itemSelectionChanged, this, &StructureTree::takeSelection);
    connect(m_tree, &QWidget::customContextMenuRequested, this,
            [this](QPoint at) { Q_EMIT menuAsked(m_tree->viewport()->mapToGlobal(at)); });
    connect(m_tree, &QTreeWidget::itemDoubleClicked, this, &StructureTree::attributesAsked);
    connect(&document, &DesignDocument::layoutChanged, this, &StructureTree::refresh);
    connect(&document, &DesignDocument::selectionChanged, this, &StructureTree::showSelection);
    refresh();
}

QList<StructureTree::Line> StructureTree::lines() const
{
    const Layout &layout = m_document.layout();
    QList<Line> all{
        {0, layout.title.isEmpty() ? u"Report"_s : layout.title, Selection::of(Part::Report)}};
    const auto heading = [&](const QString &text) { all.append({0, text, {}, true}); };
    heading(u"Bands"_s);
    for (int band = 0; band < layout.bands.size(); ++band) {
        all.append({1, bandName(layout.bands[band]), Selection::of(Part::Band, band)});
        for (int object = 0; object < layout.bands[band].objects.size(); ++object)
            all.append({2, objectTitle(layout.bands[band].objects[object]),
                        Selection::of({Place{band, object}})});
    }
    const auto addAll = [&](const QString &title, const auto &list, Part part) {
        heading(title);
        for (int index = 0; index < list.size(); ++index)
            all.append({1, list[index].name, Selection::of(part, index)});
    };
    addAll(u"Groups"_s, layout.groups, Part::Group);
    heading(u"Sort order"_s);
    for (int index = 0; index < layout.sort.size(); ++index)
        all.append({1, layout.sort[index], Selection::of(Part::Sort, index)});
    addAll(u"Formulas"_s, layout.formulas, Part::Formula);
    addAll(u"Parameters"_s, layout.parameters, Part::Parameter);
    all.append({0, u"Query"_s, Selection::of(Part::Query)});
    addAll(u"Further rows"_s, layout.rowSets, Part::Rows);
    addAll(u"Styles"_s, layout.styles, Part::Style);
    return all;
}

void StructureTree::refresh()
{
    QList<Line> now = lines();
    // Moves and sizes change no line; what is folded and scrolled to stays then.
    if (now == m_lines) {
        showSelection();
        return;
    }
    // Lines are known again by their texts, since their numbers may have changed.
    QSet<QString> folded;
    for (qsizetype line = 0; line < m_items.size(); ++line)
        if (m_items[line]->childCount() > 0 && !m_items[line]->isExpanded())
            folded.insert(m_lines[line].text);
    m_isShowing = true;
    m_lines = std::move(now);
    m_items.clear();
    m_tree->clear();
    QList<QTreeWidgetItem *> path;
    for (int number = 0; number < m_lines.size(); ++number) {
        const Line &line = m_lines[number];
        path.resize(line.depth);
        auto *item = line.depth == 0 ? new QTreeWidgetItem(m_tree, {line.text})
                                     : new QTreeWidgetItem(path.last(), {line.text});
        item->setData(0, LineRole, number);
        item->setToolTip(0, line.text);
        if (line.isHeading) {
            // A heading can be reached by the keyboard, or what lies below it could not be folded
            // by it.
            item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
            item->setFont(0, theme::labelFont());
            item->setForeground(0, theme::mainColor());
        }
        path.append(item);
        m_items.append(item);
    }
    for (qsizetype line = 0; line < m_items.size(); ++line)
        m_items[line]->setExpanded(!folded.contains(m_lines[line].text));
    m_isShowing = false;
    showSelection();
}

void StructureTree::showSelection()
{
    if (m_isShowing)
        return;
    m_isShowing = true;
    const Selection &selection = m_document.selection();
    m_tree->clearSelection();
    QTreeWidgetItem *current = nullptr;
    for (qsizetype number = 0; number < m_lines.size(); ++number) {
        const Selection &own = m_lines[number].selection;
        // Several objects may be selected, of the other parts only one.
        const bool isObject = own.part == Part::Objects;
        const bool isSelected =
            !m_lines[number].isHeading &&
            (isObject ? selection.contains(own.lead)
                      : own.part == selection.part && own.index == selection.index);
        if (!isSelected)
            continue;
        m_items[number]->setSelected(true);
        if (!isObject || own.lead == selection.lead)
            current = m_items[number];
    }
    if (current) {
        // The cursor alone: selecting again would leave one of several.
        m_tree->setCurrentItem(current, 0, QItemSelectionModel::NoUpdate);
        m_tree->scrollToItem(current);
    }
    m_isShowing = false;
}

void StructureTree::takeSelection()
{
    if (m_isShowing)
        return;
    QList<Place> places;
    std::optional<Selection> other;
    for (const QTreeWidgetItem *item : m_tree->selectedItems()) {
        const Line &line = m_lines[item->data(0, LineRole).toInt()];
        if (line.isHeading)
            continue;
        if (line.selection.part == Part::Objects)
            places.append(line.selection.lead);
        // Bands and groups are worked one at a time: the first one that is selected counts.
        else if (!other)
            other = line.selection;
    }
    m_isShowing = true;
    if (!places.isEmpty())
        m_document.select(Selection::of(places));
    else if (other)
        m_document.select(*other);
    m_isShowing = false;
}

void StructureTree::addGroup(const QString &by)
{
    m_document.change(u"Add group"_s, [&](Layout &layout, Selection &selection) {
        selection = Selection::of(Part::Group, report::addGroup(layout, by));
    });
}

void StructureTree::addFormula()
{
    m_document.change(u"Add formula"_s, [](Layout &layout, Selection &selection) {
        layout.formulas.append({nextName(layout.formulas, u"Formula"_s), u"0"_s});
        selection = Selection::of(Part::Formula, static_cast<int>(layout.formulas.size()) - 1);
    });
}

void StructureTree::addStyle()
{
    m_document.change(u"Add style"_s, [](Layout &layout, Selection &selection) {
        layout.styles.append({nextName(layout.styles, u"Style"_s), {}});
        selection = Selection::of(Part::Style, static_cast<int>(layout.styles.size()) - 1);
    });
}

void StructureTree::addParameter()
{
    m_document.change(u"Add parameter"_s, [](Layout &layout, Selection &selection) {
        Parameter parameter;
        parameter.name = nextName(layout.parameters, u"Parameter"_s);
        layout.parameters.append(parameter);
        selection = Selection::of(Part::Parameter, static_cast<int>(layout.parameters.size()) - 1);
    });
}

void StructureTree::addSort()
{
    const Selection &chosen = m_document.selection();
    const bool isField =
        chosen.objects.size() == 1 && m_document.object(chosen.lead).kind == ObjectKind::Field;
    // A selected field is most likely what is sorted by.
    const QString by = isField ? m_document.object(chosen.lead).content : u"RowNumber"_s;
    m_document.change(u"Add sort order"_s, [&](Layout &layout, Selection &selection) {
        layout.sort.append(by);
        selection = Selection::of(Part::Sort, static_cast<int>(layout.sort.size()) - 1);
    });
}

bool StructureTree::canRemoveSelected() const
{
    const Part part = m_document.selection().part;
    return part != Part::Report && part != Part::Query;
}

void StructureTree::removeSelected()
{
    const Selection removed = m_document.selection();
    if (!canRemoveSelected())
        return;
    // A removal is a change of its own, also right after a move by keys.
    m_document.endSeries();
    m_document.change(u"Delete"_s, [&](Layout &layout, Selection &selection) {
        const int index = removed.index;
        switch (removed.part) {
        case Part::Report:
        case Part::Query:
            return;
        case Part::Sort:
            layout.sort.removeAt(index);
            break;
        case Part::Objects:
            removeObjects(layout, removed.objects);
            // The keys go on in the band that the objects stood in.
            selection = Selection::of(Part::Band, removed.lead.band);
            return;
        case Part::Band:
            layout.bands.removeAt(index);
            break;
        case Part::Group:
            removeGroup(layout, index);
            break;
        case Part::Formula:
            layout.formulas.removeAt(index);
            break;
        case Part::Parameter:
            layout.parameters.removeAt(index);
            break;
        case Part::Rows:
            removeRows(layout, index);
            break;
        case Part::Style:
            layout.styles.removeAt(index);
            break;
        }
        selection = {};
    });
}

bool StructureTree::canMoveSelected(int direction) const
{
    const Selection &selection = m_document.selection();
    const Layout &layout = m_document.layout();
    const int target = selection.index + direction;
    switch (selection.part) {
    case Part::Band:
        return canMoveBand(layout, selection.index, direction);
    case Part::Group:
        return target >= 0 && target < layout.groups.size();
    case Part::Parameter:
        return target >= 0 && target < layout.parameters.size();
    case Part::Sort:
        return target >= 0 && target < layout.sort.size();
    case Part::Objects:
        return true;
    case Part::Report:
    case Part::Query:
    case Part::Formula:
    case Part::Rows:
    case Part::Style:
        break;
    }
    return false;
}

void StructureTree::moveSelected(int direction)
{
    if (!canMoveSelected(direction))
        return;
    m_document.change(direction < 0 ? u"Move up"_s : u"Move down"_s, [&](Layout &layout,
                                                                         Selection &selection) {
        const int target = selection.index + direction;
        if (selection.part == Part::Objects) {
            selection = Selection::of(reorder(layout, selection.objects,
                                              direction < 0 ? Order::Backward : Order::Forward));
            return;
        }
        if (selection.part == Part::Band)
            moveBand(layout, selection.index, direction);
        else if (selection.part == Part::Group)
            moveGroup(layout, selection.index, direction);
        else if (selection.part == Part::Sort)
            layout.sort.swapItemsAt(selection.index, target);
        else
            layout.parameters.swapItemsAt(selection.index, target);
        selection.index = target;
    });
}

bool StructureTree::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_tree && event->type() == QEvent::KeyPress) {
        const auto *key = static_cast<QKeyEvent *>(event);
        if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
            Q_EMIT attributesAsked();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace report
