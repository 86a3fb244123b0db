#include "exchange/SectionFile.h"

#include <QXmlStreamReader>

#include <algorithm>
#include <vector>

using namespace Qt::StringLiterals;

namespace exchange {
namespace {

SectionRecord recordOf(const QXmlStreamAttributes &attributes)
{
    SectionRecord record;
    for (const QXmlStreamAttribute &attribute : attributes)
        record.append({attribute.qualifiedName().toString(), attribute.value().toString()});
    return record;
}

QList<Section> sectionsIn(QXmlStreamReader &reader)
{
    struct Open
    {
        bool isRoot;
        qsizetype section; ///< -1 when it is none
    };
    QList<Section> sections;
    std::vector<Open> open;
    while (!reader.atEnd()) {
        reader.readNext();
        if (reader.isEndElement()) {
            open.pop_back();
        } else if (reader.isStartElement()) {
            // The root may stand anywhere, and its sections' records may be called anything.
            Open element{reader.qualifiedName() == u"tables", -1};
            if (!open.empty() && open.back().isRoot) {
                element.section = sections.size();
                sections.append({reader.qualifiedName().toString(), {}});
            } else if (!open.empty() && open.back().section >= 0) {
                sections[open.back().section].records.append(recordOf(reader.attributes()));
            }
            open.push_back(element);
        }
    }
    return sections;
}

} // namespace

SectionFile::SectionFile(const QByteArray &content)
{
    QXmlStreamReader reader(content);
    m_sections = sectionsIn(reader);
    if (!reader.hasError())
        return;
    // Nothing of a damaged file is used, though all up to the damage could be read.
    m_fault = faultAt(reader, content);
    m_sections.clear();
}

bool SectionFile::has(QStringView section) const
{
    return std::ranges::any_of(m_sections, [&](const Section &each) { return each.is(section); });
}

} // namespace exchange
