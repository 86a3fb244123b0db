#include "workorders/WorkorderFilter.h"

#include "platform/base/Error.h"
#include "platform/base/Format.h"

#include <QStringList>
#include <optional>

namespace {

using namespace Qt::StringLiterals;

/// One crew, whose number is first, or a range of them.
struct CrewRange
{
    QString first;
    std::optional<QString> last;
};

QList<CrewRange> crewRanges(const QString &list)
{
    QList<CrewRange> ranges;
    for (const QString &token : list.split(u',')) {
        const QString trimmed = token.trimmed();
        if (trimmed.isEmpty())
            break;
        const QStringList pieces = trimmed.split(u'-');
        if (pieces.size() == 1)
            ranges.append({pieces[0], std::nullopt});
        else if (!pieces[1].isEmpty())
            ranges.append({pieces[0], pieces[1]});
        if (pieces.size() > 2)
            break;
    }
    return ranges;
}

/// The terms of a list of crew numbers and ranges, joined by "Or"; empty when none is left.
QString crewTerms(const QString &list, const QString &column)
{
    QStringList terms;
    for (const CrewRange &range : crewRanges(list))
        terms.append(range.last ? u"(%1 >= %2 And %1 <= %3)"_s.arg(column, range.first, *range.last)
                                : u"(%1 = %2)"_s.arg(column, range.first));
    return terms.join(u" Or "_s);
}

/// The database would find a piece of its own language missing, which tells a user nothing.
void requireBeginnings(const QString &list)
{
    for (const CrewRange &range : crewRanges(list))
        if (range.first.isEmpty())
            throw base::Error(base::ErrorNumber::InvalidCall,
                              u"\"%1\" is no list of crews: the range up to %2 has no first crew. "
                              "Crews are listed like this: 1,3-5."_s.arg(list, *range.last));
}

QString inFront(const QString &terms)
{
    return terms.isEmpty() ? QString() : u"(%1) And "_s.arg(terms);
}

} // namespace

QString BuildFilterExpression(const WorkorderFilter &filter, const QString &crewColumn,
                              bool withAssignedCrew)
{
    const QString column = crewColumn.isEmpty() ? u"tblCrew.CrewNumber"_s : crewColumn;
    QString expression = inFront(crewTerms(filter.crewRange, column));
    expression += u"(NextScheduledDate >= #%1# and NextScheduledDate <= #%2#)"_s.arg(
        base::monthFirst(filter.from), base::monthFirst(filter.to));
    if (withAssignedCrew)
        expression.prepend(inFront(crewTerms(filter.assignCrew, u"Ecrew.CrewNumber"_s)));
    return expression;
}

QString filterCondition(const WorkorderFilter &filter, const QString &crewColumn,
                        bool withAssignedCrew)
{
    requireBeginnings(filter.crewRange);
    if (withAssignedCrew)
        requireBeginnings(filter.assignCrew);
    return BuildFilterExpression(filter, crewColumn, withAssignedCrew);
}

QString onNoOrder()
{
    return u" And not exists (Select Taken.ServiceUsedID from tblWoServiceUsed as Taken where "
           "Taken.ServiceUsedID = tblServiceUsed.ServiceUsedID)"_s;
}

QString dueCondition(const WorkorderFilter &filter, const QString &crewColumn,
                     bool withAssignedCrew)
{
    return filterCondition(filter, crewColumn, withAssignedCrew) + onNoOrder();
}
