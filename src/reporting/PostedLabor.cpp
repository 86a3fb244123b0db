#include "reporting/PostedLabor.h"

#include "core/Session.h"
#include "platform/base/Decimal.h"

#include <QHash>
#include <algorithm>
#include <vector>

namespace postedlabor {

using namespace Qt::StringLiterals;

QVariantList ofSummary(const db::Recordset &summary)
{
    // The summary has a row for each order and crew.
    using Key = std::pair<qint64, QString>;
    const auto keyOf = [](const db::Row &row) {
        return Key(row.integer(u"WorkOrderNo"), row.text(u"Description"));
    };
    std::vector<qint64> orders;
    for (const db::Row row : summary)
        orders.push_back(row.integer(u"WorkOrderNo"));
    if (orders.empty())
        return {};
    // By their range and not by a list of them all, which the engine would go through for each
    // service. What lies between them and is not in the summary is asked for by none of its rows.
    const auto [first, last] = std::ranges::minmax(orders);
    QHash<Key, base::Money> labor;
    for (
        const db::Row service : gcnData->Open(
            u"Select WorkOrderNo, Description, CostEstimate from tblWOServiceUsedHistory left join "
            "tblCrew on tblWOServiceUsedHistory.CrewID = tblCrew.CrewID where WorkOrderNo >= ? and "
            "WorkOrderNo <= ?"_s,
            {first, last}))
        labor[keyOf(service)] += base::Money(service.real(u"CostEstimate")).cents();
    QVariantList values;
    for (const db::Row row : summary)
        values.append(labor.value(keyOf(row)).toDouble());
    return values;
}

} // namespace postedlabor
