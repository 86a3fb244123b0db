#pragma once

#include <QVariant>
#include <type_traits>
#include <utility>

/// What a path of members leads to, such as the title of an object's chart, as a value that is
/// shown and edited. Of an enumeration that is the number of the choice.
namespace report {

template<auto Member, auto... Inner>
auto &memberAt(auto &holder)
{
    if constexpr (sizeof...(Inner) == 0)
        return holder.*Member;
    else
        return memberAt<Inner...>(holder.*Member);
}

/// The value at the end of the path.
template<class Holder, auto... Path>
QVariant valueAt(const Holder &holder)
{
    const auto &member = memberAt<Path...>(holder);
    if constexpr (std::is_enum_v<std::remove_cvref_t<decltype(member)>>)
        return QVariant(static_cast<int>(member));
    else
        return QVariant::fromValue(member);
}

/// Puts there what valueAt gave, or another value that converts to the member's type.
template<class Holder, auto... Path>
void setValueAt(Holder &holder, const QVariant &value)
{
    auto &member = memberAt<Path...>(holder);
    using Value = std::remove_cvref_t<decltype(member)>;
    if constexpr (std::is_enum_v<Value>)
        member = static_cast<Value>(value.toInt());
    else
        member = value.value<Value>();
}

} // namespace report
