#pragma once

#include <QString>

/// The statement whose rows serve as a delivered report's data while its layout is changed. The
/// names are compared exactly; a file that has none gets an empty text.
[[nodiscard]] QString QueryString(const QString &fileName);

/// The statement whose rows a delivered report's preview shows while it is designed: some of the
/// newest orders where QueryString has none on purpose, and of files that it doesn't know what the
/// report itself shows without a filter. Empty for a file that is no delivered report. Data; raises
/// DbError.
[[nodiscard]] QString previewQuery(const QString &fileName);
