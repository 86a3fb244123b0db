#pragma once

#include <QList>
#include <QObject>
#include <QString>
#include <functional>

class QLineEdit;

namespace grid {
class GridView;
}

/// Moves a grid to the first match, in the order that it shows, while the user types: a column of
/// type INT, DECIMAL or DATETIME is matched exactly, any other at the beginning of its value, both
/// without regard to case. When the first column has no match the next one is tried. An empty box
/// does nothing. Up, Down, Page Up and Page Down in the box move the rows.
class IncrementalSearch : public QObject
{
    Q_OBJECT

public:
    struct Column
    {
        QString name;
        QString type; ///< INT, VARCHAR, DECIMAL, CHAR, DATETIME or BIT, in any case
    };
    /// What happens to the current row when nothing matches.
    enum class WithoutMatch { KeepRow, ClearRow };

    IncrementalSearch(QLineEdit *box, grid::GridView *grid,
                      WithoutMatch withoutMatch = WithoutMatch::KeepRow);

    /// The columns to search, in their order.
    void setColumns(QList<Column> columns) { m_columns = std::move(columns); }
    /// Searches for the text in the box now.
    void search();
    /// Asked before a search; false puts it off, until search is called again.
    std::function<bool()> mayBegin;

private:
    [[nodiscard]] int match(const Column &column, const QString &text) const;
    [[nodiscard]] int firstBeginning(const QString &column, const QString &text) const;
    [[nodiscard]] int firstEqual(const QString &column, const QString &text) const;

    QLineEdit *m_box;
    grid::GridView *m_grid;
    WithoutMatch m_withoutMatch;
    QList<Column> m_columns;
};

/// True for a field type that is matched exactly.
[[nodiscard]] bool isExactType(const QString &fieldType);
