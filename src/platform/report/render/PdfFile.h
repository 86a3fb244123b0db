#pragma once

#include "platform/report/layout/Layout.h"
#include "platform/report/render/OutputFile.h"
#include "platform/report/render/PagePainter.h"

#include <QPainter>
#include <QPdfWriter>

namespace report {

/// Writes pages into a PDF file, one after another.
class PdfFile
{
public:
    /// Raises base::Error when the file can't be begun.
    PdfFile(const QString &path, const PageSetup &page, const QString &title);

    void add(const Page &page);
    /// Puts the file in its place. Raises base::Error when it can't be written.
    void finish();

private:
    OutputFile m_file;
    QPdfWriter m_writer;
    QPainter m_painter;
    PagePainter m_pages;
    bool m_isFirst = true;
};

} // namespace report
