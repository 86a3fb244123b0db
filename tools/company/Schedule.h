#pragma once

#include "company/Fleet.h"

namespace company::sample {

/// A catalogue service on a machine.
struct Assignment
{
    int id = 0;                         ///< ServiceUsedID
    int machine = 0;                    ///< position among the machines
    int service = 0;                    ///< position in the catalogue
    QDate lastScheduled, lastPerformed; ///< invalid when it was never done
    QDate next;                         ///< invalid when a meter has not reached its target
    int nextCount = 0;
    bool retired = false; ///< a one-off service that was done
};

/// One posted piece of work.
struct Event
{
    QDate performed;
    QDate scheduled; ///< the date that it had been due on
    QDate formerScheduled, formerPerformed;
    int assignment = 0; ///< position among the assignments
    int count = -1;     ///< meter reading, -1 for a calendar service
    bool skipped = false;
};

struct Schedule
{
    std::vector<Assignment> assignments;
    std::vector<Event> events; ///< in no order
};

/// Assigns services to machines such that some are overdue, some due today and most to come, and
/// walks back from there to what was done before; writes the assignments with their parts, and the
/// readings, among them those that the work brought.
[[nodiscard]] Schedule writeSchedule(Batch &batch, const Content &content, const Masters &masters,
                                     const std::vector<Machine> &machines, const Plan &plan,
                                     QDate today, quint64 seed);

} // namespace company::sample
