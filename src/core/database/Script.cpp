#include "core/database/Script.h"

namespace company {
namespace {

/// What closes a stretch in which semicolons and dashes are ordinary characters.
QChar closing(QChar opening)
{
    switch (opening.unicode()) {
    case u'\'':
    case u'"':
    case u'#':
        return opening;
    case u'[':
        return u']';
    default:
        return {};
    }
}

} // namespace

QStringList splitStatements(QStringView script)
{
    QStringList statements;
    QString statement;
    QChar until;
    const auto end = [&] {
        statement = statement.trimmed();
        if (!statement.isEmpty())
            statements << statement;
        statement.clear();
    };
    for (qsizetype i = 0; i < script.size(); ++i) {
        const QChar character = script[i];
        if (!until.isNull()) {
            statement += character;
            if (character == until)
                until = {};
        } else if (character == u';') {
            end();
        } else if (character == u'-' && i + 1 < script.size() && script[i + 1] == u'-') {
            while (i + 1 < script.size() && script[i + 1] != u'\n')
                ++i;
        } else {
            statement += character;
            until = closing(character);
        }
    }
    end();
    return statements;
}

} // namespace company
