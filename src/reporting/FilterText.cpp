#include "reporting/FilterText.h"

#include "platform/base/Format.h"
#include "platform/db/DbError.h"
#include "workorders/Statements.h"

#include <QRegularExpression>

namespace filters {

using namespace Qt::StringLiterals;

namespace {

bool isBlank(const QString &values)
{
    return values.trimmed().isEmpty();
}

/// A condition on a list of values, nothing for a blank one. The opening ends in "in(".
QString inList(const QString &opening, const QString &values, const QString &closing = u")"_s)
{
    return isBlank(values) ? QString() : opening + QuoteValueList(values) + closing;
}

/// A condition on a range. The opening ends before the first date, the middle lies between both.
QString within(const QString &opening, const DateRange &range, const QString &middle,
               const QString &closing)
{
    return opening + dateText(range.from) + middle + dateText(range.to) + closing;
}

/// Adds a condition with one of two openings, by whether it is the first. A blank list adds none.
void addList(QString &clause, const QString &first, const QString &later, const QString &values)
{
    clause += inList(clause.isEmpty() ? first : later, values);
}

/// Adds the condition that leaves inactive machines out, its opening by whether it is the first.
QString withoutInactive(const QString &clause, const QString &first, const QString &later)
{
    return clause + (clause.isEmpty() ? first : later);
}

QString order(bool byTime)
{
    return byTime ? u" order by scanTime1,UnitNo"_s : u" order by UnitNo,ScanTime1"_s;
}

} // namespace

QStringList valuesOf(const QString &text, QChar delimiter)
{
    QStringList values = text.isEmpty() ? QStringList() : text.split(delimiter);
    values.removeIf(
        [](const QString &piece) { return piece.startsWith(u'"') || piece.endsWith(u'"'); });
    return values;
}

QString QuoteValueList(const QString &text, QChar delimiter)
{
    QStringList values = valuesOf(text, delimiter);
    for (QString &value : values)
        value = u'\'' + base::doubledQuotes(value) + u'\'';
    return values.join(u", "_s);
}

QString BuildFilterExpression(const QString &text, const QString &field)
{
    // Digits and one hyphen, nothing else: these become part of the statement as they are.
    static const QRegularExpression numberOrRange(u"^([0-9]+)(?:-([0-9]+))?$"_s);
    QStringList terms;
    for (const QString &piece : text.split(u',')) {
        const QRegularExpressionMatch match = numberOrRange.match(piece);
        if (!match.hasMatch())
            throw db::DbError(db::ErrorNumber::Syntax,
                              u"\"%1\" is neither a number nor a range of numbers."_s.arg(piece));
        const QString low = match.captured(1);
        const QString high = match.captured(2);
        terms.append(high.isEmpty() ? u'(' + field + u" = "_s + low + u')'
                                    : u'(' + field + u" >= "_s + low + u" And "_s + field +
                                          u" <= "_s + high + u')');
    }
    return terms.join(u" Or "_s);
}

QString dateText(QDate date)
{
    if (!date.isValid())
        throw db::DbError(db::ErrorNumber::Syntax, u"A date is missing."_s);
    return date.toString(u"MM/dd/yyyy");
}

QString equipmentServices(const Machines &asked)
{
    const QString units = inList(u"Where tblEquipment.UnitNo  in ("_s, asked.units);
    return asked.inactive ? units
                          : withoutInactive(units, u"where tblEquipment.Inactive = '0'"_s,
                                            u" and tblEquipment.Inactive = '0'"_s);
}

QString equipmentDetails(const Machines &asked)
{
    const QString units = inList(u" where  tblEquipment.UnitNo  in("_s, asked.units);
    return asked.inactive
               ? units
               : withoutInactive(units, u"where Inactive = '0'"_s, u" and Inactive = '0'"_s);
}

QString equipmentExpense(const Machines &asked)
{
    const QString units = inList(u" where  UnitNo  in("_s, asked.units);
    return asked.inactive
               ? units
               : withoutInactive(units, u"where Inactive = '0'"_s, u" and Inactive = '0'"_s);
}

QString inspectionDates(const DateRange &asked)
{
    return within(u" where  InspectionDate >= #"_s, asked, u"# and InspectionDate <= #"_s, u"#"_s);
}

QString licenseDates(const DateRange &asked)
{
    return within(u" where  LicenseRenewalDate >= #"_s, asked, u"# and LicenseRenewalDate <= #"_s,
                  u"#"_s);
}

QString inventory(const Parts &asked)
{
    QString clause = inList(u"Where ItemName  in ("_s, asked.categories);
    addList(clause, u" where  name  in ("_s, u" and  name  in ("_s, asked.suppliers);
    clause += clause.isEmpty() ? u" where  Inactive ="_s : u" and  Inactive ="_s;
    return clause + (asked.inactive ? u"-1"_s : u"0"_s);
}

QString reorder(const Reorder &asked)
{
    const QString below =
        asked.lessOrders ? u"(((Quantity-(Select Sum(QuantityRequired) from tblWoPartUsed Where "
                           "PartID = tblPart.PartID))<QtyMin) OR (Quantity<QtyMin))"_s
                         : u"(Quantity<QtyMin)"_s;
    return below + inList(u" and ItemName  in ("_s, asked.categories) +
           inList(u" and  name  in ("_s, asked.suppliers);
}

QString partUsage(const QString &parts)
{
    return inList(u" where  tblServiceUsedPart.PartID  in("_s, parts);
}

QString crewHistory(const CrewHistory &asked)
{
    QString clause = inList(u"Where  tblEquipment.EquipmentName  in ("_s, asked.names);
    addList(clause, u" where  tblEquipmentCrewHistory.CrewNumber  in ("_s,
            u" and   tblEquipmentCrewHistory.CrewNumber   in ("_s, asked.crews);
    return clause;
}

QString partHistory(const PartHistory &asked)
{
    return within(u"Where (tblWOServiceUsedHistory.Completedate >= #"_s, asked.completed,
                  u"# and tblWOServiceUsedHistory.Completedate <= #"_s, u"#) "_s) +
           inList(u"and (tblWoPartHistory.PartID  in ("_s, asked.parts, u"))"_s);
}

QString historyTimes(const HistoryTimes &asked)
{
    return within(u"Where (tblWOServiceUsedHistory.Completedate >= #"_s, asked.completed,
                  u"# and CompleteDate <= #"_s, u"#) "_s) +
           inList(u"and (tblEquipment.EquipmentName  in ("_s, asked.names, u"))"_s);
}

QString upcomingParts(const UpcomingParts &asked)
{
    return within(u" Where ( tblServiceUsed.NextScheduledDate  >= #"_s, asked.due,
                  u"# and tblServiceUsed.NextScheduledDate <= #"_s, u"#) "_s) +
           inList(u"and (tblSupplier.Name  in ("_s, asked.suppliers, u"))"_s);
}

ListFields fieldsOf(ListVersion version)
{
    const bool isFirst = version == ListVersion::One;
    const bool isFifth = version == ListVersion::Five;
    return {.types = !isFifth, .sites = isFirst || isFifth, .groupOnSite = isFirst};
}

QString equipmentList(const EquipmentList &asked)
{
    const ListFields fields = fieldsOf(asked.version);
    // The sixth version's query is grouped, and the clause stands behind its groups.
    const bool grouped = asked.version == ListVersion::Six;
    const QString keyword = grouped ? u"Having "_s : u"Where "_s;
    QString clause;
    if (fields.types) {
        clause = inList(keyword + u"tblIndicator.ItemName  in ("_s, asked.types);
        addList(clause, keyword + u"tblCrew.CrewNumber  in ("_s, u" and tblCrew.CrewNumber  in ("_s,
                asked.crews);
    }
    if (fields.sites)
        addList(clause, u"where SiteName  in ("_s, u" and SiteName  in ("_s, asked.sites);
    if (asked.inactive)
        return clause;
    const QString first = grouped                              ? u"Having Inactive = '0'"_s
                          : asked.version == ListVersion::Five ? u" where Inactive = '0'"_s
                                                               : u"where Inactive = '0'"_s;
    return withoutInactive(clause, first, u" and Inactive = '0'"_s);
}

QString wideEquipmentList(const QString &types, const QString &crews)
{
    return equipmentList(
        {.version = ListVersion::Two, .types = types, .crews = crews, .inactive = true});
}

QString serviceHistory(const ServiceHistory &asked)
{
    const QString completed = within(u"Where (CompleteDate >= #"_s, asked.completed,
                                     u"# and CompleteDate <= #"_s, u"#) "_s);
    switch (asked.group) {
    case HistoryGroup::Site:
        return completed + inList(u"and (SiteName  in ("_s, asked.sites, u"))"_s);
    case HistoryGroup::Crew:
        return completed;
    case HistoryGroup::None:
        break;
    }
    return completed + inList(u"and (UnitNo  in ("_s, asked.units, u"))"_s);
}

QString lastScans(const Scans &asked)
{
    // The range says which machines; what is shown of them is their last scan, which may be later.
    const QString scanned =
        u"Select tblEquipment.UnitNo FROM tblEquipment LEFT JOIN tblEquipmentScan ON "
        "tblEquipment.EquipmentID = tblEquipmentScan.EquipmentID"_s +
        within(u" Where (ScanTime >= #"_s, asked.scanned, u"# and ScanTime <= #"_s, u"#) "_s) +
        inList(u"and UnitNo in ("_s, asked.units);
    return u"Select EquipmentName,UnitNo,ScanTime1 from (Select "
           "tblEquipment.EquipmentName,tblEquipment.UnitNo, Max(scanTime) as Scantime1  FROM "
           "tblEquipment LEFT JOIN tblEquipmentScan ON tblEquipment.EquipmentID = "
           "tblEquipmentScan.EquipmentID where UnitNo in ("_s +
           scanned + u") Group by  tblEquipment.EquipmentName,tblEquipment.UnitNo) "_s +
           order(asked.byTime);
}

int daysBack(const NotScanned &asked)
{
    constexpr int withoutAnswer = 2;
    return isBlank(asked.days) ? withoutAnswer : asked.days.toInt();
}

QString notScanned(const NotScanned &asked)
{
    return u"Select EquipmentName,UnitNo,ScanTime1 from (SELECT tblEquipment.EquipmentName, "
           "tblEquipment.UnitNo, ScanTime as ScanTime1 FROM tblEquipment Left JOIN "
           "tblEquipmentScan ON tblEquipment.EquipmentID = tblEquipmentScan.EquipmentID"_s +
           within(u" Where tblEquipment.EquipmentID not in (SELECT EquipmentID FROM "
                  "tblEquipmentScan Where (ScanTime > #"_s,
                  {asked.today.addDays(-daysBack(asked)), asked.today}, u"# and ScanTime <= #"_s,
                  u"#))"_s) +
           u')' + order(asked.byTime);
}

QString utilization(const Utilization &asked)
{
    return inList(u" and tblIndicator.ItemName  in ("_s, asked.types) +
           inList(u" and tblCrew.CrewNumber  in ("_s, asked.crews) +
           within(u" and (tblEquipmentCount.ChangeDate >= #"_s, asked.read,
                  u"# and tblEquipmentCount.ChangeDate <= #"_s, u"#) "_s);
}

QString utilization(const SingleUtilization &asked)
{
    return within(u" Where (a.ChangeDate >= #"_s, asked.read, u"# and a.ChangeDate <= #"_s,
                  u"#) "_s) +
           inList(u" and tblEquipment.UnitNo  in ("_s, asked.units);
}

QString workorderHistory(const WorkorderHistory &asked)
{
    using namespace workorders;
    QString where = inList(u"Where UnitNo in ("_s, asked.units);
    if (!isBlank(asked.numbers))
        where +=
            (where.isEmpty() ? u"Where "_s : u" and "_s) + BuildFilterExpression(asked.numbers);
    return asked.summary ? statements::historySummary(where, statements::PartQuantity::Used)
                         : statements::historyDetail(where);
}

} // namespace filters
