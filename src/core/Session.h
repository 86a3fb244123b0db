#pragma once

#include "platform/base/Trapped.h"
#include "platform/db/Connection.h"

#include <QString>
#include <memory>
#include <optional>

/// The session: the two connections to the one database file, the shared transaction on the first
/// of them, and who is working.

/// Business work and every transaction. Null until ConnectToDB and while the file is being
/// replaced.
extern std::unique_ptr<db::Connection> gcnData;
/// What must not take part in a transaction on gcnData: lookup lists, the small master lists,
/// options, grid layouts, the error list.
extern std::unique_ptr<db::Connection> gcnLookup;

extern QString gsDatabasePath;   ///< full path of the live database
extern QString gsLoginUser;      ///< in upper case; empty when security is off
extern bool gbDatabaseOutOfDate; ///< the update at start asked for the update from the menu
extern bool gbInTransaction;     ///< the shared transaction on gcnData is open

/// The two connections where they must be open; raise base::Error when no database is open.
[[nodiscard]] db::Connection &dataConnection();
[[nodiscard]] db::Connection &lookupConnection();

/// How to attach to the live database: gsDatabasePath in this process or, when the registry names
/// one in "HOST", on that host, under "HOSTPATH", "HOSTUSER" and "HOSTPASSWORD" where they are
/// given.
[[nodiscard]] db::Target databaseTarget();
/// Opens gcnData, then gcnLookup. Raises, and leaves both closed then.
void openConnections();
/// Closes both, for operations on the file as a whole. An open transaction is undone.
void closeConnections();
[[nodiscard]] bool connectionsAreOpen();

/// Opens the shared transaction unless it is open already; whoever finds it open joins it.
void BeginTrans();
/// Commits the shared transaction if it is open.
void CommitTrans();
/// Undoes the shared transaction if it is open.
void RollbackTrans();

/// Joins or opens the shared transaction for a block. Leaving the block without commit() undoes
/// the whole transaction, also the part of those who opened it: a step that failed must not be
/// committed by anybody. While it lives, trapped procedures pass their errors on (base::Whole), so
/// that the error is reported when nothing is locked any more.
class TransactionScope
{
public:
    TransactionScope() { BeginTrans(); }
    ~TransactionScope();
    TransactionScope(const TransactionScope &) = delete;
    TransactionScope &operator=(const TransactionScope &) = delete;

    /// Ends the whole too: what follows is no step of it any more.
    void commit();
    /// Leaves the transaction open for the caller who holds it.
    void leaveOpen()
    {
        m_done = true;
        m_whole.reset();
    }

private:
    std::optional<base::Whole> m_whole{std::in_place};
    bool m_done = false;
};

/// The 28 rights, each under the name of its column in tblUser. All False at process start.
struct Rights
{
    bool EqAdd = false, EqMod = false, EqDel = false;
    bool SerAdd = false, SerMod = false, SerDel = false;
    bool PaAdd = false, PaMod = false, PaDel = false;
    bool EqList = false, EqDetail = false, EqCountSheet = false, ExpOnEq = false;
    bool EqUtilization = false, EqCrewHistory = false, EqScanHistory = false;
    bool InspDatReading = false, LicRenDateReading = false, WOHistory = false;
    bool SerList = false, SerEqName = false, SerHistory = false, SerHistoryTime = false;
    bool InvReport = false, InvReorderReport = false, InvOrUpSer = false;
    bool InvPartUsage = false, InvPartHistory = false;
};
extern Rights gRights;
