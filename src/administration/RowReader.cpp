#include "administration/RowReader.h"

#include <QStringView>
#include <algorithm>

namespace administration {

bool RowReader::isBlank() const
{
    const auto holdsSomething = [](const Field &field) {
        return field.quoted || !QStringView(field.text).trimmed().isEmpty();
    };
    return !m_fault && std::ranges::none_of(m_fields, holdsSomething);
}

void RowReader::takeHeader()
{
    for (const Field &field : m_fields)
        m_header.append(field.text.trimmed());
}

void RowReader::blame(int column, const QString &sentence)
{
    if (!m_fault)
        m_fault = RowFault{column, sentence};
}

} // namespace administration
