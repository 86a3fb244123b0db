#include "platform/report/render/PdfFile.h"

namespace report {

/// Dots per inch at which one dot is 1/100 mm.
constexpr int UnitsPerInch = 2540;

PdfFile::PdfFile(const QString &path, const PageSetup &page, const QString &title)
    : m_file(path)
    , m_writer(&m_file.device())
{
    m_writer.setTitle(title);
    m_writer.setResolution(UnitsPerInch);
    // The sheet is given as it lies, so that a landscape one needs no turning.
    m_writer.setPageSize(QPageSize(QSizeF(page.width() / 100.0, page.height() / 100.0),
                                   QPageSize::Millimeter, {}, QPageSize::ExactMatch));
    m_writer.setPageMargins(QMarginsF());
    m_painter.begin(&m_writer);
}

void PdfFile::add(const Page &page)
{
    if (!m_isFirst)
        m_writer.newPage();
    m_isFirst = false;
    m_pages.paint(page, m_painter);
}

void PdfFile::finish()
{
    m_painter.end();
    m_file.finish();
}

} // namespace report
