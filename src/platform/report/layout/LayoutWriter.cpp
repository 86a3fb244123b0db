#include "platform/base/Error.h"
#include "platform/report/layout/LayoutFile.h"
#include "platform/report/layout/Words.h"

#include <QSaveFile>
#include <QXmlStreamWriter>

namespace report {
namespace {

using namespace Qt::StringLiterals;

/// A text as the file can hold it. The breaks of lines and pages that word processors give along
/// with what is copied from them become plain ones; other such characters show nothing and go.
QString writable(const QString &text)
{
    QString written;
    written.reserve(text.size());
    // Half a letter comes back as the sign for what can't be read.
    for (const char32_t letter : text.toUcs4()) {
        if (letter == u'\v' || letter == u'\f')
            written += u'\n';
        else if (letter == u'\t' || letter == u'\n' || letter == u'\r' ||
                 (letter >= u' ' && letter != 0xfffe && letter != 0xffff))
            written += QChar::fromUcs4(letter);
    }
    return written;
}

/// Writes attributes that differ from those of a fresh value.
class Writer
{
public:
    explicit Writer(QByteArray &target)
        : m_xml(&target)
    {
        m_xml.setAutoFormatting(true);
        m_xml.setAutoFormattingIndent(2);
    }

    void write(const Layout &layout)
    {
        m_xml.writeStartDocument();
        m_xml.writeStartElement(u"report"_s);
        m_xml.writeAttribute(u"version"_s, QString::number(versionOf(layout)));
        text(u"name", layout.name, {});
        text(u"title", layout.title, {});
        writePage(layout.page);
        for (const NamedStyle &style : layout.styles)
            writeNamedStyle(style);
        for (const StoredPicture &picture : layout.pictures)
            writePicture(picture);
        // From here on: the styles themselves are written in full.
        m_styles = &layout.styles;
        for (const Parameter &parameter : layout.parameters)
            writeParameter(parameter);
        if (!layout.query.isEmpty())
            m_xml.writeTextElement(u"query"_s, writable(layout.query));
        for (const RowSet &set : layout.rowSets)
            writeRowSet(set);
        for (const Group &group : layout.groups)
            writeGroup(group);
        for (const QString &by : layout.sort) {
            m_xml.writeStartElement(u"sort"_s);
            always(u"by", by);
            m_xml.writeEndElement();
        }
        for (const Formula &formula : layout.formulas) {
            m_xml.writeStartElement(u"formula"_s);
            always(u"name", formula.name);
            m_xml.writeCharacters(writable(formula.expression));
            m_xml.writeEndElement();
        }
        for (const Band &band : layout.bands)
            writeBand(band);
        m_xml.writeEndElement();
        m_xml.writeEndDocument();
    }

private:
    void always(QStringView name, const QString &value)
    {
        m_xml.writeAttribute(name.toString(), writable(value));
    }
    void text(QStringView name, const QString &value, const QString &usual)
    {
        if (value != usual)
            always(name, value);
    }
    void length(QStringView name, Length value, Length usual)
    {
        if (value != usual)
            m_xml.writeAttribute(name.toString(), lengthText(value));
    }
    void flag(QStringView name, bool value, bool usual = false)
    {
        if (value != usual)
            m_xml.writeAttribute(name.toString(), value ? u"yes"_s : u"no"_s);
    }
    void color(QStringView name, const QColor &value, const QColor &usual)
    {
        if (value != usual)
            m_xml.writeAttribute(name.toString(), value.isValid() ? value.name() : u"none"_s);
    }

    /// Older programs go on reading what they know all of.
    static int versionOf(const Layout &layout)
    {
        return layout.styles.isEmpty() && layout.pictures.isEmpty() ? 2 : Layout::CurrentVersion;
    }

    void writeNamedStyle(const NamedStyle &style)
    {
        m_xml.writeStartElement(u"style"_s);
        always(u"name", style.name);
        writeStyle(style.style, {});
        m_xml.writeEndElement();
    }

    void writePicture(const StoredPicture &picture)
    {
        m_xml.writeStartElement(u"image"_s);
        always(u"name", picture.name);
        m_xml.writeCharacters(QString::fromLatin1(picture.data.toBase64()));
        m_xml.writeEndElement();
    }

    void writePage(const PageSetup &page)
    {
        const PageSetup usual;
        m_xml.writeStartElement(u"page"_s);
        m_xml.writeAttribute(u"paper"_s, page.paper);
        flag(u"landscape", page.landscape);
        length(u"left", page.left, usual.left);
        length(u"top", page.top, usual.top);
        length(u"right", page.right, usual.right);
        length(u"bottom", page.bottom, usual.bottom);
        m_xml.writeEndElement();
    }

    void writeParameter(const Parameter &parameter)
    {
        m_xml.writeStartElement(u"parameter"_s);
        always(u"name", parameter.name);
        text(u"type", words::textOf(words::ParameterTypes, parameter.type), u"text"_s);
        text(u"prompt", parameter.prompt, {});
        text(u"default", parameter.usual, {});
        text(u"list", parameter.list, {});
        flag(u"optional", parameter.isOptional);
        m_xml.writeEndElement();
    }

    void writeRowSet(const RowSet &set)
    {
        m_xml.writeStartElement(u"rows"_s);
        always(u"name", set.name);
        always(u"key", set.key);
        always(u"of", set.of);
        m_xml.writeCharacters(writable(set.query));
        m_xml.writeEndElement();
    }

    void writeGroup(const Group &group)
    {
        m_xml.writeStartElement(u"group"_s);
        always(u"name", group.name);
        always(u"by", group.by);
        flag(u"newPage", group.newPage);
        flag(u"keepTogether", group.keepTogether);
        flag(u"repeatHeader", group.repeatHeader);
        flag(u"resetPageNumber", group.resetPageNumber);
        m_xml.writeEndElement();
    }

    void writeBand(const Band &band)
    {
        m_xml.writeStartElement(u"band"_s);
        m_xml.writeAttribute(u"kind"_s, words::textOf(words::Bands, band.kind));
        text(u"group", band.group, {});
        text(u"rows", band.rows, {});
        m_xml.writeAttribute(u"height"_s, lengthText(band.height));
        text(u"printIf", band.printIf, {});
        flag(u"newPageBefore", band.newPageBefore);
        flag(u"newPageAfter", band.newPageAfter);
        flag(u"atBottom", band.atBottom);
        for (const Object &object : band.objects)
            writeObject(object);
        m_xml.writeEndElement();
    }

    void writeObject(const Object &object)
    {
        const Object usual;
        m_xml.writeStartElement(words::textOf(words::Objects, object.kind));
        text(u"name", object.name, {});
        text(u"style", object.styleName, {});
        length(u"x", object.x, usual.x);
        length(u"y", object.y, usual.y);
        length(u"width", object.width, usual.width);
        length(u"height", object.height, usual.height);
        text(u"content", object.content, {});
        text(u"format", object.format, {});
        flag(u"canGrow", object.canGrow);
        flag(u"hideRepeated", object.hideRepeated);
        text(u"visibleIf", object.visibleIf, {});
        length(u"lineWidth", object.lineWidth, usual.lineWidth);
        writeStyle(object.style, followed(object.styleName));
        if (object.kind == ObjectKind::Chart)
            writeChart(object.chart);
        if (object.kind == ObjectKind::CrossTab)
            writeCrossTab(object.crossTab);
        for (const ConditionalStyle &style : object.conditionalStyles) {
            m_xml.writeStartElement(u"when"_s);
            always(u"condition", style.when);
            color(u"color", style.color, {});
            color(u"fill", style.fill, {});
            flag(u"bold", style.bold);
            m_xml.writeEndElement();
        }
        if (object.kind == ObjectKind::Chart)
            for (const Series &series : object.chart.series)
                writeSeries(series);
        m_xml.writeEndElement();
    }

    void writeChart(const Chart &chart)
    {
        text(u"kind", words::textOf(words::ChartKinds, chart.kind), u"bars"_s);
        text(u"title", chart.title, {});
        always(u"category", chart.category);
        text(u"categoryFormat", chart.categoryFormat, {});
        text(u"categoryTitle", chart.categoryTitle, {});
        text(u"valueTitle", chart.valueTitle, {});
        text(u"legend", words::textOf(words::LegendPlaces, chart.legend), u"bottom"_s);
        text(u"order", words::textOf(words::ChartOrders, chart.order), u"rows"_s);
        if (chart.most > 0)
            m_xml.writeAttribute(u"most"_s, QString::number(chart.most));
        flag(u"others", chart.others);
    }

    void writeCrossTab(const CrossTab &table)
    {
        text(u"title", table.title, {});
        always(u"rows", table.rows);
        text(u"rowsFormat", table.rowsFormat, {});
        text(u"rowsTitle", table.rowsTitle, {});
        always(u"columns", table.columns);
        text(u"columnsFormat", table.columnsFormat, {});
        always(u"value", table.value);
        flag(u"totals", table.totals);
    }

    void writeSeries(const Series &series)
    {
        m_xml.writeStartElement(u"series"_s);
        text(u"name", series.name, {});
        always(u"value", series.value);
        text(u"by", series.by, {});
        text(u"byFormat", series.byFormat, {});
        color(u"color", series.color, {});
        m_xml.writeEndElement();
    }

    /// What an object has from its style is not written again; one that follows none differs from a
    /// fresh style.
    [[nodiscard]] Style followed(const QString &name) const
    {
        for (const NamedStyle &style : *m_styles)
            if (style.name.compare(name, Qt::CaseInsensitive) == 0)
                return style.style;
        return {};
    }

    /// What differs from the usual style.
    void writeStyle(const Style &style, const Style &usual)
    {
        text(u"font", style.font.family, usual.font.family);
        if (style.font.points != usual.font.points)
            m_xml.writeAttribute(u"size"_s, QString::number(style.font.points));
        flag(u"bold", style.font.bold, usual.font.bold);
        flag(u"italic", style.font.italic, usual.font.italic);
        flag(u"underline", style.font.underline, usual.font.underline);
        color(u"color", style.color, usual.color);
        color(u"fill", style.fill, usual.fill);
        text(u"align", words::textOf(words::Aligns, style.align),
             words::textOf(words::Aligns, usual.align));
        text(u"verticalAlign", words::textOf(words::VerticalAligns, style.verticalAlign),
             words::textOf(words::VerticalAligns, usual.verticalAlign));
        length(u"padding", style.padding, usual.padding);
        text(u"border", sides(style.border), sides(usual.border));
        length(u"borderWidth", style.border.width, usual.border.width);
        color(u"borderColor", style.border.color, usual.border.color);
    }

    /// In the words of the file: "all", "none" or the sides there are.
    static QString sides(const Border &border)
    {
        if (border.left && border.top && border.right && border.bottom)
            return u"all"_s;
        if (border.isNone())
            return u"none"_s;
        QStringList sides;
        if (border.left)
            sides.append(u"left"_s);
        if (border.top)
            sides.append(u"top"_s);
        if (border.right)
            sides.append(u"right"_s);
        if (border.bottom)
            sides.append(u"bottom"_s);
        return sides.join(u' ');
    }

    QXmlStreamWriter m_xml;
    const QList<NamedStyle> *m_styles = nullptr;
};

} // namespace

QByteArray writeLayout(const Layout &layout)
{
    QByteArray target;
    Writer(target).write(layout);
    return target;
}

void writeLayoutFile(const Layout &layout, const QString &path)
{
    QSaveFile file(path);
    const QByteArray text = writeLayout(layout);
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size() || !file.commit())
        throw base::Error(
            base::ErrorNumber::PathAccess,
            u"The report layout \"%1\" can't be written: %2."_s.arg(path, file.errorString()));
}

} // namespace report
