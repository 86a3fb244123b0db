#pragma once

#include "administration/ZipFile.h"

#include <QString>
#include <vector>

/// What the cells of a spreadsheet file (.xlsx) refer to.
namespace administration {

class XmlPart;

/// How a cell shows the number that it holds.
struct NumberLook
{
    bool isDate = false;
    int digits = 0; ///< leading noughts fill it up to so many
};

struct Workbook
{
    QString sheet; ///< the first table's file in the archive
    bool countsFrom1904 = false;
    std::vector<QString> texts;    ///< that cells share
    std::vector<NumberLook> looks; ///< by a cell's style
};

/// True for a file that begins as archives do; what such a file holds is another matter.
[[nodiscard]] bool looksLikeWorkbook(const QByteArray &beginning);
/// Why a file that begins so is another kind of spreadsheet; empty when it isn't.
[[nodiscard]] QString refusalOfSpreadsheet(const QByteArray &beginning);

/// Raises base::Error with a sentence that names the file when it is no spreadsheet, is damaged, or
/// holds more than memory is for.
[[nodiscard]] Workbook readWorkbook(const ZipReader &archive);

/// The text of the element that was begun last, without hints for its pronunciation.
[[nodiscard]] QString cellText(XmlPart &part);
/// What a style's pattern of digits and letters shows.
[[nodiscard]] NumberLook lookOf(const QString &pattern);

} // namespace administration
