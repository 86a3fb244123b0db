#pragma once

#include "core/Session.h"

#include <QList>
#include <QSet>
#include <QString>
#include <QStringView>
#include <span>

/// What the quick finds know of the tables that they list: their queries, captions, search fields
/// and keys. Nothing here needs a window.
namespace quickfind {

/// A column that is shown at the right, as a number when it has a format.
struct NumberColumn
{
    QStringView name;
    QStringView format; ///< "0.00", "$0.00", or empty
};

/// One of the tables that can be searched.
struct Table
{
    QStringView name;
    QStringView caption;
    QStringView key; ///< the column whose value the find returns
    bool keyIsShown; ///< otherwise it repeats another column, or tells nobody anything
    std::span<const NumberColumn> numbers;  ///< columns at the right
    std::span<const QStringView> automatic; ///< what "Auto" searches, the first match counts
    QStringView inactiveOption; ///< keeps the state of "Show Inactive"; empty without the box
    QStringView activeOnly;     ///< condition with the box off
    QStringView bothKinds;      ///< condition with the box on
    bool Rights::*addRight;     ///< what "Add New" asks for; null when it is free
};

/// The table of that name, in any case; null for one that can't be searched.
[[nodiscard]] const Table *tableOf(QStringView name);

/// The query of a table's list, without condition and order. Empty for an unknown table.
[[nodiscard]] QString QueryString(QStringView table);
/// The dialog's caption for a table.
[[nodiscard]] QString SetCaption(QStringView table);
/// How many characters can be typed to search a field of that type.
[[nodiscard]] int SetLength(QStringView fieldType);

/// The whole statement of a list in the order of a column of the table.
[[nodiscard]] QString listStatement(const Table &table, const QString &orderColumn,
                                    bool showInactive);
/// The rows of a list, which are read a part at a time: a long one is shown when its first rows are
/// there. leftOut: keys of machines that are not listed, joined by commas, may be empty; other
/// tables take no notice of it. Data, while it is being read; raises DbError.
class List
{
public:
    List(const Table &table, const QString &orderColumn, bool showInactive, const QString &leftOut);

    /// Reads up to so many rows more; false when all are there.
    bool read(int rows);
    void readAll();
    [[nodiscard]] bool isComplete() const { return m_source.isComplete(); }
    /// What has been read.
    [[nodiscard]] db::Recordset rows() const;

private:
    QString m_key;
    QSet<qint64> m_leftOut;
    db::Gradual m_source;
};
/// The statement of the parts' own quick find; category 0 for all.
[[nodiscard]] QString partListStatement(bool showInactive, qint64 category);

/// A field that a search can go by.
struct Field
{
    qint64 rowID = 0;
    QString description; ///< offered to the user; the column's heading in the list
    QString name;        ///< column of the table
    QString type;        ///< INT, VARCHAR, DECIMAL, CHAR, DATETIME or BIT
};

/// The search fields of a table, in their order. Data; raises DbError.
[[nodiscard]] QList<Field> fieldsOf(QStringView table);
/// Those of the parts' own quick find.
[[nodiscard]] QList<Field> partFields();

} // namespace quickfind
