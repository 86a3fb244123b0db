#pragma once

#include <QHash>
#include <QString>

namespace exchange {

/// What a handheld has made bears ids of its own, which one import turns into the office's numbers.
/// The table tblWotemp holds them too, for whoever looks after an import; it is emptied by the
/// next one. Looked up is what this run itself has recorded: another workstation may import at the
/// same moment from a device that counts from 1 as well.
class IdMap
{
public:
    enum class Kind { WorkOrder, ServiceLine };

    /// Empties the table, or makes it. Data, outside any transaction.
    static void prepare();

    /// The office's number of a handheld's id, in any case; -1 when none was recorded.
    [[nodiscard]] qint64 IsIDExist(Kind kind, const QString &handheldId) const;
    /// Records a number. False when the table can't take it, as an id of more than 15 characters.
    /// Data.
    [[nodiscard]] bool record(Kind kind, const QString &handheldId, qint64 number);

private:
    QHash<QString, qint64> m_numbers;
};

} // namespace exchange
