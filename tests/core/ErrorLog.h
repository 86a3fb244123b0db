#pragma once

#include "core/ErrorReport.h"
#include "platform/base/Trapped.h"

#include <gtest/gtest.h>
#include <vector>

namespace test {

/// Takes the place of the report form and keeps what reaches ErrorHandler; a report that the test
/// did not take fails it.
class ErrorLog
{
public:
    ErrorLog()
        : m_form(setErrorReportForm(
              [this](const ErrorReport &report) { m_reports.push_back(report); }))
    {
        m_reporter = base::setErrorReporter({});
        connectErrorHandler();
    }
    ~ErrorLog()
    {
        for (const ErrorReport &report : m_reports) {
            ADD_FAILURE() << "reported: " << report.ProcedureName.toStdString() << ' '
                          << report.ErrNumber << ' ' << report.ErrDescription.toStdString();
        }
        base::setErrorReporter(m_reporter);
        setErrorReportForm(m_form);
    }
    ErrorLog(const ErrorLog &) = delete;
    ErrorLog &operator=(const ErrorLog &) = delete;

    /// The reports since the last call.
    [[nodiscard]] std::vector<ErrorReport> take() { return std::exchange(m_reports, {}); }
    /// The one report since the last call; fails the test when there is none or another number.
    [[nodiscard]] ErrorReport takeOne()
    {
        const std::vector<ErrorReport> reports = take();
        EXPECT_EQ(reports.size(), 1u);
        return reports.empty() ? ErrorReport{} : reports.front();
    }

private:
    std::vector<ErrorReport> m_reports;
    ErrorReportForm m_form;
    base::ErrorReporter m_reporter;
};

} // namespace test
