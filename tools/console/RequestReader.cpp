#include "console/Console.h"

#include "platform/base/Error.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QRegularExpression>

namespace console {
namespace {

using namespace Qt::StringLiterals;

bool beginsStatement(const QString &line)
{
    static const QRegularExpression beginning(
        u"^(select|insert|update|delete|create|alter|drop)\\b"_s,
        QRegularExpression::CaseInsensitiveOption);
    return beginning.match(line).hasMatch();
}

bool isComment(const QString &line)
{
    return line.trimmed().startsWith(u"--"_s);
}

QVariantList parametersFrom(const QString &json, int line)
{
    const QJsonDocument document = QJsonDocument::fromJson(json.toUtf8());
    if (!document.isArray())
        throw base::Error(base::ErrorNumber::InvalidCall,
                          u"Line %1: the values after the tab are no JSON array."_s.arg(line));
    QVariantList values;
    for (const QJsonValue &value : document.array())
        values << (value.isNull() ? QVariant() : value.toVariant());
    return values;
}

} // namespace

std::optional<Request> RequestReader::next()
{
    Request request;
    while (m_pending || !m_in.atEnd()) {
        QString line;
        if (m_pending) {
            line = *m_pending;
            m_pending.reset();
        } else {
            line = m_in.readLine();
            ++m_line;
        }
        if (isComment(line))
            continue;
        const bool begun = !request.statement.isEmpty();
        if (line.trimmed().isEmpty()) {
            if (begun)
                break;
            continue;
        }
        if (begun && beginsStatement(line)) {
            m_pending = line;
            break;
        }
        if (!begun)
            request.line = m_line;

        const qsizetype values = line.indexOf(u"\t["_s);
        const QString text = (values < 0 ? line : line.left(values)).trimmed();
        request.statement += (begun ? u"\n"_s : QString()) + text;
        if (values >= 0)
            request.parameters = parametersFrom(line.mid(values + 1), m_line);
        if (values >= 0 || text.endsWith(u';'))
            break;
    }
    while (request.statement.endsWith(u';'))
        request.statement.chop(1);
    if (request.statement.isEmpty())
        return std::nullopt;
    return request;
}

} // namespace console
