#include "exchange/ImportXml.h"

#include "exchange/Export.h"
#include "exchange/Handheld.h"
#include "exchange/Import.h"
#include "exchange/XmlUpdates.h"

namespace {

using namespace Qt::StringLiterals;
using exchange::ImportXml;
using Icon = base::Prompts::Icon;
using test::readFile;
using test::writeFile;

const QString FileName = u"Data.xml"_s;

struct ImportFile : test::Workshop
{
    ImportFile()
    {
        EXPECT_TRUE(QDir().mkpath(base::environment().applicationFolder + u"/XML_IN"_s));
    }

    [[nodiscard]] QString path(const QString &name = FileName) const
    {
        return base::environment().applicationFolder + u"/XML_IN/"_s + name;
    }
    [[nodiscard]] QString log() const
    {
        return QString::fromUtf8(
            readFile(base::environment().applicationFolder + u"/Log/QVLog.txt"_s));
    }
    /// Imports a file with these sections.
    void import(ImportXml &visit, const QByteArray &sections) const
    {
        writeFile(path(), "<tables>" + sections + "</tables>");
        EXPECT_TRUE(visit.run(FileName));
    }
    void import(const QByteArray &sections) const
    {
        ImportXml visit;
        import(visit, sections);
    }
    static QByteArray section(const QByteArray &name, const QByteArrayList &records)
    {
        QByteArray text = '<' + name + '>';
        for (const QByteArray &record : records)
            text += "<record " + record + " />";
        return text + "</" + name + '>';
    }
    void expectKept(bool kept) const { EXPECT_EQ(QFile::exists(path()), kept); }

    static constexpr char NoFailures[] = "All Records are Imported succesfully";
};

TEST_F(ImportFile, MovesMachinesToCrewsAndKeepsBarCodesUnique)
{
    machine(2, u"M2"_s, {{u"Bar_Code"_s, u"B1"_s}});
    machine(3, u"M3"_s, {{u"Bar_Code"_s, u"B3"_s}, {u"CrewID"_s, 1}});
    machine(4, u"M4"_s, {{u"Bar_Code"_s, u" "_s}});
    const QByteArray crew = QByteArray::number(crew2);
    import(section("TBLEQUIPMENT",
                   {"equip_barcode='B1' CREWID='" + crew + "' EquipmentID='1' LastCrewID='7'",
                    "EquipmentID='3' CrewID='99' Equip_BarCode=' '", "EquipmentID='0' CrewID='1'",
                    "EquipmentID='' CrewID='1'"}));
    EXPECT_EQ(found(u"Select EquipmentID, CrewID, Bar_Code from tblEquipment order by "
                    "EquipmentID"_s),
              u"1|%1|B1\n2|0|\n3|99| \n4|0| "_s.arg(crew2));
    EXPECT_EQ(found(u"Select EquipmentID, CrewNumber, CrewDescription from "
                    "tblEquipmentCrewHistory"_s),
              u"1|2|South\n3|0|");
    EXPECT_EQ(log(), NoFailures);
    expectKept(false);
    // A machine that stays where it is gets a row all the same.
    import(section("tblEquipment", {"EquipmentID='1' CrewID='" + crew + "'"}));
    EXPECT_EQ(count(u"tblEquipmentCrewHistory"_s), 3);
}

TEST_F(ImportFile, StoresReadingsThatAreNotBelowTheHighest)
{
    const qint64 waiting = service({{u"Period"_s, u"H"_s},
                                    {u"NextScheduledCount"_s, 500},
                                    {u"NextScheduledDate"_s, QVariant()}});
    orderService(order(), {{u"Period"_s, u"H"_s}}); // is no reason to refuse it here
    insert(u"tblEquipmentCount"_s, u"EquipmentID, ChangeDate, CountType, CountValue"_s,
           {1, day(3, 1), u"Hours"_s, 500});
    const auto reading = [](const QByteArray &count, const QByteArray &type = "Hours") {
        return "EquipmentID='1' ChangeDate='3/9/2024' CountType='" + type +
               "' LastCount='9' CurrentCount='" + count + "'";
    };
    import(section("tblEquipmentCount",
                   {reading("0"), reading("0", "Counts"), reading(""), reading("499"),
                    reading("500"), reading("3", "Miles"), reading("0", "Miles")}));
    EXPECT_EQ(found(u"Select ChangeDate, CountType, CountValue from tblEquipmentCount"_s),
              u"3/1/2024|Hours|500\n3/9/2024|Hours|500\n3/9/2024|Miles|3");
    EXPECT_EQ(
        value(u"Select NextScheduledDate from tblServiceUsed where ServiceUsedID = ?"_s, {waiting}),
        day(3, 9));
}

TEST_F(ImportFile, CompletesOrdersBeforeReadingsWhereverTheyStand)
{
    const QByteArray number = QByteArray::number(order());
    QStringList sent;
    gcnData->setObserver([&](const db::Sent &each) {
        if (each.statement.startsWith(u"Update tblWorkorder"))
            sent.append(u"order"_s);
        if (each.statement.startsWith(u"insert into tblEquipmentCount"))
            sent.append(u"reading"_s);
        if (each.statement.startsWith(u"Insert into tblEquipmentCrewHistory"))
            sent.append(u"crew"_s);
    });
    import(section("tblEquipmentCount", {"EquipmentID='1' ChangeDate='3/9/2024' "
                                         "CountType='Hours' CurrentCount='5'"}) +
           section("tblEquipment", {"EquipmentID='1'"}) +
           section("tblCrew", {"CrewID='1' Description='is passed over'"}) +
           section("tblWorkorder", {"WorkorderNo='" + number +
                                    "' EquipmentID='1' Complete='N' CompletedDate='3/11/2024'"}) +
           section("tblWorkorder",
                   {"WorkorderNo='" + number + "' EquipmentID='1' CompletedDate='3/12/2024'"}));
    gcnData->setObserver({});
    // The machine came before the order, in the first pass; each kind of section counts once.
    EXPECT_EQ(sent.join(u' '), u"crew order reading");
    EXPECT_EQ(found(u"Select Complete, CompletedDate from tblWorkorder"_s), u"-1|3/11/2024");
}

TEST_F(ImportFile, AppliesServicesOnlyFromTheirLastAttribute)
{
    part(u"it's"_s, 10);
    const qint64 number = order();
    const qint64 line = orderService(number, {{u"ServiceID"_s, 44}});
    const qint64 skipped = orderService(number, {{u"ServiceID"_s, 45}});
    orderPart(line, u"it's"_s, 2, false);
    orderPart(line, u"P-2"_s, 2, false);
    orderPart(skipped, u"it's"_s, 2, false);
    const auto service = [&](qint64 id, const QByteArray &more) {
        return "ServiceUsedID='" + QByteArray::number(id) + "' ServiceID='" +
               (id == line ? "44" : "45") + "' WorkOrderNo='" + QByteArray::number(number) + "' " +
               more;
    };
    const auto used = [&](const QByteArray &more) {
        return "ServiceUsedID='" + QByteArray::number(line) + "' PartID=\"" + more;
    };
    const QByteArray parts = section(
        "tblServiceUsedParts",
        {used("it's\" Used='True' QtyUsed='1.5'"), used("it's\" Used='False' QtyUsed='9'"),
         used("it's\" Used='1' QtyUsed='9' Price='3'"), used("P-2\" Used='0' QtyUsed='9'")});
    const QString lines = u"Select Completed, Skip, StartTime, EndTime, Workhrs, [Note] from "
                          "tblWoServiceUsed order by NServiceUsedID"_s;
    // As the export ends a record.
    import(section("tblServiceUsed", {service(line, "Completed='Y' Notes='x' LastReading='0'")}) +
           parts);
    EXPECT_EQ(found(lines), u"0|0||||\n0|0||||");
    EXPECT_EQ(value(u"Select Complete from tblWorkorder"_s), 0);

    import(section("tblServiceUsed",
                   {service(line, "Completed='Y' starTime='8:05 AM' EndTime='3/9/2024 2:30:00 PM' "
                                  "Mhrs='1:30' SkipeNotes=\"Joe's\""),
                    service(skipped,
                            "Completed='S' StartTime=' ' EndTime='later' Mhrs='0' Notes=''")}) +
           parts);
    EXPECT_EQ(found(lines), u"-1|0|08:05|14:30|01:30|Joe's\n0|-1||later||");
    EXPECT_EQ(found(u"Select ServiceUsedID, PartID, Used, QuantityUsed from tblWoPartUsed"_s),
              u"%1|it's|-1|1.5\n%1|P-2|0|2\n%2|it's|0|2"_s.arg(line).arg(skipped));
    EXPECT_EQ(found(u"Select Complete, CompletedDate from tblWorkorder"_s), u"-1|3/15/2024");
    EXPECT_EQ(log(), NoFailures);
}

TEST_F(ImportFile, FailsAtAServiceThatIsNeitherDoneNorSkippedAndGoesOn)
{
    const qint64 number = order({{u"Complete"_s, true}, {u"CompletedDate"_s, day(3, 2)}});
    const QByteArray id = QByteArray::number(orderService(number, {{u"ServiceID"_s, 44}}));
    const QByteArray known = "ServiceUsedID='" + id + "' ServiceID='44' WorkOrderNo='" +
                             QByteArray::number(number) + "' ";
    import(section("tblServiceUsed", {known + "Completed='N' Notes='x'", known + "Notes=''",
                                      known + "Completed='Y' Notes='done'"}));
    const auto reports = errors.take();
    ASSERT_EQ(reports.size(), 2u);
    EXPECT_EQ(reports[0].ProcedureName, u"Update_ServiceUsed");
    EXPECT_EQ(reports[0].ModuleName, u"frmImportXml");
    EXPECT_EQ(found(u"Select Completed, [Note] from tblWoServiceUsed"_s), u"-1|done");
    EXPECT_EQ(value(u"Select CompletedDate from tblWorkorder"_s), day(3, 2)) << "complete before";
    expectKept(false); // an error is no failure of the log's
}

TEST_F(ImportFile, AddsWhatWasReceivedAndMovesBarCodes)
{
    part(u"it's"_s, 0.1);
    part(u"P-2"_s, 5);
    part(u"P-3"_s, 5);
    gcnData->Execute(u"Update tblPart set Bar_Code = 'B2' where PartID = 'P-2'"_s);
    import(section("tblPart", {"PartID='P-3' QtyReceived='100'"}) +
           section("tblParts", {"PartID='P-3' QtyReceived='0.25' Part_BarCode='B2' Price='9'",
                                "PartID=' ' QtyReceived='7'", "PartID='P-2' QtyReceived=''"}));
    EXPECT_EQ(found(u"Select PartID, Quantity, Bar_Code from tblPart order by Quantity"_s),
              u"it's|0.1|\nP-2|5|\nP-3|5.25|B2");
    // A number with an apostrophe breaks the statement, as it always has.
    import(section("tblParts", {"PartID=\"it's\" QtyReceived='0.2'"}));
    EXPECT_EQ(errors.takeOne().ProcedureName, u"Update_Part");
}

TEST_F(ImportFile, LogsWhatIsGoneAndKeepsTheFile)
{
    const QByteArray number = QByteArray::number(order());
    ImportXml visit;
    import(visit, section("tblEquipment", {"EquipmentID='8'", "EquipmentID='9'"}) +
                      section("tblEquipmentCount", {"EquipmentID='8' CurrentCount='0'"}) +
                      section("tblWorkorder", {"WorkorderNo='77' EquipmentID='1'",
                                               "WorkorderNo='" + number + "' EquipmentID='8'"}) +
                      section("tblServiceUsed",
                              {"ServiceUsedID='1' ServiceID='1' WorkOrderNo='78' Completed='Y'"}) +
                      section("tblParts", {"PartID='P'"}));
    const auto entry = [](const QString &record, const QString &keys, const QString &what) {
        return u"Failed to Import %1 Record\n%2\nReson:- %3 has been deleted or modified"_s
            .arg(record, keys, what)
            .replace(u'\n', u"\r\n        "_s)
            .prepend(u"        ");
    };
    const QString either = u"Either Work Order or Equipment"_s;
    EXPECT_EQ(log(), QStringList(
                         {u" Equipment"_s,
                          entry(u"Equipment"_s, u"EquipmentID=8"_s, u"Equipment"_s),
                          entry(u"Equipment"_s, u"EquipmentID=9"_s, u"Equipment"_s),
                          u" WorkOrder"_s,
                          entry(u"Work Order"_s, u"Work Order No=77\nEquipmentID=1"_s, either),
                          entry(u"Work Order"_s,
                                u"Work Order No=%1\nEquipmentID=8"_s.arg(QLatin1StringView(number)),
                                either),
                          u" Equipment Count"_s,
                          entry(u"Equipment Count"_s, u"EquipmentID=8"_s, u"Equipment"_s),
                          entry(u"Work Order"_s, u"Work Order No=78"_s, either),
                          u" Part"_s,
                          entry(u"Part"_s, u"Part No=P"_s, u"Part"_s),
                          {}})
                         .join(u"\r\n"));
    expectKept(true);
    // The log and the failure are forgotten when the log was seen, the kinds of sections are not.
    visit.clear();
    import(visit, section("tblParts", {"PartID='P'"}));
    EXPECT_EQ(log(), NoFailures);
    expectKept(false);
}

TEST_F(ImportFile, AddsNoHeaderToALogThatHoldsItInAnother)
{
    import(section("tblEquipmentCount", {"EquipmentID='8'"}) +
           section("tblEquipment", {"EquipmentID='8'"}));
    EXPECT_EQ(log().count(u" Equipment\r\n"), 0);
    EXPECT_EQ(log().count(u"Failed to Import"), 2);
}

TEST_F(ImportFile, ChangesNothingByAnExportThatNobodyHasWorkedOn)
{
    part(u"P-1"_s, 10);
    const qint64 line = orderService(order(), {{u"ServiceID"_s, 44}});
    orderPart(line, u"P-1"_s, 2, true);
    gcnData->Execute(u"Update tblWoPartUsed set QuantityUsed = 1"_s);
    const QString before = everything();
    test::PatientUser user;
    bool failed = false;
    ASSERT_TRUE(exchange::GenrateXML(failed));
    ASSERT_TRUE(QFile::copy(exchange::exportedFile(), path()));
    ImportXml visit;
    EXPECT_TRUE(visit.run(FileName));
    EXPECT_EQ(everything(), before);
    // But the orders' empty dates make statements that fail.
    EXPECT_EQ(errors.takeOne().ProcedureName, u"Update_Workorder");
}

TEST_F(ImportFile, KeepsACopyAndTellsOfAFileThatCannotBeRead)
{
    const QString last =
        base::environment().applicationFolder + u"/XML_IN/XML_IN_BackUP/Last.xml"_s;
    const std::tuple<QByteArray, QString, Icon> rows[] = {
        {"<tables>\r<a></b>",
         exchange::faultIn("<tables>\r<a></b>").value().text() + u"\nData Import process Failed "_s,
         Icon::Critical},
        {"<other><tblParts/></other>",
         u"Data.xml does not contain any data which can be imported."_s, Icon::None},
    };
    for (const auto &[content, told, icon] : rows) {
        writeFile(path(), content);
        test::ScriptedPrompts prompts;
        prompts.expect(told, icon);
        ImportXml visit;
        EXPECT_FALSE(visit.run(FileName));
        EXPECT_EQ(readFile(last), content);
        expectKept(true);
    }
    EXPECT_EQ(log(), u"(none)");
    ASSERT_EQ(ImportXml::files().size(), 1) << "the copy is not offered";
    EXPECT_EQ(ImportXml::files().first().name, FileName);
    ASSERT_TRUE(QDir(base::environment().applicationFolder + u"/XML_IN"_s).removeRecursively());
    test::ScriptedPrompts prompts;
    prompts.warn(u"System Folder has been deleted or modified\rData Import process failed."_s);
    EXPECT_TRUE(ImportXml::files().isEmpty());
}

TEST_F(ImportFile, FindsSectionsOnlyBelowTables)
{
    machine(2, u"M2"_s);
    writeFile(path(), "<x><tblEquipment><record EquipmentID='2' CrewID='9'/></tblEquipment><tables>"
                      "<tblEquipment><anything EquipmentID='1' CrewID='8'><record EquipmentID='2' "
                      "CrewID='7'/></anything><record/></tblEquipment></tables></x>");
    ImportXml visit;
    EXPECT_TRUE(visit.run(FileName));
    EXPECT_EQ(found(u"Select CrewID from tblEquipment order by EquipmentID"_s), u"8\n0");
}

TEST_F(ImportFile, FindsTheLineOfAService)
{
    const qint64 assigned = service();
    const qint64 line = orderService(order(), {{u"ServiceUsedID"_s, assigned}});
    EXPECT_EQ(exchange::FindNServiceID(assigned), QString::number(line));
    EXPECT_EQ(exchange::FindNServiceID(assigned + 1), u"0");
}

TEST_F(ImportFile, WritesTimesOfDayFromAnyFormOfThem)
{
    const std::pair<const char16_t *, const char16_t *> rows[] = {
        {u"8:05", u"08:05"}, {u"8:05 PM", u"20:05"}, {u"3/9/2024 2:05:59 PM", u"14:05"},
        {u"2.5", u"12:00"},  {u"noon", u"noon"},
    };
    for (const auto &[text, time] : rows)
        EXPECT_EQ(exchange::clockTime(QString::fromUtf16(text)), time);
}

/// The older form of the handheld's commands.
struct OlderImport : test::Handheld
{
    [[nodiscard]] QString older(const QString &name) const
    {
        return base::environment().applicationFolder + u"/Development/recive/"_s + name;
    }
};

TEST_F(OlderImport, TakesFourTypesOfKeysAndKnowsNoIds)
{
    part(u"it's"_s, 1);
    const qint64 line = orderService(order(), {{u"Name"_s, u"Joe's"_s}});
    const qint64 waiting = service({{u"Period"_s, u"H"_s},
                                    {u"NextScheduledCount"_s, 5},
                                    {u"NextScheduledDate"_s, QVariant()}});
    ASSERT_TRUE(QDir().mkpath(older({})));
    writeFile(
        older(u"QV1.xml"_s),
        "<a>" + test::command(u"Record|tblPart|PartID|it's|T|Quantity|N|4"_s) +
            test::command(
                u"Record|tblWoServiceUsed|NextScheduledDate|3/10/2024|D|StartTime|C|07:00"_s) +
            test::command(u"RecordTwoID|tblWoServiceUsed|Name|Joe's|C|NServiceUsedID|%1|N|EndTime|"
                          "T|09:00"_s.arg(line)) +
            newOrder(u"W1"_s) + "</a>");
    writeFile(older(u"Sy1.xml"_s), "<a>" + newOrder(u"W1"_s) + "</a>");
    writeFile(older(u"Count1.xml"_s),
              "<a>" + test::command(u"CountReading|1|3/9/2024|Hours|9"_s) + "</a>");
    prompts.say(u"done.txt is not found"_s);
    ASSERT_TRUE(exchange::olderImportdata());
    EXPECT_TRUE(QDir(older({})).entryList(QDir::Files).isEmpty());
    ASSERT_TRUE(QDir(older({})).removeRecursively());
    prompts.say(u"done.txt is not found"_s);
    EXPECT_FALSE(exchange::olderImportdata());
    EXPECT_EQ(errors.takeOne().ModuleName, u"frmImportXml");
    EXPECT_EQ(value(u"Select Quantity from tblPart"_s), 4);
    EXPECT_EQ(found(u"Select StartTime, EndTime from tblWoServiceUsed"_s), u"07:00|09:00");
    EXPECT_EQ(count(u"tblWorkorder"_s), 1) << "no orders are made here";
    EXPECT_EQ(count(u"tblEquipmentCount"_s), 1);
    EXPECT_TRUE(
        value(u"Select NextScheduledDate from tblServiceUsed where ServiceUsedID = ?"_s, {waiting})
            .isNull());
    EXPECT_EQ(files(), u"done.txt") << "the usual folder is another one's";
}

} // namespace
