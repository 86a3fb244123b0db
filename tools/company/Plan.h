#pragma once

namespace company {

enum class SampleSize {
    Small,      ///< about 80 machines: for a look at the program, and for tests
    Large,      ///< 10,000 machines with a million posted services: for measuring
    ExtraLarge, ///< ten times that, with as much due work as the large one
};

namespace sample {

/// How much a sample company holds.
struct Plan
{
    int machines = 0;    ///< 0: as many as the fleet's table says
    int dueMachines = 0; ///< only the first so many have work that is due; 0: all
    int partSeries = 1;  ///< how often each variant of a part stands in the list
    int historyYears = 3;
    int historyPerService = 1000; ///< at most that many posted rows for each assignment
    int readingEveryDays = 10;    ///< besides those that work orders bring
    /// The same for machines without due work.
    int restingReadingEveryDays = 10;
    int openOrders = 16;
    int scansPerMachine = 12; ///< at most

    /// Whether the machine of that place in the fleet has nothing due.
    [[nodiscard]] bool isAhead(int machine) const
    {
        return dueMachines > 0 && machine >= dueMachines;
    }
};

/// What the numbers above come to in detail.
[[nodiscard]] Plan planFor(SampleSize size);

} // namespace sample
} // namespace company
