#pragma once

#include "platform/db/Recordset.h"
#include "platform/grid/GridColumns.h"

#include <QAbstractItemModel>
#include <QHash>
#include <QVariantMap>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace grid {

/// The rows and named columns behind a grid. Rows come from a recordset, whose cells are read
/// where they lie, and from insertRow; what is changed or added is kept beside them. A row keeps
/// its number, counted from 0 in the order of loading, however the grid is sorted.
///
///     rows.setRecordset(gcnData->Open("Select PartID as [Part Number], Price from tblPart"));
///     rows.column(u"Price").format = "$0.00";
///     rows.addColumn({.name = "Select", .editable = true, .editor = Editor::Check});
///
/// Names that no column has raise base::Error NoSuchItem, row numbers out of range InvalidCall.
class GridModel : public QAbstractItemModel
{
    Q_OBJECT
public:
    explicit GridModel(QObject *parent = nullptr);
    ~GridModel() override;

    /// Takes columns and rows from a recordset in place of all present rows. A column that exists
    /// under the same name keeps its settings; columns of an earlier recordset that this one lacks
    /// go, those of addColumn stay, empty. New number columns stand right, Yes/No columns are
    /// check boxes, dates show as mm/dd/yyyy. The present sort is applied.
    void setRecordset(const db::Recordset &recordset);
    /// Takes the rows by which the present recordset has grown; it begins with the same rows. All
    /// that was set, chosen or sorted stays.
    void extendRecordset(const db::Recordset &longer);

    /// Adds a column, or gives an existing one of that name these settings; its index.
    int addColumn(Column column);
    [[nodiscard]] bool hasColumn(QStringView name) const { return columnIndex(name) >= 0; }
    /// -1 when there is no such column.
    [[nodiscard]] int columnIndex(QStringView name) const;
    /// The settings of a column. The reference holds as long as the column; after a change call
    /// columnsChanged.
    [[nodiscard]] Column &column(QStringView name);
    [[nodiscard]] const Column &column(QStringView name) const;
    [[nodiscard]] const Column &columnAt(int index) const;
    [[nodiscard]] int columnCount() const { return m_columns.count(); }
    /// Makes changed settings of columns visible.
    void columnsChanged();
    /// The column that carries the plus and minus signs; makes the grid a tree.
    void setTreeColumn(QStringView name);
    /// -1 for a plain list.
    [[nodiscard]] int treeColumn() const;

    /// All rows, those below others included.
    [[nodiscard]] int rowCount() const { return static_cast<int>(m_rows.size()); }
    /// The value of a cell, an invalid QVariant for Null. Of a ticked cell a bool, else as the
    /// recordset gives it.
    [[nodiscard]] QVariant value(int row, QStringView name) const;
    /// The text of a cell as shown; "True" or "False" for a check box.
    [[nodiscard]] QString text(int row, QStringView name) const;
    /// Sets a cell by the program: no rule runs, and the sort stays as it is.
    void setValue(int row, QStringView name, const QVariant &value);
    /// Sets a column's cells in all rows, without a rule.
    void setAll(QStringView name, const QVariant &value);

    /// Adds a row, below another one when its number is given, and places it by the present sort;
    /// its number.
    int insertRow(const QVariantMap &values = {}, int parentRow = -1);
    /// Removes a row and those below it; later rows move up in number.
    void removeRow(int row);
    /// Removes all rows. The columns stay.
    void clear();
    /// The row above, -1 for none.
    [[nodiscard]] int parentRow(int row) const;
    [[nodiscard]] int childCount(int row) const;

    /// Holds back the view while many rows are inserted. Nothing may be selected meanwhile.
    class Filling
    {
    public:
        explicit Filling(GridModel &model);
        ~Filling();
        Filling(const Filling &) = delete;
        Filling &operator=(const Filling &) = delete;

    private:
        GridModel &m_model;
    };

    /// The first row whose cell equals the value (text without regard to case, numbers as
    /// numbers), or -1.
    [[nodiscard]] int findRow(QStringView name, const QVariant &value) const;
    /// The first row, from the given one on, that meets a criterion of one comparison, as
    /// db::Recordset::Find: "[Unit No] like 'a*'", "EquipmentID = '5'"; or -1.
    [[nodiscard]] int find(QStringView criterion, int from = 0) const;
    /// The first row whose cell begins with the text, without regard to case, or -1. Texts of the
    /// recordset are read through, some milliseconds for a hundred thousand; others are sorted by
    /// the first call for their column.
    [[nodiscard]] int beginsWith(QStringView name, QStringView text) const;

    /// Sorts by a column, rows that are equal in it staying in their present order; None returns
    /// to the order of loading. Numbers go as numbers, dates as dates, text without regard to
    /// case, Null first.
    void sortBy(QStringView name, Sort direction);
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;
    /// Sorts again, after values were set.
    void resort();
    [[nodiscard]] int sortColumn() const { return m_sortColumn; }
    [[nodiscard]] Sort sortDirection() const { return m_sortDirection; }
    /// The row numbers from top to bottom, rows below others behind them.
    [[nodiscard]] QList<int> displayedOrder() const;

    // A screen's rule for the rows, given the row's number and the column's name. What a change
    // means is a rule of the column (Column::changeRule).

    /// Colours; asked for painted cells only.
    std::function<Style(int row, const QString &column)> styleRule;

    /// True when the user may edit the cell: by the settings of its column and its edit rule.
    [[nodiscard]] bool mayEdit(int row, int column) const;
    /// A change by the user: runs the column's change rule, stores the value and emits edited.
    /// False when it was refused. A value that equals the present one is accepted without a rule.
    bool edit(int row, int column, const QVariant &newValue);
    [[nodiscard]] Style style(int row, int column) const;
    /// True for a cell with a hyperlink: of a link column, not empty, and in a tree not one of the
    /// topmost rows, which are headings.
    [[nodiscard]] bool isLink(int row, int column) const;
    /// Value and text by the place of the column, for painting.
    [[nodiscard]] QVariant valueAt(int row, int column) const;
    [[nodiscard]] QString textAt(int row, int column) const;

    /// Between a row's number and its place in the view: the index of a cell, and the number of an
    /// index.
    [[nodiscard]] QModelIndex indexOf(int row, int column = 0) const;
    /// -1 for an invalid index.
    [[nodiscard]] int rowOf(const QModelIndex &index) const;

    [[nodiscard]] QModelIndex index(int position, int column,
                                    const QModelIndex &parent = {}) const override;
    [[nodiscard]] QModelIndex parent(const QModelIndex &index) const override;
    using QObject::parent;
    [[nodiscard]] int rowCount(const QModelIndex &parent) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent) const override;
    [[nodiscard]] bool hasChildren(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index,
                                int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role = Qt::DisplayRole) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex &index) const override;

Q_SIGNALS:
    /// After an accepted change by the user.
    void edited(int row, const QString &column);
    /// After columnsChanged and when columns come or go.
    void columnSettingsChanged();

private:
    /// A row's place in memory. It stays when rows move, and is what indexes carry.
    struct Slot
    {
        int record = -1;  ///< row of the recordset, -1 for an inserted row
        int row = 0;      ///< number
        int parent = -1;  ///< slot
        int position = 0; ///< among its siblings, as displayed
    };
    struct SortKey;

    void checkRow(int row) const;
    /// A cell by the slot of its row: the value, the text that is shown, and the one that is
    /// searched.
    [[nodiscard]] QVariant slotValue(int slot, const ColumnData &column) const;
    [[nodiscard]] QString shownText(int slot, const ColumnData &column) const;
    [[nodiscard]] QString searchText(int slot, const ColumnData &column) const;
    [[nodiscard]] std::optional<int> scannedFor(QStringView text, const ColumnData &column) const;
    void store(int row, int column, const QVariant &value);
    void dropRows();
    /// The slots below a row, for -1 the topmost. children: null when there are none.
    [[nodiscard]] std::vector<int> &siblings(int parentSlot);
    [[nodiscard]] const std::vector<int> *children(int parentSlot) const;
    /// Notes in the slots where they stand in an order, from one place on.
    void renumberPositions(const std::vector<int> &order, std::size_t from = 0);
    /// Sorts by the present column, without one back to the order of loading.
    void arrange();
    void arrange(std::vector<int> &order);
    [[nodiscard]] SortKey sortKey(int slot, const ColumnData &column) const;
    [[nodiscard]] bool before(const SortKey &left, const SortKey &right) const;
    /// Appends the numbers of these rows, each with all that are below it.
    void appendTree(const std::vector<int> &order, QList<int> &rows) const;

    db::Recordset m_recordset;
    ColumnSet m_columns;
    std::vector<Slot> m_slots;
    std::vector<int> m_rows; ///< slot of each row number
    std::vector<int> m_top;  ///< slots of the topmost rows, as displayed
    QHash<int, std::vector<int>> m_children;
    QString m_treeColumn;
    int m_sortColumn = -1;
    Sort m_sortDirection = Sort::None;
    int m_filling = 0;
    int m_generation = 0; ///< changes when row numbers lose their meaning
    std::optional<std::pair<int, int>> m_cellInRule;
    bool m_setByRule = false;
};

} // namespace grid
