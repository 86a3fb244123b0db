#pragma once

#include <QString>

/// The first steps of a company that has nothing yet.
namespace shell {

/// What is asked at the first start.
struct FirstSteps
{
    QString name{};
    QString address1{};
    QString address2{};
    QString phone{};
    QString email{};
    QString webSite{};
    QString password{}; ///< of the built-in user; empty to leave it
    QString passwordAgain{};
    bool asksForLogin = false; ///< turns the login on
};

/// The user that every new company has.
inline constexpr QStringView BuiltInUser = u"Admin";

/// True while the company has neither a name nor a machine, for whoever may speak for it: anybody
/// as long as nobody logs in, else the built-in user. Lookup and Data; raises DbError.
[[nodiscard]] bool isFirstStart();
/// True while the built-in user has the password that every new company has. Only then may the
/// first steps give another: nobody is asked for it there. Data; raises DbError.
[[nodiscard]] bool hasDeliveredPassword();
/// Why the steps can't be stored, as a sentence; empty when they can.
[[nodiscard]] QString refusalOf(const FirstSteps &steps);
/// Stores them, all or none. Raises base::Error for what refusalOf() refuses, InTheWay when another
/// workstation has taken the steps meanwhile or holds one of the rows. Data.
void storeFirstSteps(const FirstSteps &steps);

} // namespace shell
