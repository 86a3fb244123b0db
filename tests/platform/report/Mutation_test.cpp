#include "platform/report/layout/LayoutFile.h"
#include "platform/report/paginate/Paginator.h"
#include "platform/report/paginate/RowOrder.h"
#include "platform/report/paginate/Tabulator.h"
#include "platform/report/render/PagePainter.h"

#include "support/TestFiles.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QImage>
#include <QPainter>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <gmock/gmock.h>
#include <iostream>
#include <limits>

namespace report {
namespace {

using namespace Qt::StringLiterals;

/// Rows that have each field that is asked for, with all kinds of values among them.
class AnyRows final : public DataSource
{
public:
    [[nodiscard]] int rowCount() const override { return 4; }
    [[nodiscard]] int fieldIndex(const QString &name) const override
    {
        const int kind = static_cast<int>(qHash(name.toLower(), 7) % 997);
        return name.startsWith(u"no", Qt::CaseInsensitive) ? -1 : kind;
    }
    [[nodiscard]] QVariant value(int row, int field) const override
    {
        static const QVariantList values{
            1,
            QVariant(),
            u"Mower 12"_s,
            26.025,
            QDateTime(QDate(2024, 3, 15), QTime(7, 30), Qt::UTC),
            -3,
            true,
            QString(),
            1e300,
            u"a longer text, which goes over several lines of a narrow frame\nand on"_s,
            std::numeric_limits<double>::infinity(),
            u"7:45"_s,
            std::numeric_limits<double>::quiet_NaN(),
            QByteArray("GIF89a\1\0\1\0"),
            99'999'999'999.5,
            5e-324,
            u"\u202e\u00ad\U0001F69C"_s};
        // Rows beside each other often agree, so that groups have some.
        return values[(field + (row / 2) * (field % 5)) % values.size()];
    }
};

class Damage
{
public:
    explicit Damage(quint32 seed)
        : m_random(seed)
    {
        const QDir folder(QStringLiteral(DELIVERED_LAYOUTS));
        for (const QString &name : folder.entryList({u"*.rpt"_s}, QDir::Files, QDir::Name))
            m_layouts.append(test::readFile(folder.filePath(name)));
        m_layouts.append(test::readFile(QStringLiteral(REPORT_TEST_DATA "/version3.rpt")));
        static const QRegularExpression attribute(u"([A-Za-z]+)=\"([^\"]*)\""_s);
        for (const QByteArray &layout : std::as_const(m_layouts))
            for (const QRegularExpressionMatch &match :
                 attribute.globalMatch(QString::fromUtf8(layout)))
                m_values[match.captured(1).toUtf8()].append(match.captured(2).toUtf8());
    }

    [[nodiscard]] qsizetype layouts() const { return m_layouts.size(); }

    /// One of the layouts, damaged in some places. Most stay well formed, so that they get beyond
    /// their reader.
    [[nodiscard]] QByteArray next()
    {
        QByteArray text = oneOf(m_layouts);
        const bool isTorn = bounded(8) == 0;
        for (qsizetype changes = 1 + bounded(5); changes > 0 && !text.isEmpty(); --changes) {
            if (isTorn)
                tear(text, bounded(text.size()));
            else
                change(text, bounded(text.size()));
        }
        return text;
    }

private:
    [[nodiscard]] qsizetype bounded(qsizetype limit)
    {
        return static_cast<qsizetype>(m_random.bounded(static_cast<quint32>(limit)));
    }
    template<class List>
    [[nodiscard]] QByteArray oneOf(const List &list)
    {
        return list[bounded(static_cast<qsizetype>(std::size(list)))];
    }

    void tear(QByteArray &text, qsizetype at)
    {
        static const QByteArrayList pieces{
            "<", ">", "\"", "&", "\xff", "]]>", "<!--", "<!DOCTYPE a [<!ENTITY x 'y'>]>", "&x;"};
        switch (bounded(3)) {
        case 0:
            text.remove(at, bounded(12));
            break;
        case 1:
            text.insert(at, oneOf(pieces));
            break;
        default:
            text[at] = static_cast<char>(m_random.bounded(256));
        }
    }

    void change(QByteArray &text, qsizetype at)
    {
        switch (bounded(8)) {
        case 0:
            moveLine(text, at);
            break;
        case 1:
            text.insert(lineStart(text, at), oneOf(Lines) + '\n');
            break;
        case 2:
        case 3:
            damageExpression(text, at);
            break;
        default:
            setValue(text, at);
        }
    }

    [[nodiscard]] static qsizetype lineStart(const QByteArray &text, qsizetype at)
    {
        return text.lastIndexOf('\n', at) + 1;
    }

    /// A line holds one element: it is doubled, dropped or taken to another place.
    void moveLine(QByteArray &text, qsizetype at)
    {
        const qsizetype from = lineStart(text, at);
        const qsizetype end = text.indexOf('\n', from);
        const QByteArray line = text.sliced(from, (end < 0 ? text.size() : end + 1) - from);
        if (bounded(3) > 0)
            text.remove(from, line.size());
        if (bounded(3) > 0 && !text.isEmpty())
            text.insert(lineStart(text, bounded(text.size())), line);
    }

    struct Attribute
    {
        QByteArray name;
        qsizetype from, length; ///< of its value
    };
    /// The first one behind a place.
    [[nodiscard]] static Attribute attributeBehind(const QByteArray &text, qsizetype at)
    {
        const qsizetype open = text.indexOf("=\"", at);
        const qsizetype close = open < 0 ? -1 : text.indexOf('"', open + 2);
        if (close < 0)
            return {{}, 0, 0};
        const qsizetype name = text.lastIndexOf(' ', open) + 1;
        return {text.sliced(name, open - name), open + 2, close - open - 2};
    }

    /// A value that the attribute has elsewhere, one of its kind at the edge of what it can be, or
    /// any.
    void setValue(QByteArray &text, qsizetype at)
    {
        const auto [name, from, length] = attributeBehind(text, at);
        const QByteArrayList usual = m_values.value(name);
        const bool isLength = !usual.isEmpty() && usual.first().endsWith("mm");
        const qsizetype way = bounded(24);
        text.replace(from, length,
                     way == 0               ? oneOf(Values)
                     : isLength && way < 12 ? oneOf(Lengths)
                     : usual.isEmpty()      ? oneOf(Expressions)
                                            : oneOf(usual));
    }

    void damageExpression(QByteArray &text, qsizetype at)
    {
        static const QByteArrayList expressions{"content",   "by",        "of",       "printIf",
                                                "visibleIf", "condition", "category", "value",
                                                "rows",      "columns",   "title",    "format"};
        const auto [name, from, length] = attributeBehind(text, at);
        if (!expressions.contains(name)) {
            setValue(text, at);
            return;
        }
        const qsizetype place = from + bounded(length + 1);
        if (bounded(2) == 0)
            text.remove(place, bounded(from + length - place + 1));
        text.insert(place, oneOf(Expressions));
    }

    inline static const QByteArrayList Lengths =
        QByteArray("0mm|9999mm|0.01mm|400mm|1e3mm|0.4mm|2mm|25.4mm|5pt|139.7mm").split('|');
    inline static const QByteArrayList Values =
        QByteArray(
            "|0mm|-5mm|9999mm|-9999mm|0.01mm|1e5mm|nanmm|infmm|0|-1|2147483648|1e308|nan|yes|no|"
            "1000|0.0001|none|all|#000|=Photo|../x|file:///etc/x|sum(Price)|count(*)|RowNumber|"
            "TotalPages|1/0|true|page|report|0.00000000000000000000|#,##0.00%|yyyymmddhhnnssAMPM|"
            "{{|{Price}{|{sum(Price)}")
            .split('|');
    inline static const QByteArrayList Expressions =
        QByteArray(
            "(|)| + | &amp; |sum(|if(|'|#1/1/2024#|[|]|{|}|not |-| mod 0| * 1000000000000000|"
            ", 'page'|, 'x'|left(|format(|PageNumber|TotalPages|0.1| / 3|"
            "99999999999999999999999999999999999999|round(|, -400)|days(|hours(|avg(|*")
            .split('|');
    static constexpr const char *Lines[] = {
        "<group name=\"g\" by=\"RowNumber\" newPage=\"yes\" repeatHeader=\"yes\"/>",
        "<group name=\"h\" by=\"Site\" keepTogether=\"yes\" resetPageNumber=\"yes\"/>",
        "<formula name=\"a\">b &amp; b</formula><formula name=\"b\">a &amp; a</formula>",
        "<formula name=\"Price\">Price * 2</formula>",
        "<sort by=\"Price\"/>",
        "<band kind=\"detail\" height=\"0mm\"/>",
        "<band kind=\"detail\" height=\"9999mm\"><box width=\"9999mm\" height=\"9999mm\"/></band>",
        "<band kind=\"pageHeader\" height=\"400mm\"/>",
        "<band kind=\"pageFooter\" height=\"300mm\"><field content=\"sum(Price, 'page')\"/></band>",
        "<band kind=\"reportFooter\" atBottom=\"yes\"><chart width=\"90mm\" height=\"60mm\" "
        "kind=\"line\" category=\"Site\" format=\"0.0\"><series value=\"Cost\"/><series "
        "value=\"max(Cost)\" by=\"Crew\"/></chart></band>",
        "<chart width=\"60mm\" height=\"40mm\" kind=\"stackedBars\" category=\"Date\" "
        "categoryFormat=\"mmm yyyy\" order=\"value\" most=\"1\" others=\"yes\" "
        "title=\"{Site}\" valueTitle=\"v\"><series value=\"Price\" by=\"Name\"/></chart>",
        "<crossTab width=\"60mm\" rows=\"Site\" columns=\"Crew\" value=\"Cost\" totals=\"yes\"/>",
        "<text width=\"0mm\" height=\"1mm\" content=\"{Notes} and {Notes}\" size=\"900\" "
        "canGrow=\"yes\"/>",
        "<barCode width=\"0mm\" content=\"Notes\"/>",
        "<picture content=\"=Photo\"/><picture content=\"/etc/passwd\"/>",
        "<line x=\"-9999mm\" y=\"9999mm\" width=\"-9999mm\" height=\"-9999mm\"/>",
        "<page paper=\"A4\" left=\"104.99mm\" right=\"105mm\" top=\"148mm\" bottom=\"148.5mm\"/>"};

    QRandomGenerator m_random;
    QByteArrayList m_layouts;
    QHash<QByteArray, QByteArrayList> m_values; ///< by the attribute's name
};

/// Runs a layout through all that reads it. How many pages there were.
int printed(const Layout &layout, bool isDrawn)
{
    AnyRows rows;
    Inputs inputs;
    inputs.now = QDateTime(QDate(2024, 3, 15), QTime(8, 0), Qt::UTC);
    for (const RowSet &set : layout.rowSets)
        inputs.rowSets.insert(set.name, std::make_shared<AnyRows>());
    EXPECT_EQ(orderOf(layout, rows, inputs).size(), std::size_t(rows.rowCount()));
    if (isDrawn)
        (void)tabulate(layout, rows, inputs, [](const TableBand &) { return true; });
    QImage sheet(60, 80, QImage::Format_RGB32);
    PagePainter pages;
    return paginate(layout, rows, inputs,
                    [&](Page &&page) {
                        if (isDrawn && page.number < 4) {
                            QPainter painter(&sheet);
                            painter.setWindow(0, 0, layout.page.width(), layout.page.height());
                            pages.paint(page, painter);
                        }
                        return true;
                    })
        .pages;
}

int wanted(const char *variable, int usual)
{
    const int asked = qEnvironmentVariableIntValue(variable);
    return asked > 0 ? asked : usual;
}

} // namespace

TEST(Mutations, EveryLayoutIsRefusedWithItsPlaceOrPrints)
{
    // The same layouts at each run; a longer one goes further, another seed elsewhere.
    Damage damage(quint32(wanted("QUORVANTIS_SEED", 20240315)));
    const int count = wanted("QUORVANTIS_MUTATIONS", 1500);
    ASSERT_GE(damage.layouts(), 30);
    int refused = 0;
    int pages = 0;
    qint64 longest = 0;
    // What is tried, and what took longest, to look at after a crash or a long wait.
    const QString kept = qEnvironmentVariable("QUORVANTIS_KEEP");
    for (int i = 0; i < count; ++i) {
        const QByteArray text = damage.next();
        const auto last = testing::ScopedTrace(__FILE__, __LINE__, text.toStdString());
        if (!kept.isEmpty())
            test::writeFile(kept + u"/last.rpt"_s, text);
        QElapsedTimer timer;
        timer.start();
        const LayoutReading reading = readLayout(text);
        if (reading.layout) {
            pages += printed(*reading.layout, i % 8 == 0);
        } else {
            ++refused;
            ASSERT_THAT(reading.error.toStdString(),
                        testing::MatchesRegex("Line [0-9]+, column [0-9]+: .+"));
        }
        if (timer.nsecsElapsed() > longest) {
            longest = timer.nsecsElapsed();
            if (!kept.isEmpty())
                test::writeFile(kept + u"/slowest.rpt"_s, text);
        }
        if (i % 256 == 0)
            QCoreApplication::processEvents();
        if (i % 10'000 == 9999)
            std::clog << i + 1 << " layouts, " << refused << " refused, " << pages << " pages"
                      << std::endl;
    }
    // Both roads were taken often enough to say something.
    EXPECT_GT(refused, count / 10);
    EXPECT_GT(pages, count / 2);
}

} // namespace report
