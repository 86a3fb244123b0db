#pragma once

#include "core/CompanySession.h"
#include "support/ScriptedPrompts.h"

#include <functional>

namespace test {

/// A company with two crews and a few helpers that put machines, services, parts and orders into
/// it. Today is March 15, 2024.
struct Workshop : CompanySession
{
    Workshop();

    static QDateTime day(int month, int date) { return base::wallClock({2024, month, date}); }

    static void machine(qint64 id, const QString &unit, const QVariantMap &more = {});
    /// A service of machine 1 due on March 10, every ten days, on any day, of crew 1; what is given
    /// goes before.
    qint64 service(const QVariantMap &more = {}) const;
    static void part(const QString &id, double quantity, bool notTracked = false);
    static void servicePart(qint64 serviceUsedID, const QString &part, double quantity);
    /// An order of machine 1.
    static qint64 order(const QVariantMap &more = {});
    /// One that is complete as of this day of March.
    static qint64 completeOrder(int date = 12);
    /// A service on an order; without "ServiceUsedID" one from the catalogue.
    qint64 orderService(qint64 order, const QVariantMap &more = {}) const;
    static void orderPart(qint64 nServiceUsedID, const QString &part, double quantity, bool used);

    /// A column of the row under this number: a schedule, or a service on an order.
    static QVariant ofService(qint64 serviceUsedID, const QString &column);
    static QVariant onOrder(qint64 nServiceUsedID, const QString &column);

    /// Runs a step with its first statement failing, then its second, and so on until none does:
    /// each failure is told once and leaves everything as it was. Gives how many there were.
    int failAtEachStatement(const std::function<bool()> &step);
    /// All rows of what the cycle writes to, as text: what must be equal after an undone step.
    static QString everything();

    qint64 crew1 = 0; ///< number 1, one employee at 20 an hour
    qint64 crew2 = 0; ///< number 2
};

} // namespace test
