#pragma once

#include <QString>
#include <QStringView>
#include <span>

/// The settings of the whole company and of this workstation, as the options screen keeps them.
namespace shell {

/// The options that are shared by all workstations, in the order in which they are stored.
[[nodiscard]] std::span<const QStringView> companyOptions();
/// The option that turns the login on, "1" or "0".
inline constexpr QStringView SecurityOption = u"SECURITYONOFF";
/// The caption that a machine's free field has while the user gives it none; number from 1 to 10.
[[nodiscard]] QString usualFieldCaption(int number);
/// The option that keeps the caption of a free field.
[[nodiscard]] QString fieldCaptionOption(int number);

/// Puts the stored sizes and places of all windows of this workstation back to those that the
/// program is delivered with. Lookup; raises what the engine raises.
void setDefaultFormSize();

} // namespace shell
