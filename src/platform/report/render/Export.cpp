#include "platform/report/render/Export.h"

#include "platform/report/paginate/PagesAhead.h"
#include "platform/report/render/CsvFile.h"
#include "platform/report/render/HtmlFile.h"
#include "platform/report/render/PdfFile.h"
#include "platform/report/render/SpreadsheetFile.h"

namespace report {
namespace {

using namespace Qt::StringLiterals;

struct Ending
{
    QStringView ending;
    QStringView name;
    ExportFormat format;
};
constexpr Ending Endings[] = {{u"pdf", u"PDF", ExportFormat::Pdf},
                              {u"xlsx", u"Spreadsheet", ExportFormat::Spreadsheet},
                              {u"csv", u"Comma-separated values", ExportFormat::Csv},
                              {u"html", u"Web page", ExportFormat::Html}};

template<class File>
Outcome writePages(const Layout &layout, const DataSource &rows, const Inputs &inputs,
                   const QString &path)
{
    File file(path, layout.page, layout.title);
    Outcome outcome = paginateAhead(layout, rows, inputs, [&](Page &&page) {
        file.add(page);
        return true;
    });
    // A file that isn't finished leaves the former one in its place.
    if (!outcome.stopped)
        file.finish();
    return outcome;
}

} // namespace

std::optional<ExportFormat> exportFormat(const QString &path)
{
    for (const Ending &ending : Endings)
        if (path.endsWith(u'.' + ending.ending.toString(), Qt::CaseInsensitive))
            return ending.format;
    return std::nullopt;
}

QStringList exportFilters()
{
    QStringList filters;
    for (const Ending &ending : Endings)
        filters.append(u"%1 (*.%2)"_s.arg(ending.name, ending.ending));
    return filters;
}

Outcome exportReport(const Layout &layout, const DataSource &rows, const Inputs &inputs,
                     const QString &path, ExportFormat format)
{
    switch (format) {
    case ExportFormat::Pdf:
        return writePages<PdfFile>(layout, rows, inputs, path);
    case ExportFormat::Html:
        return writePages<HtmlFile>(layout, rows, inputs, path);
    case ExportFormat::Spreadsheet:
        return writeSpreadsheet(layout, rows, inputs, path);
    case ExportFormat::Csv:
        break;
    }
    return writeCsv(layout, rows, inputs, path);
}

} // namespace report
