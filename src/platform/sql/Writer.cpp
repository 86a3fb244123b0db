#include "platform/sql/Writer.h"

#include "platform/sql/EngineTypes.h"

#include <QScopedValueRollback>

#include <algorithm>

namespace sql {

using namespace Qt::StringLiterals;
using EngineTypes::quotedName;
using Kind = Expression::Kind;

namespace {

/// A memo is no plain name where rows are compared: it is written as the text that it begins with.
bool isMemo(const Expression &value)
{
    return value.kind == Kind::Name && value.source->isMemo(value.column);
}

} // namespace

Writer::Writer(QStringView statement, const TranslateOptions &options, Plan &plan)
    : m_statement(statement)
    , m_options(options)
    , m_plan(plan)
{}

void Writer::raise(const QString &what, const Expression &at) const
{
    raiseSyntaxError(what, m_statement, at.position);
}

void Writer::write(const Statement &statement)
{
    m_plan.kind = statement.kind;
    switch (statement.kind) {
    case StatementKind::Insert:
        writeInsert(*statement.change);
        break;
    case StatementKind::Update:
        writeUpdate(*statement.change);
        break;
    case StatementKind::Delete:
        writeDelete(*statement.change);
        break;
    default:
        writeQuery(*statement.query);
        // The first select names the columns of the whole.
        noteLongNames(statement.query->selects.front());
    }
    m_plan.text = std::move(m_text);
    auto &fixed = m_plan.fixedLiterals;
    // A literal that is written twice, as in a group and its item, is still one that the plan is
    // bound to.
    std::ranges::sort(fixed);
    fixed.erase(std::unique(fixed.begin(), fixed.end()), fixed.end());
}

void Writer::noteLongNames(const Select &select)
{
    for (std::size_t i = 0; i < select.output.size(); ++i) {
        const OutputColumn &column = select.output[i];
        if (column.written != column.name)
            m_plan.longNames.emplace_back(static_cast<int>(i), column.name);
    }
}

void Writer::writeQuery(const Query &query, const Change *insert)
{
    for (std::size_t i = 0; i < query.selects.size(); ++i) {
        if (i > 0)
            m_text += query.all[i - 1] ? u" UNION ALL "_s : u" UNION "_s;
        writeSelect(query.selects[i], insert);
    }
    writeOrder(query);
}

void Writer::writeSelect(const Select &select, const Change *insert)
{
    // A query inside of another one compares its own rows or none.
    const QScopedValueRollback own(m_comparing, false);
    m_text += u"SELECT "_s;
    if (select.top) {
        m_text += u"FIRST "_s + select.top->text.toString() + u' ';
        // The number stands in the text, so that the plan serves only statements with this one.
        m_plan.fixedLiterals.push_back(select.top->number);
    }
    if (select.distinct)
        m_text += u"DISTINCT "_s;
    std::vector<WrittenItem> items;
    {
        const FixedLiterals fixed(*this);
        const QScopedValueRollback comparing(m_comparing, select.compared);
        items = writeItems(select, insert);
    }
    m_text += u" FROM "_s;
    // The engine wants a table, and its own one has a single row.
    if (select.from.empty())
        m_text += u"RDB$DATABASE"_s;
    else
        writeJoins(select.from);
    if (select.where) {
        m_text += u" WHERE "_s;
        writeCondition(*select.where);
    }
    const QScopedValueRollback comparing(m_comparing, select.compared);
    if (!select.groupBy.empty())
        writeGroups(select, items);
    if (select.having) {
        // The engine knows an expression of the groups again only by equal text.
        const bool namesOnly =
            std::ranges::all_of(select.groupBy, [](const ExpressionPointer &group) {
                return group->kind == Kind::Name && !isMemo(*group);
            });
        m_fixed += namesOnly ? 0 : 1;
        m_text += u" HAVING "_s;
        writeCondition(*select.having);
        m_fixed -= namesOnly ? 0 : 1;
    }
}

void Writer::writeGroups(const Select &select, const std::vector<WrittenItem> &items)
{
    const FixedLiterals fixed(*this);
    // Literals stay in the text here, as in the list: equal texts are how the two are known for
    // one.
    m_text += u" GROUP BY "_s;
    for (const ExpressionPointer &group : select.groupBy) {
        if (group != select.groupBy.front())
            m_text += u", "_s;
        WrittenItem written{0, m_text.size(), 0, m_plan.slots.size(), 0};
        writeValue(*group, {});
        written.end = m_text.size();
        written.slotsEnd = m_plan.slots.size();
        if (group->kind == Kind::Name && !isMemo(*group))
            continue;
        // The engine does not see that two calculations are one, but knows an item by its number.
        const auto item = std::ranges::find_if(
            items, [&](const WrittenItem &candidate) { return repeats(candidate, written); });
        if (item == items.end())
            continue;
        // Written first and taken back, with its parameters: only the written text shows whether
        // the item says the same.
        m_text.truncate(written.begin);
        m_plan.slots.resize(written.slotsBegin);
        m_text += QString::number(item->output + 1);
    }
}

bool Writer::repeats(const WrittenItem &item, const WrittenItem &group) const
{
    const QStringView text = m_text;
    if (text.sliced(item.begin, item.end - item.begin) !=
        text.sliced(group.begin, group.end - group.begin))
        return false;
    // Equal texts have equally many parameters.
    for (std::size_t i = group.slotsBegin; i < group.slotsEnd; ++i) {
        const Slot &one = m_plan.slots[i];
        const Slot &other = m_plan.slots[item.slotsBegin + i - group.slotsBegin];
        if (one.source != other.source || one.index != other.index)
            return false;
    }
    return true;
}

std::vector<Writer::WrittenItem> Writer::writeItems(const Select &select, const Change *insert)
{
    std::vector<WrittenItem> written;
    std::size_t output = 0;
    for (std::size_t i = 0; i < select.items.size(); ++i) {
        if (i > 0)
            m_text += u", "_s;
        const SelectItem &item = select.items[i];
        if (item.kind == SelectItem::Kind::Value) {
            WrittenItem place{output, m_text.size(), 0, m_plan.slots.size(), 0};
            place.end = writeOutput(select, item, output++, insert);
            place.slotsEnd = m_plan.slots.size();
            written.push_back(place);
        } else if (select.expanded) {
            // A star can't stand beside other items, nor where columns need other names or are cut.
            if (item.source) {
                writeColumns(*item.source, select, output);
                continue;
            }
            for (const Source *source : select.sources) {
                if (source != select.sources.front())
                    m_text += u", "_s;
                writeColumns(*source, select, output);
            }
        } else if (item.source) {
            m_text += item.source->written + u".*"_s;
            output += static_cast<std::size_t>(item.source->columnCount());
        } else {
            m_text += u'*';
        }
    }
    if (insert) {
        // Columns that the insert leaves out and that default to today.
        for (const Column &column : insert->target->table->columns) {
            const bool given = insert->columns.empty() ||
                               std::ranges::any_of(insert->columns, [&](const Expression &name) {
                                   return insert->target->columnName(name.column) == column.name;
                               });
            if (column.defaultsToToday && !given) {
                m_text += u", "_s;
                writeMoment(Slot::Source::Today);
            }
        }
    }
    return written;
}

void Writer::writeColumns(const Source &source, const Select &select, std::size_t &output)
{
    for (int i = 0; i < source.columnCount(); ++i) {
        if (i > 0)
            m_text += u", "_s;
        const QString &column = source.writtenColumn(i);
        writeColumn(source, i, true);
        // What is cut has no name of its own any more.
        if (select.output[output].written != column || (m_comparing && source.isMemo(i)))
            m_text += u" AS "_s + quotedName(select.output[output].written);
        ++output;
    }
}

qsizetype Writer::writeOutput(const Select &select, const SelectItem &item, std::size_t output,
                              const Change *insert)
{
    const Expression &value = *item.value;
    Wanted wanted{value.type, Place::Result, 0};
    if (insert) {
        const int column =
            insert->columns.empty() ? static_cast<int>(output) : insert->columns[output].column;
        wanted.length = insert->target->columnLength(column);
        // Only a literal or parameter adapts; a column is converted by the engine when it is
        // stored.
        if (value.isValue())
            wanted.kind = insert->target->columnKind(column);
        // An amount that is too large has to be noticed before it is stored (see writeMoney).
        if (insert->target->columnKind(column) == ColumnKind::Money &&
            value.type == ColumnKind::Real && !value.isValue()) {
            writeMoney(value);
            return m_text.size();
        }
    }
    writeValue(value, wanted);
    const qsizetype end = m_text.size();
    const QString &name = select.output[output].written;
    // The engine names a plain column by itself.
    const bool itsOwn = value.kind == Kind::Name && !(m_comparing && isMemo(value)) &&
                        value.source->writtenColumn(value.column) == name;
    // An insert takes the columns by their places, whatever they are called.
    if (!itsOwn && !insert)
        m_text += u" AS "_s + quotedName(name);
    return end;
}

namespace {

/// What stands between the two sides of a join.
QStringView joinWord(JoinKind kind)
{
    switch (kind) {
    case JoinKind::Comma:
        return u", ";
    case JoinKind::Inner:
        return u" JOIN ";
    case JoinKind::Left:
        return u" LEFT JOIN ";
    case JoinKind::Right:
        return u" RIGHT JOIN ";
    case JoinKind::Full:
        break;
    }
    return u" FULL JOIN ";
}

} // namespace

void Writer::writeJoins(const JoinChain &chain)
{
    for (const Join &member : chain) {
        if (&member == &chain.front()) {
            writeJoinMember(member);
            continue;
        }
        m_text += joinWord(member.kind);
        writeJoinMember(member);
        if (member.condition) {
            m_text += u" ON "_s;
            writeCondition(*member.condition);
        }
    }
}

void Writer::writeJoinMember(const Join &member)
{
    if (!member.group) {
        writeSource(*member.source);
        return;
    }
    // The engine knows parentheses only around joins.
    const bool joins = member.group->size() > 1;
    if (joins)
        m_text += u'(';
    writeJoins(*member.group);
    if (joins)
        m_text += u')';
}

void Writer::writeSource(const Source &source)
{
    if (source.derived) {
        m_text += u'(';
        writeQuery(*source.derived);
        m_text += u')';
    } else {
        m_text += quotedName(source.table->name);
    }
    if (source.renamed)
        m_text += u' ' + source.written;
}

void Writer::writeOrder(const Query &query)
{
    if (query.orderBy.empty())
        return;
    const FixedLiterals fixed(*this);
    // Rows are sorted by what they are compared by.
    const QScopedValueRollback comparing(m_comparing, true);
    m_text += u" ORDER BY "_s;
    for (std::size_t i = 0; i < query.orderBy.size(); ++i) {
        const OrderItem &item = query.orderBy[i];
        if (i > 0)
            m_text += u", "_s;
        if (item.ordinal > 0)
            m_text += QString::number(item.ordinal);
        else
            writeValue(*item.value, {ColumnKind::Unknown, Place::Operand, 0});
        if (item.descending)
            m_text += u" DESC"_s;
    }
}

void Writer::writeInsert(const Change &change)
{
    const Source &target = *change.target;
    std::vector<int> columns;
    if (change.columns.empty()) {
        for (int i = 0; i < target.columnCount(); ++i)
            columns.push_back(i);
    }
    for (const Expression &column : change.columns)
        columns.push_back(column.column);
    // A default of the engine would go by its computer's clock instead of the program's.
    std::vector<int> today;
    for (int i = 0; i < target.columnCount(); ++i) {
        const auto &column = target.table->columns[static_cast<std::size_t>(i)];
        if (column.defaultsToToday && std::ranges::find(columns, i) == columns.end())
            today.push_back(i);
    }
    m_text += u"INSERT INTO "_s + target.written + u" ("_s;
    // Values are taken for the columns that the statement names; those that default to today
    // follow.
    const std::size_t given = columns.size();
    columns.insert(columns.end(), today.begin(), today.end());
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (i > 0)
            m_text += u", "_s;
        m_text += quotedName(target.columnName(columns[i]));
    }
    m_text += u") "_s;
    if (change.query) {
        writeQuery(*change.query, &change);
    } else {
        m_text += u"VALUES ("_s;
        for (std::size_t i = 0; i < given; ++i) {
            if (i > 0)
                m_text += u", "_s;
            writeValue(*change.values[i], {target.columnKind(columns[i]), Place::Stored,
                                           target.columnLength(columns[i])});
        }
        for (std::size_t i = 0; i < today.size(); ++i) {
            m_text += u", "_s;
            writeMoment(Slot::Source::Today);
        }
        m_text += u')';
    }
    if (m_options.returning.isEmpty())
        return;
    // The engine knows the key by its stored spelling only.
    const Column *key = target.table->find(m_options.returning);
    m_text += u" RETURNING "_s + quotedName(key ? key->name : m_options.returning);
}

void Writer::writeUpdate(const Change &change)
{
    const Source &target = *change.target;
    m_text += u"UPDATE "_s;
    writeSource(target);
    m_text += u" SET "_s;
    for (const Assignment &assignment : change.assignments) {
        if (&assignment != &change.assignments.front())
            m_text += u", "_s;
        const int column = assignment.target.column;
        m_text += quotedName(target.columnName(column)) + u" = "_s;
        writeValue(*assignment.value,
                   {target.columnKind(column), Place::Stored, target.columnLength(column)});
    }
    if (change.where) {
        m_text += u" WHERE "_s;
        writeCondition(*change.where);
    }
}

void Writer::writeDelete(const Change &change)
{
    m_text += u"DELETE FROM "_s;
    writeSource(*change.target);
    if (change.where) {
        m_text += u" WHERE "_s;
        writeCondition(*change.where);
    }
}

} // namespace sql
