#pragma once

#include "core/Session.h"
#include "platform/base/Environment.h"
#include "reporting/ReportFiles.h"
#include "support/CompanyDatabase.h"
#include "support/TestEnvironment.h"

#include <gtest/gtest.h>

namespace test {

/// A session over the sample company or another one, with the delivered layouts beside the program.
template<class Company = SampleCompany>
class ReportsOf : public testing::Test
{
protected:
    ReportsOf()
    {
        gcnData = company.open();
        gcnLookup = company.open();
        reportfiles::installDelivered(base::environment().applicationFolder);
    }
    ~ReportsOf() override { closeConnections(); }

    TestEnvironment environment;
    Company company;
};

using SampleReports = ReportsOf<>;

} // namespace test
