#include "workorders/WorkorderFilter.h"

#include "platform/base/Format.h"

#include <QStringList>

namespace {

using namespace Qt::StringLiterals;

/// The terms of a list of crew numbers and ranges, joined by "Or"; empty when none is left.
QString crewTerms(const QString &list, const QString &column)
{
    QStringList terms;
    for (const QString &token : list.split(u',')) {
        const QString trimmed = token.trimmed();
        if (trimmed.isEmpty())
            break;
        const QStringList pieces = trimmed.split(u'-');
        if (pieces.size() == 1) {
            terms.append(u"(%1 = %2)"_s.arg(column, pieces[0]));
            continue;
        }
        if (!pieces[1].isEmpty())
            terms.append(u"(%1 >= %2 And %1 <= %3)"_s.arg(column, pieces[0], pieces[1]));
        if (pieces.size() > 2)
            break;
    }
    return terms.join(u" Or "_s);
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
