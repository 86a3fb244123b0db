#pragma once

#include "platform/base/Environment.h"

#include <QTemporaryDir>

namespace test {

/// Surroundings of a test's own for as long as it lives: a fixed clock, a temporary folder for the
/// program's files, APPDATA and the registry, and a computer called TESTBENCH.
class TestEnvironment
{
public:
    explicit TestEnvironment(QDateTime now = base::wallClock(QDate(2024, 3, 15), QTime(9, 30)));
    ~TestEnvironment();
    TestEnvironment(const TestEnvironment &) = delete;
    TestEnvironment &operator=(const TestEnvironment &) = delete;

    void setNow(QDateTime now);
    void addDays(int days) { setNow(m_now.addDays(days)); }
    [[nodiscard]] QString folder() const { return m_folder.path(); }

private:
    QTemporaryDir m_folder;
    QDateTime m_now;
    base::Environment m_former;
};

} // namespace test
