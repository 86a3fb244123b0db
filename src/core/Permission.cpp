#include "core/Permission.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace rights {
namespace {

constexpr auto Administrator = u"ADMIN";
const QString Action = u"this action"_s;

QString sentence(const QString &what)
{
    return u"You do not have sufficient rights to %1. Please see your system administrator"_s.arg(
        what);
}

bool isForAction(bool Rights::*right)
{
    constexpr RecordRights kinds[] = {Machines, Services, Parts};
    return std::ranges::any_of(kinds, [right](const RecordRights &kind) {
        return right == kind.add || right == kind.modify || right == kind.remove;
    });
}

} // namespace

bool isGranted(bool Rights::*right)
{
    return right == nullptr || gRights.*right;
}

QString refusal(bool Rights::*right)
{
    return sentence(isForAction(right) ? Action : u"see this report"_s);
}

void demand(bool Rights::*right)
{
    if (!isGranted(right))
        throw Refused(refusal(right));
}

bool isAdministrator()
{
    return gsLoginUser.isEmpty() || gsLoginUser == Administrator;
}

void demandAdministrator()
{
    if (!isAdministrator())
        throw Refused(sentence(Action));
}

} // namespace rights
