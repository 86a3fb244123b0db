#include "core/ui/Openings.h"

#include "core/OpeningTable.h"
#include "core/ui/MayDo.h"

#include <utility>

using namespace Qt::StringLiterals;

void Openings::insert(const QString &name, Open open)
{
    if (openingOf(name) == nullptr)
        throw base::Error(base::ErrorNumber::NoSuchItem,
                          u"There is nothing to open under the name \"%1\""_s.arg(name));
    m_functions[name] = std::move(open);
}

bool Openings::isJoined(QStringView name) const
{
    return m_functions.contains(name.toString());
}

bool Openings::open(QStringView name, const OpeningArguments &arguments) const
{
    // A copy, since a screen may join others while it is open.
    const Open function = m_functions.value(name.toString());
    if (!function || !mayDo(openingOf(name)->right))
        return false;
    return function(arguments);
}

Openings &openings()
{
    static Openings all;
    return all;
}
