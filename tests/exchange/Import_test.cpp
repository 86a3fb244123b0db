#include "exchange/Import.h"

#include "exchange/Handheld.h"
#include "exchange/IdMap.h"

#include <QLockFile>

#include <unistd.h>

namespace {

using namespace Qt::StringLiterals;
using exchange::Importdata;
using test::command;

const QString InProcess =
    u"Service is in-proccess for this equipment service can't be rescheduled."_s;

struct Import : test::Handheld
{
    /// Expects that a run fails, is reported with a text, changes nothing and keeps the files.
    void expectFailure(const QString &told, const std::string &which = {})
    {
        const QString before = everythingSent();
        const QString filesBefore = files();
        EXPECT_FALSE(Importdata()) << which;
        const auto reports = errors.take();
        ASSERT_EQ(reports.size(), 1u) << which;
        EXPECT_EQ(reports[0].ModuleName, u"frmMainScreen");
        EXPECT_EQ(reports[0].ProcedureName, u"Importdata");
        EXPECT_TRUE(reports[0].ErrDescription.contains(told))
            << which << ": " << reports[0].ErrDescription.toStdString();
        EXPECT_EQ(everythingSent(), before) << which;
        EXPECT_EQ(files(), filesBefore) << which;
        EXPECT_FALSE(gbInTransaction) << which;
    }
    /// The same for a file that holds one command.
    void expectRefused(const QByteArray &sent, const QString &told)
    {
        send(u"Sy1.xml"_s, sent);
        expectFailure(told, sent.toStdString());
    }
    /// Runs a file that holds these commands.
    void expectImported(const QByteArray &sent)
    {
        send(u"Sy1.xml"_s, sent);
        EXPECT_TRUE(Importdata()) << sent.toStdString();
        EXPECT_EQ(files(), QString());
    }
};

TEST_F(Import, MakesOrdersServicesAndPartsOfTheHandheldUnderTheOfficesNumbers)
{
    part(u"P-1"_s, 10);
    const qint64 office = order();
    const qint64 line = orderService(office);
    // Out of order in the file: each kind comes before those that refer to it.
    send(u"Sy1.xml"_s, newPart(u"s1"_s) + newPart(QString::number(line), u"it's"_s) +
                           newPart(u"999"_s) + newService(u"S1"_s, u"w-1"_s) + newOrder(u"W-1"_s));
    send(u"Sy2.xml"_s, newService(u"S2"_s, u"W-1"_s) +
                           newService(u"S3"_s, QString::number(office)) +
                           newService(u"S4"_s, u"77"_s));
    ASSERT_TRUE(Importdata());

    const qint64 made = value(u"Select max(WorkorderNo) from tblWorkorder"_s).toLongLong();
    EXPECT_EQ(found(u"Select EquipmentID, Printed, Complete, CompletedDate, WoDate from "
                    "tblWorkorder where WorkorderNo = ?"_s,
                    {made}),
              u"1|0|-1|3/14/2024|3/13/2024");
    EXPECT_EQ(found(u"Select WorkorderNo, ServiceUsedID, EquipmentID, ServiceID, Name, Completed, "
                    "Skip, StartTime, EndTime, [Note], LaborEstimate, Period, CountValue, Workhrs, "
                    "JobNo, CostEstimate, CostCenterID, CrewID, NextScheduledDate from "
                    "tblWoServiceUsed where NServiceUsedID = ?"_s,
                    {line + 1}),
              QString::number(made) +
                  u"|0|1|44|Joe's blades|-1|0|08:05|09:35|it's \"done\" & dusted; drop table "
                  "tblPart|1.5|H|510|1:30|12|20.25|3|2|3/20/2024"_s);
    EXPECT_EQ(found(u"Select WorkorderNo from tblWoServiceUsed where NServiceUsedID > ? order by "
                    "NServiceUsedID"_s,
                    {line + 1}),
              u"%1\n%2\n77"_s.arg(made).arg(office));
    EXPECT_EQ(
        found(u"Select ServiceUsedID, PartID, QuantityRequired, Price, Used, QuantityUsed "
              "from tblWoPartUsed"_s),
        u"%1|P-1|2|3.75|-1|1.5\n%2|it's|2|3.75|-1|1.5\n999|P-1|2|3.75|-1|1.5"_s.arg(line + 1).arg(
            line));
    EXPECT_EQ(value(u"Select Quantity from tblPart"_s), 10) << "the stock is the posting's";
    EXPECT_EQ(found(u"Select * from tblWotemp where strname = 'W'"_s), u"W|W-1|%1"_s.arg(made));
    EXPECT_EQ(files(), QString());
}

TEST_F(Import, KnowsTheHandheldsIdsInOneRunAndForgetsThemInTheNext)
{
    machine(2, u"M2"_s);
    expectImported(newOrder(u"W1"_s) + newOrder(u"W1"_s, u"2"_s));
    EXPECT_EQ(found(u"Select EquipmentID, Complete from tblWorkorder"_s), u"2|-1") << "a change";
    prompts.say(u"No files found for importing data"_s);
    prompts.inform(u"Problem In adding workorder service(Workorderno not found)"_s);
    send(u"Sy1.xml"_s, newService(u"S1"_s, u"W1"_s));
    EXPECT_FALSE(Importdata());
    EXPECT_EQ(count(u"tblWotemp"_s), 0);
}

TEST_F(Import, EndsAtAServiceThatCannotBePlacedAndChangesNothing)
{
    const std::pair<QByteArray, const char16_t *> rows[] = {
        {newService(u"S1"_s, u"W1"_s),
         u"Problem In adding workorder service(Workorderno not found)"},
        {newService(u"S1"_s, u"5"_s) + newService(u"s1"_s, u"5"_s),
         u"Problem In adding workorder service(duplicate service find.)"},
        {newOrder(u"W234567890123456"_s), u"Problem In adding workorder"},
        {newService(u"S234567890123456"_s, u"5"_s), u"Problem In adding workorder service"},
    };
    for (const auto &[sent, told] : rows) {
        send(u"Sy1.xml"_s, newOrder(u"W9"_s) + sent);
        const QString before = everythingSent();
        prompts.meanwhile([] { EXPECT_TRUE(gbInTransaction) << "it is undone afterwards"; });
        prompts.inform(QString::fromUtf16(told));
        EXPECT_FALSE(Importdata());
        EXPECT_FALSE(gbInTransaction);
        EXPECT_EQ(everythingSent(), before);
        EXPECT_EQ(files(), u"Sy1.xml done.txt");
        EXPECT_EQ(value(u"Select Count(*) from tblWotemp"_s), 0);
    }
}

TEST_F(Import, UpdatesOneColumnOfARowByItsKey)
{
    part(u"it's"_s, 10);
    part(u"12"_s, 1);
    const qint64 number = order();
    const QString key = QString::number(number);
    const qint64 line = orderService(number, {{u"ServiceID"_s, 44}});
    const QString lineKey = QString::number(line);
    const std::tuple<QString, const char16_t *, const char16_t *> rows[] = {
        {u"Record|TBLWORKORDER|workorderno|%1|N|CompletedDate|D|3/9/2024 2:05:00 PM"_s.arg(key),
         u"CompletedDate from tblWorkorder", u"3/9/2024 2:05:00 PM"},
        {u"Record|tblWoServiceUsed|[NServiceUsedID]|%1|N|[Note]|T|Joe's"_s.arg(lineKey),
         u"[Note] from tblWoServiceUsed", u"Joe's"},
        {u"Record|tblPart|PartID|12|N|Bin|C|7"_s, u"Bin from tblPart where PartID = '12'", u"7"},
        {u"Record|tblPart|PartID|it''s|C|Inactive|N|True"_s,
         u"Inactive from tblPart where Quantity = 10", u"-1"},
        {u"Record|tblPart|PartID|12|C|Notes|N|Null"_s, u"Notes from tblPart where PartID = '12'",
         u""},
        {u"RecordPart|tblPart|PartID|it's|?|Quantity|?|-2.5"_s,
         u"Quantity from tblPart where PartID <> '12'", u"7.5"},
        {u"RecordTwoID|tblWoServiceUsed|NServiceUsedID|%1|N|ServiceID|44|N|StartTime|T|07:00"_s.arg(
             lineKey),
         u"StartTime from tblWoServiceUsed", u"07:00"},
        {u"RecordTwoID|tblWoServiceUsed|NServiceUsedID|%1|N|ServiceID|45|N|StartTime|T|08:00"_s.arg(
             lineKey),
         u"StartTime from tblWoServiceUsed", u"07:00"},
        {u"RecordTwoID|tblWoServiceUsed|NServiceUsedID|%1|N|NextScheduledDate|3/10/2024|D|Completed|N|1"_s
             .arg(lineKey),
         u"Completed from tblWoServiceUsed", u"-1"},
        // Nobody knows that id, so there is nothing to change.
        {u"RecordTwoID|tblWoServiceUsed|NServiceUsedID|%1|T|ServiceID|44|N|StartTime|T|09:00"_s.arg(
             lineKey),
         u"StartTime from tblWoServiceUsed", u"07:00"},
    };
    for (const auto &[sent, query, after] : rows) {
        mark();
        expectImported(command(sent));
        EXPECT_EQ(found(u"Select "_s + QString::fromUtf16(query)), after) << sent.toStdString();
    }
}

TEST_F(Import, AddsDecimalsAsTheyAreWritten)
{
    part(u"P-1"_s, 0.1);
    expectImported(command(u"RecordPart|tblPart|PartID|P-1||Quantity||0.2"_s));
    EXPECT_EQ(value(u"Select Quantity from tblPart"_s).toDouble(), 0.3);
}

TEST_F(Import, FindsALineOfTheHandheldByItsIdAndATextKey)
{
    for (const QString &type : {u"T"_s, u"C"_s}) {
        mark();
        expectImported(newOrder(u"W1"_s) + newService(u"S1"_s, u"W1"_s) +
                       newPart(u"S1"_s, u"it's"_s) +
                       command(u"RecordTwoID|tblWoPartUsed|ServiceUsedID|S1|%1|PartID|it's|%1|"
                               "QuantityUsed|N|9"_s.arg(type)));
    }
    EXPECT_EQ(found(u"Select QuantityUsed from tblWoPartUsed"_s), u"9\n9");
}

TEST_F(Import, StoresAScanAndMovesAMachineToACrewThatExists)
{
    const auto move = [](qint64 crew, const QString &description = u"South side"_s) {
        return command(u"RecordCrew|tblEquipment|EquipmentID|1|?|CrewID|?|%1|2|%2"_s.arg(crew).arg(
            description));
    };
    expectImported(move(crew2) + move(99) +
                   command(u"RecordScanEquipment|Present|3/14/2024 2:05:00 PM|1"_s));
    EXPECT_EQ(found(u"Select EquipmentID, ScanTime, ScanStatus from tblEquipmentScan"_s),
              u"1|3/14/2024 2:05:00 PM|Present");
    EXPECT_EQ(value(u"Select CrewID from tblEquipment"_s), crew2);
    EXPECT_EQ(found(u"Select * from tblEquipmentCrewHistory"_s), u"1|2|South side|3/15/2024");
    mark();
    expectRefused(move(crew1, u"Joe's"_s), u"RecordCrew number 1"_s);
}

TEST_F(Import, StoresReadingsAndGivesWaitingServicesTheirDates)
{
    machine(2, u"M2"_s);
    const auto waiting = [&](int machine, const QString &period, int target) {
        return service({{u"EquipmentID"_s, machine},
                        {u"Period"_s, period},
                        {u"NextScheduledCount"_s, target},
                        {u"NextScheduledDate"_s, QVariant()}});
    };
    const qint64 reached = waiting(1, u"H"_s, 500);
    const qint64 distant = waiting(1, u"H"_s, 501);
    const qint64 busy = waiting(2, u"K"_s, 1);
    orderService(order(), {{u"EquipmentID"_s, 2}, {u"Period"_s, u"K"_s}});
    send(u"Count1.xml"_s,
         command(u"CountReading|1|3/12/2024|Hours|500"_s) +
             command(u"CountReading|1|3/12/2024|Hours|10"_s) + // not compared with others
             command(u"CountReading|2|3/12/2024|Kilometers|7"_s) +
             command(u"CountReading|2|3/12/2024|Leagues|8"_s) +
             command(u"Record|tblUser"_s)); // no business of this file
    send(u"count2.xml"_s, "nothing that is read");
    // The unknown word goes by the letter of the one before.
    prompts.say(InProcess);
    prompts.say(InProcess);
    ASSERT_TRUE(Importdata());
    EXPECT_EQ(found(u"Select EquipmentID, CountType, CountValue from tblEquipmentCount"_s),
              u"1|Hours|500\n1|Hours|10\n2|Kilometers|7\n2|Leagues|8");
    EXPECT_EQ(value(u"Select ChangeDate from tblEquipmentCount"_s), day(3, 12));
    const auto next = [](qint64 id) {
        return value(u"Select NextScheduledDate from tblServiceUsed where ServiceUsedID = ?"_s,
                     {id});
    };
    EXPECT_EQ(next(reached), day(3, 12));
    EXPECT_TRUE(next(distant).isNull());
    EXPECT_TRUE(next(busy).isNull());
    EXPECT_EQ(files(), QString());
}

TEST_F(Import, TellsThatTheTransferDidNotEndAndGoesOn)
{
    const QString told = u"No files found for importing data"_s;
    QFile::remove(path(u"done.txt"_s));
    prompts.say(told);
    EXPECT_TRUE(Importdata()) << "an empty folder is imported";
    send(u"Sy1.xml"_s, newOrder(u"W1"_s));
    prompts.say(told);
    EXPECT_TRUE(Importdata());
    EXPECT_EQ(count(u"tblWorkorder"_s), 1);
    ASSERT_TRUE(QDir(folder()).removeRecursively());
    for (int time = 0; time < 2; ++time) {
        prompts.say(told);
        EXPECT_FALSE(Importdata());
        EXPECT_EQ(errors.takeOne().ErrNumber, base::ErrorNumber::PathNotFound);
        settings::registry().setValue(settings::ProductKey, u"Path"_s, {});
    }
}

TEST_F(Import, RefusesWhatWouldHaveBeenABrokenStatement)
{
    part(u"it's"_s, 1);
    const auto service = [](qsizetype position, const QString &value) {
        QStringList values = serviceValues(u"S"_s, u"1"_s);
        values[position] = value;
        return u"NewService|"_s + values.join(u'|');
    };
    const std::pair<QString, const char16_t *> rows[] = {
        {u"Record|tblPart|PartID|a|T|Quantity|N|1"_s, u"\"T\" is no type"},
        {u"Record|tblPart|PartID|a|c|Quantity|N|1"_s, u"\"c\" is no type"},
        {u"Record|tblPart|PartID|a|C|Quantity|X|1"_s, u"\"X\" is no type"},
        {u"Record|tblPart|PartID|it's|C|Quantity|N|1"_s, u"apostrophe"},
        {u"Record|tblPart|PartID|a|C|Quantity|N|1 + 1"_s, u"is no number"},
        {u"Record|tblPart|PartID|a|C|Quantity|N|"_s, u"is no number"},
        {u"Record|tblPart|PartID|a|C|Quantity|D|"_s, u"is no date"},
        {u"Record|tblPart|PartID|a|C|Quantity|T|many"_s, u"many"},
        {u"Record|tblNone|PartID|a|C|Quantity|N|1"_s, u"is no table"},
        {u"Record|tblPart|PartID|a|C|Nothing|N|1"_s, u"is no column of tblPart"},
        {u"Record|tblPart|PartID = PartID or PartID|a|C|Quantity|N|1"_s,
         u"is no column of tblPart"},
        {u"Record|tblPart|PartID|a|C|Quantity|N"_s,
         u"Record number 1: position 6 is missing, there are 6"},
        {u"RecordTwoID|tblPart|PartID|1|D|Quantity|1|N|Quantity|N|1"_s, u"\"D\" is no type"},
        {u"RecordTwoID|tblPart|PartID|1|N|Quantity|1|?|Quantity|N|1"_s, u"\"?\" is no type"},
        {u"RecordTwoID|tblPart|PartID|1|N|Quantity|1|N|Quantity|?|1"_s, u"\"?\" is no type"},
        {u"RecordPart|tblPart|PartID|a|C|Quantity|N|some"_s, u"is no number"},
        {u"NewWorkOrder|W'1||3/1/2024|1|3/1/2024"_s, u"apostrophe"},
        {u"NewWorkOrder|W1||3/41/2024|1|3/1/2024"_s, u"is no date"},
        {service(7, u"8'"_s), u"apostrophe"},
        {service(12, u""_s), u"Data type mismatch"},
        {service(11, u"HH"_s), u"NewService number 1"},
        {u"RecordScanEquipment|it's|3/1/2024|1"_s, u"apostrophe"},
        {u"RecordScanEquipment|x|soon|1"_s, u"soon"},
        {u"RecordCrew|tblEquipment|EquipmentID|1||CrewID||one"_s, u"is no number"},
    };
    for (const auto &[sent, told] : rows)
        expectRefused(newOrder(u"W9"_s) + command(sent), QString::fromUtf16(told));
    QFile::remove(path(u"Sy1.xml"_s));
    for (const QString &values :
         {u"1|3/1/2024|Hours|many"_s, u"1|3/1/2024|Hou'rs|1"_s, u"1|3/1/2024|Hours|99999999999"_s,
          u"1 or 1|3/1/2024|Hours|1"_s}) {
        send(u"Count1.xml"_s, command(u"CountReading|"_s + values));
        expectFailure(u"Count1.xml, CountReading number 1"_s);
    }
}

TEST_F(Import, NeverWritesTheTablesOfUsersOptionsAndTheProgram)
{
    for (const QString &table :
         {u"tblUser"_s, u"[TBLUSER]"_s, u"tblSysOption"_s, u"tblGridSetting"_s, u"tblErrorList"_s,
          u"tblTableFields"_s, u"tblTempServicePart"_s, u"tblWotemp"_s, u"RDB$RELATIONS"_s,
          u"tblUser set EqAdd = 1 --"_s, u"tblPart, tblUser"_s}) {
        expectRefused(command(u"Record|%1|EmployeeID|1|N|EqAdd|N|1"_s.arg(table)),
                      u"is no table that a handheld may write"_s);
    }
    expectRefused(command(u"Record|tblWorkorder|WorkorderNo|1|N|WorkorderNo|N|9"_s),
                  u"gets its numbers from the database"_s);
}

/// Whatever stands in any position of any command: it is stored as a text or refused.
TEST_F(Import, MakesNoStatementOfAnyValue)
{
    part(u"P-1"_s, 10);
    part(u"P-2"_s, 20);
    const QString id = QString::number(orderService(order()));
    const QStringList commands{
        u"NewWorkOrder|W1||3/1/2024|1|3/1/2024"_s,
        u"NewService|"_s + serviceValues(u"S1"_s, u"1"_s).join(u'|'),
        u"NewServicePart|%1|P-1|1|1|1|1"_s.arg(id),
        u"RecordCrew|tblEquipment|EquipmentID|1||CrewID||1|1|x"_s,
        u"RecordScanEquipment|x|3/1/2024|1"_s,
        u"Record|tblPart|PartID|P-1|C|Notes|T|x"_s,
        u"RecordPart|tblPart|PartID|P-1||QtyMax||1"_s,
        u"RecordTwoID|tblWoServiceUsed|NServiceUsedID|%1|N|Name|Oil change|C|Note|T|x"_s.arg(id)};
    const QStringList hostile =
        u"' or '1'='1|1 or 1=1|x'; delete from tblPart; --|(select max(Quantity) from tblPart)|"
        "Quantity = 99, QtyMin|\"x\" or \"\"=\"\""_s.split(u'|');
    const auto untouched = [] {
        return found(u"Select PartID, Quantity, Description from tblPart order by PartID"_s) +
               found(u"Select UserName, [Password], EqAdd from tblUser"_s) +
               QString::number(count(u"tblEquipment"_s));
    };
    const QString before = untouched();
    const test::PatientUser user;
    int refused = 0;
    for (const QString &each : commands) {
        const qsizetype last = each.count(u'|');
        for (qsizetype position = 1; position <= last; ++position) {
            for (const QString &value : hostile) {
                QStringList sent = each.split(u'|');
                sent[position] = value;
                send(u"Sy1.xml"_s, command(sent.join(u'|')));
                mark();
                (void)Importdata();
                refused += static_cast<int>(errors.take().size());
                ASSERT_EQ(untouched(), before) << sent.join(u'|').toStdString();
            }
        }
    }
    EXPECT_GT(refused, 200);
}

TEST_F(Import, LeavesEverythingAsItWasWhicheverStatementFails)
{
    part(u"P-1"_s, 1);
    send(u"Sy1.xml"_s, newOrder(u"W1"_s) + newService(u"S1"_s, u"W1"_s) + newPart(u"S1"_s) +
                           command(u"RecordPart|tblPart|PartID|P-1||Quantity||5"_s));
    send(u"Count1.xml"_s, command(u"CountReading|1|3/1/2024|Hours|7"_s));
    exchange::IdMap::prepare();
    int tries = 0;
    test::PatientUser user;
    const int failures = failAtEachStatement([&] {
        ++tries;
        const bool done = Importdata();
        // An id that can't be recorded is told in a box instead of being reported.
        if (!std::exchange(user.told, {}).isEmpty())
            base::reportError("frmMainScreen", "Importdata", 5, u"told"_s);
        EXPECT_TRUE(done || files() == u"Count1.xml Sy1.xml done.txt");
        return done;
    });
    EXPECT_GT(failures, 8);
    EXPECT_EQ(tries, failures + 1);
    EXPECT_EQ(value(u"Select Quantity from tblPart"_s), 6);
    EXPECT_EQ(files(), QString());
}

TEST_F(Import, KeepsAsideWhatIsNoXmlAndImportsTheRest)
{
    const QByteArray deep =
        "<a>" + QByteArray("<v>").repeated(100'000) + QByteArray("</v>").repeated(100'000) + "</a>";
    const std::pair<const char *, QByteArray> rows[] = {
        {"Sy1.xml", "this is no XML"},
        {"Sy2.xml", ""},
        {"Sy3.xml", "<a>" + newOrder(u"W3"_s) + "<NewWorkOrder><v>W"},
        {"Sy4.xml", "<?xml version=\"1.0\" encoding=\"UTF-8\"?><a>" + newOrder(u"W4"_s) +
                        "<v>\xe9\xe9</v></a>"},
        {"Sy5.xml", deep},
        {"Sy6.xml", "<!DOCTYPE a [<!ENTITY a \"aaaaaaaaaa\"><!ENTITY b "
                    "\"&a;&a;&a;&a;&a;&a;&a;&a;&a;&a;\"><!ENTITY c "
                    "\"&b;&b;&b;&b;&b;&b;&b;&b;&b;&b;\"><!ENTITY d "
                    "\"&c;&c;&c;&c;&c;&c;&c;&c;&c;&c;\"><!ENTITY e "
                    "\"&d;&d;&d;&d;&d;&d;&d;&d;&d;&d;\">]><a>&e;&e;</a>"},
    };
    for (const auto &[name, content] : rows)
        test::writeFile(path(QString::fromLatin1(name)), content);
    send(u"Sy9.xml"_s, newOrder(u"W9"_s));
    const test::PatientUser user;
    ASSERT_TRUE(Importdata());
    EXPECT_EQ(count(u"tblWorkorder"_s), 1);
    EXPECT_EQ(files(), QString());
    for (const auto &[name, content] : rows) {
        EXPECT_TRUE(user.told.contains(QLatin1StringView(name) + ": "_L1)) << name;
        EXPECT_EQ(test::readFile(folder() + u"_unread/"_s + QLatin1StringView(name)), content);
    }
    test::writeFile(path(u"Sy1.xml"_s), "another one");
    mark();
    ASSERT_TRUE(Importdata());
    EXPECT_EQ(test::readFile(folder() + u"_unread/Sy1.xml (2)"_s), "another one");
}

TEST_F(Import, RefusesAFileTooLargeForAHandheld)
{
    QFile file(path(u"Sy1.xml"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_TRUE(file.resize(200 << 20));
    file.close();
    send(u"Count1.xml"_s, command(u"CountReading|1|3/1/2024|Hours|7"_s));
    expectFailure(u"too large"_s);
}

TEST_F(Import, LeavesAFileThatComesOrChangesMeanwhileForTheNextRun)
{
    send(u"Sy1.xml"_s, newOrder(u"W1"_s));
    send(u"Sy2.xml"_s, newOrder(u"W2"_s));
    send(u"other.dat"_s, "is deleted unread");
    ASSERT_TRUE(Importdata([&](int done, int all) {
        EXPECT_EQ(all, 2);
        if (done == 0)
            send(u"Sy3.xml"_s, newOrder(u"W3"_s));
        else
            send(u"Sy2.xml"_s, newOrder(u"W4"_s));
    }));
    EXPECT_EQ(files(), u"Sy2.xml Sy3.xml");
    EXPECT_EQ(count(u"tblWorkorder"_s), 2);
}

TEST_F(Import, CanBeCancelledAtAnyCommand)
{
    send(u"Sy1.xml"_s, newOrder(u"W1"_s) + newOrder(u"W2"_s));
    const QString before = everythingSent();
    EXPECT_FALSE(Importdata([](int done, int) {
        if (done == 1)
            throw exchange::Cancelled();
    }));
    EXPECT_EQ(everythingSent(), before);
    EXPECT_EQ(files(), u"Sy1.xml done.txt");
    EXPECT_FALSE(gbInTransaction);
}

TEST_F(Import, WaitsForNoOtherWorkstation)
{
    send(u"Sy1.xml"_s, newOrder(u"W1"_s));
    {
        QLockFile other(folder() + u".lock"_s);
        ASSERT_TRUE(other.tryLock());
        prompts.say(u"Another workstation is importing these files. Please try again when it has "
                    "ended."_s);
        EXPECT_FALSE(Importdata());
    }
    EXPECT_TRUE(Importdata());
}

TEST_F(Import, KeepsItsNumbersApartFromAnotherWorkstations)
{
    // The other one's device counts from 1 as well, and is committed in the midst of this run.
    const auto other = database.open();
    send(u"Sy1.xml"_s, newOrder(u"W1"_s) + newService(u"S1"_s, u"W1"_s));
    // It makes the table of ids as well, just before.
    gcnData->setObserver([&](const db::Sent &sent) {
        if (sent.statement.startsWith(u"Create table"_s))
            other->Execute(sent.statement);
    });
    ASSERT_TRUE(Importdata([&](int done, int) {
        if (done == 1) {
            other->Insert(u"Insert into tblWorkorder(EquipmentID) values(1)"_s, {},
                          u"WorkorderNo"_s);
            other->Execute(u"Insert into tblWotemp(strname,strid,strno) values('S','S1','5')"_s);
            other->Execute(u"Insert into tblWotemp(strname,strid,strno) values('W','W1','2')"_s);
        }
    }));
    EXPECT_EQ(found(u"Select WorkorderNo from tblWoServiceUsed"_s), u"1");
}

TEST_F(Import, IsRefusedWhereFilesCannotBeDeleted)
{
    if (geteuid() == 0)
        GTEST_SKIP() << "nothing is refused to root";
    send(u"Sy1.xml"_s, newOrder(u"W1"_s));
    QFile::setPermissions(folder(), QFileDevice::ReadOwner | QFileDevice::ExeOwner);
    expectFailure(u"nothing was imported"_s);
    QFile::setPermissions(folder(),
                          QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
}

} // namespace
