#pragma once

#include "exchange/ImportLog.h"
#include "exchange/SectionFile.h"

#include <QHash>
#include <QVariantList>

/// What the records of an exchange file change. Each procedure is one record's, on Data and without
/// a transaction around it; a record that can't be applied goes into the log, an error is reported,
/// and the caller goes on with the next. Numbers come as they stand in the file; an empty one is 0.
namespace exchange {

/// True when a row of the table meets the condition. Data; raises DbError.
[[nodiscard]] bool IsIDExists(const QString &table, const QString &where,
                              const QVariantList &parameters);
/// The highest reading of a machine's meter, 0 without one. Data; raises DbError.
[[nodiscard]] qint64 Check_LastCount(qint64 EquipmentID, const QString &CountType);
/// The order's line of a machine's service as text, "0" without one. Data; raises DbError.
[[nodiscard]] QString FindNServiceID(qint64 ServiceUsedID);
/// A time as "HH:mm": of a time, a date or a number of days. Another text is given back.
[[nodiscard]] QString clockTime(const QString &text);

/// Moves a machine to a crew, with a row in its history each time, and gives it its bar code.
void Update_Crew(const QString &EquipmentID, const QString &CrewID, const QString &barcode,
                 ImportLog &log);
/// Takes a bar code away from every other row of "tblPart" or "tblEquipment". Raises DbError.
void Update_Barcode(const QString &table, const QVariant &id, const QString &barcode);
/// Stores a reading that isn't below the highest one and isn't 0, and applies what it changes.
void Update_EquipmentCount(const QString &EquipmentID, const QString &ChangeDate,
                           const QString &CountType, const QString &CurrentCount,
                           const QString &LastCount, ImportLog &log);
/// Completes an order.
void Update_Workorder(const QString &WorkorderNo, const QString &EquipmentID,
                      const QString &CompletedDate, ImportLog &log);
/// Adds what was received to a part's stock, and gives the part its bar code.
void Update_Part(const QString &PartID, const QString &QtyReceived, const QString &barcode,
                 ImportLog &log);

/// The lines of orders in a file, with their parts.
class ServiceUpdates
{
public:
    /// The file must outlive it.
    ServiceUpdates(const SectionFile &file, ImportLog &log);

    /// Applies the records of the first section of services whose last attribute is one that is
    /// read.
    void Update_ServiceUsed();

private:
    void apply(const SectionRecord &record);
    [[nodiscard]] bool Check_WorkOrder(const QString &WorkOrderNo);
    void Update_ServiceUsedPart(const QString &ServiceUsedID);

    const SectionFile &m_file;
    ImportLog &m_log;
    /// The records of parts by the number of their line. Those that name none are asked for each.
    static constexpr qint64 AnyLine = -1;
    QHash<qint64, QList<const SectionRecord *>> m_parts;
};

/// The value of the attribute that was read last under one of these names, in any case; empty
/// without any.
[[nodiscard]] QString attribute(const SectionRecord &record,
                                std::initializer_list<QStringView> names);

} // namespace exchange
