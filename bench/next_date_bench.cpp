// A million next dates of patterns that have to search, and the mean time of one.

#include "scheduling/NextDate.h"

#include <chrono>
#include <cstdio>

namespace {

using namespace Qt::StringLiterals;

scheduling::Pattern patternOf(int number)
{
    scheduling::Pattern pattern;
    pattern.dom = number % 4 == 0;
    pattern.domDays = {0, 1 + number % 28, 15, 0, 0, 0};
    for (int month = 1; month <= 12; ++month)
        pattern.months[month] = (number + month) % 3 != 0;
    for (int week = 1; week <= 5; ++week)
        pattern.weeks[week] = (number + week) % 2 == 0;
    pattern.days[1 + number % 7] = 1;
    return pattern;
}

} // namespace

int main()
{
    constexpr int Patterns = 64;
    constexpr int Calculations = 1'000'000;
    std::vector<scheduling::Pattern> patterns;
    for (int number = 0; number < Patterns; ++number)
        patterns.push_back(patternOf(number));
    const QString period = u"W"_s;
    const QDate begin(2024, 1, 1);
    qint64 sum = 0;
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < Calculations; ++i)
        sum +=
            scheduling::nextDate(patterns[i % Patterns], period, 1 + i % 8, begin.addDays(i % 900))
                .toJulianDay();
    const std::chrono::duration<double, std::nano> time = std::chrono::steady_clock::now() - start;
    std::printf("next date: %.0f ns each (checksum %lld)\n", time.count() / Calculations,
                static_cast<long long>(sum));
}
