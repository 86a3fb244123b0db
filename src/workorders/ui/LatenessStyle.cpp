#include "workorders/ui/LatenessStyle.h"

#include "core/Options.h"
#include "platform/base/Environment.h"
#include "workorders/Recording.h"

using namespace Qt::StringLiterals;

namespace {

int days(const QString &option)
{
    return GetOption(option, false).trimmed().toInt();
}

} // namespace

LatenessStyle LatenessStyle::current()
{
    return {base::today(), days(u"SERVICE_LATE_YELLOW"_s), days(u"SERVICE_LATE_RED"_s)};
}

grid::Style LatenessStyle::late()
{
    // Dark enough for white letters to be read on it.
    return {.foreground = Qt::white, .background = {192, 32, 32}};
}

grid::Style LatenessStyle::of(const QDate &nextServiceDate) const
{
    switch (lateness(nextServiceDate, today, lateYellow, lateRed)) {
    case Lateness::Red:
        return late();
    case Lateness::Yellow:
        return {.background = {255, 249, 196}};
    case Lateness::OnTime:
        break;
    }
    return {};
}
