#pragma once

#include "platform/report/layout/Layout.h"

#include <QStringList>
#include <optional>

namespace report {

/// What came of reading a layout.
struct LayoutReading
{
    /// The layout; nothing when the file can't be read.
    std::optional<Layout> layout;
    /// Why it can't be read, with line and column.
    QString error;
    /// Elements and attributes that this program doesn't know, with line and column.
    QStringList warnings;
};

/// Reads the text of a layout file; docs/report-layout.md tells the format.
[[nodiscard]] LayoutReading readLayout(const QByteArray &text);
/// Reads a layout file; a file that isn't there or can't be opened is an error of the reading.
[[nodiscard]] LayoutReading readLayoutFile(const QString &path);

/// The text of a layout's file: what is as usual is left out, and the order never changes, so that
/// two versions of a file can be compared.
[[nodiscard]] QByteArray writeLayout(const Layout &layout);
/// Writes a layout's file whole or not at all. Raises base::Error.
void writeLayoutFile(const Layout &layout, const QString &path);

} // namespace report
