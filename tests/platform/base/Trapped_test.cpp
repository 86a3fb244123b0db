#include "platform/base/Trapped.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace {

class Trapped : public testing::Test
{
protected:
    Trapped()
    {
        m_former = base::setErrorReporter([this](const QString &module, const QString &procedure,
                                                 int number, const QString &description) {
            events +=
                QStringLiteral("%1.%2 %3 %4").arg(module, procedure).arg(number).arg(description);
        });
    }
    ~Trapped() override { base::setErrorReporter(m_former); }

    /// What was reported and done, in its order.
    QStringList events;

private:
    base::ErrorReporter m_former;
};

TEST_F(Trapped, ReportsAFailureOnceAndGivesTheFallback)
{
    EXPECT_EQ(base::trapped("Module", "Procedure", 7, [] { return 8; }), 8);
    EXPECT_TRUE(events.isEmpty());
    const int result = base::trapped("Module", "Procedure", 7, []() -> int {
        throw base::Error(base::ErrorNumber::Overflow, "Too much");
    });
    EXPECT_EQ(result, 7);
    // No other exception crosses either.
    base::trapped("Module", "Procedure", [] { throw std::runtime_error("broken"); });
    base::trapped("Module", "Procedure", [] { throw std::bad_alloc(); });
    ASSERT_EQ(events.size(), 3);
    EXPECT_EQ(events[0], "Module.Procedure 6 Too much");
    EXPECT_TRUE(events[1].endsWith(" broken"));
    EXPECT_TRUE(events[2].startsWith("Module.Procedure 7 "));
}

TEST_F(Trapped, AStepOfAWholePassesItsErrorOnAndTheHolderReportsItOnce)
{
    const auto inner = [] { base::trapped("Inner", "Step", [] { throw base::Error(5, "x"); }); };
    const auto hold = [this](const auto &body) {
        base::trapped("Outer", "Holder", [&] {
            const base::Whole whole;
            base::trapped("Middle", "Step", 0, [&] {
                body();
                events += "went on";
                return 1;
            });
        });
        return std::exchange(events, {});
    };
    EXPECT_EQ(hold(inner), QStringList{"Inner.Step 5 x"}) << "where it began";
    // In a dialog that a step asks with, nobody above could take it.
    EXPECT_EQ(hold([&] {
                  const base::Interlude question;
                  inner();
              }),
              (QStringList{"Inner.Step 5 x", "went on"}));
    inner();
    EXPECT_EQ(events.size(), 1) << "the whole has ended";
}

TEST_F(Trapped, UnwindsTheBodyBeforeItReports)
{
    struct Rollback
    {
        QStringList &events;
        ~Rollback() { events += "rolled back"; }
    };
    base::trapped("Module", "Procedure", [&] {
        const Rollback rollback{events};
        throw base::Error(1, "x");
    });
    EXPECT_EQ(events, (QStringList{"rolled back", "Module.Procedure 1 x"}));
}

} // namespace
