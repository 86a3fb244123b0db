#include "core/Told.h"

#include "support/ScriptedPrompts.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

TEST(Told, OpensABoxUnlessSomebodyListens)
{
    test::ScriptedPrompts prompts;
    prompts.say(u"before"_s);
    told::message(u"before"_s);
    {
        told::Listener listener;
        told::message(u"one"_s);
        {
            const told::Listener inner;
            told::critical(u"two"_s);
            EXPECT_EQ(inner.sentences(), QStringList{u"two"_s});
        }
        told::information(u"three"_s);
        EXPECT_EQ(listener.sentences(), QStringList({u"one"_s, u"three"_s}));
    }
    prompts.inform(u"after"_s);
    told::information(u"after"_s);
    prompts.warn(u"bad"_s);
    told::critical(u"bad"_s);
}

} // namespace
