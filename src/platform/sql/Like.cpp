#include "platform/sql/Translator.h"

namespace sql {

std::optional<QString> likePattern(const QString &pattern)
{
    QString written;
    written.reserve(pattern.size() + 8);
    for (const QChar character : pattern) {
        switch (character.unicode()) {
        case u'*':
            written += u'%';
            break;
        case u'?':
            written += u'_';
            break;
        case u'#':
        case u'[':
            return std::nullopt;
        // Plain characters in the dialect, signs to the engine.
        case u'%':
        case u'_':
        case u'\\':
            written += u'\\';
            [[fallthrough]];
        default:
            written += character;
        }
    }
    return written;
}

} // namespace sql
