#include "core/ui/IncrementalSearch.h"

#include "platform/base/Format.h"
#include "platform/grid/GridView.h"

#include <QLineEdit>

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
    connect(box, &QLineEdit::textChanged, this, &IncrementalSearch::search);
}

void IncrementalSearch::search()
{
    const QString text = m_box->text().trimmed();
    if (text.isEmpty())
        return;
    for (const Column &column : std::as_const(m_columns)) {
        const int row = match(column, text);
        if (row >= 0) {
            m_grid->selectRow(row);
            return;
        }
    }
    if (m_withoutMatch == WithoutMatch::ClearRow)
        m_grid->clearCurrent();
}

int IncrementalSearch::match(const Column &column, const QString &text) const
{
    const grid::GridModel &rows = m_grid->rows();
    if (!rows.hasColumn(column.name))
        return -1;
    if (isExactType(column.type))
        return rows.find(u"[%1] = '%2'"_s.arg(column.name, base::doubledQuotes(text)));
    return rows.beginsWith(column.name, text);
}
