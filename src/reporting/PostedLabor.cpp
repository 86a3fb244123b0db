#include "reporting/PostedLabor.h"

#include "core/Session.h"
#include "platform/base/Decimal.h"

#include <QHash>

namespace postedlabor {

using namespace Qt::StringLiterals;

QVariantList ofSummary(const db::Recordset &summary)
{
    // The summary has a row for each order and crew.
    using Key = std::pair<qint64, QString>;
    const auto keyOf = [](const db::Row &row) {
        return Key(row.integer(u"WorkOrderNo"), row.text(u"Description"));
    };
    QStringList orders;
    for (const db::Row row : summary)
        orders.append(QString::number(row.integer(u"WorkOrderNo")));
    if (orders.isEmpty())
        return {};
    QHash<Key, base::Money> labor;
    for (
        const db::Row service : gcnData->Open(
            u"Select WorkOrderNo, Description, CostEstimate from tblWOServiceUsedHistory left join "
            "tblCrew on tblWOServiceUsedHistory.CrewID = tblCrew.CrewID where WorkOrderNo in (%1)"_s
                .arg(orders.join(u','))))
        labor[keyOf(service)] += base::Money(service.real(u"CostEstimate")).cents();
    QVariantList values;
    for (const db::Row row : summary)
        values.append(labor.value(keyOf(row)).toDouble());
    return values;
}

} // namespace postedlabor
