#include "shell/FirstStart.h"

#include "core/InTheWay.h"
#include "core/RecordStore.h"
#include "core/Session.h"
#include "shell/Login.h"
#include "shell/Setup.h"

namespace shell {
namespace {

using namespace Qt::StringLiterals;

constexpr QStringView nameOption = u"GEN_COMPANY_NAME";

QString optionOf(db::Connection &connection, QStringView option)
{
    const db::Recordset rows = connection.Open(
        u"Select itemValue from tblSysOption where SysOption = ?"_s, {option.toString()});
    return rows.isEmpty() ? QString() : rows.row(0).text(u"itemValue").trimmed();
}

void setOption(QStringView option, const QString &value)
{
    if (gcnData->Execute(u"Update tblSysOption set itemValue = ? where SysOption = ?"_s,
                         {value, option.toString()}) == 0)
        gcnData->Execute(u"Insert into tblSysOption (SysOption, itemValue) values (?, ?)"_s,
                         {option.toString(), value});
}

void store(const FirstSteps &steps)
{
    TransactionScope transaction;
    // Held before it is looked at: of two workstations that name the company one is first.
    (void)record::hold(*gcnData, u"tblSysOption", u"SysOption", nameOption.toString());
    if (!optionOf(*gcnData, nameOption).isEmpty())
        throw InTheWay(
            u"The company's name has been entered on another workstation meanwhile. Nothing was stored."_s);
    if (!steps.password.isEmpty() && !hasDeliveredPassword())
        throw InTheWay(
            u"The password of the first user has been changed already. Nothing was stored."_s);
    setOption(nameOption, steps.name.trimmed());
    setOption(u"GEN_COMPANY_ADDRESS1", steps.address1.trimmed());
    setOption(u"GEN_COMPANY_ADDRESS2", steps.address2.trimmed());
    setOption(u"GEN_COMPANY_PHONE", steps.phone);
    setOption(u"GEN_COMPANY_EMAIL", steps.email.trimmed());
    setOption(u"GEN_COMPANY_WEBSITE", steps.webSite.trimmed());
    if (!steps.password.isEmpty())
        storePassword(BuiltInUser.toString(), steps.password);
    if (steps.asksForLogin)
        setOption(SecurityOption, u"1"_s);
    transaction.commit();
}

} // namespace

bool isFirstStart()
{
    const bool mayTake =
        gsLoginUser.isEmpty() || gsLoginUser.compare(BuiltInUser, Qt::CaseInsensitive) == 0;
    return mayTake && optionOf(lookupConnection(), nameOption).isEmpty() &&
           dataConnection().Open(u"Select top 1 EquipmentID from tblEquipment"_s).isEmpty();
}

bool hasDeliveredPassword()
{
    return isUserPassword(BuiltInUser.toString(), u"admin"_s);
}

QString refusalOf(const FirstSteps &steps)
{
    if (steps.name.trimmed().isEmpty())
        return u"Please enter the company's name."_s;
    if (steps.password != steps.passwordAgain)
        return u"New password and Confirm Password are not same."_s;
    if (steps.asksForLogin && steps.password.isEmpty())
        return u"Please give a password first: everybody knows the one that a new company has."_s;
    return refusalOfLoginText(steps.password);
}

void storeFirstSteps(const FirstSteps &steps)
{
    if (const QString refusal = refusalOf(steps); !refusal.isEmpty())
        throw base::Error(base::ErrorNumber::InvalidCall, refusal);
    orInTheWay(
        [&] { store(steps); },
        [] {
            return u"Another workstation is just changing the company's settings. Nothing was stored. Please try again."_s;
        });
}

} // namespace shell
