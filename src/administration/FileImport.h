#pragma once

#include "administration/ImportColumns.h"
#include "administration/ImportNames.h"
#include "platform/base/Progress.h"

#include <QString>
#include <QStringList>
#include <vector>

/// Machines, parts, employees and readings from a table: CSV, or the first of a spreadsheet. Data.
namespace administration {

/// What keeps a row from being imported.
struct ImportProblem
{
    qint64 row = 0; ///< as a spreadsheet counts
    QString column; ///< empty for the row as a whole
    QString sentence;

    /// "Row 5, Unit No: ...".
    [[nodiscard]] QString text() const;
};

struct ImportFindings
{
    /// Problems beyond so many are counted only.
    static constexpr int MostProblems = 1000;

    qint64 rows = 0;         ///< that hold something
    qint64 problemCount = 0; ///< all of them
    std::vector<ImportProblem> problems;
    std::vector<NewEntry> newEntries; ///< what the lists would get, or have got
    QStringList ignored;              ///< headings that mean no column
    bool isWritten = false;

    /// What was found, as one or more plain sentences.
    [[nodiscard]] QString summary() const;
};

/// Reads a file as importFile() would and writes nothing. Raises base::Error when the file can't be
/// read, Refused for a user who may not add such records, and what progress raises.
[[nodiscard]] ImportFindings checkFile(ImportKind kind, const QString &file,
                                       const base::Progress &progress = {});

/// Imports a file in one transaction: all rows or, when there is a problem in any, none. Entries
/// that lists lack are made when they are among those that the user has agreed to; otherwise
/// nothing is written, and the findings say which. Raises as checkFile(), and InTheWay when another
/// workstation was there first; nothing is written then.
[[nodiscard]] ImportFindings importFile(ImportKind kind, const QString &file,
                                        const std::vector<NewEntry> &agreed,
                                        const base::Progress &progress = {});

} // namespace administration
