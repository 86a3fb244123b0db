#pragma once

#include "administration/ImportColumns.h"
#include "administration/ImportNames.h"

#include <QHash>
#include <QString>
#include <QVariant>
#include <functional>
#include <memory>
#include <vector>

namespace administration {

/// A row of a file, by the columns of its kind; an invalid value where the file gives none. Listed
/// columns hold the numbers of their entries.
using ImportRow = std::vector<QVariant>;

/// Is told what is wrong with a row: the place of the column, -1 for the row, and a sentence.
using Blame = std::function<void(int column, const QString &sentence)>;

/// What becomes of the rows of a kind.
class ImportTarget
{
public:
    ImportTarget() = default;
    virtual ~ImportTarget() = default;
    ImportTarget(const ImportTarget &) = delete;
    ImportTarget &operator=(const ImportTarget &) = delete;

    /// Looks at a row whose values are right in themselves: against those of the file that came
    /// before it, and against what is stored. row: as a spreadsheet counts.
    virtual void check(qint64 row, const ImportRow &values, const Blame &blame) = 0;
    /// Writes a row in the transaction that is open. Raises InTheWay when another workstation has
    /// taken its number, and what the engine raises.
    virtual void write(const ImportRow &values) = 0;
    /// Called once behind the last row that was written, before the commit. Raises InTheWay when
    /// another workstation has meanwhile written what a row would stand beside.
    virtual void finish() = 0;
};

/// Raises Refused when the user may not add records of a kind.
void demandImportRight(ImportKind kind);

/// What becomes of the rows of that kind. Reads what is stored now; Data, raises DbError. names
/// must outlive the target.
[[nodiscard]] std::unique_ptr<ImportTarget> importTarget(ImportKind kind, ImportNames &names);

} // namespace administration
