#pragma once

#include <QString>
#include <QStringList>
#include <QVariantList>
#include <optional>
#include <vector>

/// Files of statements with what is expected of them, in a form that a person can read and extend:
///
///     -- name: open orders of a machine
///     -- params: 501 | 'text' | #03-15-2024# | null
///     -- columns: WorkorderNo | Date
///     -- rows: 2                     (or: rows >= 1)
///     -- row 1: 7 | #03-15-2024#     (the first columns of that row)
///     -- has row: 8 | null           (a row that may stand anywhere)
///     -- error: 0x80040E14
///     -- changes: 2
///     -- key: WorkorderNo            (an insert that gives back its key)
///     statement;
///
/// A case may have several statements, each behind its checks; they share one transaction, and
/// {key} stands for the key that the last insert gave back, in statements and in checks. The lines
/// of a statement are joined by one blank. A case ends with an empty line; other comments stand
/// between cases. "-- database: own" at the head of a file gives each case a database of its own.
namespace corpus {

struct RowCheck
{
    int row = 0; ///< counted from 1; 0 for any
    QStringList cells;
};

struct Step
{
    int line = 0; ///< where the statement begins
    QString statement;
    QVariantList parameters;
    std::optional<QStringList> columns;
    std::optional<int> rows;
    bool orMore = false;
    std::vector<RowCheck> rowChecks;
    std::optional<int> error;
    std::optional<qint64> changes;
    QString keyColumn;
};

struct Case
{
    QString file; ///< without its ending
    QString name;
    bool ownDatabase = false;
    std::vector<Step> steps;

    /// The file's name and the case's, as a test may be called.
    [[nodiscard]] QString testName() const;
};

/// The cases of a text; what can't be understood is added to the problems, with its line.
[[nodiscard]] std::vector<Case> parseCases(const QString &file, const QString &text,
                                           QStringList &problems);
/// The statements of a text without any checks.
[[nodiscard]] QStringList parseStatements(const QString &text);

/// A cell as it stands in a check: null, a number, #a date#, 'a text' or a bare text.
[[nodiscard]] QVariant parseCell(const QString &cell);
/// Empty when a value is what the cell says, otherwise what it is.
[[nodiscard]] QString difference(const QString &cell, const QVariant &value);

} // namespace corpus
