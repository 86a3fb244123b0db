#include "exchange/CommandFile.h"

#include "platform/base/Error.h"

#include <QXmlStreamReader>

#include <vector>

using namespace Qt::StringLiterals;

namespace exchange {
namespace {

/// No handheld nests so deep; what does is made to exhaust its reader.
constexpr int DeepestNesting = 200;

/// Collects the commands of a text while it is read.
class Collector
{
public:
    Collector(QHash<QString, QList<Command>> &commands, const QStringList &kinds)
        : m_commands(commands)
        , m_kinds(kinds)
    {}

    /// What is wrong with the text, empty when it is in order.
    [[nodiscard]] QString read(QXmlStreamReader &reader)
    {
        while (!reader.atEnd()) {
            reader.readNext();
            if (reader.isStartElement()) {
                if (m_depth == DeepestNesting)
                    return u"elements are nested too deep"_s;
                begin(reader.name().toString());
            } else if (reader.isEndElement()) {
                end();
            } else if (reader.isCharacters()) {
                add(reader.text());
            }
        }
        return reader.hasError() ? reader.errorString() : QString();
    }

private:
    /// A command whose element has begun and not ended.
    struct Open
    {
        QString kind;
        qsizetype index;
        int depth; ///< of its element
        bool inChild = false;
    };

    QStringList &values(const Open &open) { return m_commands[open.kind][open.index].values; }

    void begin(const QString &name)
    {
        for (Open &open : m_open) {
            if (open.depth == m_depth) {
                values(open).append(QString());
                open.inChild = true;
            }
        }
        ++m_depth;
        if (!m_kinds.contains(name))
            return;
        QList<Command> &same = m_commands[name];
        same.append({name, static_cast<int>(same.size()) + 1, {}});
        m_open.push_back({name, same.size() - 1, m_depth});
    }

    void end()
    {
        if (!m_open.empty() && m_open.back().depth == m_depth)
            m_open.pop_back();
        --m_depth;
        for (Open &open : m_open)
            open.inChild = open.inChild && open.depth < m_depth;
    }

    /// Text beside the children is a child too, blanks between them are none.
    void add(QStringView text)
    {
        for (Open &open : m_open) {
            if (open.inChild)
                values(open).last() += text;
            else if (!text.trimmed().isEmpty())
                values(open).append(text.toString());
        }
    }

    QHash<QString, QList<Command>> &m_commands;
    const QStringList &m_kinds;
    std::vector<Open> m_open;
    int m_depth = 0;
};

} // namespace

const QString &Command::at(int position) const
{
    if (position >= values.size())
        throw base::Error(
            base::ErrorNumber::NoSuchItem,
            u"position %1 is missing, there are %2"_s.arg(position).arg(values.size()));
    return values[position];
}

CommandFile::CommandFile(const QByteArray &content, const QStringList &kinds)
{
    QXmlStreamReader reader(content);
    const QString reason = Collector(m_commands, kinds).read(reader);
    if (reason.isEmpty())
        return;
    m_fault = u"%1 (line %2)"_s.arg(reason).arg(reader.lineNumber());
    m_commands.clear();
}

const QList<Command> &CommandFile::commands(const QString &kind) const
{
    static const QList<Command> none;
    const auto found = m_commands.constFind(kind);
    return found == m_commands.constEnd() ? none : *found;
}

qsizetype CommandFile::commandCount() const
{
    qsizetype count = 0;
    for (const QList<Command> &each : m_commands)
        count += each.size();
    return count;
}

} // namespace exchange
