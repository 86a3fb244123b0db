// Recordsets that grow, and texts that are searched where they lie.
#include "platform/grid/GridModel.h"

#include <algorithm>
#include <string_view>

namespace grid {
namespace {

bool isPlain(char character)
{
    return static_cast<unsigned char>(character) < 0x80;
}

char lower(char character)
{
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a')
                                                : character;
}

/// Finds texts that begin with a given one, case aside. Most differ in the first character, which
/// is seen without decoding anything.
class Beginning
{
public:
    explicit Beginning(QStringView text)
        : m_folded(text.toString().toCaseFolded())
        , m_bytes(m_folded.toStdString())
    {}

    [[nodiscard]] bool isOf(std::string_view text) const
    {
        std::size_t at = 0;
        for (; at < m_bytes.size() && at < text.size() && isPlain(text[at]); ++at) {
            if (lower(text[at]) != m_bytes[at])
                return false;
        }
        if (at == m_bytes.size())
            return true;
        if (at == text.size())
            return false;
        return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()))
            .toCaseFolded()
            .startsWith(m_folded);
    }

private:
    QString m_folded;
    std::string m_bytes;
};

} // namespace

void GridModel::extendRecordset(const db::Recordset &longer)
{
    const int had = m_recordset.RecordCount();
    const int count = longer.RecordCount();
    // The list had come to its end already.
    if (count <= had)
        return;
    const auto top = static_cast<int>(m_top.size());
    beginInsertRows({}, top, top + count - had - 1);
    m_recordset = longer;
    for (int record = had; record < count; ++record) {
        const auto slot = static_cast<int>(m_slots.size());
        m_slots.push_back({record, rowCount(), -1, static_cast<int>(m_top.size())});
        m_rows.push_back(slot);
        m_top.push_back(slot);
    }
    m_columns.forgetSearches();
    endInsertRows();
    // Appended first and sorted then: the rows that are shown keep their places until all new ones
    // are in.
    if (m_sortDirection != Sort::None)
        resort();
}

/// The answer of beginsWith for a column whose cells are the recordset's texts; nothing for others.
std::optional<int> GridModel::scannedFor(QStringView text, const ColumnData &data) const
{
    // Cells that were changed, and texts that stand for ids, are not those of the recordset.
    const bool asRecorded = data.record >= 0 && data.cells.isEmpty() && !data.fill &&
                            data.column.editor != Editor::DropDown;
    if (!asRecorded || m_recordset.isEmpty() || !m_recordset.utf8(0, data.record))
        return std::nullopt;
    const Beginning wanted(text);
    for (std::size_t row = 0; row < m_rows.size(); ++row) {
        const int record = m_slots[static_cast<std::size_t>(m_rows[row])].record;
        if (wanted.isOf(record < 0 ? std::string_view() : *m_recordset.utf8(record, data.record)))
            return static_cast<int>(row);
    }
    return -1;
}

} // namespace grid
