#pragma once

#include "platform/report/designer/Selection.h"
#include "platform/report/layout/Layout.h"

#include <QPoint>

namespace report {

enum class FieldType { Text, Number, Date, YesNo };

/// A column that a report can show.
struct DesignField
{
    QString table;   ///< whose column it is; may be empty for the query's own
    QString name;    ///< by which expressions read it
    QString caption; ///< as the user knows it; the name when empty
    FieldType type = FieldType::Text;
    bool isInQuery = true; ///< false for those that the query doesn't give yet
};

/// A field's name as expressions take it: in brackets where it has blanks.
[[nodiscard]] QString fieldExpression(const QString &name);
/// The format in which values of a type are usually shown.
[[nodiscard]] QString usualFormat(FieldType type);

/// The width that a field of a type gets.
[[nodiscard]] Length usualWidth(FieldType type);

/// Adds a field to a band. In the detail it gets its heading: a text with its caption above it in
/// the last page header, which is made when there is none. Places of the field and its heading
/// come back, the field's first.
QList<Place> addField(Layout &layout, int band, const DesignField &field, QPoint at);

/// Adds sums of fields below them: in the footer of each group and of the report, which is made
/// when there is none. A sum that is there already isn't added again. Their places come back.
QList<Place> addTotals(Layout &layout, const QList<Place> &fields);
/// The objects of all bands that stand in one column with an object: as far left and as wide.
[[nodiscard]] QList<Place> columnOf(const Layout &layout, Place place);

/// Makes room for so much at the right of a band's columns, where needed by narrowing the widest of
/// them with its heading and totals. The place comes back; 0 when there is none.
Length makeRoom(Layout &layout, int band, Length width);

/// Fields while they are dragged: the kind of their data, its bytes, and back.
[[nodiscard]] QString fieldMimeType();
[[nodiscard]] QByteArray fieldBytes(const QList<DesignField> &fields);
[[nodiscard]] QList<DesignField> fieldsOf(const QByteArray &bytes);

/// Puts a picture's bytes into the layout, under the file's name or a free one like it; a picture
/// that is there already isn't kept twice. Its name comes back.
QString storePicture(Layout &layout, const QString &fileName, const QByteArray &data);
/// Drops pictures that no object shows any more.
void dropUnusedPictures(Layout &layout);

/// Objects, with the styles and pictures that they need, as text for the clipboard, and back.
[[nodiscard]] QByteArray clipboardText(const Layout &layout, const QList<Object> &objects);
/// Adds the objects of such a text to a band. Empty when the text holds none.
QList<Place> pasteText(Layout &layout, int band, const QByteArray &text, QPoint by);

} // namespace report
