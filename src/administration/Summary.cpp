#include "administration/Summary.h"

#include "platform/base/Environment.h"

#include <QFileInfo>
#include <QLocale>
#include <numeric>

namespace administration {

using namespace Qt::StringLiterals;

Summary summaryOf(db::Connection &connection, const QString &file)
{
    const auto number = [&](const QString &query) {
        return connection.Open(query).value(0, 0).toLongLong();
    };
    Summary summary;
    if (const QFileInfo info(file); info.isFile()) {
        const QDateTime written = info.lastModified().toLocalTime();
        summary.written = base::wallClock(written.date(), written.time());
    }
    summary.machines = number(u"Select count(*) from tblEquipment"_s);
    summary.openOrders = number(u"Select count(*) from tblWorkorder"_s);
    summary.postedOrders = number(
        u"Select count(*) from (select distinct WorkorderNo from tblWOServiceUsedHistory)"_s);
    summary.newestWork = connection.Open(u"Select max(CompleteDate) from tblWOServiceUsedHistory"_s)
                             .value(0, 0)
                             .toDate();
    const db::Recordset version =
        connection.Open(u"Select itemValue from tblSysOption where SysOption = 'DBVERSION'"_s);
    if (!version.isEmpty())
        summary.version = version.row(0).text(u"itemValue").trimmed();
    return summary;
}

QString inWords(const db::RowCounts &counts)
{
    const auto number = [](qint64 value, const QString &one, const QString &many) {
        return QLocale(QLocale::English).toString(value) + u' ' + (value == 1 ? one : many);
    };
    const qint64 all = std::accumulate(counts.begin(), counts.end(), qint64(0));
    return u"%1, among them %2 and %3"_s.arg(
        number(all, u"row"_s, u"rows"_s),
        number(counts.value(u"tblEquipment"_s), u"machine"_s, u"machines"_s),
        number(counts.value(u"tblWorkorder"_s), u"open work order"_s, u"open work orders"_s));
}

} // namespace administration
