#pragma once

#include "platform/sql/Schema.h"

#include <QStringList>

namespace test {

/// The tables that CREATE TABLE statements of the dialect describe.
[[nodiscard]] sql::Schema schemaOf(const QStringList &statements);

/// The program's own schema script, statement by statement.
[[nodiscard]] QStringList shippedSchema();

/// The statements of tests/corpus that are taken and need no table of their own.
[[nodiscard]] QStringList shippedStatements();

/// A few tables with a column of each kind:
/// Machine(Id autonumber, Name text 20, Year integer, Hours real, Cost money, Bought date,
/// Sold yes/no, Picture binary, Note text 4000, Added date that defaults to today),
/// Job(JobNo integer, Machine integer, Code text 10, Due date, Done yes/no, Price money),
/// Part(Code text 10, Job integer, Quantity integer, Spare yes/no).
[[nodiscard]] const sql::Schema &machineSchema();
/// The statements that make them.
[[nodiscard]] QStringList machineTables();

} // namespace test
