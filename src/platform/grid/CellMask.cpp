#include "platform/grid/CellMask.h"

#include <algorithm>

namespace grid {
namespace {

bool isDigit(QChar character)
{
    return character >= u'0' && character <= u'9';
}

} // namespace

CellMask::CellMask(QStringView mask)
{
    for (qsizetype i = 0; i < mask.size(); ++i) {
        const qsizetype close = mask[i] == u'{' ? mask.indexOf(u'}', i) : -1;
        if (close < 0) {
            const bool digit = mask[i] == u'#';
            m_parts.push_back({digit ? Part::Kind::Digit : Part::Kind::Literal, 0, 9, 1, mask[i]});
            continue;
        }
        const QStringView range = mask.sliced(i + 1, close - i - 1);
        const qsizetype comma = range.indexOf(u',');
        const QStringView high = range.sliced(comma + 1).trimmed();
        m_parts.push_back({Part::Kind::Number,
                           comma < 0 ? 0 : range.first(comma).toLongLong(),
                           high.toLongLong(),
                           static_cast<int>(high.size()),
                           {}});
        i = close;
    }
}

CellMask::State CellMask::check(QStringView text) const
{
    if (m_parts.empty() || text.isEmpty())
        return State::Complete;
    State state = State::Complete;
    bool anyDigit = false;
    bool wantsDigits = false;
    for (const Part &part : m_parts) {
        if (text.isEmpty())
            break;
        if (part.kind == Part::Kind::Literal) {
            if (text.front() != part.literal)
                return State::Invalid;
            text = text.sliced(1);
            continue;
        }
        wantsDigits = true;
        qsizetype count = 0;
        while (count < std::min<qsizetype>(text.size(), part.digits) && isDigit(text[count]))
            ++count;
        anyDigit = anyDigit || count > 0;
        const qint64 value = text.first(count).toLongLong();
        if (part.kind == Part::Kind::Number && count > 0) {
            // A number below its range can still grow into it while there is room for digits.
            if (value > part.high || (value < part.low && count == part.digits))
                return State::Invalid;
            if (value < part.low)
                state = State::Unfinished;
        }
        text = text.sliced(count);
    }
    if (!text.isEmpty())
        return State::Invalid;
    return wantsDigits && !anyDigit ? State::Unfinished : state;
}

} // namespace grid
