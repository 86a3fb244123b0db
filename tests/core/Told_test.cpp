#include "core/Told.h"

#include "support/ScriptedPrompts.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

TEST(Told, OpensABoxUnlessSomebodyListens)
{
    test::ScriptedPrompts prompts;
    using Icon = base::Prompts::Icon;
    prompts.expect(u"before"_s, Icon::None);
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
    prompts.expect(u"after"_s, Icon::Information);
    told::information(u"after"_s);
    prompts.expect(u"bad"_s, Icon::Critical);
    told::critical(u"bad"_s);
}

} // namespace
