#pragma once

#include <QList>
#include <QString>
#include <QStringList>

/// Files of statements with what is expected of them, in a form that a person can read and extend:
///
///     -- name: open orders of a machine
///     -- columns: WorkorderNo | Date
///     -- rows: 2
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

struct Check
{
    QString keyword; ///< such as "row 2"
    QString value;
};

struct Step
{
    int line = 0; ///< where the statement ends
    QString statement;
    QList<Check> checks;

    /// The value of the check with that keyword; empty when there is none.
    [[nodiscard]] QString check(QStringView keyword) const;
};

struct Case
{
    QString file; ///< without its ending
    QString name;
    bool ownDatabase = false;
    QList<Step> steps;

    /// The file's name and the case's, as a test may be called.
    [[nodiscard]] QString testName() const;
};

/// A file's text; ends the program where there is none.
[[nodiscard]] QString contents(const QString &path);
/// The statements of a script, without comments and semicolons.
[[nodiscard]] QStringList statementsOf(const QString &script);
/// The cases of all files in a folder; what can't be understood is added to the problems.
[[nodiscard]] QList<Case> casesOf(const QString &folder, QStringList &problems);

} // namespace corpus
