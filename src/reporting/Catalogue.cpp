#include "reporting/Catalogue.h"

#include "core/Options.h"
#include "core/RegistryValues.h"
#include "core/Session.h"
#include "core/StartUp.h"
#include "platform/base/Environment.h"
#include "platform/base/Error.h"
#include "platform/db/ReadOnlyConnection.h"

#include <algorithm>

namespace catalogue {

using namespace Qt::StringLiterals;

const Report &reportOf(const QString &layout)
{
    const auto found = std::ranges::find(reports(), layout, &Report::layout);
    if (found == reports().end())
        throw base::Error(base::ErrorNumber::NoSuchItem,
                          u"There is no report with the layout %1."_s.arg(layout));
    return *found;
}

QString statement(const Report &report, const QString &filter)
{
    // What follows a filter goes on from its condition and can't stand without one.
    if (filter.trimmed().isEmpty())
        return report.query + u' ' + report.unfiltered + report.tail;
    return report.query + u' ' + filter + report.filtered + report.tail;
}

db::Recordset open(const Report &report, const QString &filter)
{
    // What users type becomes part of the text; it may ask for anything, and change nothing.
    return db::openReadOnly(*gcnData, statement(report, filter));
}

QHash<QString, QString> namedTexts(const Report &report)
{
    QHash<QString, QString> texts{{u"lblCompanyName"_s, GetOption(u"GEN_COMPANY_NAME"_s, false)}};
    if (report.layout == "rptEquipmentDetail"_L1)
        for (int field = 1; field <= 10; ++field) {
            // A free field that the house has given no caption goes by its number.
            const QString label = GetOption(u"UserDefinedField%1"_s.arg(field), false).trimmed();
            texts.insert(u"UDField%1"_s.arg(field),
                         label.isEmpty() ? u"Field %1"_s.arg(field) : label);
        }
    if (report.layout == "rptErrorReport"_L1)
        texts.insert({{u"lblSystem"_s, gWindowsVersion.name},
                      {u"lblServicePack"_s, gWindowsVersion.servicePack},
                      {u"lblComputerName"_s, base::environment().computerName},
                      {u"lblVersion"_s, GetVersionNo()},
                      {u"lblDBversion"_s, GetOption(u"DBversion"_s, false)}});
    return texts;
}

} // namespace catalogue
