#include "platform/report/layout/Units.h"

#include <array>
#include <cmath>

namespace report {

std::optional<Length> parseLength(const QString &text)
{
    struct Unit
    {
        QStringView name;
        double millimetres;
    };
    static constexpr std::array<Unit, 4> Units{
        {{u"mm", 1}, {u"cm", 10}, {u"in", 25.4}, {u"pt", 25.4 / 72}}};
    const QString trimmed = text.trimmed();
    for (const Unit &unit : Units) {
        if (!trimmed.endsWith(unit.name))
            continue;
        bool ok = false;
        const double number = trimmed.chopped(unit.name.size()).trimmed().toDouble(&ok);
        // A page of ten metres is an error of writing, and keeps sums of lengths in range.
        if (!ok || !std::isfinite(number) || number * unit.millimetres > 10000 ||
            number * unit.millimetres < -10000)
            return std::nullopt;
        return fromMillimetres(number * unit.millimetres);
    }
    return std::nullopt;
}

QString lengthText(Length length)
{
    // As short as it is exact: files are compared line by line.
    return QString::number(length / 100.0, 'g', 10) + QStringLiteral("mm");
}

} // namespace report
