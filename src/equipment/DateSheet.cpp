#include "equipment/DateSheet.h"

#include "core/InTheWay.h"
#include "core/RecordStore.h"
#include "core/Session.h"
#include "platform/base/Environment.h"
#include "platform/base/Format.h"

namespace datesheet {

using namespace Qt::StringLiterals;

const Sheet &inspection()
{
    static const Sheet sheet{
        .form = u"frmInspectionDateReading"_s,
        .title = u"Inspection Date Reading"_s,
        .column = u"InspectionDate"_s,
        .grid = u"grdInspectiondate"_s,
        .dateFrom = u"datINPDateFrom"_s,
        .dateTo = u"datINPDateTo"_s,
        .optionFrom = u"InspectionDateFrom"_s,
        .optionTo = u"InspectionDateTo"_s,
        .oldCaption = u"Old Inspection Date"_s,
        .newCaption = u"New Inspection Date"_s,
        .refusal = u"New Inspection date should be greater than old Inspection Date(%1)."_s,
        .report = u"ShowEquipmentInspectionReport"_s,
        .module = "InspectionReading",
        .rule = "Inspection Reading",
        .button = "grdInspectiondate_ButtonClick"};
    return sheet;
}

const Sheet &license()
{
    static const Sheet sheet{
        .form = u"frmLicenseDateReading"_s,
        .title = u"License Renewal Date Reading"_s,
        .column = u"LicenseRenewalDate"_s,
        .grid = u"grdLicensedate"_s,
        .dateFrom = u"datLICDateFrom"_s,
        .dateTo = u"datLICDateTo"_s,
        .optionFrom = u"LicenseDateFrom"_s,
        .optionTo = u"LicenseDateTo"_s,
        .oldCaption = u"Old License Renewal Date"_s,
        .newCaption = u"New License Renewal Date"_s,
        .refusal =
            u"New License Renewal Date should be greater than Old License Renewal Date(%1)."_s,
        .report = u"ShowEquipmentLicenseReport"_s,
        .module = "LicenseReading",
        .rule = "License Reading",
        .button = "grdLicensedate_ButtonClick"};
    return sheet;
}

db::Recordset machines(const Sheet &sheet, QDate from, QDate to)
{
    return dataConnection().Open(
        u"SELECT EquipmentID, UnitNo, EquipmentName,%1,\"Add one year\" as [Select] FROM "
        "tblEquipment WHERE %1 >= ? and %1 <= ?"_s.arg(sheet.column),
        {base::wallClock(from), base::wallClock(to)});
}

QString filterText(const Sheet &sheet, QDate from, QDate to)
{
    return u" WHERE %1 >= %2 and %1 <= %3"_s.arg(sheet.column,
                                                 base::dateLiteral(base::wallClock(from)),
                                                 base::dateLiteral(base::wallClock(to)));
}

QDateTime oneYearLater(const QDateTime &date)
{
    return date.addYears(1);
}

QString refusalOf(const Sheet &sheet, const QDateTime &oldDate, const QDateTime &newDate)
{
    return oldDate >= newDate ? sheet.refusal.arg(base::toText(oldDate)) : QString();
}

namespace {

/// Stores one new date; what keeps it from being stored, empty when nothing does.
QString store(const Sheet &sheet, const NewDate &machine)
{
    try {
        const db::Recordset now =
            record::hold(dataConnection(), u"tblEquipment", u"EquipmentID", machine.EquipmentID);
        const QDateTime held = now.current().date(sheet.column);
        // Whoever has stored the very date meanwhile stands in nobody's way.
        if (held != machine.shown && held != machine.date)
            return u"%1: yours \"%2\", theirs \"%3\""_s.arg(
                machine.unitNo, base::toText(machine.date), base::toText(held));
    } catch (const record::Conflict &) {
        return u"%1 has been deleted."_s.arg(machine.unitNo);
    }
    dataConnection().Execute(
        u"update tblEquipment set %1 = ? where equipmentId = ?"_s.arg(sheet.column),
        {machine.date, machine.EquipmentID});
    return {};
}

} // namespace

QStringList save(const Sheet &sheet, const QList<NewDate> &dates)
{
    QStringList others;
    TransactionScope transaction;
    for (const NewDate &each : dates) {
        const QString line = orInTheWay([&] { return store(sheet, each); },
                                        [&] {
                                            return u"Another workstation is changing machine %1. "
                                                   "Nothing was stored. Please try again in a "
                                                   "moment."_s.arg(each.unitNo);
                                        });
        if (!line.isEmpty())
            others.append(line);
    }
    transaction.commit();
    return others;
}

} // namespace datesheet
