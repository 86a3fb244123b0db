#include "reporting/NewReportPage.h"

#include "platform/report/designer/Fields.h"
#include "platform/report/designer/HouseStyles.h"
#include "platform/report/designer/Normalised.h"
#include "platform/report/paginate/TextFlow.h"

#include <QRect>
#include <algorithm>

namespace newreport {

using namespace Qt::StringLiterals;
using report::Length;

namespace {

constexpr Length LineHeight = 540;
constexpr Length HeadingLine = 400;
constexpr Length HeadingPadding = 200;
constexpr Length LabelWidth = 4500;
constexpr Length ChartHeight = 8000;
constexpr Length CharacterWidth = 185;
constexpr Length NarrowestText = 2200;
constexpr Length WidestText = 6000;
/// Below this share of the width that they would like columns go on in a further line.
constexpr double LeastShare = 0.7;
constexpr int MostCategories = 12;

bool isText(const PageField &field)
{
    return field.column.kind == sql::ColumnKind::Text && !field.column.isFlag;
}

bool isNumber(const PageField &field)
{
    using enum sql::ColumnKind;
    const auto kind = field.column.kind;
    return !field.column.isFlag && (kind == Integer || kind == Real || kind == Money);
}

Length naturalWidthOf(const PageField &field)
{
    using enum sql::ColumnKind;
    if (field.column.isFlag)
        return 1500;
    switch (field.column.kind) {
    case Money:
        return 2800;
    case Date:
        return 2200;
    case Text:
        return std::clamp(field.column.length > 200 ? WidestText
                                                    : field.column.length * CharacterWidth / 2,
                          NarrowestText, WidestText);
    default:
        return 2200;
    }
}

QString formatOf(const PageField &field)
{
    using enum sql::ColumnKind;
    switch (field.column.kind) {
    case Money:
        return u"$#,##0.00"_s;
    case Real:
        return u"#,##0.##"_s;
    case Date:
        return u"mm/dd/yyyy"_s;
    default:
        return {};
    }
}

QString nameOf(const PageField &field)
{
    return report::fieldExpression(field.name);
}

/// A group's value in words, also where there is none.
QString inWords(const PageField &field)
{
    const QString name = nameOf(field);
    if (field.column.isFlag)
        return u"if(%1 <> 0, 'Yes', 'No')"_s.arg(name);
    const QString format = formatOf(field);
    const QString value =
        format.isEmpty() ? u"text(%1)"_s.arg(name) : u"format(%1, '%2')"_s.arg(name, format);
    return u"if(isnull(%1) or len(text(%1)) = 0, 'None', %2)"_s.arg(name, value);
}

/// A group is called in the designer what it goes by.
QString groupName(const PageField &field)
{
    const QString name = QString(field.caption).remove(u'"').simplified();
    return name.isEmpty() ? field.name : name;
}

/// Words for a text object: braces are its own.
QString words(QString text)
{
    return text.replace(u"{"_s, u"{{"_s);
}

struct Cell
{
    PageField field;
    Length x = 0;
    Length width = 0;
};
using Line = QList<Cell>;

/// Fits a line of columns into the width: texts take what is left over and give what is missing,
/// the others only when that isn't enough.
void fit(Line &line, Length width)
{
    Length total = 0;
    Length texts = 0;
    for (const Cell &cell : line) {
        total += cell.width;
        if (isText(cell.field))
            texts += cell.width;
    }
    if (total <= 0)
        return;
    const Length over = width - total;
    const bool isEnough = texts + over >= texts / 2 && texts > 0;
    Length x = 0;
    for (Cell &cell : line) {
        if (isEnough && isText(cell.field))
            cell.width += static_cast<Length>(qint64(cell.width) * over / texts);
        else if (total > width && !isEnough)
            cell.width = static_cast<Length>(qint64(cell.width) * width / total);
        cell.x = x;
        x += cell.width;
    }
}

/// A number ends where the words of the next column would begin.
void spaceOut(Line &line)
{
    constexpr Length Gap = 200;
    for (qsizetype at = 0; at + 1 < line.size(); ++at)
        if (isNumber(line[at].field) && !isNumber(line[at + 1].field))
            line[at].width -= Gap;
}

/// Fills lines from left to right; a column that would press the others too much begins the next.
QList<Line> linesOf(const QList<PageField> &columns, Length width)
{
    QList<Line> lines{Line()};
    Length used = 0;
    for (const PageField &column : columns) {
        const Length natural = naturalWidthOf(column);
        if (!lines.last().isEmpty() && (used + natural) * LeastShare > width) {
            lines.append(Line());
            used = 0;
        }
        lines.last().append({column, 0, natural});
        used += natural;
    }
    for (Line &line : lines) {
        fit(line, width);
        spaceOut(line);
    }
    return lines;
}

/// Puts the bands together.
class Page
{
public:
    Page(report::Layout &layout, const PageContent &content)
        : m_layout(layout)
        , m_content(content)
        , m_width(layout.page.innerWidth())
        , m_lines(linesOf(content.columns, m_width))
    {}

    void layOut()
    {
        takeLook();
        QStringList taken{u"report"_s, u"page"_s}; // what aggregates go over besides groups
        for (const PageField &group : m_content.groups) {
            report::Group made;
            made.name = report::freeName(groupName(group), taken);
            taken.append(made.name);
            made.by = nameOf(group);
            made.repeatHeader = true;
            m_layout.groups.append(made);
        }
        m_layout.sort = {nameOf(m_content.columns.first())};
        // A chart goes ahead of what it sums up, and so does the title of the first page then.
        if (hasChart()) {
            addBand(titleBand(report::BandKind::ReportHeader));
            addChart();
        }
        addBand(titleBand(report::BandKind::PageHeader));
        addHeadings();
        for (qsizetype group = 0; group < m_content.groups.size(); ++group)
            addGroupHeader(group);
        addDetail();
        for (qsizetype group = m_content.groups.size() - 1; group >= 0; --group)
            addTotals(report::BandKind::GroupFooter, group);
        if (m_content.counts || hasTotals())
            addTotals(report::BandKind::ReportFooter, -1);
        addPageFooter();
    }

private:
    /// Styles come first: widths and heights of headings are measured in them.
    void takeLook()
    {
        const QList<report::Look> &looks = report::looks();
        const auto chosen = std::ranges::find(looks, m_content.look, &report::Look::name);
        m_layout.styles = (chosen == looks.end() ? looks.first() : *chosen).styles;
    }

    [[nodiscard]] bool hasTotals() const
    {
        return std::ranges::any_of(m_content.columns, &PageField::isTotalled);
    }

    /// An object that can grow, in one of the look's styles.
    [[nodiscard]] report::Object object(report::ObjectKind kind, const QRect &frame,
                                        const QString &content, QStringView style,
                                        report::Align align = report::Align::Left) const
    {
        report::Object made;
        made.kind = kind;
        made.x = frame.x();
        made.y = frame.y();
        made.width = frame.width();
        made.height = frame.height();
        made.content = content;
        made.canGrow = true;
        made.style.align = align;
        report::followStyle(m_layout, made, style.toString());
        return made;
    }
    [[nodiscard]] report::Object text(const QRect &frame, const QString &content, QStringView style,
                                      report::Align align = report::Align::Left) const
    {
        return object(report::ObjectKind::Text, frame, content, style, align);
    }

    [[nodiscard]] report::Object line(Length y, QStringView style, Length width) const
    {
        report::Object object;
        object.kind = report::ObjectKind::Line;
        object.y = y;
        object.width = m_width;
        object.height = 0;
        object.lineWidth = width;
        report::followStyle(m_layout, object, style.toString());
        return object;
    }

    void addBand(report::Band band) { m_layout.bands.append(std::move(band)); }

    [[nodiscard]] static report::Band bandOf(report::BandKind kind, Length height = 0)
    {
        report::Band band;
        band.kind = kind;
        band.height = height;
        return band;
    }
    [[nodiscard]] static report::Align sideOf(const PageField &field)
    {
        return isNumber(field) ? report::Align::Right : report::Align::Left;
    }

    [[nodiscard]] report::Band titleBand(report::BandKind kind) const
    {
        report::Band band = bandOf(kind, 1200);
        band.objects = {text({0, 0, m_width, 900}, words(m_content.title), report::house::Title),
                        line(1000, report::house::Rule, 40)};
        if (kind == report::BandKind::PageHeader && hasChart())
            band.printIf = u"PageNumber > 1"_s;
        return band;
    }

    /// All headings of a line are as high as the highest, so that their ground is even.
    void addHeadings()
    {
        report::Band band = bandOf(report::BandKind::PageHeader);
        Length y = 100;
        for (const Line &cells : m_lines) {
            int lines = 1;
            for (const Cell &cell : cells)
                lines = qMax(lines, headingLines(cell));
            const Length height = lines * HeadingLine + HeadingPadding;
            // One ground for all of them, also where columns leave a gap.
            report::Object ground = object(report::ObjectKind::Box, {0, y, m_width, height}, {},
                                           report::house::Heading);
            ground.canGrow = false;
            ground.lineWidth = 0;
            band.objects.append(ground);
            for (const Cell &cell : cells)
                band.objects.append(
                    object(report::ObjectKind::Text, {cell.x, y, cell.width, height},
                           words(cell.field.caption), report::house::Heading, sideOf(cell.field)));
            y += height;
        }
        band.height = y;
        addBand(band);
    }

    /// Captions are known ahead of the rows, so that their band gets its height here.
    [[nodiscard]] int headingLines(const Cell &cell) const
    {
        const int style = m_layout.styleIndex(report::house::Heading);
        return static_cast<int>(
            report::flowText(cell.field.caption, m_layout.styles[style].style, cell.width).size());
    }

    void addGroupHeader(qsizetype number)
    {
        const PageField &group = m_content.groups[number];
        const Length indent = static_cast<Length>(number) * 400;
        report::Band band = bandOf(report::BandKind::GroupHeader, 850);
        band.group = m_layout.groups[number].name;
        band.objects = {text({indent, 150, m_width - indent, 600},
                             words(group.caption) + u": {"_s + inWords(group) + u'}',
                             report::house::GroupHeading)};
        addBand(band);
    }

    void addDetail()
    {
        report::Band band = bandOf(report::BandKind::Detail);
        Length y = 20;
        for (const Line &cells : m_lines) {
            for (const Cell &cell : cells) {
                const bool isFlag = cell.field.column.isFlag;
                const QString name = nameOf(cell.field);
                band.objects.append(object(report::ObjectKind::Field,
                                           {cell.x, y, cell.width, LineHeight},
                                           isFlag ? u"if(%1 <> 0, 'Yes', 'No')"_s.arg(name) : name,
                                           report::house::Detail, sideOf(cell.field)));
                if (!isFlag)
                    band.objects.last().format = formatOf(cell.field);
            }
            y += LineHeight;
        }
        band.objects.append(line(y + 10, report::house::Note, 10));
        band.height = y + 20;
        addBand(band);
    }

    /// The words of a footer: the group's value, or "Total" for the whole report.
    [[nodiscard]] QString label(qsizetype group) const
    {
        QString text =
            group < 0 ? u"Total"_s : u"Total of {"_s + inWords(m_content.groups[group]) + u'}';
        if (m_content.counts)
            text += u" ({count(*)} {if(count(*) = 1, 'row', 'rows')})"_s;
        return text;
    }

    void addTotals(report::BandKind kind, qsizetype group)
    {
        if (!m_content.counts && !hasTotals())
            return;
        report::Band band = bandOf(kind);
        if (group >= 0)
            band.group = m_layout.groups[group].name;
        Length first = m_width;
        for (const Line &cells : m_lines)
            for (const Cell &cell : cells)
                if (cell.field.isTotalled)
                    first = qMin(first, cell.x);
        Length y = 60;
        // The label stands beside the sums where it finds room there, else above them.
        const bool isBeside = first >= LabelWidth;
        band.objects.append(text({0, y, isBeside ? first : m_width, LineHeight}, label(group),
                                 report::house::Total));
        if (!isBeside)
            y += LineHeight;
        Length bottom = y + (isBeside ? LineHeight : 0);
        for (const Line &cells : m_lines) {
            bool isUsed = false;
            for (const Cell &cell : cells) {
                if (!cell.field.isTotalled)
                    continue;
                isUsed = true;
                band.objects.append(object(report::ObjectKind::Field,
                                           {cell.x, y, cell.width, LineHeight},
                                           u"sum(%1)"_s.arg(nameOf(cell.field)),
                                           report::house::Total, report::Align::Right));
                band.objects.last().format = formatOf(cell.field);
            }
            if (isUsed) {
                y += LineHeight;
                bottom = qMax(bottom, y);
            }
        }
        band.height = bottom + 160;
        addBand(band);
    }

    /// What a chart goes over: the outermost group, else the first column of words or dates.
    [[nodiscard]] const PageField *category() const
    {
        if (!m_content.groups.isEmpty())
            return &m_content.groups.first();
        const auto found = std::ranges::find_if(
            m_content.columns, [](const PageField &field) { return !isNumber(field); });
        return found == m_content.columns.end() ? nullptr : &*found;
    }

    [[nodiscard]] bool hasChart() const
    {
        return m_content.chart != ChartKind::None && category() != nullptr;
    }

    void addChart()
    {
        const PageField *over = category();
        const auto summed = std::ranges::find_if(m_content.columns, &PageField::isTotalled);
        const bool isCount = summed == m_content.columns.end();
        const QString what = isCount ? u"Rows"_s : summed->caption;
        const bool isDate = over->column.kind == sql::ColumnKind::Date;
        report::Object object;
        object.kind = report::ObjectKind::Chart;
        object.y = 200;
        object.width = m_width;
        object.height = ChartHeight;
        object.format = isCount ? u"#,##0"_s : formatOf(*summed);
        report::Chart &chart = object.chart;
        chart.kind =
            m_content.chart == ChartKind::Line ? report::ChartKind::Line : report::ChartKind::Bars;
        chart.title = words(u"%1 by %2"_s.arg(what, over->caption));
        chart.category = isDate ? nameOf(*over) : inWords(*over);
        chart.categoryFormat = isDate ? u"mmm yyyy"_s : QString();
        chart.valueTitle = words(what);
        chart.order = isDate ? report::ChartOrder::Category : report::ChartOrder::Value;
        chart.most = isDate ? 0 : MostCategories;
        chart.others = !isDate;
        report::Series series;
        series.name = what;
        series.value = isCount ? u"count(*)"_s : nameOf(*summed);
        const int title = m_layout.styleIndex(report::house::Heading);
        if (title >= 0 && m_layout.styles[title].style.fill.isValid())
            series.color = m_layout.styles[title].style.fill;
        chart.series = {series};
        report::Band band = bandOf(report::BandKind::ReportHeader, ChartHeight + 400);
        band.objects = {object};
        addBand(band);
    }

    void addPageFooter()
    {
        report::Band band = bandOf(report::BandKind::PageFooter, 800);
        const Length half = m_width / 2;
        band.objects = {
            line(200, report::house::Note, 20),
            text({0, 300, half, 500}, u"Printed {format(Now, 'mm/dd/yyyy hh:mm AMPM')}"_s,
                 report::house::Note),
            text({half, 300, m_width - half, 500}, u"Page {PageNumber} of {TotalPages}"_s,
                 report::house::Note, report::Align::Right)};
        addBand(band);
    }

    report::Layout &m_layout;
    const PageContent &m_content;
    const Length m_width;
    const QList<Line> m_lines;
};

} // namespace

Length naturalWidth(const QList<PageField> &fields)
{
    Length width = 0;
    for (const PageField &field : fields)
        width += naturalWidthOf(field);
    return width;
}

void layOut(report::Layout &layout, const PageContent &content)
{
    Page(layout, content).layOut();
}

} // namespace newreport
