#pragma once

#include "platform/report/expr/Expression.h"
#include "platform/report/layout/Layout.h"
#include "platform/report/paginate/DataSource.h"

#include <map>
#include <vector>

/// A layout with its expressions parsed and its aggregates given their places, ready to run.
namespace report::compiled {

/// Where an aggregate begins anew.
enum class ScopeKind {
    Report,
    Page,
    Group,
    Set, ///< the rows of a set that belong to the row on hand
};

/// What one aggregate collects, whichever expressions ask for it.
struct AggregateSlot
{
    AggregateFunction function = AggregateFunction::Sum;
    Expression argument;
    ScopeKind scope = ScopeKind::Report;
    int group = -1; ///< of Group; the set's number of Set
};

/// An expression and, for each of its aggregates, the number of its slot.
struct Value
{
    Expression expression;
    std::vector<int> slots;
};

/// A piece of a text: words as they stand, or a value.
struct Piece
{
    QString words;
    std::optional<Value> value;
};

struct ConditionalStyle
{
    Value when;
    const report::ConditionalStyle *style = nullptr;
};

struct Series
{
    const report::Series *layout = nullptr;
    Value value; ///< its slots number the aggregates of a category
    std::optional<Value> by;
};

struct Chart
{
    Value category;
    std::vector<Series> series;
    std::vector<Piece> title, categoryTitle, valueTitle;
    ScopeKind scope = ScopeKind::Report; ///< over whose rows it goes
    int group = -1;                      ///< of Group; the set's number of Set
    /// What the collector goes by: the layout's chart, or one made of a cross-tab.
    std::shared_ptr<const report::Chart> layout;
};

/// An object with all of its expressions; those that it doesn't have are empty.
struct Object
{
    const report::Object *layout = nullptr;
    std::vector<Piece> pieces;  ///< of texts
    std::optional<Value> value; ///< of fields, bar codes and pictures from the rows
    std::optional<Value> visibleIf;
    std::vector<ConditionalStyle> styles;
    std::optional<Chart> chart;
    std::optional<Chart> columnTotals; ///< of a cross-tab
    int repeatSlot = -1; ///< its place among the remembered values, when repeats are hidden
};

/// A band of the layout, and what is known of it before any row is read.
struct Band
{
    const report::Band *layout = nullptr;
    std::optional<Value> printIf;
    std::vector<Object> objects;
    bool dependsOnPage = false; ///< shows the page's number or hides repeats
    bool hasAggregates = false;
};

/// The bands of one place: of one kind, and of one group.
using Bands = std::vector<Band>;

/// Further rows by the value of their key.
struct RowSet
{
    std::shared_ptr<const DataSource> rows; ///< null when they weren't given
    QHash<QString, std::vector<int>> byKey;
    Value of;
    Bands header, detail, footer;
    int firstRepeatSlot = 0; ///< of its bands
    int endRepeatSlot = 0;

    /// The rows of a key's value, in their order.
    [[nodiscard]] const std::vector<int> *rowsOf(const QVariant &key) const;
};

/// The whole layout. It points into the layout that it was compiled from, which must outlive it.
struct Report
{
    const Layout *layout = nullptr;
    Bands reportHeader, pageHeader, detail, pageFooter, reportFooter;
    std::vector<RowSet> sets;
    std::vector<Bands> groupHeaders, groupFooters; ///< by the group's number
    std::vector<Value> groupBy;
    std::map<QString, Value> formulas;   ///< by name in lower case
    QHash<QString, QVariant> parameters; ///< the same
    std::vector<AggregateSlot> slots;
    int repeatSlots = 0;
    bool needsTotalPages = false;
    QStringList problems;
};

/// Parses a layout's expressions. What can't be read, and names that neither the rows nor the
/// layout know, are told in problems; the value is then Null.
[[nodiscard]] Report compile(const Layout &layout, const DataSource &rows, const Inputs &inputs);

} // namespace report::compiled
