#include "core/Periods.h"

#include <QStringList>
#include <algorithm>

namespace periods {
namespace {

using namespace Qt::StringLiterals;

constexpr Period Table[] = {
    {u"D", u"Days", false},      {u"W", u"Weeks", false}, {u"M", u"Months", false},
    {u"Y", u"Years", false},     {u"C", u"Counts", true}, {u"H", u"Hours", true},
    {u"K", u"Kilometers", true}, {u"I", u"Miles", true},
};

const Period *found(QStringView text, QStringView Period::*member)
{
    const auto *period = std::ranges::find(Table, text, member);
    return period == std::end(Table) ? nullptr : period;
}

} // namespace

std::span<const Period> all()
{
    return Table;
}

const Period *ofCode(QStringView code)
{
    return found(code, &Period::code);
}

const Period *ofWord(QStringView word)
{
    return found(word, &Period::word);
}

QString countCodes()
{
    QStringList codes;
    for (const Period &period : Table)
        if (period.isCount)
            codes.append(u"'%1'"_s.arg(period.code));
    return codes.join(u',');
}

QString wordExpression()
{
    QStringList pairs;
    for (const Period &period : Table)
        pairs.append(u"Period='%1','%2'"_s.arg(period.code, period.word));
    return u"Switch("_s + pairs.join(u", "_s) + u')';
}

} // namespace periods

QString PeriodWord(const QString &PeriodCode)
{
    const periods::Period *period = periods::ofCode(PeriodCode);
    return period ? period->word.toString() : PeriodCode;
}
