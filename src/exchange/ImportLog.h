#pragma once

#include <QString>
#include <QStringList>

namespace exchange {

/// The log of an import: what could not be applied, by kind.
class ImportLog
{
public:
    enum class Kind { Equipment, EquipmentCount, WorkOrder, Part };

    /// Adds a failure: a header for the kind, unless the text holds it already, and its lines.
    void add(Kind kind, const QStringList &ids);
    void clear() { m_text.clear(); }
    /// True once something was added, until it is cleared.
    [[nodiscard]] bool hasFailures() const { return !m_text.isEmpty(); }

    /// Writes "\Log\QVLog.txt" anew. Raises base::Error.
    void CreateLogFile() const;

private:
    QString m_text;
};

} // namespace exchange
