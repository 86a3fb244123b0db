#include "reporting/ui/QueryPicker.h"

#include "platform/input/FormBuilder.h"

#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QHeaderView>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTableWidget>
#include <QTreeWidget>
#include <algorithm>

using namespace Qt::StringLiterals;
using reportquery::Comparison;
using reportquery::Place;

namespace {

constexpr int JoinWidth = 170;
constexpr int SourceRole = Qt::UserRole;
constexpr int ColumnRole = Qt::UserRole + 1;

struct Word
{
    Comparison comparison;
    QString text;
};

const QList<Word> &words()
{
    static const QList<Word> all{{Comparison::Equal, u"is"_s},
                                 {Comparison::NotEqual, u"is not"_s},
                                 {Comparison::Less, u"is less than"_s},
                                 {Comparison::LessOrEqual, u"is at most"_s},
                                 {Comparison::Greater, u"is more than"_s},
                                 {Comparison::GreaterOrEqual, u"is at least"_s},
                                 {Comparison::Contains, u"contains"_s},
                                 {Comparison::BeginsWith, u"begins with"_s},
                                 {Comparison::IsEmpty, u"is empty"_s},
                                 {Comparison::IsNotEmpty, u"is not empty"_s}};
    return all;
}

QTableWidget *makeTable(const QString &name, const QString &accessible, const QStringList &headings,
                        QWidget *parent)
{
    auto *table = new QTableWidget(0, static_cast<int>(headings.size()), parent);
    table->setObjectName(name);
    table->setAccessibleName(accessible);
    table->setHorizontalHeaderLabels(headings);
    table->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    table->verticalHeader()->hide();
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    // Tab goes on to the buttons; among the cells' controls it goes by itself.
    table->setTabKeyNavigation(false);
    return table;
}

template<class Control>
Control *cell(const QTableWidget *table, int row, int column)
{
    return qobject_cast<Control *>(table->cellWidget(row, column));
}

} // namespace

QueryPicker::QueryPicker(QList<reporttables::Table> tables, QWidget *parent)
    : QWidget(parent)
    , m_tables(std::move(tables))
{
    setObjectName(u"queryPicker"_s);
    buildForm();
}

void QueryPicker::buildForm()
{
    input::FormBuilder form(this);
    form.beginColumns();
    form.beginRow();
    cboTable = new QComboBox(this);
    cboTable->setObjectName(u"cboTable"_s);
    for (const reporttables::Table &table : std::as_const(m_tables))
        cboTable->addItem(table.caption, table.name);
    form.field(u"&Table"_s, cboTable);
    cmdAddTable = form.inlineButton(u"cmdAddTable"_s, u"A&dd"_s);
    cmdRemoveTable = form.inlineButton(u"cmdRemoveTable"_s, u"&Remove"_s);
    form.endRow();
    lstTables = new QListWidget(this);
    lstTables->setObjectName(u"lstTables"_s);
    lstTables->setAccessibleName(u"Tables of the report"_s);
    form.widget(lstTables, true);
    cboJoinOwn = new QComboBox(this);
    cboJoinOwn->setObjectName(u"cboJoinOwn"_s);
    cboJoinOwn->setMinimumWidth(JoinWidth);
    form.field(u"&Joined by"_s, cboJoinOwn);
    cboJoinTo = new QComboBox(this);
    cboJoinTo->setObjectName(u"cboJoinTo"_s);
    cboJoinTo->setMinimumWidth(JoinWidth);
    form.field(u"&equal to"_s, cboJoinTo);
    chkOnlyMatching = form.checkBox(u"chkOnlyMatching"_s, u"&Leave out rows without a partner"_s);
    form.nextColumn();
    treColumns = new QTreeWidget(this);
    treColumns->setObjectName(u"treColumns"_s);
    treColumns->setAccessibleName(u"Columns to tick"_s);
    treColumns->setHeaderLabels({u"Columns of the report"_s});
    form.widget(treColumns, true);
    chkDistinct = form.checkBox(u"chkDistinct"_s, u"Each different row o&nce"_s);
    form.nextColumn();
    tblFilter = makeTable(u"tblFilter"_s, u"Filter"_s,
                          {u"Rows where"_s, u"Comparison"_s, u"Value"_s}, this);
    form.widget(tblFilter, true);
    form.beginRow();
    auto *addFilter = form.inlineButton(u"cmdAddFilter"_s, u"Add F&ilter"_s);
    auto *removeFilter = form.inlineButton(u"cmdRemoveFilter"_s, u"Remo&ve"_s);
    form.endRow();
    tblSort = makeTable(u"tblSort"_s, u"Sort"_s, {u"Sorted by"_s, u"Order"_s}, this);
    form.widget(tblSort, true);
    form.beginRow();
    auto *addSorting = form.inlineButton(u"cmdAddSort"_s, u"Add S&ort"_s);
    auto *removeSorting = form.inlineButton(u"cmdRemoveSort"_s, u"Re&move"_s);
    form.endRow();
    form.endColumns();
    form.finish();

    connect(cmdAddTable, &QPushButton::clicked, this, &QueryPicker::cmdAddTable_Click);
    connect(cmdRemoveTable, &QPushButton::clicked, this, &QueryPicker::cmdRemoveTable_Click);
    connect(lstTables, &QListWidget::currentRowChanged, this, &QueryPicker::showJoin);
    for (QComboBox *combo : {cboJoinOwn, cboJoinTo})
        connect(combo, &QComboBox::activated, this, &QueryPicker::joinChanged);
    connect(chkOnlyMatching, &QCheckBox::clicked, this, &QueryPicker::joinChanged);
    connect(treColumns, &QTreeWidget::itemChanged, this, &QueryPicker::columnTicked);
    connect(addFilter, &QPushButton::clicked, this, [this] { addCondition({}); });
    connect(removeFilter, &QPushButton::clicked, this, [this] { removeRow(tblFilter); });
    connect(addSorting, &QPushButton::clicked, this, [this] { addSort({}); });
    connect(removeSorting, &QPushButton::clicked, this, [this] { removeRow(tblSort); });
}

void QueryPicker::setQuery(const reportquery::Query &query)
{
    m_query = query;
    showAll();
}

reportquery::Query QueryPicker::query() const
{
    reportquery::Query query = m_query;
    query.distinct = chkDistinct->isChecked();
    query.conditions.clear();
    for (int row = 0; row < tblFilter->rowCount(); ++row) {
        reportquery::Condition condition;
        condition.place = placeIn(cell<QComboBox>(tblFilter, row, 0));
        condition.comparison =
            words().at(cell<QComboBox>(tblFilter, row, 1)->currentIndex()).comparison;
        condition.value = cell<QLineEdit>(tblFilter, row, 2)->text();
        // The mark by which the query's text names its parameters, too.
        condition.isParameter = condition.value.trimmed().startsWith(u'?');
        if (condition.isParameter) {
            condition.value = condition.value.trimmed().mid(1);
            // The brackets around a name with blanks are put there again where the text is made.
            condition.value.remove(u'[').remove(u']');
        }
        // The column was that of a table that has been removed.
        if (!condition.place.column.isEmpty())
            query.conditions.append(condition);
    }
    query.sort.clear();
    for (int row = 0; row < tblSort->rowCount(); ++row) {
        const Place place = placeIn(cell<QComboBox>(tblSort, row, 0));
        if (!place.column.isEmpty())
            query.sort.append({place, cell<QComboBox>(tblSort, row, 1)->currentIndex() == 1});
    }
    return query;
}

QString QueryPicker::captionOf(const reportquery::Source &source) const
{
    const reporttables::Table *table = reporttables::tableOf(m_tables, source.table);
    const QString caption = table ? table->caption : source.table;
    return source.as.isEmpty() ? caption
                               : caption + u" ("_s + reporttables::inWords(source.as) + u')';
}

/// By what a table is joined: ", Supplier ID = Parts: Supplier".
QString QueryPicker::joinOf(const reportquery::Source &source) const
{
    const auto caption = [this](const QString &table, const QString &column) {
        const reporttables::Table *found = reporttables::tableOf(m_tables, table);
        const reporttables::Column *named = found ? found->find(column) : nullptr;
        return named ? named->caption : column;
    };
    const reportquery::Source *other = m_query.find(source.to.table);
    if (source.column.isEmpty() || !other)
        return {};
    return u", %1 = %2: %3"_s.arg(caption(source.table, source.column), captionOf(*other),
                                  caption(other->table, source.to.column));
}

void QueryPicker::showAll()
{
    showSources();
    showColumns();
    chkDistinct->setChecked(m_query.distinct);
    tblFilter->setRowCount(0);
    tblSort->setRowCount(0);
    for (const reportquery::Condition &condition : std::as_const(m_query.conditions))
        addCondition(condition);
    for (const reportquery::Sort &sort : std::as_const(m_query.sort))
        addSort(sort);
}

/// The list is filled anew while the current table stays current; its signals would show each row's
/// join on the way.
void QueryPicker::showSources()
{
    const int current = lstTables->currentRow();
    {
        const QSignalBlocker quiet(lstTables);
        lstTables->clear();
        for (const reportquery::Source &source : std::as_const(m_query.sources))
            lstTables->addItem(captionOf(source) + joinOf(source));
        lstTables->setCurrentRow(
            qBound(-1, qMax(current, 0), static_cast<int>(m_query.sources.size()) - 1));
    }
    showJoin();
}

void QueryPicker::showJoin()
{
    const int row = lstTables->currentRow();
    cmdRemoveTable->setEnabled(row >= 0);
    // The first table is what the others are joined to.
    const bool isJoined = row > 0;
    for (QWidget *control :
         std::initializer_list<QWidget *>{cboJoinOwn, cboJoinTo, chkOnlyMatching})
        control->setEnabled(isJoined);
    cboJoinOwn->clear();
    cboJoinTo->clear();
    chkOnlyMatching->setChecked(isJoined && m_query.sources[row].onlyMatching);
    if (!isJoined)
        return;
    const reportquery::Source &source = m_query.sources[row];
    for (const reporttables::Column &column :
         reporttables::tableOf(m_tables, source.table)->columns)
        cboJoinOwn->addItem(column.caption, column.name);
    cboJoinOwn->setCurrentIndex(cboJoinOwn->findData(source.column));
    // Only to tables above it, or the joins could lead in a circle.
    for (int before = 0; before < row; ++before) {
        const reportquery::Source &other = m_query.sources[before];
        for (const reporttables::Column &column :
             reporttables::tableOf(m_tables, other.table)->columns) {
            cboJoinTo->addItem(captionOf(other) + u": "_s + column.caption,
                               QStringList{other.name(), column.name});
            if (source.to == Place{other.name(), column.name})
                cboJoinTo->setCurrentIndex(cboJoinTo->count() - 1);
        }
    }
    // Nothing in common is known: the user has to choose, and is told so when the query is taken.
    if (source.to.column.isEmpty())
        cboJoinTo->setCurrentIndex(-1);
}

/// Ticks set here are not the user's.
void QueryPicker::showColumns()
{
    m_isShowing = true;
    treColumns->clear();
    for (const reportquery::Source &source : std::as_const(m_query.sources)) {
        auto *top = new QTreeWidgetItem(treColumns, {captionOf(source)});
        for (const reporttables::Column &column :
             reporttables::tableOf(m_tables, source.table)->columns) {
            auto *item = new QTreeWidgetItem(top, {column.caption});
            item->setData(0, SourceRole, source.name());
            item->setData(0, ColumnRole, column.name);
            const Place place{source.name(), column.name};
            const bool isShown =
                std::ranges::any_of(m_query.columns, [&](const reportquery::Column &each) {
                    return each.place == place;
                });
            item->setCheckState(0, isShown ? Qt::Checked : Qt::Unchecked);
        }
        top->setExpanded(true);
    }
    m_isShowing = false;
}

/// The columns stay in the order in which they were ticked.
void QueryPicker::columnTicked()
{
    if (m_isShowing)
        return;
    for (int at = 0; at < treColumns->topLevelItemCount(); ++at) {
        const QTreeWidgetItem *top = treColumns->topLevelItem(at);
        for (int child = 0; child < top->childCount(); ++child) {
            const QTreeWidgetItem *item = top->child(child);
            const Place place{item->data(0, SourceRole).toString(),
                              item->data(0, ColumnRole).toString()};
            const auto isPlace = [&](const reportquery::Column &each) {
                return each.place == place;
            };
            const bool isShown = std::ranges::any_of(m_query.columns, isPlace);
            if (item->checkState(0) == Qt::Unchecked)
                m_query.columns.removeIf(isPlace);
            else if (!isShown)
                // The query names it apart where another table has a column of this name.
                reportquery::addColumn(m_query, place);
        }
    }
}

void QueryPicker::cmdAddTable_Click()
{
    m_query = query();
    const int added = reportquery::addSource(m_query, cboTable->currentData().toString());
    showSources();
    // The new table's join is on show, since it is the one that may need a word of the user's.
    lstTables->setCurrentRow(added);
    showAll();
}

/// Filter and sort live in their rows; they are taken first, so that those of other tables survive.
void QueryPicker::cmdRemoveTable_Click()
{
    m_query = query();
    reportquery::removeSource(m_query, lstTables->currentRow());
    showAll();
}

/// Only the line's text changes: filling the list anew would close the box that the user is at.
void QueryPicker::joinChanged()
{
    const int row = lstTables->currentRow();
    if (row <= 0)
        return;
    reportquery::Source &source = m_query.sources[row];
    source.column = cboJoinOwn->currentData().toString();
    source.to = placeIn(cboJoinTo);
    source.onlyMatching = chkOnlyMatching->isChecked();
    lstTables->item(row)->setText(captionOf(source) + joinOf(source));
}

void QueryPicker::fillPlaces(QComboBox *combo, const Place &chosen) const
{
    for (const reportquery::Source &source : m_query.sources)
        for (const reporttables::Column &column :
             reporttables::tableOf(m_tables, source.table)->columns) {
            combo->addItem(captionOf(source) + u": "_s + column.caption,
                           QStringList{source.name(), column.name});
            if (chosen == Place{source.name(), column.name})
                combo->setCurrentIndex(combo->count() - 1);
        }
}

Place QueryPicker::placeIn(const QComboBox *combo)
{
    const QStringList parts = combo->currentData().toStringList();
    return parts.size() == 2 ? Place{parts[0], parts[1]} : Place{};
}

void QueryPicker::addCondition(const reportquery::Condition &condition)
{
    auto *place = new QComboBox;
    fillPlaces(place, condition.place);
    auto *comparison = new QComboBox;
    for (const Word &word : words()) {
        comparison->addItem(word.text);
        if (word.comparison == condition.comparison)
            comparison->setCurrentIndex(comparison->count() - 1);
    }
    auto *value = new QLineEdit(condition.isParameter && condition.value.contains(u' ')
                                    ? u"?["_s + condition.value + u']'
                                : condition.isParameter ? u'?' + condition.value
                                                        : condition.value);
    place->setAccessibleName(u"Column"_s);
    comparison->setAccessibleName(u"Comparison"_s);
    value->setAccessibleName(u"Value"_s);
    value->setPlaceholderText(u"value or ?Parameter"_s);
    addRow(tblFilter, {place, comparison, value});
}

void QueryPicker::addSort(const reportquery::Sort &sort)
{
    auto *place = new QComboBox;
    fillPlaces(place, sort.place);
    auto *order = new QComboBox;
    order->addItems({u"smallest first"_s, u"largest first"_s});
    order->setCurrentIndex(sort.descending ? 1 : 0);
    place->setAccessibleName(u"Column"_s);
    order->setAccessibleName(u"Order"_s);
    addRow(tblSort, {place, order});
}

void QueryPicker::addRow(QTableWidget *table, const QList<QWidget *> &controls)
{
    const int row = table->rowCount();
    table->insertRow(row);
    for (int column = 0; column < controls.size(); ++column) {
        table->setCellWidget(row, column, controls[column]);
        controls[column]->installEventFilter(this);
    }
    table->selectRow(row);
}

/// The row in which the user works is the one that is removed.
bool QueryPicker::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::FocusIn)
        for (QTableWidget *table : {tblFilter, tblSort})
            for (int row = 0; row < table->rowCount(); ++row)
                for (int column = 0; column < table->columnCount(); ++column)
                    if (table->cellWidget(row, column) == watched && table->currentRow() != row)
                        table->setCurrentCell(row, column);
    return QWidget::eventFilter(watched, event);
}

void QueryPicker::removeRow(QTableWidget *table)
{
    if (table->rowCount() > 0)
        table->removeRow(table->currentRow() < 0 ? table->rowCount() - 1 : table->currentRow());
}
