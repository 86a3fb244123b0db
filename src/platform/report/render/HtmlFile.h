#pragma once

#include "platform/report/layout/Layout.h"
#include "platform/report/paginate/PageDocument.h"
#include "platform/report/render/OutputFile.h"

namespace report {

/// Writes pages into one HTML file that needs no other: sheets below each other with everything at
/// its place, pictures within it.
class HtmlFile
{
public:
    /// Raises base::Error when the file can't be begun.
    HtmlFile(const QString &path, const PageSetup &page, const QString &title);

    /// Raises base::Error when it can't be written.
    void add(const Page &page);
    /// Puts the file in its place. Raises base::Error when it can't be written.
    void finish();

private:
    OutputFile m_file;
};

} // namespace report
