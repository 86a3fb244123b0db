#pragma once

#include <QHash>
#include <QString>
#include <QStringView>
#include <limits>
#include <vector>

namespace sql {

/// How the dialect sees a column; decides how literals written into it or compared with it are
/// understood.
enum class ColumnKind {
    Unknown,
    Integer, ///< whole numbers of 16 or 32 bits, the 0/1 flags among them
    Real,
    Money, ///< four exact decimals
    Text,  ///< compared without regard to case
    Date,  ///< date and time of day
    YesNo, ///< -1 or 0, never Null
    Binary,
};

/// The length of a memo, a text column without a limit.
inline constexpr int MemoLength = std::numeric_limits<int>::max();

struct Column
{
    QString name; ///< as created, which is how the engine stores it
    ColumnKind kind = ColumnKind::Unknown;
    int length = 0; ///< characters, for text; MemoLength for a memo
    bool autoNumber = false;
    bool defaultsToToday = false; ///< an insert that leaves the column out stores today
};

struct Table
{
    QString name;
    std::vector<Column> columns; ///< in the order of creation

    /// The column of that name in any case, or null.
    [[nodiscard]] const Column *find(QStringView column) const;
};

/// The tables that statements may name. Read by a connection from its database; a test can write
/// one by hand.
class Schema
{
public:
    /// Adds a table, in place of one of that name.
    void add(Table table);
    void clear() { m_tables.clear(); }
    /// The table of that name in any case, or null. The pointer holds until the schema changes.
    [[nodiscard]] const Table *find(QStringView table) const;

private:
    QHash<QString, Table> m_tables; ///< key: the name in lower case
};

} // namespace sql
