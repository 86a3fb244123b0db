#include "platform/db/EngineErrors.h"

#include <gtest/gtest.h>

#include <cerrno>

/// Failures that a test can't bring about; the others are tested where they happen.
namespace {

using namespace Qt::StringLiterals;
namespace ErrorNumber = db::ErrorNumber;

// Kinds of items in a status vector, and codes of the engine.
constexpr intptr_t end = 0;
constexpr intptr_t code = 1;
constexpr intptr_t text = 2;
constexpr intptr_t number = 4;
constexpr intptr_t systemError = 7;
constexpr intptr_t state = 19;

intptr_t words(const char *value)
{
    return reinterpret_cast<intptr_t>(value);
}

db::DbError errorOf(std::vector<intptr_t> status)
{
    status.push_back(end);
    return db::engine::errorFrom(status.data());
}

TEST(ErrorFrom, TellsFailuresOfTheFileByTheSystemsReason)
{
    for (const auto &[reason, expected] : {std::pair(ENOSPC, ErrorNumber::DiskFull),
                                           {EDQUOT, ErrorNumber::DiskFull},
                                           {EFBIG, ErrorNumber::DiskFull},
                                           {ENOENT, ErrorNumber::FileMissing},
                                           {EACCES, ErrorNumber::FileAccess},
                                           {EROFS, ErrorNumber::FileAccess},
                                           {EIO, ErrorNumber::Unspecified}}) {
        const db::DbError error =
            errorOf({code, 335544344, text, words("write"), text, words("/data/q.mdb"), code,
                     335544737, systemError, reason});
        EXPECT_EQ(error.number(), expected) << reason;
        EXPECT_TRUE(error.description().contains(u"/data/q.mdb"_s)) << error.what();
    }
}

TEST(ErrorFrom, TellsOtherFailuresByTheEnginesCode)
{
    const std::pair<std::vector<intptr_t>, int> cases[] = {
        {{code, 335544344, text, words("open"), text, words("/q.mdb"), code, 335544734, code,
          335545107},
         70}, // another program holds the file
        {{code, 335544765}, ErrorNumber::ReadOnly},
        {{code, 335544741}, ErrorNumber::ServerUnreachable},
        {{code, 335544726}, ErrorNumber::ServerUnreachable},
        {{code, 335544472}, ErrorNumber::LoginRefused},
        {{code, 335544335, text, words("page 5")}, ErrorNumber::NotADatabase},
        {{code, 335544352, text, words("read-write"), text, words("database"), text,
          words("/q.mdb")},
         ErrorNumber::FileAccess},
        {{code, 335544352, text, words("SELECT"), text, words("TABLE"), text, words("T")},
         ErrorNumber::Unspecified},
        {{code, 335544972, code, 335544565}, ErrorNumber::FileAccess}, // beyond the language set
        {{code, 335544321, code, 335544565}, ErrorNumber::Overflow}};  // in a statement
    for (const auto &[status, expected] : cases)
        EXPECT_EQ(errorOf(status).number(), expected) << status[1];
}

TEST(ErrorFrom, AConflictCountsEvenWhenTheStatementsFailureComesFirst)
{
    const db::DbError error =
        errorOf({code, 335544351, state, words("40001"), code, 335544345, number, 7});
    EXPECT_EQ(error.number(), ErrorNumber::LockConflict);
    EXPECT_EQ(error.description(), u"Another workstation is changing this record. Please try again "
                                   "in a moment."_s);
}

TEST(ErrorFrom, WhatNobodyForesawKeepsTheEnginesWords)
{
    const db::DbError error = errorOf({code, 335544382, text, words("the moon is full")});
    EXPECT_EQ(error.number(), ErrorNumber::Unspecified);
    EXPECT_EQ(error.description(), u"the moon is full"_s);
}

} // namespace
