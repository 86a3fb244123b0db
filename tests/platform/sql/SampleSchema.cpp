#include "SampleSchema.h"

#include "corpus/Statements.h"
#include "platform/sql/Parser.h"

namespace test {

using namespace Qt::StringLiterals;

sql::Schema schemaOf(const QStringList &statements)
{
    sql::Schema schema;
    for (const QString &statement : statements) {
        const sql::Statement tree = sql::Parser(statement).parseStatement();
        if (!tree.definition || tree.definition->kind != sql::Definition::Kind::CreateTable)
            continue;
        sql::Table table;
        table.name = tree.definition->table.toString();
        for (const sql::ColumnDefinition &definition : tree.definition->columns) {
            sql::Column column;
            column.name = definition.name.toString();
            column.kind = definition.type.kind;
            column.length = definition.type.length;
            column.autoNumber = definition.type.autoNumber;
            column.defaultsToToday =
                definition.defaultValue &&
                definition.defaultValue->text.compare(u"date"_s, Qt::CaseInsensitive) == 0;
            table.columns.push_back(std::move(column));
        }
        schema.add(std::move(table));
    }
    return schema;
}

QStringList shippedSchema()
{
    return corpus::statementsOf(corpus::contents(QStringLiteral(SCHEMA_SCRIPT)));
}

QStringList shippedStatements()
{
    QStringList statements;
    QStringList problems;
    for (const corpus::Case &instance : corpus::casesOf(QStringLiteral(CORPUS_FOLDER), problems)) {
        for (const corpus::Step &step : instance.steps)
            if (!instance.ownDatabase && step.check(u"error").isEmpty())
                statements += QString(step.statement).replace(u"{key}"_s, u"1"_s);
    }
    return statements;
}

QStringList machineTables()
{
    return {
        u"create table Machine (Id counter primary key, Name nvarchar(20), [Year] long, "
        "Hours double, Cost currency, Bought datetime, Sold yesno, Picture longbinary, "
        "[Note] memo, Added datetime default Date())"_s,
        u"create table Job (JobNo long, Machine long, Code nvarchar(10), Due datetime, Done yesno, "
        "Price money)"_s,
        u"create table Part (Code nvarchar(10), Job long, Quantity long, Spare yesno)"_s,
    };
}

const sql::Schema &machineSchema()
{
    static const sql::Schema schema = schemaOf(machineTables());
    return schema;
}

} // namespace test
