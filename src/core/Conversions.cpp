#include "core/Conversions.h"

#include <algorithm>

using namespace Qt::StringLiterals;

bool CheckArray(std::span<const int> Values)
{
    return !Values.empty() && std::ranges::find(Values.subspan(1), 1) != Values.end();
}

QString ChangeMinuteInHour(int Minutes)
{
    return u"%1:%2"_s.arg(Minutes / 60).arg(Minutes % 60, 2, 10, QChar(u'0'));
}

bool ValidateEmail(const QString &Address, QString &Message)
{
    const QString address = Address.trimmed();
    const auto refuse = [&](const QString &reason) {
        Message = reason;
        return false;
    };
    const auto isOuter = [&](qsizetype at) { return at == 0 || at == address.size() - 1; };
    const auto isAllowed = [](QChar c) {
        const char16_t lower = c.toLower().unicode();
        return (lower >= u'a' && lower <= u'z') || (lower >= u'0' && lower <= u'9') ||
               QStringView(u"@.-_").contains(lower);
    };

    if (address.size() < 8)
        return refuse(u"Too short"_s);
    const qsizetype at = address.indexOf(u'@');
    if (at < 0)
        return refuse(u"Missing the @"_s);
    if (address.indexOf(u'@', at + 1) >= 0)
        return refuse(u"Too many @"_s);
    const qsizetype period = address.indexOf(u'.');
    if (period < 0)
        return refuse(u"Missing the period"_s);
    if (isOuter(at) || isOuter(period))
        return refuse(u"Invalid format"_s);
    if (!std::ranges::all_of(address, isAllowed))
        return refuse(u"Invalid character"_s);

    // The suffix follows the last point among the last four characters; without one there it is too
    // long.
    QStringView suffix = QStringView(address).last(4);
    for (const qsizetype kept : {3, 2, 1}) {
        if (suffix.size() > kept && suffix[suffix.size() - kept - 1] == u'.')
            suffix = suffix.last(kept);
    }
    if (suffix.size() < 2)
        return refuse(u"Suffix too short"_s);
    if (suffix.size() > 3)
        return refuse(u"Suffix too long"_s);
    return true;
}
