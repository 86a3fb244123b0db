#pragma once

#include <QString>
#include <functional>

/// How a screen asks something by a dialog of a later folder: by a function that the owner has put
/// here when the program started. An empty function means that the dialog doesn't exist in this
/// program; who calls it keeps the control that would disabled. What is only opened, and what needs
/// a right, goes by name (core/ui/Openings.h).
struct ScreenCalls
{
    struct QuickFind
    {
        QString field;        ///< column that the search begins with, "UnitNo"
        QString label;        ///< "Unit No"
        QString table;        ///< "tblEquipment"
        QString form;         ///< "frmEquipment"
        QString selected{};   ///< key to begin on
        QString leftOut{};    ///< keys to leave out, joined by commas
        bool several = false; ///< several keys may be chosen; they come back joined by commas
    };
    /// Finds a record; its key, blank when cancelled.
    std::function<QString(const QuickFind &)> ShowQuickFind;
    /// Finds a part by the find that parts have of their own; its number, blank when cancelled.
    std::function<QString()> ShowPartQuickFind;
    /// Ticks items of a query's rows: select text, filter text, title, key column and its type,
    /// second column and its type. Returns the chosen keys joined by commas.
    std::function<QString(const QString &, const QString &, const QString &, const QString &,
                          const QString &, const QString &, const QString &)>
        ShowItemListDetail;
    /// The times of a service that was worked on, as rows hold them.
    struct ServiceTimes
    {
        qint64 id = 0; ///< NServiceUsedID of an open order's service, else ServiceUsedID
        QString start = QStringLiteral("00:00");
        QString end = QStringLiteral("00:00");
        QString workHours = QStringLiteral("00:00");
        QString table = QStringLiteral("tblWoserviceUsed");
        std::function<void()> beforeWrite{}; ///< called when the user has decided to store them
    };
    /// Lets the user enter the times of a service; True when they were stored.
    std::function<bool(const ServiceTimes &)> ShowServiceTimeForm;
};

/// The calls of this process.
ScreenCalls &screenCalls();
