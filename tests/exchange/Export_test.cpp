#include "exchange/Export.h"

#include "exchange/Handheld.h"
#include "exchange/ValueText.h"
#include "exchange/XmlFault.h"

namespace {

using namespace Qt::StringLiterals;
using test::readFile;
using test::writeFile;

const QString Exported = u"Quorvantis records have been exported successfully.\n"
                         "Put the Windows Mobile device Into the cradle."_s;

/// A small company made by hand, with a row for each case of the format.
struct Export : test::Workshop
{
    Export()
    {
        gcnData->Execute(u"Delete from tblEquipment"_s);
        gcnData->Execute(u"Delete from tblCrew where CrewNumber = 2"_s);
        gcnData->Execute(u"Update tblCrew set CrewNumber = 7, Description = 'North & \"South\"'"_s);
        SetOption(u"COUNT_READING_DELAY"_s, 5, false);
    }

    static void reading(const QDateTime &date, const QString &type, int value)
    {
        insert(u"tblEquipmentCount"_s, u"EquipmentID, ChangeDate, CountType, CountValue"_s,
               {1, date, type, value});
    }
    void makeOrders() const
    {
        const qint64 hours = service({{u"Period"_s, u"H"_s}, {u"LaborEstimate"_s, 0.75}});
        const qint64 open = order();
        orderService(open, {{u"ServiceUsedID"_s, hours},
                            {u"ServiceID"_s, 44},
                            {u"Name"_s, u"Blades \"A\" & B"_s},
                            {u"StartTime"_s, u"08:30"_s},
                            {u"EndTime"_s, u"09:15"_s},
                            {u"Note"_s, u"it's > that & \"more\""_s},
                            {u"Period"_s, u"H"_s},
                            {u"JobNo"_s, 12}});
        const qint64 done = orderService(open, {{u"Completed"_s, true}});
        orderService(
            open, {{u"ServiceID"_s, QVariant()}, {u"CrewID"_s, QVariant()}, {u"Period"_s, u"W"_s}});
        orderService(open, {{u"EquipmentID"_s, 2}, {u"Period"_s, QVariant()}});
        insert(u"tblWoPartUsed"_s,
               u"ServiceUsedID, PartID, QuantityRequired, Price, Used, QuantityUsed"_s,
               {done, u"P&1"_s, 2.5, 12.5, true, QVariant()});
        orderPart(done, u"unknown"_s, 1, false);
        orderService(order({{u"Complete"_s, true}}));
        order(); // without work
    }
    static void makeCatalogue()
    {
        insert(u"tblPart"_s, u"PartID, Description, Quantity, Bar_Code, Price"_s,
               {u"P&1"_s, u"Blade 21\""_s, 3, QVariant(), 1234.5});
        insert(u"tblServices"_s,
               u"ServiceID, Name, CrewID, CostCenterID, CostEstimate, LaborEstimate, JobNo"_s,
               {44, u"Blades"_s, QVariant(), QVariant(), QVariant(), QVariant(), QVariant()});
        insert(u"tblServicesPart"_s, u"PartID, ServiceID, QuantityRequired, Price, SupplierID"_s,
               {u"P&1"_s, 44, 2, QVariant(), 9});
    }
    /// Runs an export that writes its file; the file's text.
    QByteArray exported()
    {
        prompts.inform(Exported);
        bool failed = true;
        EXPECT_TRUE(exchange::GenrateXML(failed));
        EXPECT_FALSE(failed);
        return readFile(exchange::exportedFile());
    }

    test::ScriptedPrompts prompts;
};

TEST_F(Export, WritesTheFileOfASmallCompanyByteForByte)
{
    machine(1, u"M1"_s,
            {{u"EquipmentName"_s, u"Big \"Blue\" & &quot;old&quot;"_s},
             {u"CrewID"_s, 1},
             {u"Bar_Code"_s, u"b&1"_s}});
    machine(2, {},
            {{u"Inactive"_s, 1}, {u"EquipmentName"_s, u"Mower"_s}, {u"CrewID"_s, QVariant()}});
    makeCatalogue();
    makeOrders();
    service({{u"Period"_s, u"C"_s}});
    const QDateTime afternoon = base::wallClock({2024, 3, 9}, {14, 5});
    reading(afternoon, u"Hours"_s, 500);
    reading(afternoon, u"Hours"_s, 480);
    reading(day(3, 2), u"Hours"_s, 900);
    reading(day(3, 14), u"Counts"_s, 5); // not yet old enough to be asked for again
    reading(day(3, 16), u"Miles"_s, 20);
    reading(day(3, 16), u"Weeks"_s, 30); // no meter goes by them
    const QByteArray golden = readFile(QStringLiteral(QUORVANTIS_TEST_DATA "/Data.xml"));
    EXPECT_EQ(QString::fromUtf8(exported()).replace(u'\r', u'\n'), QString::fromUtf8(golden))
        << "the file in tests/exchange/data has line feeds where the format has carriage returns";
    EXPECT_FALSE(readFile(exchange::exportedFile()).contains('\n'));
}

TEST_F(Export, LeavesOutSectionsWithoutRows)
{
    EXPECT_EQ(exported(), "<?xml version=\"1.0\" encoding=\"UTF-8\"?><tables>\r<tblCrew>\r"
                          "<record CrewID=\"1\" CrewNumber=\"7\" Description=\"North &amp; "
                          "&quot;South&quot;\" />\r</tblCrew>\r\r</tables>");
}

TEST_F(Export, StopsAtANameThatIsNoXmlAndKeepsTheFormerFile)
{
    exported();
    const QByteArray former = readFile(exchange::exportedFile());
    machine(1, u"M1"_s, {{u"EquipmentName"_s, u"a < b"_s}, {u"CrewID"_s, 1}});
    const QString source = u"<record EquipmentID=\"1\" UnitNo=\"M1\" EquipmentName=\"a < b\" "
                           "CrewID=\"1\" Equip_BarCode=\"\" LastCrewID=\"1\" />"_s;
    const QString reason = exchange::faultIn("<a b=\"<\"/>").value().reason;
    prompts.warn(reason + u"\n\nLINE: 3  "_s + source);
    bool failed = false;
    EXPECT_FALSE(exchange::GenrateXML(failed));
    EXPECT_TRUE(failed);
    EXPECT_EQ(readFile(exchange::exportedFile()), former);
}

/// A text that would be no XML never gets through, whichever raw or escaped value spoils it.
TEST_F(Export, FindsWhateverSpoilsTheText)
{
    const std::tuple<const char16_t *, const char16_t *, bool> rows[] = {
        {u"M & N", u"", false},
        {u"M&amp;N", u"", true},
        {u"M\" UnitNo=\"N", u"", false},
        {u"M\" Other=\"N", u"", true},
        {u"", u"a<b", false},
        {u"", u"<", false},
        {u"", u"a\u0001b", false},
        {u"", u"a\uffffb", false},
        {u"", u"two\r\nlines\t>", true},
        {u"", u"\U0001f33f & \"more\"", true},
    };
    for (const auto &[unit, name, isXml] : rows) {
        gcnData->Execute(u"Delete from tblEquipment"_s);
        machine(1, QString::fromUtf16(unit), {{u"EquipmentName"_s, QString::fromUtf16(name)}});
        const test::PatientUser user;
        bool failed = false;
        EXPECT_EQ(exchange::GenrateXML(failed), isXml) << user.told.toStdString();
        EXPECT_EQ(failed, !isXml);
        EXPECT_TRUE(!isXml || !exchange::faultIn(readFile(exchange::exportedFile())));
    }
}

TEST_F(Export, WithoutAnythingToExportTellsSoAndMayBeTriedAgain)
{
    gcnData->Execute(u"Delete from tblCrew"_s);
    prompts.inform(u"There is not data for exporting"_s);
    bool failed = true;
    EXPECT_FALSE(exchange::GenrateXML(failed));
    EXPECT_FALSE(failed);
    EXPECT_FALSE(QFile::exists(exchange::exportedFile()));
}

TEST_F(Export, WritesNothingWhenASectionCannotBeRead)
{
    machine(1, u"M1"_s);
    makeCatalogue();
    makeOrders();
    const QByteArray former = exported();
    for (int failing = 1; failing <= 10; ++failing) {
        int running = 0;
        gcnData->setObserver([&](const db::Sent &) {
            if (++running == failing)
                throw base::Error(5, u"broken"_s);
        });
        bool failed = false;
        EXPECT_FALSE(exchange::GenrateXML(failed)) << failing;
        EXPECT_TRUE(failed) << failing;
        EXPECT_EQ(errors.takeOne().ErrDescription, u"broken");
        EXPECT_EQ(readFile(exchange::exportedFile()), former);
    }
    gcnData->setObserver({});
}

TEST_F(Export, IsReportedWhenTheFileCannotBeWritten)
{
    ASSERT_TRUE(QDir().mkpath(exchange::exportedFile() + u"/in the way"_s));
    bool failed = false;
    EXPECT_FALSE(exchange::GenrateXML(failed));
    EXPECT_TRUE(failed);
    EXPECT_EQ(errors.takeOne().ProcedureName, u"GenrateXML");
}

TEST(ValueText, HasOneFormForEachKindOfValue)
{
    using Kind = sql::ColumnKind;
    const std::tuple<QVariant, Kind, const char16_t *> rows[] = {
        {{}, Kind::YesNo, u""},
        {qint64{-1}, Kind::YesNo, u"True"},
        {qint64{0}, Kind::YesNo, u"False"},
        {qint64{-1}, Kind::Integer, u"-1"},
        {12.50, Kind::Money, u"12.5"},
        {base::wallClock({2024, 3, 9}), Kind::Date, u"3/9/2024"},
        {base::wallClock({2024, 12, 19}, {14, 5}), Kind::Date, u"12/19/2024 2:05:00 PM"},
        {u" a <\t"_s, Kind::Text, u" a <\t"},
    };
    for (const auto &[value, kind, text] : rows)
        EXPECT_EQ(exchange::valueText(value, kind), text);
}

TEST(XmlFault, NamesTheLineHoweverLinesEnd)
{
    for (const char *text : {"<a>\r<b>\rx</c>\r", "<a>\n<b>\nx</c>", "<a>\r\n<b>\r\nx</c>"}) {
        const auto fault = exchange::faultIn(text);
        ASSERT_TRUE(fault);
        EXPECT_EQ(fault->line, 3);
        EXPECT_EQ(fault->source, u"x</c>");
    }
    EXPECT_FALSE(exchange::faultIn("<a/>"));
    const auto longLine = exchange::faultIn("<a b=\"" + QByteArray(5000, 'x') + "\" c=<>");
    ASSERT_TRUE(longLine);
    EXPECT_TRUE(longLine->source.endsWith(u"c=<>"));
    EXPECT_LT(longLine->source.size(), 1000);
}

} // namespace
