#include "platform/report/render/SpreadsheetFile.h"

#include "platform/base/Error.h"
#include "platform/base/Format.h"
#include "platform/report/render/OutputFile.h"
#include "platform/report/render/TableColumns.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QStorageInfo>
#include <QTemporaryDir>
#include <cstdio>
#include <map>
#include <xlsxwriter.h>

namespace report {
namespace {

using namespace Qt::StringLiterals;

/// The format's limit for the text of a cell, and for rows of a sheet.
constexpr int MaximumCellText = 32767;
constexpr lxw_row_t MaximumRows = 1048576;
/// About what a character of the usual font takes.
constexpr double LengthPerCharacter = 190;
constexpr qint64 CopiedAtOnce = 1024 * 1024;

bool isNumber(const QVariant &value)
{
    return value.typeId() == QMetaType::LongLong || value.typeId() == QMetaType::Double ||
           value.typeId() == QMetaType::Int;
}

class Sheet
{
public:
    explicit Sheet(const Layout &layout)
        : m_columns(layout)
    {
        lxw_workbook_options options{};
        // Rows go to a file as they come: a year's history would take hundreds of megabytes
        // otherwise.
        options.constant_memory = LXW_TRUE;
        options.tmpdir = m_folderName.data();
        m_workbook = workbook_new_opt(QFile::encodeName(scratchFile()).constData(), &options);
        m_sheet = m_workbook ? workbook_add_worksheet(m_workbook, nullptr) : nullptr;
        if (!m_sheet)
            throw base::Error(base::ErrorNumber::DiskFull, u"The spreadsheet can't be begun."_s);
        // The library takes the texts by pointers that may be written to, and copies them.
        QByteArray title = layout.title.toUtf8();
        lxw_doc_properties properties{};
        properties.title = title.data();
        workbook_set_properties(m_workbook, &properties);
        for (int column = 0; column < m_columns.count(); ++column)
            worksheet_set_column(m_sheet, static_cast<lxw_col_t>(column),
                                 static_cast<lxw_col_t>(column),
                                 qMax(4.0, m_columns.width(column) / LengthPerCharacter), nullptr);
        if (layout.page.landscape)
            worksheet_set_landscape(m_sheet);
    }
    ~Sheet()
    {
        if (m_workbook)
            // Only after an error or a cancel: the library frees its memory by closing, whatever
            // becomes of the file.
            (void)workbook_close(m_workbook);
    }
    Sheet(const Sheet &) = delete;
    Sheet &operator=(const Sheet &) = delete;

    [[nodiscard]] bool isFull() const { return m_row >= MaximumRows; }

    /// False when the sheet is full.
    bool take(const TableBand &band)
    {
        if (isFull())
            return false;
        // Titles and headings stay in view while the rows scroll.
        if (!m_headIsFrozen && band.band->kind != BandKind::ReportHeader &&
            band.band->kind != BandKind::PageHeader) {
            m_headIsFrozen = true;
            if (m_row > 0)
                worksheet_freeze_panes(m_sheet, m_row, 0);
        }
        const std::vector<SheetPlace> &places = placesOf(*band.band);
        // Rows have to be written in their order.
        std::map<int, std::map<int, const TableCell *>> lines;
        for (const TableCell &cell : band.cells) {
            const SheetPlace place = places[cell.object - band.band->objects.constData()];
            if (place.column >= 0 && !cell.text.isEmpty())
                lines[place.line][place.column] = &cell;
        }
        for (const auto &[line, cells] : lines) {
            for (const auto &[column, cell] : cells)
                write(static_cast<lxw_col_t>(column), *cell);
            ++m_row;
        }
        for (const TableGrid &grid : band.grids)
            write(grid);
        return true;
    }

    /// Copies the whole file to its place. Raises base::Error.
    void close(OutputFile &target)
    {
        checkScratch();
        // It frees the book also when it fails, so the destructor must not see it again.
        const lxw_error error = workbook_close(std::exchange(m_workbook, nullptr));
        if (error != LXW_NO_ERROR)
            throw base::Error(base::ErrorNumber::DiskFull,
                              u"The spreadsheet can't be written: %1."_s.arg(
                                  QString::fromUtf8(lxw_strerror(error))));
        QFile scratch(scratchFile());
        if (!scratch.open(QIODevice::ReadOnly))
            throw base::Error(
                base::ErrorNumber::PathAccess,
                u"The spreadsheet can't be written: %1."_s.arg(scratch.errorString()));
        while (!scratch.atEnd())
            target.write(scratch.read(CopiedAtOnce));
        target.finish();
    }

private:
    /// The library looks neither at what became of the rows that it keeps in a file for the time
    /// being, nor at the copy that it makes of them at the end; a full disk would cut the sheet.
    void checkScratch() const
    {
        const qint64 spare = 4 * CopiedAtOnce;
        std::FILE *rows = m_sheet->optimize_tmpfile;
        // A place of which the system tells nothing is taken to have room.
        const QStorageInfo place(m_folder.path());
        const bool isFull =
            place.isValid() && rows && place.bytesAvailable() < std::ftell(rows) + spare;
        if (rows && (std::fflush(rows) != 0 || std::ferror(rows) || isFull))
            throw base::Error(
                base::ErrorNumber::DiskFull,
                u"The spreadsheet can't be written: no space is left in \"%1\"."_s.arg(
                    QDir::tempPath()));
    }

    [[nodiscard]] QString scratchFile() const { return m_folder.filePath(u"sheet.xlsx"_s); }

    const std::vector<SheetPlace> &placesOf(const Band &band)
    {
        const auto found = m_places.find(&band);
        return found != m_places.end()
                   ? found->second
                   : m_places.emplace(&band, m_columns.places(band)).first->second;
    }

    /// A chart's values, their headings in bold. Such a head isn't frozen: it would fill the
    /// window.
    void write(const TableGrid &grid)
    {
        m_headIsFrozen = true;
        Style bold;
        bold.font.bold = true;
        if (!grid.title.isEmpty()) {
            write(0, grid.title, grid.title, bold, {});
            ++m_row;
        }
        for (qsizetype row = 0; row < grid.rows.size() && m_row < MaximumRows; ++row, ++m_row)
            for (qsizetype column = 0; column < grid.rows[row].size(); ++column) {
                const QVariant &value = grid.rows[row][column];
                if (!value.isNull())
                    write(static_cast<lxw_col_t>(column), value, base::toText(value),
                          row == 0 ? bold : Style(), grid.formats.value(column));
            }
    }

    void write(lxw_col_t column, const TableCell &cell)
    {
        write(column, cell.value, cell.text, cell.style, cell.object->format);
    }

    void write(lxw_col_t column, const QVariant &value, const QString &text, const Style &style,
               const QString &pattern)
    {
        if (isNumber(value)) {
            worksheet_write_number(m_sheet, m_row, column, value.toDouble(),
                                   format(style, pattern));
        } else if (value.typeId() == QMetaType::QDateTime) {
            const QDateTime date = value.toDateTime();
            lxw_datetime when{date.date().year(),   date.date().month(),
                              date.date().day(),    date.time().hour(),
                              date.time().minute(), static_cast<double>(date.time().second())};
            const QString usual =
                date.time() == QTime(0, 0) ? u"m/d/yyyy"_s : u"m/d/yyyy h:mm:ss AMPM"_s;
            worksheet_write_datetime(m_sheet, m_row, column, &when,
                                     format(style, pattern.isEmpty() ? usual : pattern));
        } else {
            worksheet_write_string(m_sheet, m_row, column,
                                   // As text, so that what begins with "=" is not worked out by
                                   // whoever opens the file.
                                   text.left(MaximumCellText).toUtf8().constData(),
                                   format(style, {}));
        }
    }

    /// The format of a look and a pattern; a file can't hold one for each cell.
    lxw_format *format(const Style &style, const QString &pattern)
    {
        const QString key = u"%1|%2|%3|%4|%5|%6"_s.arg(pattern)
                                .arg(style.font.bold)
                                .arg(style.font.italic)
                                .arg(style.color.rgb())
                                .arg(style.fill.isValid() ? style.fill.rgb() : 0)
                                .arg(static_cast<int>(style.align));
        lxw_format *&known = m_formats[key];
        if (known)
            return known;
        known = workbook_add_format(m_workbook);
        if (!pattern.isEmpty())
            format_set_num_format(known, spreadsheetFormat(pattern).toUtf8().constData());
        if (style.font.bold)
            format_set_bold(known);
        if (style.font.italic)
            format_set_italic(known);
        if (style.color != QColor(Qt::black))
            format_set_font_color(known, style.color.rgb() & 0xffffff);
        if (style.fill.isValid())
            format_set_bg_color(known, style.fill.rgb() & 0xffffff);
        if (style.align == Align::Center)
            format_set_align(known, LXW_ALIGN_CENTER);
        if (style.align == Align::Right)
            format_set_align(known, LXW_ALIGN_RIGHT);
        return known;
    }

    QTemporaryDir m_folder; ///< the library writes files only by their names
    QByteArray m_folderName = QFile::encodeName(m_folder.path());
    SheetColumns m_columns;
    std::map<const Band *, std::vector<SheetPlace>> m_places;
    QHash<QString, lxw_format *> m_formats;
    lxw_workbook *m_workbook = nullptr;
    lxw_worksheet *m_sheet = nullptr;
    lxw_row_t m_row = 0;
    bool m_headIsFrozen = false;
};

} // namespace

QString spreadsheetFormat(const QString &format)
{
    QString result = format;
    if (format.contains(u'0') || format.contains(u'#')) {
        result.clear();
        QString words;
        const auto endWords = [&] {
            if (!words.isEmpty())
                result += u'"' + std::exchange(words, QString()) + u'"';
        };
        for (const QChar c : format) {
            if (QStringView(u"0#,.$%").contains(c)) {
                endWords();
                result += c;
            } else if (c != u'"') {
                words += c;
            }
        }
        endWords();
        return result;
    }
    return result.replace(u"AMPM"_s, u"AM/PM"_s, Qt::CaseInsensitive);
}

Outcome writeSpreadsheet(const Layout &layout, const DataSource &rows, const Inputs &inputs,
                         const QString &path)
{
    // Begun ahead of the rows: a place that can't be written to is told before anybody waits.
    OutputFile file(path);
    Sheet sheet(layout);
    Outcome outcome =
        tabulate(layout, rows, inputs, [&](const TableBand &band) { return sheet.take(band); });
    if (sheet.isFull()) {
        outcome.problems.append(u"The report has more rows than a spreadsheet can hold."_s);
        // The sink stopped it, not the user: what fits is a whole file.
        outcome.stopped = false;
    }
    if (outcome.stopped)
        return outcome;
    sheet.close(file);
    return outcome;
}

} // namespace report
