#pragma once

#include "platform/report/layout/Units.h"

#include <QByteArray>
#include <QColor>
#include <QList>
#include <QString>
#include <QStringList>

/// A report's layout as plain values: what the file holds, what the designer edits, what the
/// paginator reads. Expressions are kept as text; see expr/Expression.h.
namespace report {

enum class Align { Left, Center, Right };
enum class VerticalAlign { Top, Middle, Bottom };

struct Font
{
    QString family = QStringLiteral("Arial");
    double points = 9;
    bool bold = false;
    bool italic = false;
    bool underline = false;

    bool operator==(const Font &) const = default;
};

struct Border
{
    bool left = false, top = false, right = false, bottom = false;
    Length width = 20;
    QColor color = Qt::black;

    [[nodiscard]] bool isNone() const { return !left && !top && !right && !bottom; }
    bool operator==(const Border &) const = default;
};

struct Style
{
    Font font;
    QColor color = Qt::black;
    QColor fill; ///< invalid for none
    Align align = Align::Left;
    VerticalAlign verticalAlign = VerticalAlign::Top;
    Border border;
    Length padding = 0;

    bool operator==(const Style &) const = default;
};

/// A style with a name that objects follow.
struct NamedStyle
{
    QString name;
    Style style;

    bool operator==(const NamedStyle &) const = default;
};

/// A picture that lies in the layout itself.
struct StoredPicture
{
    QString name;
    QByteArray data; ///< the bytes of the picture's file

    bool operator==(const StoredPicture &) const = default;
};

/// What changes of a style while a condition holds.
struct ConditionalStyle
{
    QString when;
    QColor color; ///< invalid: as it is
    QColor fill;
    bool bold = false;

    bool operator==(const ConditionalStyle &) const = default;
};

enum class ObjectKind {
    Text,     ///< words with expressions in braces: "Page {PageNumber} of {TotalPages}"
    Field,    ///< the value of one expression, with a format
    Line,     ///< from its place to its place plus width and height
    Box,      ///< a frame or a filled rectangle
    Picture,  ///< one of the layout's own, a file beside it, or bytes from an expression
    BarCode,  ///< Code 128 of an expression
    Chart,    ///< bars or lines over the rows of the band's group, or of the report
    CrossTab, ///< sums of the same rows by two keys
};

enum class ChartKind { Bars, StackedBars, Line };
enum class LegendPlace { Bottom, Right, None };
enum class ChartOrder {
    Rows,     ///< as the rows come
    Category, ///< smallest category first
    Value,    ///< largest first value first
};

/// A row of bars or a line of a chart.
struct Series
{
    QString name;
    QString value; ///< expression over the rows of a category
    QString by;    ///< expression; each of its values makes a series of its own
    QString byFormat;
    QColor color; ///< invalid: the next of the usual ones

    bool operator==(const Series &) const = default;
};

/// What an object shows that is a chart.
struct Chart
{
    ChartKind kind = ChartKind::Bars;
    QString title;          ///< words with expressions in braces
    QString category;       ///< expression; rows that share its value make one category
    QString categoryFormat; ///< the object's own format is that of the values
    QString categoryTitle;  ///< of the axis, with expressions in braces
    QString valueTitle;     ///< the same
    LegendPlace legend = LegendPlace::Bottom; ///< of two series or more
    ChartOrder order = ChartOrder::Rows;
    int most = 0;        ///< so many categories, 0 for all
    bool others = false; ///< what is beyond them together as one more
    QList<Series> series;

    bool operator==(const Chart &) const = default;
};

/// What an object shows that is a cross-tab: a line for each value of one key, a column for each of
/// another. Both stand in their order; the object's format is that of the values.
struct CrossTab
{
    QString title; ///< words with expressions in braces
    QString rows;  ///< expression
    QString rowsFormat;
    QString rowsTitle;
    QString columns; ///< expression
    QString columnsFormat;
    QString value;       ///< expression over the rows of a cell
    bool totals = false; ///< of lines and columns

    bool operator==(const CrossTab &) const = default;
};

struct Object
{
    ObjectKind kind = ObjectKind::Text;
    QString name; ///< by which the program sets a text; may be empty
    /// The named style that it follows; may be empty. What its own style has otherwise is its own.
    QString styleName;
    Length x = 0; ///< from the left margin
    Length y = 0; ///< from the top of the band
    Length width = 3000;
    Length height = 500;
    QString content; ///< text, expression or file, by kind
    QString format;  ///< of a field: "0.00", "$0.00", "mm/dd/yyyy", "hh:mm AMPM"
    bool canGrow = false;
    bool hideRepeated = false; ///< blank while the value is that of the row before
    QString visibleIf;
    Length lineWidth = 20; ///< of lines and boxes
    Style style;
    QList<ConditionalStyle> conditionalStyles;
    Chart chart;       ///< of a chart
    CrossTab crossTab; ///< of a cross-tab

    bool operator==(const Object &) const = default;
};

enum class BandKind {
    ReportHeader,
    PageHeader,
    GroupHeader,
    Detail,
    SubHeader, ///< of the rows of a further set that belong to the row on hand
    SubDetail,
    SubFooter,
    GroupFooter,
    ReportFooter,
    PageFooter,
};

struct Band
{
    BandKind kind = BandKind::Detail;
    QString group; ///< of group headers and footers
    QString rows;  ///< of sub bands: the name of the set
    Length height = 500;
    QString printIf;
    bool newPageBefore = false;
    bool newPageAfter = false;
    bool atBottom = false; ///< of a group or report footer: at the foot of the page
    QList<Object> objects;

    bool operator==(const Band &) const = default;
};

/// A group of rows; the first of the list is the outermost.
struct Group
{
    QString name;
    QString by;                ///< expression whose change begins a new group
    bool newPage = false;      ///< each group but the first begins a page
    bool keepTogether = false; ///< on one page where it fits on one
    bool repeatHeader = false; ///< its header again on each page that it goes on to
    bool resetPageNumber = false;

    bool operator==(const Group &) const = default;
};

/// A named expression, used in others like a field.
struct Formula
{
    QString name;
    QString expression;

    bool operator==(const Formula &) const = default;
};

enum class ParameterType { Text, Number, Date, YesNo };

/// What a report asks for when it is viewed; its query and its expressions read the answer.
struct Parameter
{
    QString name;
    ParameterType type = ParameterType::Text;
    QString prompt;          ///< the name unless given
    QString usual;           ///< expression for what is offered, over Today and Now
    QString list;            ///< a query whose first column holds the values to choose from
    bool isOptional = false; ///< may be left empty, and is Null then

    bool operator==(const Parameter &) const = default;
};

/// Further rows that are read beside the report's own. Those whose key has the value that an
/// expression over the row on hand gives are printed behind its detail.
struct RowSet
{
    QString name;
    QString query;
    QString key; ///< a field of these rows
    QString of;  ///< expression over the report's row

    bool operator==(const RowSet &) const = default;
};

struct PageSetup
{
    QString paper = QStringLiteral("Letter"); ///< "Letter", "A4", "Legal"
    bool landscape = false;
    Length left = 1270, top = 1270, right = 1270, bottom = 1270;

    /// The names of the papers that are known.
    [[nodiscard]] static QStringList papers();
    /// Of the sheet as it is printed.
    [[nodiscard]] Length width() const;
    [[nodiscard]] Length height() const;
    /// Between the margins.
    [[nodiscard]] Length innerWidth() const { return width() - left - right; }
    [[nodiscard]] Length innerHeight() const { return height() - top - bottom; }
    bool operator==(const PageSetup &) const = default;
};

struct Layout
{
    static constexpr int CurrentVersion = 3;

    QString name;
    QString title;
    PageSetup page;
    QList<NamedStyle> styles;
    QList<StoredPicture> pictures;
    QList<Parameter> parameters;
    QString query; ///< by which the report reads for itself; may be empty
    QList<RowSet> rowSets;
    QList<Group> groups;
    QStringList sort; ///< expressions by which the rows of the innermost group are sorted
    QList<Formula> formulas;
    QList<Band> bands; ///< in the order of their kinds; of one kind in the order of printing

    /// The number of a part by its name in any case, -1 for none.
    [[nodiscard]] int groupIndex(QStringView group) const;
    [[nodiscard]] int rowSetIndex(QStringView set) const;
    [[nodiscard]] int styleIndex(QStringView style) const;
    [[nodiscard]] int pictureIndex(QStringView picture) const;
    /// The text object of a name in any band, or null.
    [[nodiscard]] const Object *find(QStringView object) const;
    [[nodiscard]] Object *find(QStringView object);
    bool operator==(const Layout &) const = default;
};

} // namespace report
