#include "platform/report/layout/AttributeReader.h"
#include "platform/report/layout/LayoutFile.h"

#include <QFile>
#include <QSet>
#include <algorithm>

namespace report {
namespace {

using namespace Qt::StringLiterals;

/// No report has more; what a page costs is bounded by them.
constexpr qsizetype MostParts = 500; ///< of one kind
constexpr qsizetype MostGroups = 20;
constexpr qsizetype MostObjects = 1000; ///< of a band
constexpr qsizetype LongestName = 1000;
constexpr int MostAttributes = 200; ///< of an element
constexpr qint64 LargestFile = 64 * 1024 * 1024;

class Reader : private AttributeReader
{
public:
    explicit Reader(const QByteArray &text)
        : AttributeReader(text)
    {}

    LayoutReading read()
    {
        LayoutReading reading;
        try {
            if (!m_xml.readNextStartElement())
                throw Failure{u"This is no report layout"_s};
            if (m_xml.name() != u"report")
                throw Failure{
                    u"This is no report layout: it begins with \"%1\""_s.arg(m_xml.name())};
            reading.layout = readReport();
            // To the end: what follows the report would make it no file of this kind.
            while (!m_xml.atEnd())
                m_xml.readNext();
            if (m_xml.hasError())
                throw Failure{m_xml.errorString()};
        } catch (const Failure &failure) {
            reading.layout.reset();
            // What is wrong with the file itself comes first: what was missed in it follows from
            // that.
            reading.error = at(m_xml.hasError() ? m_xml.errorString() : failure.what);
        }
        reading.warnings = m_warnings;
        return reading;
    }

private:
    // --- Elements ----------------------------------------------------------------------------

    /// Reads the elements below this one by name; unknown ones are skipped with a warning.
    template<class Handle>
    void children(Handle handle)
    {
        while (m_xml.readNextStartElement()) {
            const QString name = m_xml.name().toString();
            beginElement();
            if (!handle(name)) {
                // A later version may have put it there; the rest still prints.
                m_warnings.append(at(u"\"%1\" is not known here"_s.arg(name)));
                m_xml.skipCurrentElement();
            }
        }
        if (m_xml.hasError())
            throw Failure{m_xml.errorString()};
    }

    template<class List, class Part>
    static void append(List &list, Part part, const QString &what, qsizetype most = MostParts)
    {
        if (list.size() >= most)
            throw Failure{u"There are more than %1 %2"_s.arg(most).arg(what)};
        list.append(std::move(part));
    }

    Layout readReport()
    {
        Layout layout;
        beginElement();
        const QString version = required(u"version");
        if (version.toInt() < 1)
            throw Failure{u"\"%1\" is no version"_s.arg(version)};
        // Reading what is known of it would print a report that looks right and isn't.
        if (version.toInt() > Layout::CurrentVersion)
            throw Failure{u"The layout was made by a newer version of the program"_s};
        text(u"name", layout.name);
        text(u"title", layout.title);
        endAttributes();
        children([&](const QString &name) {
            if (name == u"page")
                readPage(layout.page);
            else if (name == u"style")
                append(m_styles, readNamedStyle(), u"styles"_s);
            else if (name == u"image")
                append(layout.pictures, readPicture(), u"images"_s);
            else if (name == u"parameter")
                append(layout.parameters, readParameter(), u"parameters"_s);
            else if (name == u"query")
                layout.query = readText();
            else if (name == u"rows")
                append(layout.rowSets, readRowSet(), u"sets of rows"_s);
            else if (name == u"group")
                append(layout.groups, readGroup(), u"groups"_s, MostGroups);
            else if (name == u"sort")
                append(layout.sort, readSort(), u"sort elements"_s);
            else if (name == u"formula")
                append(layout.formulas, readFormula(), u"formulas"_s);
            else if (name == u"band")
                append(layout.bands, readBand(), u"bands"_s);
            else
                return false;
            return true;
        });
        // Objects take their style while they are read, from those that stand before the bands.
        layout.styles = m_styles;
        check(layout);
        return layout;
    }

    /// What can be told only once all parts are there.
    void check(const Layout &layout)
    {
        checkNames(layout.styles, u"styles"_s);
        checkNames(layout.pictures, u"images"_s);
        checkNames(layout.groups, u"groups"_s);
        checkNames(layout.formulas, u"formulas"_s);
        checkNames(layout.parameters, u"parameters"_s);
        checkNames(layout.rowSets, u"sets of rows"_s);
        for (const Band &band : layout.bands)
            if ((band.kind == BandKind::SubHeader || band.kind == BandKind::SubDetail ||
                 band.kind == BandKind::SubFooter) &&
                layout.rowSetIndex(band.rows) < 0)
                throw Failure{
                    u"A band belongs to the rows \"%1\", which are not there"_s.arg(band.rows)};
        for (const Band &band : layout.bands)
            if ((band.kind == BandKind::GroupHeader || band.kind == BandKind::GroupFooter) &&
                layout.groupIndex(band.group) < 0)
                throw Failure{
                    u"A band belongs to the group \"%1\", which is not there"_s.arg(band.group)};
        if (layout.page.innerWidth() <= 0 || layout.page.innerHeight() <= 0)
            throw Failure{u"The margins leave no room on the page"_s};
    }

    template<class Named>
    static void checkNames(const QList<Named> &list, const QString &what)
    {
        QSet<QString> names;
        for (const Named &one : list) {
            if (one.name.size() > LongestName)
                throw Failure{
                    u"The name of one of the %1 is longer than %2 characters"_s.arg(what).arg(
                        LongestName)};
            if (names.contains(one.name.toLower()))
                throw Failure{u"There are two %1 \"%2\""_s.arg(what, one.name)};
            names.insert(one.name.toLower());
        }
    }

    /// The text of an element without the blanks around it.
    QString readText()
    {
        endAttributes();
        return m_xml.readElementText().trimmed();
    }

    NamedStyle readNamedStyle()
    {
        NamedStyle style;
        style.name = required(u"name");
        readStyle(style.style);
        endAttributes();
        children([](const QString &) { return false; });
        return style;
    }

    StoredPicture readPicture()
    {
        StoredPicture picture;
        picture.name = required(u"name");
        endAttributes();
        QByteArray text;
        for (const QChar c : m_xml.readElementText())
            if (!c.isSpace())
                text.append(c.toLatin1());
        const auto decoded =
            QByteArray::fromBase64Encoding(text, QByteArray::AbortOnBase64DecodingErrors);
        if (!decoded)
            throw Failure{u"The bytes of the image \"%1\" can't be read"_s.arg(picture.name)};
        picture.data = *decoded;
        return picture;
    }

    /// The style that an object follows, which stands before it in the file.
    [[nodiscard]] Style followed(const QString &name) const
    {
        for (const NamedStyle &style : m_styles)
            if (style.name.compare(name, Qt::CaseInsensitive) == 0)
                return style.style;
        throw Failure{u"There is no style \"%1\""_s.arg(name)};
    }

    Parameter readParameter()
    {
        Parameter parameter;
        parameter.name = required(u"name");
        word(u"type", words::ParameterTypes, parameter.type);
        text(u"prompt", parameter.prompt);
        text(u"default", parameter.usual);
        text(u"list", parameter.list);
        flag(u"optional", parameter.isOptional);
        endAttributes();
        children([](const QString &) { return false; });
        return parameter;
    }

    RowSet readRowSet()
    {
        RowSet set;
        set.name = required(u"name");
        set.key = required(u"key");
        set.of = required(u"of");
        set.query = readText();
        return set;
    }

    void readPage(PageSetup &page)
    {
        text(u"paper", page.paper);
        if (!PageSetup::papers().contains(page.paper, Qt::CaseInsensitive))
            throw Failure{u"The paper \"%1\" is not known"_s.arg(page.paper)};
        flag(u"landscape", page.landscape);
        size(u"left", page.left);
        size(u"top", page.top);
        size(u"right", page.right);
        size(u"bottom", page.bottom);
        endAttributes();
        children([](const QString &) { return false; });
    }

    Group readGroup()
    {
        Group group;
        group.name = required(u"name");
        group.by = required(u"by");
        flag(u"newPage", group.newPage);
        flag(u"keepTogether", group.keepTogether);
        flag(u"repeatHeader", group.repeatHeader);
        flag(u"resetPageNumber", group.resetPageNumber);
        endAttributes();
        children([](const QString &) { return false; });
        return group;
    }

    QString readSort()
    {
        const QString by = required(u"by");
        endAttributes();
        children([](const QString &) { return false; });
        return by;
    }

    Formula readFormula()
    {
        Formula formula;
        formula.name = required(u"name");
        endAttributes();
        formula.expression = m_xml.readElementText();
        return formula;
    }

    Band readBand()
    {
        Band band;
        const QString kind = required(u"kind");
        const auto known = words::kindOf(words::Bands, kind);
        if (!known)
            throw Failure{u"There is no band \"%1\""_s.arg(kind)};
        band.kind = *known;
        text(u"group", band.group);
        text(u"rows", band.rows);
        size(u"height", band.height);
        text(u"printIf", band.printIf);
        flag(u"newPageBefore", band.newPageBefore);
        flag(u"newPageAfter", band.newPageAfter);
        flag(u"atBottom", band.atBottom);
        endAttributes();
        children([&](const QString &name) {
            const auto object = words::kindOf(words::Objects, name);
            if (object)
                append(band.objects, readObject(*object), u"objects in a band"_s, MostObjects);
            return object.has_value();
        });
        return band;
    }

    Object readObject(ObjectKind kind)
    {
        Object object;
        object.kind = kind;
        text(u"name", object.name);
        if (object.name.size() > LongestName)
            throw Failure{u"The name of an object is longer than %1 characters"_s.arg(LongestName)};
        text(u"style", object.styleName);
        if (!object.styleName.isEmpty())
            // Ahead of the object's own attributes, which then change only what they say.
            object.style = followed(object.styleName);
        length(u"x", object.x);
        length(u"y", object.y);
        length(u"width", object.width);
        length(u"height", object.height);
        text(u"content", object.content);
        text(u"format", object.format);
        // A line may lead up or to the left.
        if (kind != ObjectKind::Line && (object.width < 0 || object.height < 0))
            throw Failure{u"The size of an object can't be less than 0"_s};
        flag(u"canGrow", object.canGrow);
        flag(u"hideRepeated", object.hideRepeated);
        text(u"visibleIf", object.visibleIf);
        size(u"lineWidth", object.lineWidth);
        readStyle(object.style);
        if (kind == ObjectKind::Chart)
            readChart(object.chart);
        if (kind == ObjectKind::CrossTab)
            readCrossTab(object.crossTab);
        endAttributes();
        children([&](const QString &name) {
            if (name == u"when")
                append(object.conditionalStyles, readCondition(), u"\"when\" in an object"_s);
            else if (name == u"series" && kind == ObjectKind::Chart)
                append(object.chart.series, readSeries(), u"series in a chart"_s);
            else
                return false;
            return true;
        });
        // Told at the end of the element, whose children have all been seen by then.
        if (kind == ObjectKind::Chart && object.chart.series.isEmpty())
            throw Failure{u"A chart has no \"series\""_s};
        return object;
    }

    void readChart(Chart &chart)
    {
        word(u"kind", words::ChartKinds, chart.kind);
        text(u"title", chart.title);
        chart.category = required(u"category");
        text(u"categoryFormat", chart.categoryFormat);
        text(u"categoryTitle", chart.categoryTitle);
        text(u"valueTitle", chart.valueTitle);
        word(u"legend", words::LegendPlaces, chart.legend);
        word(u"order", words::ChartOrders, chart.order);
        count(u"most", chart.most);
        flag(u"others", chart.others);
    }

    void readCrossTab(CrossTab &table)
    {
        text(u"title", table.title);
        table.rows = required(u"rows");
        text(u"rowsFormat", table.rowsFormat);
        text(u"rowsTitle", table.rowsTitle);
        table.columns = required(u"columns");
        text(u"columnsFormat", table.columnsFormat);
        table.value = required(u"value");
        flag(u"totals", table.totals);
    }

    Series readSeries()
    {
        Series series;
        text(u"name", series.name);
        series.value = required(u"value");
        text(u"by", series.by);
        text(u"byFormat", series.byFormat);
        color(u"color", series.color);
        endAttributes();
        children([](const QString &) { return false; });
        return series;
    }

    void readStyle(Style &style)
    {
        text(u"font", style.font.family);
        number(u"size", style.font.points);
        flag(u"bold", style.font.bold);
        flag(u"italic", style.font.italic);
        flag(u"underline", style.font.underline);
        color(u"color", style.color);
        color(u"fill", style.fill);
        word(u"align", words::Aligns, style.align);
        word(u"verticalAlign", words::VerticalAligns, style.verticalAlign);
        size(u"padding", style.padding);
        if (const auto sides = take(u"border"))
            readSides(*sides, style.border);
        size(u"borderWidth", style.border.width);
        color(u"borderColor", style.border.color);
    }

    /// "none" takes away the sides that a followed style has.
    static void readSides(const QString &sides, Border &border)
    {
        // What the element says takes the place of the followed style's sides, and isn't added to
        // them.
        border.left = border.top = border.right = border.bottom = false;
        if (sides == u"none")
            return;
        for (const QString &side : sides.split(u' ', Qt::SkipEmptyParts)) {
            const bool all = side == u"all";
            if (!all && side != u"left" && side != u"top" && side != u"right" && side != u"bottom")
                throw Failure{u"\"%1\" is no side of a border"_s.arg(side)};
            border.left |= all || side == u"left";
            border.top |= all || side == u"top";
            border.right |= all || side == u"right";
            border.bottom |= all || side == u"bottom";
        }
    }

    ConditionalStyle readCondition()
    {
        ConditionalStyle style;
        style.when = required(u"condition");
        color(u"color", style.color);
        color(u"fill", style.fill);
        flag(u"bold", style.bold);
        endAttributes();
        children([](const QString &) { return false; });
        return style;
    }

    QList<NamedStyle> m_styles;
};

/// Where an element has more attributes than any needs, else -1. The reader of XML compares each of
/// them with all others.
qsizetype overlongElement(const QByteArray &text)
{
    bool inTag = false;
    char quote = 0;
    int attributes = 0;
    for (qsizetype at = 0; at < text.size(); ++at) {
        const char c = text[at];
        if (!inTag) {
            const char next = at + 1 < text.size() ? text[at + 1] : '\0';
            inTag = c == '<' && next != '!' && next != '?';
            attributes = 0;
        } else if (quote) {
            if (c == quote)
                quote = 0;
        } else if (c == '>') {
            inTag = false;
        } else if (c == '"' || c == '\'') {
            quote = c;
            if (++attributes > MostAttributes)
                return at;
        }
    }
    return -1;
}

} // namespace

LayoutReading readLayout(const QByteArray &text)
{
    if (const qsizetype at = overlongElement(text); at >= 0) {
        const QByteArrayView before = QByteArrayView(text).first(at);
        LayoutReading reading;
        reading.error = u"Line %1, column %2: An element has more than %3 attributes."_s
                            .arg(1 + std::count(before.begin(), before.end(), '\n'))
                            .arg(at - before.lastIndexOf('\n'))
                            .arg(MostAttributes);
        return reading;
    }
    return Reader(text).read();
}

LayoutReading readLayoutFile(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        LayoutReading reading;
        reading.error =
            u"The report layout \"%1\" can't be opened: %2."_s.arg(path, file.errorString());
        return reading;
    }
    if (file.size() > LargestFile) {
        LayoutReading reading;
        reading.error = u"The report layout \"%1\" is larger than 64 MB."_s.arg(path);
        return reading;
    }
    return readLayout(file.readAll());
}

} // namespace report
