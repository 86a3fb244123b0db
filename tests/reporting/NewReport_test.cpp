#include "reporting/NewReport.h"

#include "platform/report/expr/Expression.h"
#include "platform/report/layout/LayoutFile.h"
#include "platform/report/paginate/Paginator.h"
#include "reporting/Catalogue.h"
#include "reporting/FirstRows.h"
#include "reporting/GuardedRunner.h"
#include "reporting/Preparation.h"
#include "reporting/QueryString.h"
#include "reporting/SampleReports.h"
#include "scheduling/Readings.h"
#include "support/Raised.h"

#include <QDir>
#include <QImage>
#include <algorithm>
#include <map>

using namespace Qt::StringLiterals;
using namespace newreport;

namespace {

class NewReport : public test::SampleReports
{
protected:
    /// What a report's pages show; it has no problems.
    static QStringList print(const report::Layout &layout)
    {
        ownreports::GuardedRunner runner(gcnData->target());
        const ownreports::OwnRows read = ownreports::readOwn(layout, {}, runner);
        QStringList problems;
        QStringList pages;
        for (const report::Page &page :
             report::allPages(layout, *read.rows, read.inputs, &problems))
            pages.append(report::pageText(page));
        EXPECT_EQ(problems, QStringList()) << qPrintable(layout.query);
        return pages;
    }
    [[nodiscard]] Field field(const QString &table, const QString &caption) const
    {
        for (const Field &each : fieldsOf(table, tables))
            if (each.caption == caption)
                return each;
        ADD_FAILURE() << "no field " << qPrintable(caption);
        return {};
    }
    [[nodiscard]] Choice partsBySupplier() const
    {
        const QString table = u"tblPart"_s;
        Choice choice;
        choice.title = u"Parts {by} supplier"_s;
        choice.table = table;
        choice.columns = {field(table, u"Part Number"_s), field(table, u"Description"_s),
                          field(table, u"Price"_s)};
        choice.groups = {field(table, u"Supplier"_s)};
        choice.totals = {field(table, u"Qty on Hand"_s)};
        choice.chart = ChartKind::Bars;
        return choice;
    }

    const QList<reporttables::Table> tables = reporttables::tables();
};

/// The bands of a kind, and all objects of a kind.
QList<report::Band> bandsOf(const report::Layout &layout, report::BandKind kind)
{
    QList<report::Band> bands = layout.bands;
    bands.removeIf([&](const report::Band &band) { return band.kind != kind; });
    return bands;
}

QList<report::Object> chartsOf(const report::Layout &layout)
{
    QList<report::Object> charts;
    for (const report::Band &band : layout.bands)
        charts += band.objects;
    charts.removeIf(
        [](const report::Object &object) { return object.kind != report::ObjectKind::Chart; });
    return charts;
}
/// Columns of one line stand beside each other with a gap at most between a number and words, up to
/// the right margin where one of them is a text.
void expectColumnsSideBySide(const report::Layout &layout)
{
    std::map<report::Length, report::Length> ends; // of the lines, by their height
    for (const report::Object &object :
         bandsOf(layout, report::BandKind::Detail).value(0).objects) {
        if (object.kind != report::ObjectKind::Field)
            continue;
        EXPECT_GE(object.x, ends[object.y]);
        EXPECT_LE(object.x, ends[object.y] + 200);
        EXPECT_GT(object.width, 1000);
        ends[object.y] = object.x + object.width;
    }
    constexpr report::Length Rounding = 20;
    for (const auto &[y, end] : ends)
        EXPECT_LE(end, layout.page.innerWidth() + Rounding);
}

/// Keeps a report as a file where the variable says, to look at.
void keepForLooking(const report::Layout &layout, const QString &name)
{
    if (const QString folder = qEnvironmentVariable("QUORVANTIS_KEEP_REPORTS"); !folder.isEmpty())
        report::writeLayoutFile(layout, folder + u'/' + name + u".rpt"_s);
}

TEST_F(NewReport, EveryTableInEveryFormPrintsWithoutARemark)
{
    for (const reporttables::Table &table : tables) {
        const QList<Field> fields = fieldsOf(table.name, tables);
        QList<Field> totals;
        for (const Field &each : fields)
            if (each.canTotal() && totals.size() < 3)
                totals.append(each);
        QList<Choice> choices;
        Choice choice;
        choice.table = table.name;
        choice.columns = usualFields(fields);
        ASSERT_EQ(problemOf(choice), QString()) << qPrintable(table.name);
        choices.append(choice);
        choice.totals = totals;
        choice.groups = {fields.last()};
        choice.chart = ChartKind::Bars;
        choice.look = u"Green"_s;
        choices.append(choice);
        choice.columns = fields.first(qMin<qsizetype>(fields.size(), 14));
        choice.groups = fields.first(qMin<qsizetype>(fields.size(), 3));
        choice.landscape = true;
        choice.paper = u"A4"_s;
        choice.chart = ChartKind::Line;
        choice.counts = false;
        choices.append(choice);
        for (qsizetype form = 0; form < choices.size(); ++form) {
            SCOPED_TRACE(testing::Message() << qPrintable(table.name) << ' ' << form);
            const report::Layout layout = make(choices[form], tables);
            report::Layout onFirstRows = layout; // as many as show what it does
            onFirstRows.query = ownreports::limited(layout.query, 200);
            print(onFirstRows);
            expectColumnsSideBySide(layout);
            const report::LayoutReading reading = report::readLayout(report::writeLayout(layout));
            EXPECT_TRUE(reading.layout && *reading.layout == layout);
            keepForLooking(layout, table.name + QString::number(form));
        }
    }
}

TEST_F(NewReport, PartsBySupplierHasItsSumsAndItsChart)
{
    const report::Layout layout = make(partsBySupplier(), tables);
    const QStringList pages = print(layout);
    const QString text = pages.join(QString());
    const db::Recordset sums =
        gcnData->Open(u"Select Name, Count(*) as Parts, Sum(Quantity) as Total from tblPart left "
                      "join tblSupplier on tblPart.SupplierID = tblSupplier.SupplierID group by "
                      "Name"_s);
    ASSERT_GT(sums.RecordCount(), 1);
    for (const db::Row row : sums) {
        const QString name = row.isNull(u"Name") ? u"None"_s : row.text(u"Name");
        const qint64 parts = row.integer(u"Parts");
        const QString label =
            u"Total of %1 (%2 %3)"_s.arg(name).arg(parts).arg(parts == 1 ? u"row"_s : u"rows"_s);
        const QString sum = u'"' + report::formatted(row[u"Total"], u"#,##0.##"_s) + u'"';
        for (const QString &part : {u"Supplier: "_s + name, label, sum})
            EXPECT_TRUE(text.contains(part)) << qPrintable(part);
    }
    // The title stands on each page once, ahead of the chart, and that ahead of the first row.
    EXPECT_EQ(text.count(u"Parts {by} supplier"), pages.size());
    const qsizetype chart = text.indexOf(u"\"Qty on Hand by Supplier\"");
    EXPECT_GT(chart, text.indexOf(u"Parts {by} supplier"));
    EXPECT_LT(chart, text.indexOf(u"\"Part Number\""));
    EXPECT_EQ(layout.groups.first().name, u"Supplier"_s);
    EXPECT_TRUE(text.contains(u"Printed "_s + base::now().toString(u"MM/dd/yyyy"_s)));
    qsizetype before = -1;
    for (const db::Row row : gcnData->Open(u"Select PartID from tblPart where SupplierID = (Select "
                                           "min(SupplierID) from tblSupplier) order by PartID"_s)) {
        const qsizetype at = text.indexOf(u'"' + row.text(u"PartID") + u'"');
        EXPECT_GT(at, before) << qPrintable(row.text(u"PartID"));
        before = at;
    }
    const report::Chart drawn = chartsOf(layout).value(0).chart;
    EXPECT_EQ(drawn.order, report::ChartOrder::Value);
    EXPECT_TRUE(drawn.most > 0 && drawn.others);
    EXPECT_TRUE(layout.groups.first().repeatHeader);
    // What is grouped by stands in no column of its own.
    EXPECT_FALSE(text.contains(u"\"Supplier\""));
    keepForLooking(layout, u"PartsBySupplier"_s);
}

TEST_F(NewReport, KeysOfOtherRowsReadAsNamesAndOnlyAmountsAreSummed)
{
    const QString table = u"tblPart"_s;
    EXPECT_EQ(field(table, u"Supplier"_s).column.name, u"Name"_s);
    EXPECT_EQ(field(table, u"Supplier: Phone"_s).column.name, u"Phone"_s);
    EXPECT_EQ(field(table, u"Part Number"_s).column.name, u"PartID"_s);
    struct Row
    {
        const char *table;
        const char *caption;
        bool canTotal;
    };
    for (const Row &row :
         {Row{"tblPart", "Price", true}, Row{"tblPart", "Qty on Hand", true},
          Row{"tblPart", "Part Number", false}, Row{"tblPart", "Inactive", false},
          Row{"tblServices", "Job No", false}, Row{"tblServices", "Interval", true},
          Row{"tblEquipment", "Inactive", false}, Row{"tblCrew", "Crew Number", false},
          Row{"tblServiceUsedPart", "Service: Interval", false}})
        EXPECT_EQ(
            field(QString::fromLatin1(row.table), QString::fromLatin1(row.caption)).canTotal(),
            row.canTotal)
            << row.caption;
}

TEST_F(NewReport, TheUsualColumnsSayWhatARowIs)
{
    QStringList captions;
    for (const Field &each : usualFields(fieldsOf(u"tblPart"_s, tables)))
        captions.append(each.caption);
    EXPECT_EQ(captions.join(u", "),
              u"Part Number, Description, Part Category, Qty on Hand, Price, Supplier"_s);
    for (const Field &each : fieldsOf(u"tblEquipmentImage"_s, tables))
        EXPECT_NE(each.column.name, u"ImageData"_s);
    EXPECT_TRUE(fieldsOf(u"tblUser"_s, tables).isEmpty());

    Choice choice;
    EXPECT_NE(problemOf(choice), QString());
    choice.table = u"tblPart"_s;
    EXPECT_NE(problemOf(choice), QString());
    choice.groups = QList<Field>(4, field(choice.table, u"Supplier"_s));
    EXPECT_NE(problemOf(choice), QString());
    choice.groups.removeLast();
    EXPECT_EQ(problemOf(choice), QString());
}

TEST_F(NewReport, WhatIsLeftOpenIsFilledInSensibly)
{
    Choice choice;
    choice.table = u"tblEquipment"_s;
    choice.groups = {field(choice.table, u"Acquisitiondate"_s)};
    choice.chart = ChartKind::Line;
    const report::Layout layout = make(choice, tables);
    EXPECT_EQ(layout.title, u"Equipment"_s);
    print(layout);
    for (const report::Band &band : bandsOf(layout, report::BandKind::Detail))
        EXPECT_EQ(band.objects.first().content, u"Acquisitiondate"_s);
    const QList<report::Object> charts = chartsOf(layout);
    ASSERT_EQ(charts.size(), 1);
    // Days make months, in their order, and what is counted are rows.
    EXPECT_EQ(charts[0].chart.categoryFormat, u"mmm yyyy"_s);
    EXPECT_EQ(charts[0].chart.order, report::ChartOrder::Category);
    EXPECT_EQ(charts[0].chart.series.first().value, u"count(*)"_s);
}

TEST_F(NewReport, WhatFindsNoRoomGoesOnInAnotherLine)
{
    Choice choice = partsBySupplier();
    choice.columns += {field(choice.table, u"Bin"_s), field(choice.table, u"Bar Code"_s)};
    const auto lines = [&] {
        QSet<report::Length> tops;
        for (const report::Band &band : bandsOf(make(choice, tables), report::BandKind::Detail))
            for (const report::Object &object : band.objects)
                if (object.kind == report::ObjectKind::Field)
                    tops.insert(object.y);
        return tops.size();
    };
    EXPECT_EQ(lines(), 1);
    choice.columns = fieldsOf(choice.table, tables);
    EXPECT_GT(lines(), 1);

    EXPECT_TRUE(isWide(choice));
    EXPECT_FALSE(isWide(partsBySupplier()));

    choice = partsBySupplier();
    const auto footer = [&] {
        return bandsOf(make(choice, tables), report::BandKind::GroupFooter).first().objects;
    };
    EXPECT_EQ(footer()[0].y, footer()[1].y);
    choice.columns = {};
    EXPECT_LT(footer()[0].y, footer()[1].y);
}

TEST_F(NewReport, PicturesLieBesideTheReportsOfTheUsersOwn)
{
    const QString folder = base::applicationPath(u"\\User Defined Reports"_s);
    ASSERT_TRUE(QDir().mkpath(folder));
    ASSERT_TRUE(QImage(8, 8, QImage::Format_RGB32).save(folder + u"/logo.png"_s));
    report::Layout layout = make(partsBySupplier(), tables);
    report::Object logo = layout.bands.first().objects.first();
    logo.kind = report::ObjectKind::Picture;
    logo.content = u"logo.png"_s;
    layout.bands.first().objects.append(logo);
    EXPECT_TRUE(print(layout).first().contains(u" picture "_s));
}

/// What a delivered report is designed on.
class DesignRows : public NewReport
{};

TEST_F(DesignRows, EachFileThatIsKnownHasAStatementOfItsOwn)
{
    const QString ending =
        u" tblPart ON tblWoPartUsed.PartID = tblPart.PartID where  tblWorkorder.workorderno in (0)"_s;
    for (const auto &[file, isKnown] :
         {std::pair(u"rptWorkOrder.rpt"_s, true), std::pair(u"rptWorkOrderByCrew.rpt"_s, true),
          std::pair(u"rptWorkorder.rpt"_s, false), std::pair(u"rptworkorder.rpt"_s, false),
          std::pair(u"rptEquipmentList.rpt"_s, true), std::pair(u"rptEquipmentList"_s, false),
          std::pair(u"rptEquipmentListSiteWise.rpt"_s, false),
          std::pair(u"rptErrorReport.rpt"_s, true), std::pair(u"Mine.rpt"_s, false)}) {
        const QString query = QueryString(file);
        EXPECT_EQ(!query.isEmpty(), isKnown) << qPrintable(file);
        if (isKnown && file.startsWith(u"rptWorkOrder")) {
            EXPECT_TRUE(query.endsWith(ending));
            EXPECT_EQ(gcnData->Open(query).RecordCount(), 0);
        }
    }
    EXPECT_TRUE(QueryString(u"rptInventoryReport.rpt"_s).contains(u"where TrackInventory=0"));
    EXPECT_EQ(QueryString(u"rptEquipmentCount.rpt"_s), readings::dueStatement(5));
}

TEST_F(DesignRows, EveryDeliveredLayoutHasRowsToBePreviewedOn)
{
    gcnData->Execute(u"Insert into tblErrorList(ErrNumber, ErrDescription) values(5,'x')"_s);
    for (const catalogue::Report &report : catalogue::reports()) {
        const QString query = previewQuery(report.layout + u".rpt"_s);
        EXPECT_GT(gcnData->Open(query).RecordCount(), 0) << qPrintable(report.layout);
        const QString known = QueryString(report.layout + u".rpt"_s);
        if (known.isEmpty())
            continue;
        EXPECT_NO_THROW(static_cast<void>(gcnData->Open(known))) << qPrintable(report.layout);
    }
    EXPECT_EQ(previewQuery(u"Mine.rpt"_s), QString());
}

TEST_F(DesignRows, ALayoutAsksForWhatTheProgramDoesNotKnow)
{
    for (const catalogue::Report &report : catalogue::reports())
        EXPECT_TRUE(catalogue::parametersToAsk(reportfiles::readDelivered(report.layout)).isEmpty())
            << qPrintable(report.layout);
    const QString name = u"rptEquipmentList"_s;
    report::Layout layout = reportfiles::readDelivered(name);
    const report::Layout asking = *report::readLayout(R"(<report version="3">
        <parameter name="Least"/><parameter name="OnlyEquipmentID" optional="yes"/>
        <parameter name="firstEquipmentid"/><parameter name="LastEquipmentID"/>
        <rows name="parts" key="EquipmentID" of="EquipmentID">
          Select EquipmentID, PartID from tblEquipmentPart where EquipmentID &gt;= ?Least</rows>
        </report>)")
                                       .layout;
    layout.parameters = asking.parameters;
    layout.rowSets = asking.rowSets;
    ASSERT_EQ(catalogue::parametersToAsk(layout).size(), 1);
    EXPECT_EQ(catalogue::parametersToAsk(layout).first().name, u"Least"_s);

    const db::Recordset rows = catalogue::open(catalogue::reportOf(name), {});
    catalogue::Request asked{.layout = name};
    EXPECT_TRUE(test::raisedBy([&] { static_cast<void>(catalogue::prepare(asked, layout, rows)); })
                    .description()
                    .contains(u"Least"));
    asked.answers = {{u"least"_s, 1}};
    EXPECT_EQ(catalogue::prepare(asked, layout, rows).inputs.parameters.value(u"least"_s), 1);

    // Further rows are read by the keys of the report's own.
    const auto read = [&](const QString &which, const QString &filter) {
        layout.rowSets[0].query =
            u"Select EquipmentID from tblEquipment where EquipmentID = ?%1EquipmentID"_s.arg(which);
        const auto found =
            catalogue::prepare(asked, layout, catalogue::open(catalogue::reportOf(name), filter))
                .inputs.rowSets.value(u"parts"_s);
        return found->rowCount() == 1 ? found->value(0, 0).toLongLong() : 0;
    };
    const db::Recordset ends =
        gcnData->Open(u"Select min(EquipmentID) as a, max(EquipmentID) as z from tblEquipment"_s);
    EXPECT_EQ(read(u"First"_s, {}), ends.row(0).integer(u"a"));
    EXPECT_EQ(read(u"Last"_s, {}), ends.row(0).integer(u"z"));
    EXPECT_EQ(read(u"Only"_s, {}), 0);
    EXPECT_NE(read(u"Only"_s, u"where UnitNo = 'M001'"_s), 0);
}

} // namespace
