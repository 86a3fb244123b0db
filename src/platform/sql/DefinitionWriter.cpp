#include "platform/sql/DefinitionWriter.h"

#include "platform/sql/Conversion.h"
#include "platform/sql/EngineTypes.h"
#include "platform/sql/Errors.h"
#include "platform/sql/Names.h"

#include <QSet>
#include <QStringList>
#include <algorithm>

namespace sql {

using namespace Qt::StringLiterals;
using EngineTypes::quotedName;

namespace {

/// Where values stand while their column is made anew.
constexpr QStringView movedColumn = u"~moved";

class DefinitionWriter
{
public:
    DefinitionWriter(const Definition &definition, QStringView statement, const Schema &schema)
        : m_definition(definition)
        , m_statement(statement)
        , m_table(schema.find(definition.table))
    {}

    std::vector<QString> write();

private:
    void createTable();
    void addColumns();
    void alterColumn();
    void replaceColumn(const Column &present, const ColumnDefinition &wanted);
    void dropColumn();
    void addKey(const KeyDefinition &key);
    void refuseNull(const std::vector<IndexColumn> &columns);
    void createIndex();

    [[nodiscard]] const Table &table() const;
    [[nodiscard]] const Column &column(QStringView name) const;
    [[nodiscard]] QString alterTable() const;
    [[nodiscard]] QString checkedName(QStringView name) const;
    [[nodiscard]] QString columnText(const ColumnDefinition &column, bool key) const;
    [[nodiscard]] QString typeText(const ColumnDefinition &column, bool key) const;
    [[nodiscard]] QString defaultText(const ColumnDefinition &column) const;
    [[nodiscard]] QString keyText(const KeyDefinition &key) const;
    [[nodiscard]] bool standsInKey(QStringView column) const;
    [[nodiscard]] std::vector<QString> yesNoColumns(QStringView without) const;
    void replaceYesNoTrigger(const std::vector<QString> &before, const std::vector<QString> &after);
    [[noreturn]] void raise(const QString &what) const
    {
        raiseSyntaxError(what, m_statement, m_definition.position);
    }

    const Definition &m_definition;
    QStringView m_statement;
    const Table *m_table; ///< null when there is none of that name
    std::vector<QString> m_statements;
};

std::vector<QString> DefinitionWriter::write()
{
    switch (m_definition.kind) {
    case Definition::Kind::CreateTable:
        createTable();
        break;
    case Definition::Kind::DropTable:
        m_statements.push_back(u"DROP TABLE "_s + quotedName(table().name));
        break;
    case Definition::Kind::AddColumn:
        addColumns();
        break;
    case Definition::Kind::AlterColumn:
        alterColumn();
        break;
    case Definition::Kind::DropColumn:
        dropColumn();
        break;
    case Definition::Kind::AddKey:
        addKey(m_definition.keys.front());
        break;
    case Definition::Kind::DropKey:
        m_statements.push_back(alterTable() + u"DROP CONSTRAINT "_s +
                               quotedName(EngineTypes::indexName(table().name, m_definition.name)));
        break;
    case Definition::Kind::CreateIndex:
        createIndex();
        break;
    case Definition::Kind::DropIndex:
        m_statements.push_back(u"DROP INDEX "_s +
                               quotedName(EngineTypes::indexName(table().name, m_definition.name)));
        break;
    }
    return std::move(m_statements);
}

const Table &DefinitionWriter::table() const
{
    if (!m_table) {
        throw base::Error(ErrorNumber::TableUnknown,
                          u"The table \"%1\" does not exist."_s.arg(m_definition.table));
    }
    return *m_table;
}

const Column &DefinitionWriter::column(QStringView name) const
{
    const Column *found = table().find(name);
    if (!found) {
        throw base::Error(ErrorNumber::ValueMissing,
                          u"The table \"%1\" has no column \"%2\"."_s.arg(table().name, name));
    }
    return *found;
}

QString DefinitionWriter::alterTable() const
{
    return u"ALTER TABLE "_s + quotedName(table().name) + u' ';
}

/// Tables and columns are called as the dialect says, or not at all; only indexes get names of our
/// own (EngineTypes::indexName).
QString DefinitionWriter::checkedName(QStringView name) const
{
    if (name.toUtf8().size() > EngineTypes::MaximumNameLength) {
        raise(u"the name \"%1\" is longer than %2 characters."_s.arg(
            name, QString::number(EngineTypes::MaximumNameLength)));
    }
    return quotedName(name);
}

bool DefinitionWriter::standsInKey(QStringView column) const
{
    return std::ranges::any_of(m_definition.keys, [&](const KeyDefinition &key) {
        return std::ranges::any_of(
            key.columns, [&](const IndexColumn &part) { return equalNames(part.name, column); });
    });
}

QString DefinitionWriter::typeText(const ColumnDefinition &column, bool key) const
{
    if (column.type.kind == ColumnKind::Date && column.defaultValue &&
        equalNames(column.defaultValue->text, u"date"))
        return QString::fromUtf16(EngineTypes::DateToday);
    // The engine can index no longer text.
    if (key && column.type.kind == ColumnKind::Text)
        return u"VARCHAR(%1)"_s.arg(std::min(column.type.length, EngineTypes::MaximumKeyLength));
    return column.type.engineType;
}

QString DefinitionWriter::defaultText(const ColumnDefinition &column) const
{
    if (!column.defaultValue)
        return {};
    const Token &token = *column.defaultValue;
    const bool date = column.type.kind == ColumnKind::Date;
    if (token.kind == TokenKind::Word) {
        const bool today = equalNames(token.text, u"date");
        if (today || equalNames(token.text, u"now")) {
            if (!date)
                raise(u"only a date can default to Date() or Now()."_s);
            // The domain brings today.
            return today ? QString() : u" DEFAULT CURRENT_TIMESTAMP"_s;
        }
        // Null is the default of a column without one.
        if (token.keyword == Keyword::Null)
            return {};
        const bool yes = token.keyword == Keyword::True || token.keyword == Keyword::Yes;
        return yes ? u" DEFAULT -1"_s : u" DEFAULT 0"_s;
    }
    QVariant value = literalValue(token, m_statement);
    if (column.negativeDefault)
        value = -value.toDouble();
    value = converted(value, column.type.kind);
    if (value.isNull())
        return {};
    if (date)
        return u" DEFAULT TIMESTAMP '"_s + value.toDateTime().toString(u"yyyy-MM-dd HH:mm:ss") +
               u'\'';
    if (column.type.kind == ColumnKind::Text)
        return u" DEFAULT '"_s + value.toString().replace(u'\'', u"''"_s) + u'\'';
    if (column.type.kind == ColumnKind::Binary)
        raise(u"binary data has no default."_s);
    return u" DEFAULT "_s + QString::number(value.toDouble(), 'g', 15);
}

QString DefinitionWriter::columnText(const ColumnDefinition &column, bool key) const
{
    QString text = checkedName(column.name) + u' ' + typeText(column, key);
    if (column.type.autoNumber) {
        text += u" GENERATED BY DEFAULT AS IDENTITY"_s;
        // The engine counts on from the number that it is given.
        if (column.type.firstNumber != 1)
            text += u" (START WITH %1)"_s.arg(column.type.firstNumber - 1);
    }
    text += defaultText(column);
    if (column.notNull || column.primaryKey)
        text += u" NOT NULL"_s;
    if (column.primaryKey)
        text += u" PRIMARY KEY"_s;
    else if (column.unique)
        text += u" UNIQUE"_s;
    return text;
}

QString DefinitionWriter::keyText(const KeyDefinition &key) const
{
    QStringList columns;
    for (const IndexColumn &part : key.columns) {
        const auto own =
            std::ranges::find_if(m_definition.columns, [&](const ColumnDefinition &candidate) {
                return equalNames(candidate.name, part.name);
            });
        columns += own != m_definition.columns.end() ? quotedName(own->name)
                                                     : quotedName(column(part.name).name);
    }
    QString text;
    if (!key.name.isEmpty()) {
        text += u"CONSTRAINT "_s +
                quotedName(EngineTypes::indexName(
                    m_table ? QStringView(m_table->name) : m_definition.table, key.name)) +
                u' ';
    }
    return text + (key.primary ? u"PRIMARY KEY ("_s : u"UNIQUE ("_s) + columns.join(u", ") + u')';
}

void DefinitionWriter::createTable()
{
    // The engine would take a name that differs in case alone for another one.
    const QString name = m_table ? m_table->name : m_definition.table.toString();
    QStringList parts;
    std::vector<QString> yesNo;
    QSet<QString> names;
    for (const ColumnDefinition &column : m_definition.columns) {
        if (names.contains(column.name.toString().toLower()))
            raise(u"the column \"%1\" stands twice."_s.arg(column.name));
        // The engine takes "A" and "a" for two columns, the dialect for one.
        names.insert(column.name.toString().toLower());
        ColumnDefinition written = column;
        // The engine wants NOT NULL at the columns of a primary key.
        for (const KeyDefinition &key : m_definition.keys) {
            const bool part = std::ranges::any_of(key.columns, [&](const IndexColumn &keyColumn) {
                return equalNames(keyColumn.name, column.name);
            });
            written.notNull = written.notNull || (key.primary && part);
        }
        parts +=
            columnText(written, column.primaryKey || column.unique || standsInKey(column.name));
        if (column.type.kind == ColumnKind::YesNo)
            yesNo.push_back(column.name.toString());
    }
    for (const KeyDefinition &key : m_definition.keys) {
        for (const IndexColumn &part : key.columns) {
            if (!names.contains(part.name.toString().toLower())) {
                throw base::Error(
                    ErrorNumber::ValueMissing,
                    u"The table \"%1\" has no column \"%2\"."_s.arg(m_definition.table, part.name));
            }
        }
        parts += keyText(key);
    }
    m_statements.push_back(u"CREATE TABLE "_s + checkedName(name) + u" ("_s + parts.join(u", ") +
                           u')');
    if (!yesNo.empty())
        m_statements.push_back(EngineTypes::yesNoTrigger(name, yesNo));
}

/// The columns that the table's trigger keeps at -1 or 0, one of them left out.
std::vector<QString> DefinitionWriter::yesNoColumns(QStringView without) const
{
    std::vector<QString> columns;
    for (const Column &column : table().columns) {
        if (column.kind == ColumnKind::YesNo && !equalNames(column.name, without))
            columns.push_back(column.name);
    }
    return columns;
}

void DefinitionWriter::replaceYesNoTrigger(const std::vector<QString> &before,
                                           const std::vector<QString> &after)
{
    // Made anew with all of its columns: the engine can't change one in a trigger.
    if (!after.empty())
        m_statements.push_back(EngineTypes::yesNoTrigger(table().name, after));
    else if (!before.empty())
        m_statements.push_back(EngineTypes::dropYesNoTrigger(table().name));
}

void DefinitionWriter::addColumns()
{
    std::vector<QString> yesNo = yesNoColumns({});
    const std::size_t before = yesNo.size();
    for (const ColumnDefinition &column : m_definition.columns) {
        if (table().find(column.name))
            raise(u"the table already has a column \"%1\"."_s.arg(column.name));
        m_statements.push_back(alterTable() + u"ADD "_s +
                               columnText(column, column.primaryKey || column.unique));
        if (column.type.kind == ColumnKind::YesNo)
            yesNo.push_back(column.name.toString());
    }
    if (yesNo.size() == before)
        return;
    m_statements.push_back(EngineTypes::yesNoTrigger(table().name, yesNo));
    // The rows that are there already have no value yet, and the trigger gives them one.
    const QString name = quotedName(yesNo[before]);
    m_statements.push_back(u"UPDATE "_s + quotedName(table().name) + u" SET "_s + name + u" = "_s +
                           name);
}

void DefinitionWriter::alterColumn()
{
    const ColumnDefinition &wanted = m_definition.columns.front();
    const bool movedOnly = !table().find(wanted.name) && table().find(movedColumn);
    // A program was ended between dropping the column and giving its name to the moved values.
    if (movedOnly) {
        m_statements.push_back(alterTable() + u"ALTER COLUMN "_s + quotedName(movedColumn) +
                               u" TO "_s + quotedName(wanted.name));
        return;
    }
    const Column &present = column(wanted.name);
    const QString alter = alterTable() + u"ALTER COLUMN "_s + quotedName(present.name) + u' ';
    if (wanted.type.autoNumber) {
        if (!present.autoNumber)
            raise(u"a column can't be made an autonumber later."_s);
        // The engine gives the number behind this one next.
        m_statements.push_back(alter + u"RESTART WITH %1"_s.arg(wanted.type.firstNumber - 1));
        return;
    }
    const bool wasYesNo = present.kind == ColumnKind::YesNo;
    const bool becomesYesNo = wanted.type.kind == ColumnKind::YesNo;
    // The trigger would go on writing -1 and 0 into it.
    if (wasYesNo && !becomesYesNo)
        replaceYesNoTrigger(yesNoColumns({}), yesNoColumns(present.name));
    const bool becomesMemo =
        wanted.type.kind == ColumnKind::Text && wanted.type.length == MemoLength;
    const bool isMemo = present.length == MemoLength;
    if (becomesMemo != isMemo)
        replaceColumn(present, wanted);
    else if (!isMemo) // the engine refuses a memo that is to become what it is
        m_statements.push_back(alter + u"TYPE "_s + typeText(wanted, false));
    if (const QString text = defaultText(wanted); !text.isEmpty())
        m_statements.push_back(alter + u"SET"_s + text);
    if (wanted.notNull)
        m_statements.push_back(alter + u"SET NOT NULL"_s);
    if (becomesYesNo && !wasYesNo) {
        std::vector<QString> yesNo = yesNoColumns({});
        yesNo.push_back(present.name);
        m_statements.push_back(EngineTypes::yesNoTrigger(table().name, yesNo));
        // Writes each row once, so that the trigger brings it to -1 or 0.
        m_statements.push_back(u"UPDATE "_s + quotedName(table().name) + u" SET "_s +
                               quotedName(present.name) + u" = "_s + quotedName(present.name));
    }
}

/// The engine can't turn a memo into another type or the other way round, but it can move the
/// values to a column that takes the other one's name and place.
void DefinitionWriter::replaceColumn(const Column &present, const ColumnDefinition &wanted)
{
    const QString name = quotedName(present.name);
    const QString moved = quotedName(movedColumn);
    const QString update = u"UPDATE "_s + quotedName(table().name) + u" SET "_s;
    const QString type = typeText(wanted, false);
    // What doesn't fit has to fail before anything has changed.
    if (present.length == MemoLength)
        m_statements.push_back(update + name + u" = CAST("_s + name + u" AS "_s + type + u')');
    // What a program left that was ended in the midst of this.
    if (table().find(movedColumn))
        m_statements.push_back(alterTable() + u"DROP "_s + moved);
    m_statements.push_back(alterTable() + u"ADD "_s + moved + u' ' + type);
    m_statements.push_back(update + moved + u" = "_s + name);
    m_statements.push_back(alterTable() + u"DROP "_s + name);
    m_statements.push_back(alterTable() + u"ALTER COLUMN "_s + moved + u" TO "_s + name);
    // Counted from 1: "select *" and inserts without columns go by the place.
    const auto position = &present - table().columns.data() + 1;
    m_statements.push_back(alterTable() + u"ALTER COLUMN "_s + name +
                           u" POSITION %1"_s.arg(position));
}

void DefinitionWriter::dropColumn()
{
    const Column &dropped = column(m_definition.name);
    // The engine drops no column that a trigger still names.
    if (dropped.kind == ColumnKind::YesNo)
        replaceYesNoTrigger(yesNoColumns({}), yesNoColumns(dropped.name));
    m_statements.push_back(alterTable() + u"DROP "_s + quotedName(dropped.name));
}

void DefinitionWriter::addKey(const KeyDefinition &key)
{
    if (key.primary)
        refuseNull(key.columns);
    m_statements.push_back(alterTable() + u"ADD "_s + keyText(key));
}

/// An index of the engine takes Null, so that it is the columns that have to refuse it.
void DefinitionWriter::refuseNull(const std::vector<IndexColumn> &columns)
{
    for (const IndexColumn &part : columns)
        m_statements.push_back(alterTable() + u"ALTER COLUMN "_s +
                               quotedName(column(part.name).name) + u" SET NOT NULL"_s);
}

void DefinitionWriter::createIndex()
{
    if (m_definition.primary)
        return addKey({m_definition.name, true, m_definition.indexColumns});
    if (m_definition.disallowNull)
        refuseNull(m_definition.indexColumns);
    QStringList columns;
    for (const IndexColumn &part : m_definition.indexColumns)
        columns += quotedName(column(part.name).name);
    QString text = u"CREATE "_s;
    if (m_definition.unique)
        text += u"UNIQUE "_s;
    // The engine gives an index one direction for all its columns.
    if (m_definition.indexColumns.front().descending)
        text += u"DESCENDING "_s;
    m_statements.push_back(
        text + u"INDEX "_s + quotedName(EngineTypes::indexName(table().name, m_definition.name)) +
        u" ON "_s + quotedName(table().name) +
        (m_definition.ignoreZero ? u" COMPUTED BY (NULLIF("_s + columns.front() + u", 0))"_s
                                 : u" ("_s + columns.join(u", ") + u')'));
}

} // namespace

std::vector<QString> definitionStatements(const Definition &definition, QStringView statement,
                                          const Schema &schema)
{
    return DefinitionWriter(definition, statement, schema).write();
}

} // namespace sql
