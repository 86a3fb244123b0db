#include "platform/report/render/CsvFile.h"

#include "platform/base/Format.h"
#include "platform/report/render/OutputFile.h"
#include "platform/report/render/TableColumns.h"

namespace report {
namespace {

using namespace Qt::StringLiterals;

QString quoted(const QString &text)
{
    if (!text.contains(u',') && !text.contains(u'"') && !text.contains(u'\n') &&
        !text.contains(u'\r') && text.trimmed() == text)
        return text;
    return u'"' + QString(text).replace(u'"', u"\"\""_s) + u'"';
}

QString plain(const TableCell &cell)
{
    // A program that reads the file has no use for currency signs.
    const bool isNumber = cell.value.typeId() == QMetaType::LongLong ||
                          cell.value.typeId() == QMetaType::Double ||
                          cell.value.typeId() == QMetaType::Int;
    return isNumber ? base::toText(cell.value) : cell.text;
}

/// Collects the cells of a line until it is whole.
class Lines
{
public:
    Lines(const Layout &layout, OutputFile &file)
        : m_columns(dataColumns(layout))
        , m_lineBand(lineBand(layout))
        , m_layout(layout)
        , m_file(file)
    {
        QStringList headings;
        for (const DataColumn &column : m_columns)
            headings.append(quoted(column.heading));
        // The mark by which spreadsheets know the encoding.
        m_file.write("\xEF\xBB\xBF");
        write(headings);
    }

    bool take(const TableBand &band)
    {
        // Kept to the end: in between they would break the table that programs read.
        m_grids.append(band.grids);
        const bool isLine = band.band->kind == m_lineBand &&
                            (m_lineBand == BandKind::Detail ||
                             m_layout.groupIndex(band.band->group) == m_layout.groups.size() - 1);
        // Several detail bands of one row make one line.
        if (m_pending && (!isLine || band.row != m_row))
            flush();
        // Values of group headers stand in each line of their group; titles and totals have no
        // column.
        if (!isLine && band.band->kind != BandKind::GroupHeader)
            return true;
        for (const Object &object : band.band->objects)
            m_cells.remove(&object);
        for (const TableCell &cell : band.cells)
            m_cells.insert(cell.object, plain(cell));
        m_pending = isLine;
        m_row = band.row;
        return true;
    }

    void flush()
    {
        if (!std::exchange(m_pending, false))
            return;
        QStringList cells;
        for (const DataColumn &column : m_columns)
            cells.append(quoted(m_cells.value(column.object)));
        write(cells);
        for (const Band &band : m_layout.bands)
            if (band.kind == m_lineBand)
                for (const Object &object : band.objects)
                    m_cells.remove(&object);
    }

    /// Charts follow as tables of their own, an empty line ahead of each.
    void writeGrids()
    {
        for (const TableGrid &grid : std::as_const(m_grids)) {
            write({});
            if (!grid.title.isEmpty())
                write({quoted(grid.title)});
            for (const QVariantList &row : grid.rows) {
                QStringList cells;
                for (const QVariant &value : row)
                    cells.append(quoted(base::toText(value)));
                write(cells);
            }
        }
    }

private:
    void write(const QStringList &cells) { m_file.write((cells.join(u',') + u"\r\n"_s).toUtf8()); }

    const std::vector<DataColumn> m_columns;
    const BandKind m_lineBand;
    const Layout &m_layout;
    OutputFile &m_file;
    QHash<const Object *, QString> m_cells;
    QList<TableGrid> m_grids;
    bool m_pending = false;
    int m_row = -1;
};

} // namespace

Outcome writeCsv(const Layout &layout, const DataSource &rows, const Inputs &inputs,
                 const QString &path)
{
    OutputFile file(path);
    Lines lines(layout, file);
    Outcome outcome =
        tabulate(layout, rows, inputs, [&](const TableBand &band) { return lines.take(band); });
    if (outcome.stopped)
        return outcome;
    lines.flush();
    lines.writeGrids();
    file.finish();
    return outcome;
}

} // namespace report
