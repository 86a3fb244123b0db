#pragma once

#include "core/Mode.h"
#include "core/Session.h"
#include "platform/base/Error.h"

/// What the user may do. Whoever does a thing asks here, so that no road to it leads past the
/// question; a screen asks before it begins (core/ui/MayDo.h), only to say so early.
namespace rights {

/// The rights to add, change and delete records of one kind.
struct RecordRights
{
    bool Rights::*add;
    bool Rights::*modify;
    bool Rights::*remove;

    /// The right that a save in this mode needs.
    [[nodiscard]] constexpr bool Rights::*toSave(Mode mode) const
    {
        return mode == Mode::Add ? add : modify;
    }
};

// The records that need rights. Others are open to everybody.
inline constexpr RecordRights Machines{&Rights::EqAdd, &Rights::EqMod, &Rights::EqDel};
inline constexpr RecordRights Services{&Rights::SerAdd, &Rights::SerMod, &Rights::SerDel};
inline constexpr RecordRights Parts{&Rights::PaAdd, &Rights::PaMod, &Rights::PaDel};

/// True when the session's user has the right; null is a right that all have.
[[nodiscard]] bool isGranted(bool Rights::*right);
/// What a user is told who lacks the right: another sentence for a report than for an action.
[[nodiscard]] QString refusal(bool Rights::*right);

/// The user may not do what was begun. Nothing has been written, and nothing is broken: the
/// description is the sentence for the user.
class Refused : public base::Error
{
public:
    /// By this number the error's report is known to be no fault of the program.
    static constexpr int Number = 3033;

    explicit Refused(const QString &sentence)
        : Error(Number, sentence)
    {}
};

/// Raises Refused when the session's user lacks the right.
void demand(bool Rights::*right);

/// True for the one user who keeps users and their rights; without security for everybody.
[[nodiscard]] bool isAdministrator();
/// Raises Refused for anybody else.
void demandAdministrator();

} // namespace rights
