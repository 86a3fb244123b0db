#include "core/ui/IncrementalSearch.h"

#include "core/ui/SearchKeys.h"
#include "platform/base/Format.h"
#include "platform/base/Trapped.h"
#include "platform/grid/GridView.h"

#include <QLineEdit>

#include <algorithm>

using namespace Qt::StringLiterals;

bool isExactType(const QString &fieldType)
{
    for (const QStringView exact : {u"INT", u"DECIMAL", u"DATETIME"})
        if (fieldType.compare(exact, Qt::CaseInsensitive) == 0)
            return true;
    return false;
}

IncrementalSearch::IncrementalSearch(QLineEdit *box, grid::GridView *grid,
                                     WithoutMatch withoutMatch)
    : QObject(box)
    , m_box(box)
    , m_grid(grid)
    , m_withoutMatch(withoutMatch)
{
    moveRowsFrom(box, grid);
    connect(box, &QLineEdit::textChanged, this, &IncrementalSearch::search);
}

void IncrementalSearch::search()
{
    const QString text = m_box->text().trimmed();
    if (text.isEmpty() || (mayBegin && !mayBegin()))
        return;
    base::trapped(qPrintable(m_box->window()->objectName()), "txtSearchText_Change - ", [&] {
        for (const Column &column : std::as_const(m_columns)) {
            const int row = match(column, text);
            if (row >= 0) {
                m_grid->selectRow(row);
                return;
            }
        }
        if (m_withoutMatch == WithoutMatch::ClearRow)
            m_grid->clearCurrent();
    });
}

int IncrementalSearch::match(const Column &column, const QString &text) const
{
    if (!m_grid->rows().hasColumn(column.name))
        return -1;
    if (!isExactType(column.type))
        return firstBeginning(column.name, text);
    // A number or date that is still being typed is not one yet, and matches nothing.
    bool isValue = false;
    if (column.type.compare(u"DATETIME", Qt::CaseInsensitive) == 0)
        isValue = base::parseMonthFirst(text).has_value();
    else
        static_cast<void>(text.toDouble(&isValue));
    return isValue ? firstEqual(column.name, text) : -1;
}

int IncrementalSearch::firstBeginning(const QString &column, const QString &text) const
{
    const grid::GridModel &rows = m_grid->rows();
    const int found = rows.beginsWith(column, text);
    if (found < 0 || rows.sortDirection() == grid::Sort::None)
        return found;
    const QList<int> order = rows.displayedOrder();
    const auto first = std::ranges::find_if(order, [&](int row) {
        return base::toText(rows.value(row, column)).startsWith(text, Qt::CaseInsensitive);
    });
    return first == order.end() ? found : *first;
}

int IncrementalSearch::firstEqual(const QString &column, const QString &text) const
{
    const grid::GridModel &rows = m_grid->rows();
    const int found = rows.find(u"[%1] = '%2'"_s.arg(column, base::doubledQuotes(text)));
    if (found < 0 || rows.sortDirection() == grid::Sort::None)
        return found;
    const QVariant value = rows.value(found, column);
    const QList<int> order = rows.displayedOrder();
    const auto first =
        std::ranges::find_if(order, [&](int row) { return rows.value(row, column) == value; });
    return first == order.end() ? found : *first;
}
