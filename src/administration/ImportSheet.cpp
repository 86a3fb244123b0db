#include "administration/ImportSheet.h"

#include "administration/CsvReader.h"
#include "administration/XlsxReader.h"
#include "core/Session.h"

namespace administration {
namespace {

using namespace Qt::StringLiterals;

/// Bytes that tell what kind of file it is.
constexpr qint64 lengthOfBeginning = 4;

/// How many characters of a cell its column takes. Names of lists are measured by their lists.
int lengthOf(const ImportTable &table, const ImportColumn &column)
{
    const sql::Column *stored = gcnData->schema().find(table.table)->find(column.column);
    // A name becomes a number in this table; how long it may be says the list it stands in.
    const bool isMeasured =
        stored->kind == sql::ColumnKind::Text && column.kind != CellKind::Listed;
    return isMeasured ? stored->length : sql::MemoLength - 1;
}

} // namespace

ImportSheet::ImportSheet(const ImportTable &table, const QString &path)
    : m_table(table)
    , m_file(path)
{
    open();
    for (const ImportColumn &column : table.columns)
        m_lengths.push_back(lengthOf(table, column));
}

void ImportSheet::open()
{
    if (!m_file.open(QIODevice::ReadOnly))
        throw base::Error(
            m_file.exists() ? base::ErrorNumber::PermissionDenied : base::ErrorNumber::FileNotFound,
            u"The file \"%1\" can't be read (%2)."_s.arg(m_file.fileName(), m_file.errorString()));
    const QByteArray beginning = m_file.peek(lengthOfBeginning);
    // By the bytes and not by the file's name, which people change.
    if (const QString refusal = refusalOfSpreadsheet(beginning); !refusal.isEmpty())
        throw base::Error(base::ErrorNumber::InvalidCall, refusal);
    // In a spreadsheet numbers are numbers, whatever sign its user's country has.
    if (looksLikeWorkbook(beginning)) {
        m_reader = std::make_unique<XlsxReader>(m_file.fileName());
        return;
    }
    auto reader = std::make_unique<CsvReader>(m_file, CsvReader::Format());
    // Where semicolons part the fields, the comma is taken by the decimals.
    if (reader->delimiter() == ';')
        m_sign = DecimalSign::Comma;
    m_reader = std::move(reader);
}

void ImportSheet::checkHeader(const Blame &blame)
{
    if (m_reader->fault()) {
        blame(-1, m_reader->fault()->sentence);
        return;
    }
    if (m_reader->header().join(QString()).isEmpty()) {
        blame(-1, u"The file is empty, or its first row is: that row holds the headings."_s);
        return;
    }
    QStringList seen(static_cast<qsizetype>(m_table.columns.size()));
    for (const QString &heading : m_reader->header()) {
        const int place = placeOfHeading(m_table, heading);
        m_places.push_back(place);
        if (place < 0) {
            // Told and left out: exports of other programs have columns that nobody wants here.
            if (!heading.isEmpty())
                m_ignored.append(heading);
            continue;
        }
        // Which of the two would be taken, nobody could tell from the result.
        if (!seen[place].isEmpty())
            blame(place, seen[place] == heading ? u"This column stands there twice."_s
                                                : u"\"%1\" and \"%2\" mean the same column."_s.arg(
                                                      seen[place], heading));
        seen[place] = heading;
    }
    for (std::size_t i = 0; i < m_table.columns.size(); ++i) {
        if (m_table.columns[i].isRequired && seen[static_cast<qsizetype>(i)].isEmpty())
            blame(static_cast<int>(i), u"This column is missing in the first row."_s);
    }
}

bool ImportSheet::next()
{
    while (m_reader->next()) {
        if (!m_reader->isBlank())
            return true;
    }
    return false;
}

void ImportSheet::blameFault(const RowFault &fault, const Blame &blame) const
{
    const auto column = static_cast<std::size_t>(qMax(fault.column, 0));
    const int place = fault.column >= 0 && column < m_places.size() ? m_places[column] : -1;
    blame(place, place >= 0 || fault.column < 0
                     ? fault.sentence
                     : u"Column %1: %2"_s.arg(fault.column + 1).arg(fault.sentence));
}

ImportRow ImportSheet::values(const Blame &blame)
{
    ImportRow values(m_table.columns.size());
    if (m_reader->fault()) {
        blameFault(*m_reader->fault(), blame);
        return values;
    }
    const auto &fields = m_reader->fields();
    std::vector<bool> isWrong(values.size(), false);
    for (std::size_t i = 0; i < fields.size(); ++i) {
        // Blank fields behind the headings are what spreadsheets leave; anything else has slipped.
        if (i >= m_places.size()) {
            if (fields[i].text.trimmed().isEmpty())
                continue;
            blame(-1, u"There are %1 fields in this row, and %2 headings."_s.arg(fields.size())
                          .arg(m_places.size()));
            return values;
        }
        if (m_places[i] < 0)
            continue;
        const auto place = static_cast<std::size_t>(m_places[i]);
        // Of each cell its own problem, so that one look at the list mends the whole row.
        if (const auto value = cell(m_places[i], fields[i].text, blame))
            values[place] = *value;
        else
            isWrong[place] = true;
    }
    for (std::size_t i = 0; i < values.size(); ++i) {
        // A cell that was refused has been told already.
        if (m_table.columns[i].isRequired && !values[i].isValid() && !isWrong[i])
            blame(static_cast<int>(i), u"It should not be blank."_s);
    }
    return values;
}

std::optional<QVariant> ImportSheet::cell(int place, const QString &text, const Blame &blame) const
{
    const auto index = static_cast<std::size_t>(place);
    try {
        return cellValue(text, m_table.columns[index], m_lengths[index], m_sign);
    } catch (const base::Error &error) {
        blame(place, error.description());
        return {};
    }
}

} // namespace administration
