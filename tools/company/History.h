#pragma once

#include "company/Schedule.h"

namespace company::sample {

/// The first free numbers behind the posted work.
struct OrderNumbers
{
    qint64 order = 1;   ///< WorkorderNo
    qint64 service = 1; ///< NServiceUsedID
};

/// Writes the posted work with its parts, oldest first, as posting would have left it; sorts the
/// events for that.
OrderNumbers writeHistory(Batch &batch, const Content &content, const Masters &masters,
                          const std::vector<Machine> &machines, Schedule &schedule, QDate today,
                          quint64 seed);

/// Hours worked, as a mechanic's paper has them.
struct WorkTime
{
    QTime start;
    int minutes = 0;

    [[nodiscard]] QString startText() const;
    [[nodiscard]] QString endText() const;
    [[nodiscard]] QString hoursText() const; ///< "h:mm"
    /// At so much an hour, rounded to cents.
    [[nodiscard]] double cost(double rate) const;
};
/// Around what was budgeted, in steps of five minutes; begun between 7:00 and 14:30.
[[nodiscard]] WorkTime workTime(double budgetedHours, Random &random);

} // namespace company::sample
