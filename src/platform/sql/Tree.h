#pragma once

#include "platform/sql/Lexer.h"
#include "platform/sql/Schema.h"
#include "platform/sql/Translator.h"

#include <QString>
#include <QStringView>
#include <memory>
#include <optional>
#include <vector>

/// The tree of a statement. Chains of one operator are flat lists, however long they are, so that
/// only real nesting, which the parser limits, makes a tree deep. Views point into the statement.
namespace sql {

struct Function;
struct Query;
struct Source;
struct Expression;
using ExpressionPointer = std::unique_ptr<Expression>;

enum class Operator : quint8 {
    Add,
    Subtract,
    Multiply,
    Divide,
    IntegerDivide,
    Modulo,
    Power,
    Concatenate,
    Equal,
    NotEqual,
    Less,
    LessOrEqual,
    Greater,
    GreaterOrEqual,
};

struct Expression
{
    enum class Kind : quint8 {
        Literal,   ///< token; negated: a minus stands before it
        Parameter, ///< token
        Null,
        Boolean,    ///< negated: False
        Name,       ///< qualifier and name
        Call,       ///< function and operands
        CountRows,  ///< Count(*)
        Negate,     ///< one operand
        Arithmetic, ///< operands with an operator between each two, from left to right
        Scalar,     ///< query that gives one value
        // From here on the result is a condition.
        Not,     ///< one operand
        And,     ///< operands
        Or,      ///< operands
        Compare, ///< two operands, one operator
        Between, ///< value, lower, upper; may be negated, as all that follow
        In,      ///< value and the list
        InQuery, ///< value and query
        Like,    ///< value and pattern
        IsNull,  ///< one operand
        Exists,  ///< query
    };

    Kind kind = Kind::Null;
    bool negated = false;
    qsizetype position = 0; ///< in the statement, for messages
    Token token;
    QStringView qualifier;
    QStringView name;
    const Function *function = nullptr;
    std::vector<ExpressionPointer> operands;
    std::vector<Operator> operators;
    std::unique_ptr<Query> query;

    // What the resolver finds out.
    ColumnKind type = ColumnKind::Unknown;
    const Source *source = nullptr; ///< of a name
    int column = -1;                ///< of a name: which one of the source's
    bool qualified = false;         ///< of a name: has to be written with its table

    /// True for what is true or false, so that the engine wants no value in its place.
    [[nodiscard]] bool isCondition() const { return kind >= Kind::Not; }
    /// A value without a type of its own, or one that adapts to what it meets.
    [[nodiscard]] bool isValue() const
    {
        return kind == Kind::Literal || kind == Kind::Parameter || kind == Kind::Boolean ||
               kind == Kind::Null;
    }
};

/// A column that a table or derived table offers.
struct OutputColumn
{
    QString name;    ///< as statements know it
    QString written; ///< as the engine's statement has to call it, without quotes
    ColumnKind kind = ColumnKind::Unknown;
    int length = 0;
};

/// A table or derived table of a FROM clause.
struct Source
{
    qsizetype position = 0;
    QStringView tableName;
    QStringView alias;
    std::unique_ptr<Query> derived;

    const Table *table = nullptr;
    std::vector<OutputColumn> derivedColumns;
    QString written;      ///< how the engine's statement calls it, quoted; empty: it has no name
    bool renamed = false; ///< the engine's statement has to say so

    /// How the statement's own names refer to the table; empty for a derived one without a name.
    [[nodiscard]] QStringView name() const { return alias.isEmpty() ? tableName : alias; }
    [[nodiscard]] int columnCount() const;
    /// The column's number, -1 when there is none of that name.
    [[nodiscard]] int find(QStringView column) const;
    /// Of a column by its number: the name in the dialect, the one that the engine's statement has
    /// to use, the kind, and the characters of a text. None of these checks the number.
    [[nodiscard]] const QString &columnName(int column) const;
    [[nodiscard]] const QString &writtenColumn(int column) const;
    [[nodiscard]] ColumnKind columnKind(int column) const;
    [[nodiscard]] int columnLength(int column) const;
    [[nodiscard]] bool isMemo(int column) const { return columnLength(column) == MemoLength; }
};

enum class JoinKind : quint8 { Comma, Inner, Left, Right, Full };

struct Join;
/// Members joined from left to right; the kind of a member's join says how it meets all before it.
using JoinChain = std::vector<Join>;

struct Join
{
    JoinKind kind = JoinKind::Comma;
    std::unique_ptr<Source> source; ///< or
    std::unique_ptr<JoinChain> group;
    ExpressionPointer condition;
};

struct SelectItem
{
    enum class Kind : quint8 { Value, AllColumns, TableColumns };
    Kind kind = Kind::Value;
    qsizetype position = 0;
    ExpressionPointer value;
    QStringView alias;
    QStringView table;              ///< of TableColumns
    const Source *source = nullptr; ///< of TableColumns
};

struct Select
{
    bool distinct = false;
    std::optional<Token> top;
    std::vector<SelectItem> items;
    JoinChain from;
    ExpressionPointer where;
    std::vector<ExpressionPointer> groupBy;
    ExpressionPointer having;

    std::vector<Source *> sources;    ///< all of the FROM clause, in order
    std::vector<OutputColumn> output; ///< what it gives
    bool aggregates = false;          ///< groups, or an aggregate in the list
    bool expanded = false;            ///< stars have to be written out column by column
    bool compared = false; ///< rows are told apart, grouped or sorted by what the list gives
};

struct OrderItem
{
    ExpressionPointer value;
    bool descending = false;
    int ordinal = 0; ///< of the output column that it means; 0: the expression itself
};

/// Selects under UNION, with the order of the whole.
struct Query
{
    std::vector<Select> selects;
    std::vector<bool> all; ///< between each two selects: UNION ALL
    std::vector<OrderItem> orderBy;
};

struct Assignment
{
    Expression target; ///< a name
    ExpressionPointer value;
};

/// INSERT, UPDATE or DELETE.
struct Change
{
    std::unique_ptr<Source> target;
    std::vector<Expression> columns; ///< names, of an insert
    std::vector<ExpressionPointer> values;
    std::unique_ptr<Query> query;
    std::vector<Assignment> assignments;
    ExpressionPointer where;
};

/// A column's type as a statement writes it.
struct TypeName
{
    ColumnKind kind = ColumnKind::Unknown;
    QString engineType;
    int length = 0;
    bool autoNumber = false;
    int firstNumber = 1; ///< of an autonumber
};

struct ColumnDefinition
{
    QStringView name;
    TypeName type;
    bool notNull = false;
    bool primaryKey = false;
    bool unique = false;
    std::optional<Token> defaultValue; ///< a literal, or a word: True, Null, Date, Now
    bool negativeDefault = false;
};

struct IndexColumn
{
    QStringView name;
    bool descending = false;
};

struct KeyDefinition
{
    QStringView name; ///< empty: unnamed
    bool primary = false;
    std::vector<IndexColumn> columns;
};

/// CREATE, ALTER or DROP.
struct Definition
{
    enum class Kind : quint8 {
        CreateTable,
        DropTable,
        AddColumn,
        AlterColumn,
        DropColumn,
        AddKey,
        DropKey,
        CreateIndex,
        DropIndex,
    };
    Kind kind = Kind::CreateTable;
    qsizetype position = 0;
    QStringView table;
    std::vector<ColumnDefinition> columns;
    std::vector<KeyDefinition> keys;
    QStringView name; ///< of the column, index or constraint
    bool unique = false;
    bool primary = false;
    bool ignoreZero = false;   ///< a unique index that leaves zeros out
    bool disallowNull = false; ///< an index whose columns take no Null from now on
    std::vector<IndexColumn> indexColumns;
};

struct Statement
{
    StatementKind kind = StatementKind::Query;
    std::unique_ptr<Query> query;
    std::unique_ptr<Change> change;
    std::unique_ptr<Definition> definition;
};

} // namespace sql
