#include "support/TestEnvironment.h"

#include <QDir>

namespace test {

TestEnvironment::TestEnvironment(QDateTime now)
    : m_former(base::environment())
{
    base::Environment environment;
    environment.clockIsFixed = true;
    environment.applicationFolder = m_folder.filePath(QStringLiteral("app"));
    environment.appData = m_folder.filePath(QStringLiteral("appdata"));
    environment.computerName = QStringLiteral("TESTBENCH");
    environment.registryFile = m_folder.filePath(QStringLiteral("registry.ini"));
    QDir().mkpath(environment.applicationFolder);
    QDir().mkpath(environment.appData);
    base::setEnvironment(std::move(environment));
    setNow(std::move(now));
}

TestEnvironment::~TestEnvironment()
{
    base::setEnvironment(m_former);
}

void TestEnvironment::setNow(QDateTime now)
{
    m_now = std::move(now);
    base::Environment environment = base::environment();
    environment.clock = [fixed = m_now] { return fixed; };
    base::setEnvironment(std::move(environment));
}

} // namespace test
