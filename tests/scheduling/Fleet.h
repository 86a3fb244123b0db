#pragma once

#include "core/CompanySession.h"
#include "support/ScriptedPrompts.h"

#include <QVariantMap>

namespace test {

/// A company with one crew and helpers that put machines, services and readings into it. Today is
/// Friday, March 15, 2024.
struct Fleet : CompanySession
{
    Fleet();

    static QDateTime day(int month, int date, int year = 2024)
    {
        return base::wallClock(QDate(year, month, date));
    }

    /// Machine with this key and the unit number "U<key>".
    static void machine(qint64 id, const QVariantMap &more = {});
    /// A service of machine 1, every ten days on any day, of crew and cost center 1, last performed
    /// on March 1 and scheduled for February 20; what is given goes before.
    qint64 assigned(const QVariantMap &more = {}) const;
    /// A service of the catalogue with the same schedule.
    qint64 catalogue(qint64 id, const QVariantMap &more = {}) const;
    static void reading(qint64 machine, const QString &type, const QDateTime &date, qint64 value);
    static void part(const QString &id, double price);

    /// Lets each statement on gcnData that holds this text fail, none for an empty one.
    static void failAt(const QString &text);

    ScriptedPrompts prompts;
    qint64 crew = 0;       ///< number 7, one employee at 20 an hour
    qint64 costCenter = 0; ///< "Shop"
};

} // namespace test
