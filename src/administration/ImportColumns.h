#pragma once

#include <QString>
#include <QStringList>
#include <QStringView>
#include <limits>
#include <optional>
#include <span>

/// What can be imported from a table of text, and how its columns are called.
namespace administration {

enum class ImportKind { Machines, Parts, Employees, Readings };

enum class CellKind {
    Text,
    Code,     ///< capitals, digits and blanks, as the screens take them
    Capitals, ///< a text in capitals
    Phone,
    Whole,
    Number,
    Money,
    Date,
    Flag,
    Choice, ///< the number of one of some words, from 1
    Meter,  ///< the word of a count
    Listed, ///< the number of an entry that is known by its name
};

/// Where the names of a listed column stand.
enum class NameList { Items, Sites, Locations, Crews, Suppliers, Machines };

struct ImportColumn
{
    QStringView heading; ///< as users know it
    QStringView column;  ///< in the table; a heading too
    CellKind kind = CellKind::Text;
    QStringView synonyms = {}; ///< further headings, with ";" between
    bool isRequired = false;
    QStringView words = {}; ///< of a choice, with ";" between
    qint64 most = std::numeric_limits<qint32>::max();
    NameList names = NameList::Items;
    qint64 list = 0;        ///< of items: the number of their list
    QStringView below = {}; ///< the column that holds what the entry hangs under
};

struct ImportTable
{
    ImportKind kind;
    QStringView name; ///< in the plural, as commands take it
    QStringView table;
    std::span<const ImportColumn> columns;
    QStringView key;         ///< the column that tells the rows apart; empty for readings
    QStringView serial = {}; ///< a further column that no two rows share, unless it is blank
};

/// What files of a kind may hold, and where it is stored.
[[nodiscard]] const ImportTable &importTable(ImportKind kind);
/// The kind of a name, in any case; nothing for another word.
[[nodiscard]] std::optional<ImportKind> importKindOf(QStringView name);
/// The names of all kinds, in the order of the enumeration.
[[nodiscard]] QStringList importKindNames();
/// The place of a column among a table's columns, -1 for none.
[[nodiscard]] int columnPlace(const ImportTable &table, QStringView column);
/// The place of the column that a file's heading means, -1 for none: case, blanks and signs don't
/// count.
[[nodiscard]] int placeOfHeading(const ImportTable &table, const QString &heading);
/// A file with the headings of all columns and no row.
[[nodiscard]] QByteArray emptySheet(ImportKind kind);

} // namespace administration
