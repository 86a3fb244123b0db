#include "platform/report/designer/Fields.h"

#include "platform/report/designer/HouseStyles.h"
#include "platform/report/designer/Normalised.h"
#include "platform/report/designer/Structure.h"
#include "platform/report/layout/LayoutFile.h"

#include <QDataStream>
#include <QIODevice>
#include <algorithm>

namespace report {
namespace {

using namespace Qt::StringLiterals;

/// No column is made narrower than this to give room to another.
constexpr Length LeastColumn = 1500;

void followIfThere(const Layout &layout, Object &object, QStringView style)
{
    if (layout.styleIndex(style) >= 0)
        followStyle(layout, object, style.toString());
}

/// Of several bands of a kind the last one stands right above the details, where headings belong.
int lastBandOf(const Layout &layout, BandKind kind)
{
    for (int band = static_cast<int>(layout.bands.size()) - 1; band >= 0; --band)
        if (layout.bands[band].kind == kind)
            return band;
    return -1;
}

/// Puts a heading in line with those that are there, else to the foot of its band.
void lineUp(Object &heading, const Band &header)
{
    const auto other = std::ranges::find_if(header.objects, [](const Object &object) {
        return object.styleName.compare(house::Heading, Qt::CaseInsensitive) == 0;
    });
    if (other == header.objects.end()) {
        heading.y = qMax(0, header.height - heading.height);
        return;
    }
    heading.y = other->y;
    heading.height = other->height;
}

Object headingOf(const Layout &layout, const Band &header, const Object &field,
                 const QString &caption)
{
    Object heading = newObject(ObjectKind::Text, {field.x, 0});
    // A caption of the customer's may hold a brace, which begins an expression in a text.
    heading.content = QString(caption).replace(u'{', u"{{"_s);
    heading.width = field.width;
    heading.style.align = field.style.align;
    heading.style.font.bold = true;
    followIfThere(layout, heading, house::Heading);
    lineUp(heading, header);
    return heading;
}

/// The last band of the kind and place of another one, -1 for none.
int bandLike(const Layout &layout, const Band &wanted)
{
    for (int band = static_cast<int>(layout.bands.size()) - 1; band >= 0; --band)
        if (layout.bands[band].kind == wanted.kind &&
            layout.bands[band].group.compare(wanted.group, Qt::CaseInsensitive) == 0)
            return band;
    return -1;
}

QList<Place> addTotal(Layout &layout, int band, const Object &field)
{
    Object total = field;
    total.content = u"sum(%1)"_s.arg(field.content);
    total.name.clear();
    // What was said of single rows means nothing for their sum.
    total.visibleIf.clear();
    total.conditionalStyles.clear();
    total.canGrow = total.hideRepeated = false;
    total.style.font.bold = true;
    followIfThere(layout, total, house::Total);
    const auto isIt = [&](const Object &other) {
        return other.kind == ObjectKind::Field &&
               other.content.compare(total.content, Qt::CaseInsensitive) == 0;
    };
    const QList<Object> &there = layout.bands[band].objects;
    // Asking for totals twice gives them once.
    return std::any_of(there.cbegin(), there.cend(), isIt) ? QList<Place>()
                                                           : addObjects(layout, band, {total});
}

} // namespace

QString fieldExpression(const QString &name)
{
    // What begins with a digit would be read as a number.
    const bool isPlain = !name.isEmpty() && !name.front().isDigit() &&
                         std::all_of(name.cbegin(), name.cend(),
                                     [](QChar c) { return c.isLetterOrNumber() || c == u'_'; });
    return isPlain ? name : u"[%1]"_s.arg(name);
}

QString usualFormat(FieldType type)
{
    switch (type) {
    case FieldType::Date:
        return u"mm/dd/yyyy"_s;
    case FieldType::Number:
    case FieldType::Text:
    case FieldType::YesNo:
        break;
    }
    return {};
}

Length usualWidth(FieldType type)
{
    switch (type) {
    case FieldType::Text:
        return 4000;
    case FieldType::Number:
    case FieldType::Date:
        return 2500;
    case FieldType::YesNo:
        break;
    }
    return 1500;
}

QList<Place> addField(Layout &layout, int band, const DesignField &field, QPoint at)
{
    Object object = newObject(ObjectKind::Field, at);
    object.content = fieldExpression(field.name);
    object.width = usualWidth(field.type);
    object.format = usualFormat(field.type);
    // Only texts are longer than a column by nature; a number that wraps is misread.
    object.canGrow = field.type == FieldType::Text;
    if (field.type == FieldType::Number)
        object.style.align = Align::Right;
    const bool isDetail = layout.bands[band].kind == BandKind::Detail;
    followIfThere(layout, object, isDetail ? house::Detail : house::Total);
    if (!isDetail)
        return addObjects(layout, band, {object});

    int header = lastBandOf(layout, BandKind::PageHeader);
    if (header < 0) {
        Band made;
        made.kind = BandKind::PageHeader;
        header = addBand(layout, made);
        // The new band stands above and has moved the one that was meant.
        if (header <= band)
            ++band;
    }
    QList<Place> places = addObjects(layout, band, {object});
    const QString caption = field.caption.isEmpty() ? field.name : field.caption;
    places +=
        addObjects(layout, header, {headingOf(layout, layout.bands[header], object, caption)});
    return places;
}

QList<Place> addTotals(Layout &layout, const QList<Place> &fields)
{
    const QList<Object> summed = objectsAt(layout, fields);
    QList<Band> footers;
    for (const Group &group : std::as_const(layout.groups)) {
        Band footer;
        footer.kind = BandKind::GroupFooter;
        footer.group = group.name;
        footers.append(footer);
    }
    Band last;
    last.kind = BandKind::ReportFooter;
    footers.append(last);
    // Bands that are missing come first: they move the numbers of those below.
    for (const Band &footer : std::as_const(footers))
        if (bandLike(layout, footer) < 0)
            addBand(layout, footer);
    QList<Place> places;
    for (const Band &footer : std::as_const(footers)) {
        const int band = bandLike(layout, footer);
        for (const Object &field : summed)
            if (field.kind == ObjectKind::Field)
                places += addTotal(layout, band, field);
    }
    return places;
}

QList<Place> columnOf(const Layout &layout, Place place)
{
    const Object &object = layout.bands[place.band].objects[place.object];
    QList<Place> column;
    for (int band = 0; band < layout.bands.size(); ++band)
        for (int other = 0; other < layout.bands[band].objects.size(); ++other) {
            const Object &candidate = layout.bands[band].objects[other];
            // Nothing in a layout says what a column is; what shares both edges looks like one.
            if (candidate.x == object.x && candidate.width == object.width)
                column.append({band, other});
        }
    return column;
}

Length makeRoom(Layout &layout, int band, Length width)
{
    // A copy, by which widths are compared while those in the layout change.
    const QList<Object> objects = layout.bands[band].objects;
    const auto right = [](const Object &object) { return object.x + object.width; };
    Length end = 0;
    int widest = -1;
    for (int number = 0; number < objects.size(); ++number) {
        if (objects[number].kind != ObjectKind::Field && objects[number].kind != ObjectKind::Text)
            continue;
        end = qMax(end, right(objects[number]));
        if (widest < 0 || objects[number].width > objects[widest].width)
            widest = number;
    }
    const Length missing = end + width - layout.page.innerWidth();
    if (missing <= 0)
        return end;
    // Better beyond the margin, where the user sees it, than a column in which nothing can be read.
    if (widest < 0 || objects[widest].width - missing < LeastColumn)
        return 0;
    const Length edge = right(objects[widest]);
    QList<Place> narrowed = columnOf(layout, {band, widest});
    QList<Place> moved;
    for (int number = 0; number < objects.size(); ++number)
        if (objects[number].x >= edge)
            moved += columnOf(layout, {band, number});
    for (int other = 0; other < layout.bands.size(); ++other)
        for (int number = 0; number < layout.bands[other].objects.size(); ++number) {
            const Object &object = layout.bands[other].objects[number];
            const Place place{other, number};
            // Words that reach up to a column that moves, as those before a total.
            const bool isBefore =
                object.kind == ObjectKind::Text && !narrowed.contains(place) &&
                std::ranges::any_of(moved, [&](Place column) {
                    return right(object) == layout.bands[column.band].objects[column.object].x;
                });
            if (isBefore && !moved.contains(place))
                narrowed.append(place);
        }
    for (const Place &place : std::as_const(narrowed))
        layout.bands[place.band].objects[place.object].width -= missing;
    // Two objects of a column find each other, so each place may stand there twice.
    QList<Place> done;
    for (const Place &place : std::as_const(moved)) {
        if (done.contains(place))
            continue;
        layout.bands[place.band].objects[place.object].x -= missing;
        done.append(place);
    }
    return end - missing;
}

QString fieldMimeType()
{
    return u"application/x-report-fields"_s;
}

QByteArray fieldBytes(const QList<DesignField> &fields)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    for (const DesignField &field : fields)
        stream << field.table << field.name << field.caption << static_cast<qint32>(field.type)
               << field.isInQuery;
    return bytes;
}

QList<DesignField> fieldsOf(const QByteArray &bytes)
{
    QList<DesignField> fields;
    QDataStream stream(bytes);
    while (!stream.atEnd()) {
        DesignField field;
        qint32 type = 0;
        stream >> field.table >> field.name >> field.caption >> type >> field.isInQuery;
        // The bytes may come from any program that offers this kind of data.
        if (stream.status() != QDataStream::Ok || type < 0 ||
            type > static_cast<qint32>(FieldType::YesNo))
            return {};
        field.type = static_cast<FieldType>(type);
        fields.append(field);
    }
    return fields;
}

QString storePicture(Layout &layout, const QString &fileName, const QByteArray &data)
{
    QStringList taken;
    for (const StoredPicture &picture : std::as_const(layout.pictures)) {
        // A logo that is put in twice is kept once.
        if (picture.data == data)
            return picture.name;
        taken.append(picture.name);
    }
    // What begins so would be read as an expression.
    QString wanted = fileName;
    while (wanted.startsWith(u'='))
        wanted.remove(0, 1);
    const QString name = freeName(wanted.isEmpty() ? u"Picture"_s : wanted, taken);
    layout.pictures.append({name, data});
    return name;
}

void dropUnusedPictures(Layout &layout)
{
    const auto isUsed = [&](const StoredPicture &picture) {
        return std::any_of(layout.bands.cbegin(), layout.bands.cend(), [&](const Band &band) {
            return std::any_of(
                band.objects.cbegin(), band.objects.cend(), [&](const Object &object) {
                    return object.kind == ObjectKind::Picture &&
                           object.content.compare(picture.name, Qt::CaseInsensitive) == 0;
                });
        });
    };
    layout.pictures.removeIf([&](const StoredPicture &picture) { return !isUsed(picture); });
}

QByteArray clipboardText(const Layout &layout, const QList<Object> &objects)
{
    Layout carrier;
    carrier.styles = layout.styles;
    carrier.pictures = layout.pictures;
    Band band;
    band.objects = objects;
    carrier.bands.append(band);
    carrier.styles.removeIf([&](const NamedStyle &style) {
        return std::none_of(objects.cbegin(), objects.cend(), [&](const Object &object) {
            return object.styleName.compare(style.name, Qt::CaseInsensitive) == 0;
        });
    });
    dropUnusedPictures(carrier);
    return writeLayout(normalised(carrier));
}

QList<Place> pasteText(Layout &layout, int band, const QByteArray &text, QPoint by)
{
    const LayoutReading reading = readLayout(text);
    if (!reading.layout || band < 0 || band >= layout.bands.size())
        return {};
    // The looks of this report win over those of the one that the objects come from.
    for (const NamedStyle &style : reading.layout->styles)
        if (layout.styleIndex(style.name) < 0)
            layout.styles.append(style);
    QList<Object> objects;
    for (const Band &source : reading.layout->bands) {
        for (Object object : source.objects) {
            object.x += by.x();
            object.y += by.y();
            const int picture = reading.layout->pictureIndex(object.content);
            if (object.kind == ObjectKind::Picture && picture >= 0)
                object.content =
                    storePicture(layout, object.content, reading.layout->pictures[picture].data);
            // A name is given once, the program sets the text that has it.
            if (!object.name.isEmpty() && layout.find(object.name))
                object.name.clear();
            objects.append(object);
        }
    }
    return objects.isEmpty() ? QList<Place>() : addObjects(layout, band, objects);
}

} // namespace report
