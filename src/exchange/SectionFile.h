#pragma once

#include "exchange/XmlFault.h"

#include <QList>
#include <QString>

#include <optional>
#include <utility>

namespace exchange {

/// The attributes of a record, in their order.
using SectionRecord = QList<std::pair<QString, QString>>;

/// A section of an exchange file: the records of one table.
struct Section
{
    QString name;
    QList<SectionRecord> records;

    /// True when it has this name, in any case.
    [[nodiscard]] bool is(QStringView wanted) const
    {
        return name.compare(wanted, Qt::CaseInsensitive) == 0;
    }
};

/// A file in the shape of the export: whatever stands in an element "tables" is a section, and
/// whatever stands in that a record.
class SectionFile
{
public:
    /// Reads the file whole. What is no XML raises nothing: it is the fault, and there are no
    /// sections.
    explicit SectionFile(const QByteArray &content);

    /// What is wrong with the file; nothing when it could be read.
    [[nodiscard]] const std::optional<XmlFault> &fault() const { return m_fault; }
    /// In the order of the file; none when it has a fault.
    [[nodiscard]] const QList<Section> &sections() const { return m_sections; }
    /// True when the file has such a section, whatever stands in it.
    [[nodiscard]] bool has(QStringView section) const;

private:
    QList<Section> m_sections;
    std::optional<XmlFault> m_fault;
};

} // namespace exchange
