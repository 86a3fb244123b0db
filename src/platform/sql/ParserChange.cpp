#include "platform/sql/EngineTypes.h"
#include "platform/sql/Parser.h"

#include <algorithm>
#include <array>
#include <functional>
#include <limits>

namespace sql {

using namespace Qt::StringLiterals;

namespace {

/// Characters of a text column whose length is left out, and the most that one can have.
constexpr int usualTextLength = 255;
constexpr int longestText = 8000;

enum class TypeShape { Plain, Text, Decimal, Counter };

struct TypeEntry
{
    QStringView name; ///< in lower case
    ColumnKind kind;
    TypeShape shape;
    QStringView engineType; ///< empty for text
};

// Sorted by name, for parseType. A memo stands beside its row, which stays short however long the
// text is.
constexpr std::array types = {
    TypeEntry{u"autoincrement", ColumnKind::Integer, TypeShape::Counter, u"INTEGER"},
    TypeEntry{u"binary", ColumnKind::Binary, TypeShape::Plain, u"BLOB SUB_TYPE BINARY"},
    TypeEntry{u"bit", ColumnKind::YesNo, TypeShape::Plain, u"D_YESNO"},
    TypeEntry{u"boolean", ColumnKind::YesNo, TypeShape::Plain, u"D_YESNO"},
    TypeEntry{u"byte", ColumnKind::Integer, TypeShape::Plain, u"SMALLINT"},
    TypeEntry{u"char", ColumnKind::Text, TypeShape::Text, {}},
    TypeEntry{u"character", ColumnKind::Text, TypeShape::Text, {}},
    TypeEntry{u"counter", ColumnKind::Integer, TypeShape::Counter, u"INTEGER"},
    TypeEntry{u"currency", ColumnKind::Money, TypeShape::Plain, u"D_MONEY"},
    TypeEntry{u"date", ColumnKind::Date, TypeShape::Plain, u"TIMESTAMP"},
    TypeEntry{u"datetime", ColumnKind::Date, TypeShape::Plain, u"TIMESTAMP"},
    TypeEntry{u"decimal", ColumnKind::Real, TypeShape::Decimal, u"DOUBLE PRECISION"},
    TypeEntry{u"double", ColumnKind::Real, TypeShape::Plain, u"DOUBLE PRECISION"},
    TypeEntry{u"float", ColumnKind::Real, TypeShape::Plain, u"DOUBLE PRECISION"},
    TypeEntry{u"image", ColumnKind::Binary, TypeShape::Plain, u"BLOB SUB_TYPE BINARY"},
    TypeEntry{u"int", ColumnKind::Integer, TypeShape::Plain, u"INTEGER"},
    TypeEntry{u"integer", ColumnKind::Integer, TypeShape::Plain, u"INTEGER"},
    TypeEntry{u"logical", ColumnKind::YesNo, TypeShape::Plain, u"D_YESNO"},
    TypeEntry{u"long", ColumnKind::Integer, TypeShape::Plain, u"INTEGER"},
    TypeEntry{u"longbinary", ColumnKind::Binary, TypeShape::Plain, u"BLOB SUB_TYPE BINARY"},
    TypeEntry{u"longtext", ColumnKind::Text, TypeShape::Plain, u"BLOB SUB_TYPE TEXT"},
    TypeEntry{u"memo", ColumnKind::Text, TypeShape::Plain, u"BLOB SUB_TYPE TEXT"},
    TypeEntry{u"money", ColumnKind::Money, TypeShape::Plain, u"D_MONEY"},
    TypeEntry{u"nchar", ColumnKind::Text, TypeShape::Text, {}},
    TypeEntry{u"number", ColumnKind::Real, TypeShape::Plain, u"DOUBLE PRECISION"},
    TypeEntry{u"numeric", ColumnKind::Real, TypeShape::Decimal, u"DOUBLE PRECISION"},
    TypeEntry{u"nvarchar", ColumnKind::Text, TypeShape::Text, {}},
    TypeEntry{u"real", ColumnKind::Real, TypeShape::Plain, u"FLOAT"},
    TypeEntry{u"short", ColumnKind::Integer, TypeShape::Plain, u"SMALLINT"},
    TypeEntry{u"single", ColumnKind::Real, TypeShape::Plain, u"FLOAT"},
    TypeEntry{u"smallint", ColumnKind::Integer, TypeShape::Plain, u"SMALLINT"},
    TypeEntry{u"text", ColumnKind::Text, TypeShape::Text, {}},
    TypeEntry{u"timestamp", ColumnKind::Date, TypeShape::Plain, u"TIMESTAMP"},
    TypeEntry{u"varbinary", ColumnKind::Binary, TypeShape::Plain, u"BLOB SUB_TYPE BINARY"},
    TypeEntry{u"varchar", ColumnKind::Text, TypeShape::Text, {}},
    TypeEntry{u"yesno", ColumnKind::YesNo, TypeShape::Plain, u"D_YESNO"},
};

} // namespace

std::unique_ptr<Source> Parser::parseTarget(bool withAlias)
{
    auto target = std::make_unique<Source>();
    target->position = peek().begin;
    target->tableName = takeName(u"a table");
    if (withAlias)
        target->alias = parseAlias(true);
    return target;
}

Expression Parser::parseColumn()
{
    Expression column;
    column.kind = Expression::Kind::Name;
    column.position = peek().begin;
    if (peek(1).kind == TokenKind::Dot) {
        column.qualifier = takeName(u"a table");
        take();
    }
    // Nothing but a column can stand here, so that even a word of the grammar is one.
    if (!at(TokenKind::Name) && !at(TokenKind::Word))
        raise(u"expected the name of a column."_s);
    column.name = take().text;
    return column;
}

/// INSERT [INTO] table [(columns)] VALUES (..) | SELECT ..
std::unique_ptr<Change> Parser::parseInsert()
{
    auto change = std::make_unique<Change>();
    take();
    accept(Keyword::Into);
    change->target = parseTarget(false);
    // A list of columns, or the query itself in parentheses.
    if (at(TokenKind::LeftParenthesis) && peek(1).keyword != Keyword::Select) {
        take();
        do {
            change->columns.push_back(parseColumn());
        } while (accept(TokenKind::Comma));
        expect(TokenKind::RightParenthesis, u"\")\" behind the columns");
    }
    if (accept(Keyword::Values)) {
        expect(TokenKind::LeftParenthesis, u"\"(\" behind VALUES");
        do {
            change->values.push_back(parseExpression());
        } while (accept(TokenKind::Comma));
        expect(TokenKind::RightParenthesis, u"\")\" behind the values");
        return change;
    }
    if (!at(Keyword::Select) && !at(TokenKind::LeftParenthesis))
        raise(u"expected VALUES or SELECT."_s);
    change->query = parseQuery();
    return change;
}

/// UPDATE table SET column = value, .. [WHERE ..]. Of several tables none is changed: the engine
/// can't.
std::unique_ptr<Change> Parser::parseUpdate()
{
    auto change = std::make_unique<Change>();
    take();
    change->target = parseTarget(true);
    expect(Keyword::Set, u"SET");
    do {
        Assignment assignment;
        assignment.target = parseColumn();
        expect(TokenKind::Equal, u"\"=\" behind the column");
        assignment.value = parseExpression();
        change->assignments.push_back(std::move(assignment));
    } while (accept(TokenKind::Comma));
    if (accept(Keyword::Where))
        change->where = parseExpression();
    return change;
}

/// DELETE [* | table.*] FROM table [WHERE ..]
std::unique_ptr<Change> Parser::parseDelete()
{
    auto change = std::make_unique<Change>();
    take();
    if (accept(TokenKind::Star)) {
        // The star says nothing: rows go whole.
    } else if (atName() && peek(1).kind == TokenKind::Dot && peek(2).kind == TokenKind::Star) {
        // FROM names the one table that can be meant.
        take();
        take();
        take();
    }
    expect(Keyword::From, u"FROM");
    change->target = parseTarget(true);
    if (accept(Keyword::Where))
        change->where = parseExpression();
    return change;
}

std::unique_ptr<Definition> Parser::parseCreate()
{
    auto definition = std::make_unique<Definition>();
    definition->position = take().begin;
    if (accept(Keyword::Table))
        parseCreateTable(*definition);
    else
        parseCreateIndex(*definition);
    return definition;
}

/// CREATE TABLE name (column | key, ..)
void Parser::parseCreateTable(Definition &definition)
{
    definition.kind = Definition::Kind::CreateTable;
    definition.table = takeName(u"a table");
    expect(TokenKind::LeftParenthesis, u"\"(\" before the columns");
    do {
        if (auto key = parseKeyDefinition())
            definition.keys.push_back(std::move(*key));
        else
            definition.columns.push_back(parseColumnDefinition());
    } while (accept(TokenKind::Comma));
    expect(TokenKind::RightParenthesis, u"\")\" behind the columns");
    if (definition.columns.empty())
        raise(u"a table needs a column."_s);
}

/// CREATE [UNIQUE] INDEX name ON table (columns) [WITH ..]
void Parser::parseCreateIndex(Definition &definition)
{
    definition.kind = Definition::Kind::CreateIndex;
    definition.unique = accept(Keyword::Unique);
    expect(Keyword::Index, u"TABLE or INDEX behind CREATE");
    definition.name = takeName(u"an index");
    expect(Keyword::On, u"ON");
    definition.table = takeName(u"a table");
    definition.indexColumns = parseIndexColumns();
    if (!accept(Keyword::With))
        return;
    if (accept(Keyword::Primary)) {
        definition.primary = true;
        return;
    }
    // To ignore Null is what a unique index of the engine does anyhow.
    const bool ignore = acceptWord(u"ignore");
    definition.disallowNull = !ignore && acceptWord(u"disallow");
    if (ignore && acceptWord(u"zero"))
        definition.ignoreZero = true;
    else if (!(ignore || definition.disallowNull) || !accept(Keyword::Null))
        raise(u"expected PRIMARY, DISALLOW NULL, IGNORE NULL or IGNORE ZERO behind WITH."_s);
    // The engine indexes one expression, by which the zeros are left out.
    if (definition.ignoreZero && definition.indexColumns.size() != 1)
        raise(u"IGNORE ZERO is for an index of one column."_s);
}

/// ALTER TABLE name ADD .. | ALTER [COLUMN] .. | DROP ..; several columns may be added at once.
std::unique_ptr<Definition> Parser::parseAlter()
{
    auto definition = std::make_unique<Definition>();
    definition->position = take().begin;
    expect(Keyword::Table, u"TABLE behind ALTER");
    definition->table = takeName(u"a table");
    if (accept(Keyword::Add)) {
        if (auto key = parseKeyDefinition()) {
            definition->kind = Definition::Kind::AddKey;
            definition->keys.push_back(std::move(*key));
            return definition;
        }
        definition->kind = Definition::Kind::AddColumn;
        accept(Keyword::Column);
        do {
            definition->columns.push_back(parseColumnDefinition());
        } while (accept(TokenKind::Comma));
    } else if (accept(Keyword::Alter)) {
        definition->kind = Definition::Kind::AlterColumn;
        accept(Keyword::Column);
        definition->columns.push_back(parseColumnDefinition());
    } else if (accept(Keyword::Drop)) {
        definition->kind = Definition::Kind::DropColumn;
        if (accept(Keyword::Constraint))
            definition->kind = Definition::Kind::DropKey;
        else
            accept(Keyword::Column);
        definition->name = takeName(u"what is to be dropped");
    } else {
        raise(u"expected ADD, ALTER or DROP."_s);
    }
    return definition;
}

/// DROP TABLE name | DROP INDEX name ON table, since names of indexes are a table's own.
std::unique_ptr<Definition> Parser::parseDrop()
{
    auto definition = std::make_unique<Definition>();
    definition->position = take().begin;
    if (accept(Keyword::Table)) {
        definition->kind = Definition::Kind::DropTable;
        definition->table = takeName(u"a table");
        return definition;
    }
    definition->kind = Definition::Kind::DropIndex;
    expect(Keyword::Index, u"TABLE or INDEX behind DROP");
    definition->name = takeName(u"an index");
    expect(Keyword::On, u"ON");
    definition->table = takeName(u"a table");
    return definition;
}

ColumnDefinition Parser::parseColumnDefinition()
{
    ColumnDefinition column;
    column.name = takeName(u"a column");
    column.type = parseType();
    // In any order, as they are written in the schema and by hand.
    while (parseColumnConstraint(column)) {
    }
    return column;
}

/// [CONSTRAINT name] NOT NULL | NULL | PRIMARY KEY | UNIQUE, or DEFAULT with a value.
bool Parser::parseColumnConstraint(ColumnDefinition &column)
{
    if (accept(Keyword::Constraint)) {
        // A column's own constraint needs no name in the engine: nothing refers to it by one.
        takeName(u"a constraint");
        if (!at(Keyword::Primary) && !at(Keyword::Unique) && !at(Keyword::Not))
            raise(u"expected PRIMARY KEY, UNIQUE or NOT NULL."_s);
    }
    if (accept(Keyword::Not)) {
        expect(Keyword::Null, u"NULL behind NOT");
        column.notNull = true;
    } else if (accept(Keyword::Null)) {
        column.notNull = false;
    } else if (accept(Keyword::Primary)) {
        expect(Keyword::Key, u"KEY behind PRIMARY");
        column.primaryKey = true;
    } else if (accept(Keyword::Unique)) {
        column.unique = true;
    } else if (accept(Keyword::Default)) {
        column.negativeDefault = accept(TokenKind::Minus);
        const Token &value = peek();
        const bool plain = value.isLiteral() || at(Keyword::Null) || at(Keyword::True) ||
                           at(Keyword::False) || at(Keyword::Yes) || at(Keyword::No);
        const bool moment = atWord(u"date") || atWord(u"now");
        if (!plain && !moment)
            raise(u"a default is a literal, True, False, Null, Date() or Now()."_s);
        column.defaultValue = take();
        if (moment && accept(TokenKind::LeftParenthesis))
            expect(TokenKind::RightParenthesis, u"\")\"");
    } else {
        return false;
    }
    return true;
}

/// [CONSTRAINT name] PRIMARY KEY | UNIQUE (columns)
std::optional<KeyDefinition> Parser::parseKeyDefinition()
{
    const bool named = at(Keyword::Constraint);
    const bool primary = at(Keyword::Primary) && peek(1).keyword == Keyword::Key;
    if (!named && !primary && !at(Keyword::Unique))
        return std::nullopt;
    KeyDefinition key;
    if (accept(Keyword::Constraint))
        key.name = takeName(u"a constraint");
    if (accept(Keyword::Primary)) {
        expect(Keyword::Key, u"KEY behind PRIMARY");
        key.primary = true;
    } else {
        expect(Keyword::Unique, u"PRIMARY KEY or UNIQUE");
    }
    key.columns = parseIndexColumns();
    return key;
}

std::vector<IndexColumn> Parser::parseIndexColumns()
{
    std::vector<IndexColumn> columns;
    expect(TokenKind::LeftParenthesis, u"\"(\" before the columns");
    do {
        IndexColumn column;
        column.name = takeName(u"a column");
        if (accept(Keyword::Desc))
            column.descending = true;
        else
            accept(Keyword::Asc);
        columns.push_back(column);
    } while (accept(TokenKind::Comma));
    expect(TokenKind::RightParenthesis, u"\")\" behind the columns");
    return columns;
}

int Parser::parseLength(int most)
{
    bool ok = false;
    const int length = at(TokenKind::Integer) ? peek().text.toInt(&ok) : 0;
    if (!ok || length < 1 || length > most)
        raise(u"expected a length from 1 to %1."_s.arg(most));
    take();
    return length;
}

/// The words for types are no words of the grammar: columns may be called so, and here nothing else
/// can stand.
TypeName Parser::parseType()
{
    if (!at(TokenKind::Word))
        raise(u"expected the type of the column."_s);
    const QString word = peek().text.toString().toLower();
    const auto found = std::ranges::lower_bound(types, QStringView(word), std::less<QStringView>(),
                                                &TypeEntry::name);
    if (found == types.end() || found->name != word)
        raise(u"this type of column is not known."_s);
    take();
    TypeName type;
    type.kind = found->kind;
    type.engineType = found->engineType.toString();
    type.autoNumber = found->shape == TypeShape::Counter;
    // The standard's second word for the same type.
    if (word == u"double")
        acceptWord(u"precision");
    const bool bracketed = accept(TokenKind::LeftParenthesis);
    switch (found->shape) {
    case TypeShape::Text:
        type.length = bracketed ? parseLength(longestText) : usualTextLength;
        type.engineType = u"VARCHAR(%1)"_s.arg(type.length);
        break;
    case TypeShape::Decimal:
    case TypeShape::Counter: {
        if (!bracketed)
            break;
        // Of a counter the first number and the step; of a number digits and decimals, which say
        // nothing here.
        const int first = parseLength(std::numeric_limits<int>::max());
        if (found->shape == TypeShape::Counter)
            type.firstNumber = first;
        if (accept(TokenKind::Comma) && !accept(TokenKind::Integer))
            raise(u"expected a number."_s);
        break;
    }
    case TypeShape::Plain:
        // A length says nothing here, but may stand.
        if (bracketed)
            parseLength(std::numeric_limits<int>::max());
        if (type.kind == ColumnKind::Text)
            type.length = MemoLength;
        break;
    }
    if (bracketed)
        expect(TokenKind::RightParenthesis, u"\")\" behind the length");
    return type;
}

} // namespace sql
