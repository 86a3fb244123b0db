#pragma once

#include "platform/base/Error.h"
#include "platform/db/DbError.h"

#include <type_traits>
#include <utility>

/// Another workstation is in the way of a change, or was there first. Nothing is broken and nothing
/// has been written: the description is one plain sentence, which a screen tells as it stands (see
/// core/ui/Telling.h).
class InTheWay : public base::Error
{
public:
    explicit InTheWay(const QString &sentence)
        : Error(db::ErrorNumber::LockConflict, sentence)
    {}
};

/// Runs a step. A row that another workstation holds meanwhile raises InTheWay with the sentence
/// that the second function makes; all else goes on as it came.
template<class Body, class Sentence>
std::invoke_result_t<Body> orInTheWay(Body &&body, Sentence &&sentence)
{
    try {
        return std::forward<Body>(body)();
    } catch (const InTheWay &) {
        throw; // whoever stood nearer has named it
    } catch (const db::DbError &error) {
        if (error.number() == db::ErrorNumber::LockConflict)
            throw InTheWay(std::forward<Sentence>(sentence)());
        throw;
    }
}
