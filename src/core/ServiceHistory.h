#pragma once

#include <QStringList>

/// The columns of tblWOServiceUsedHistory as insert statements name them, in the order in which
/// every writer of the history gives their values.
inline const QStringList &serviceHistoryColumns()
{
    using namespace Qt::StringLiterals;
    static const QStringList columns{u"WorkorderNo"_s,
                                     u"ServiceUsedID"_s,
                                     u"EquipmentID"_s,
                                     u"ServiceID"_s,
                                     u"ServiceName"_s,
                                     u"CrewID"_s,
                                     u"CrewNumber"_s,
                                     u"LastDateScheduled"_s,
                                     u"LastDatePerformed"_s,
                                     u"NextScheduleddate"_s,
                                     u"CostCenterID"_s,
                                     u"SeparateWo"_s,
                                     u"LaborEstimate"_s,
                                     u"CostEstimate"_s,
                                     u"[Note]"_s,
                                     u"Period"_s,
                                     u"jobNo"_s,
                                     u"CountValue"_s,
                                     u"Skip"_s,
                                     u"StartTime"_s,
                                     u"EndTime"_s,
                                     u"Workhrs"_s,
                                     u"SupplierID"_s,
                                     u"SupplierName"_s,
                                     u"StartDate"_s,
                                     u"CompleteDate"_s};
    return columns;
}
