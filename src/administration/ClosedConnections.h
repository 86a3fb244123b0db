#pragma once

namespace administration {

/// Closes the session's connections for as long as the database file is worked on as a whole.
/// Whatever happens meanwhile, they are open again before the error is reported.
class ClosedConnections
{
public:
    ClosedConnections();
    ~ClosedConnections();
    ClosedConnections(const ClosedConnections &) = delete;
    ClosedConnections &operator=(const ClosedConnections &) = delete;

    /// Opens them at the end of the work; raises when that fails.
    void reopen();

private:
    bool m_open = false;
};

} // namespace administration
