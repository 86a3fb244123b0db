#include "administration/ClosedConnections.h"

#include "core/Session.h"

namespace administration {

ClosedConnections::ClosedConnections()
{
    closeConnections();
}

ClosedConnections::~ClosedConnections()
{
    if (m_open)
        return;
    try {
        openConnections();
    } catch (const base::Error &error) {
        // The error that is on its way is the one to report; every later step says that no database
        // is open.
        qWarning("the database can't be opened again: %s", error.what());
    }
}

void ClosedConnections::reopen()
{
    openConnections();
    m_open = true;
}

} // namespace administration
