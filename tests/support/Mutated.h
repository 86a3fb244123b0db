#pragma once

#include <QRandomGenerator>

namespace test {

/// Damages a text in a few places: pieces go missing, are doubled, put in from the list or replaced
/// by any character, or the end is cut off.
template<class Text>
Text mutated(Text text, const QList<Text> &pieces, QRandomGenerator &random)
{
    const auto bounded = [&](qsizetype limit) {
        return static_cast<qsizetype>(random.bounded(static_cast<quint32>(limit)));
    };
    for (qsizetype changes = 1 + bounded(4); changes > 0 && !text.isEmpty(); --changes) {
        const qsizetype at = bounded(text.size());
        switch (random.bounded(5)) {
        case 0:
            text.remove(at, bounded(12));
            break;
        case 1:
            text.insert(at, text.mid(at, bounded(40)));
            break;
        case 2:
            text.insert(at, pieces[bounded(pieces.size())]);
            break;
        case 3:
            text[at] = static_cast<char>(random.bounded(256));
            break;
        default:
            if (bounded(4) == 0)
                text.truncate(at);
        }
    }
    return text;
}

/// How many texts are tried: as many as QUORVANTIS_MUTATIONS says, or else the usual number.
inline int mutations(int usual)
{
    const int wanted = qEnvironmentVariableIntValue("QUORVANTIS_MUTATIONS");
    return wanted > 0 ? wanted : usual;
}

} // namespace test
