#include "platform/grid/GridColumns.h"

#include "platform/base/Error.h"
#include "platform/base/Format.h"
#include "platform/grid/CellFormat.h"

#include <algorithm>

namespace grid {
namespace {

using namespace Qt::StringLiterals;

constexpr int SampledRows = 40; ///< rows whose texts decide on a new column's width

/// Pixels that a text of so many characters takes, with room for the sorting sign.
int widthFor(qsizetype characters)
{
    return std::clamp(static_cast<int>(characters) * 7 + 24, 60, 260);
}

int designedWidth(const db::Recordset &recordset, int column)
{
    qsizetype characters = recordset.columnName(column).size() + 1;
    const sql::ColumnKind kind = recordset.columnKind(column);
    if (kind == sql::ColumnKind::Date)
        return widthFor(std::max<qsizetype>(characters, 10));
    for (int row = 0; row < std::min(SampledRows, recordset.RecordCount()); ++row)
        characters = std::max(characters, base::toText(recordset.value(row, column)).size());
    return widthFor(characters);
}

} // namespace

Qt::Alignment alignmentOf(const Column &column)
{
    switch (column.align) {
    case Align::Left:
        return Qt::AlignLeft | Qt::AlignVCenter;
    case Align::Center:
        return Qt::AlignCenter;
    case Align::Right:
        return Qt::AlignRight | Qt::AlignVCenter;
    case Align::Automatic:
        break;
    }
    if (column.editor == Editor::Check || column.editor == Editor::Button)
        return Qt::AlignCenter;
    return (holdsNumbers(column) ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
}

QString ColumnData::choiceText(const QVariant &id) const
{
    if (id.isNull())
        return {};
    // Made for the list as it is now: a screen may have given the column another one.
    if (!choiceTexts || choiceTexts->list != column.choices.constData() ||
        choiceTexts->count != column.choices.size()) {
        choiceTexts.emplace(ChoiceTexts{column.choices.constData(), column.choices.size(), {}});
        for (const Choice &choice : column.choices)
            choiceTexts->texts.insert(choice.id, choice.text);
    }
    return choiceTexts->texts.value(id.toLongLong());
}

int ColumnSet::indexOf(QStringView name) const
{
    const auto found = std::ranges::find_if(m_columns, [name](const auto &data) {
        return name.compare(data->column.name, Qt::CaseInsensitive) == 0;
    });
    return found == m_columns.end() ? -1 : static_cast<int>(found - m_columns.begin());
}

ColumnData &ColumnSet::named(QStringView name) const
{
    const int index = indexOf(name);
    if (index < 0)
        throw base::Error(base::ErrorNumber::NoSuchItem,
                          u"The grid has no column \"%1\"."_s.arg(name));
    return at(index);
}

ColumnData &ColumnSet::at(int index) const
{
    return *m_columns.at(static_cast<std::size_t>(index));
}

void ColumnSet::append(Column column)
{
    m_columns.push_back(std::make_unique<ColumnData>());
    m_columns.back()->column = std::move(column);
    m_columns.back()->added = true;
}

void ColumnSet::replace(int index, Column column)
{
    ColumnData &data = at(index);
    // What the recordset has said of the column stays.
    if (column.kind == sql::ColumnKind::Unknown)
        column.kind = data.column.kind;
    data.column = std::move(column);
    data.added = true;
}

void ColumnSet::take(const db::Recordset &recordset)
{
    // Settings stay by the name; the fields behind them are found anew.
    for (const auto &data : m_columns)
        data->record = -1;
    for (int field = 0; field < recordset.columnCount(); ++field) {
        const QString name = recordset.columnName(field);
        const sql::ColumnKind kind = recordset.columnKind(field);
        const int present = indexOf(name);
        if (present >= 0) {
            ColumnData &data = at(present);
            if (data.record >= 0)
                continue; // a second field of that name can't be reached by it
            data.record = field;
            data.column.kind = kind;
            if (kind == sql::ColumnKind::YesNo && data.column.editor == Editor::None)
                data.column.editor = Editor::Check;
            continue;
        }
        auto data = std::make_unique<ColumnData>();
        data->record = field;
        data->column.name = name;
        data->column.caption = name;
        data->column.kind = kind;
        data->column.width = designedWidth(recordset, field);
        if (kind == sql::ColumnKind::YesNo)
            data->column.editor = Editor::Check;
        m_columns.push_back(std::move(data));
    }
    // A column that only the former rows had goes; the screen's own ones stay.
    std::erase_if(m_columns, [](const auto &data) { return data->record < 0 && !data->added; });
}

void ColumnSet::forgetCells()
{
    for (const auto &data : m_columns) {
        data->cells.clear();
        data->fill.reset();
    }
}

void ColumnSet::forgetCells(int slot)
{
    for (const auto &data : m_columns)
        data->cells.remove(slot);
}

void ColumnSet::forgetSearches()
{
    for (const auto &data : m_columns)
        data->search.reset();
}

void ColumnSet::forgetChoiceTexts()
{
    for (const auto &data : m_columns)
        data->choiceTexts.reset();
}

} // namespace grid
