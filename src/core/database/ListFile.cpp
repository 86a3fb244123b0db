#include "core/database/ListFile.h"

#include "platform/base/Error.h"

#include <QStringList>

namespace company {
namespace {

using namespace Qt::StringLiterals;

[[noreturn]] void refuse(qsizetype line, const QString &why)
{
    throw base::Error(base::ErrorNumber::InvalidCall,
                      u"Line %1 of the lookup lists: %2"_s.arg(line).arg(why));
}

class ListReader
{
public:
    explicit ListReader(int firstMember)
        : m_next(firstMember)
    {}

    void read(QStringView line, qsizetype number)
    {
        // Two blanks lead one level down.
        const qsizetype blanks = line.size() - line.trimmed().size();
        const qsizetype level = blanks / 2;
        if (blanks % 2 != 0 || level > static_cast<qsizetype>(m_open.size()))
            refuse(number, u"its indentation fits no line above it."_s);
        m_open.resize(level);

        QStringView name = line.trimmed();
        QStringView members;
        if (const qsizetype colon = name.indexOf(u": "_s); colon >= 0) {
            members = name.mid(colon + 2);
            name = name.left(colon);
        }
        m_open.push_back(level == 0 ? addList(name, number) : addMember(name, m_open.back()));
        if (members.isEmpty())
            return;
        for (const QStringView member : members.split(u';'))
            addMember(member.trimmed(), m_open.back());
    }

    [[nodiscard]] std::vector<ListItem> items() && { return std::move(m_items); }

private:
    int addList(QStringView text, qsizetype line)
    {
        bool isNumber = false;
        const int id = text.left(text.indexOf(u' ')).toInt(&isNumber);
        if (!isNumber)
            refuse(line, u"a list begins with its number."_s);
        m_items.push_back({id, 0, text.mid(text.indexOf(u' ')).trimmed().toString()});
        return id;
    }

    int addMember(QStringView name, int parent)
    {
        m_items.push_back({m_next, parent, name.toString()});
        return m_next++;
    }

    std::vector<ListItem> m_items;
    std::vector<int> m_open; ///< the item that lines of the next level belong to, level by level
    int m_next;
};

} // namespace

std::vector<ListItem> parseLists(QStringView text, int firstMember)
{
    ListReader reader(firstMember);
    qsizetype number = 0;
    for (const QStringView line : text.split(u'\n')) {
        ++number;
        QString kept = line.toString();
        while (!kept.isEmpty() && kept.back().isSpace())
            kept.chop(1);
        if (!kept.isEmpty() && !kept.startsWith(u'#'))
            reader.read(kept, number);
    }
    return std::move(reader).items();
}

} // namespace company
