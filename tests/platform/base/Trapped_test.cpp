#include "platform/base/Trapped.h"

#include <gtest/gtest.h>
#include <stdexcept>
#include <vector>

namespace {

struct Report
{
    QString module;
    QString procedure;
    int number;
    QString description;
};

class Trapped : public testing::Test
{
protected:
    Trapped()
    {
        m_former = base::setErrorReporter([this](const QString &module, const QString &procedure,
                                                 int number, const QString &description) {
            events.push_back("reported");
            reports.push_back({module, procedure, number, description});
        });
    }
    ~Trapped() override { base::setErrorReporter(m_former); }

    std::vector<Report> reports;
    std::vector<std::string> events;

private:
    base::ErrorReporter m_former;
};

TEST_F(Trapped, ReportsAFailureOnceAndGivesTheFallback)
{
    EXPECT_EQ(base::trapped("Module", "Procedure", 7, [] { return 8; }), 8);
    EXPECT_TRUE(reports.empty());

    const int result = base::trapped("Module", "Procedure", 7, []() -> int {
        throw base::Error(base::ErrorNumber::Overflow, "Overflow");
    });
    EXPECT_EQ(result, 7);
    ASSERT_EQ(reports.size(), 1u);
    EXPECT_EQ(reports[0].module, "Module");
    EXPECT_EQ(reports[0].procedure, "Procedure");
    EXPECT_EQ(reports[0].number, 6);
    EXPECT_EQ(reports[0].description, "Overflow");
    // No other exception crosses either.
    base::trapped("Module", "Procedure", [] { throw std::runtime_error("broken"); });
    ASSERT_EQ(reports.size(), 2u);
    EXPECT_EQ(reports[1].description, "broken");
}

TEST_F(Trapped, AStepOfAWholePassesItsErrorOnAndTheHolderReportsItOnce)
{
    const auto inner = [] { base::trapped("Inner", "Step", [] { throw base::Error(5, "x"); }); };
    const auto hold = [this](const auto &body) {
        base::trapped("Outer", "Holder", [&] {
            const base::Whole whole;
            base::trapped("Middle", "Step", 0, [&] {
                body();
                events.push_back("went on");
                return 1;
            });
        });
    };
    hold(inner);
    EXPECT_EQ(events, (std::vector<std::string>{"reported"}));
    EXPECT_EQ(reports.back().module, "Inner") << "where it began";
    // In a dialog that a step asks with, nobody above could take it.
    hold([&] {
        const base::Interlude question;
        inner();
    });
    EXPECT_EQ(events, (std::vector<std::string>{"reported", "reported", "went on"}));
    inner();
    EXPECT_EQ(reports.size(), 3u) << "the whole has ended";
    base::trapped("Module", "Procedure", [] { throw std::bad_alloc(); });
    EXPECT_EQ(reports.back().number, 7);
    EXPECT_EQ(reports.back().module, "Module");
}

TEST_F(Trapped, UnwindsTheBodyBeforeItReports)
{
    struct Rollback
    {
        std::vector<std::string> &events;
        ~Rollback() { events.push_back("rolled back"); }
    };
    base::trapped("Module", "Procedure", [&] {
        const Rollback rollback{events};
        throw base::Error(1, "x");
    });
    EXPECT_EQ(events, (std::vector<std::string>{"rolled back", "reported"}));
}

} // namespace
