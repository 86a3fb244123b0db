#include "administration/AdministrationSession.h"
#include "administration/ExportTables.h"
#include "administration/ImportTables.h"
#include "administration/ZipFile.h"
#include "core/database/Changes.h"
#include "core/database/CreateDatabase.h"
#include "platform/db/Counters.h"
#include "platform/db/Structure.h"

using namespace Qt::StringLiterals;
using namespace administration;
using test::raisedBy;

namespace {

class Tables : public test::AdministrationSession
{
protected:
    [[nodiscard]] QString zip(const QString &name = u"all.zip"_s) const
    {
        return stick() + u'/' + name;
    }
    [[nodiscard]] db::Target copy() const { return target(stick() + u"/copy.mdb"_s); }
    static QByteArray content(const QString &zip, const QString &name)
    {
        return ZipReader(zip).open(name)->readAll();
    }
    /// An archive with one file exchanged.
    [[nodiscard]] QString zipWith(const QString &name, const QByteArray &text) const
    {
        const QString path = zip(u"changed.zip"_s);
        const ZipReader source(zip());
        ZipWriter writer(path);
        for (const QString &file : source.names()) {
            const QString place = stick() + u'/' + file;
            test::writeFile(place, file == name ? text : source.open(file)->readAll());
            writer.add(file, place);
        }
        writer.commit();
        return path;
    }

    /// Rows with everything that text could lose.
    static void fill()
    {
        const auto part = [](const QString &id, const QVariant &notes, const QVariant &bin,
                             const QVariant &price, const QVariant &quantity) {
            insert(u"tblPart"_s, {{u"PartID"_s, id},
                                  {u"Notes"_s, notes},
                                  {u"Bin"_s, bin},
                                  {u"Price"_s, price},
                                  {u"Quantity"_s, quantity},
                                  {u"Inactive"_s, id == u"a"}});
        };
        part(u"a"_s, u"one\r\ntwo\n\"three\", four\r"_s, QVariant(), 0.0625, 0.1);
        part(u"b"_s, u""_s, u""_s, 123456789.1234, 1e-20);
        part(u"c"_s, QVariant(), u" é日 "_s, QVariant(), QVariant());
        part(u"d"_s, QString(100'000, u'x'), u"NULL"_s, -0.0001, -1.0 / 3);
        for (const QByteArray &picture :
             {QByteArray("\0\xFF\r\n\"", 5), QByteArray(70'000, '\x80'), QByteArray("")})
            insert(u"tblEquipmentImage"_s, {{u"EquipmentID"_s, picture.size() % 2},
                                            {u"ImageName"_s, QString::number(picture.size())},
                                            {u"ImageData"_s, picture}});
        insert(u"tblEquipmentImage"_s, {{u"EquipmentID"_s, 1}, {u"ImageName"_s, u"none"_s}});
        for (const QTime &time : {QTime(0, 0), QTime(23, 59, 59, 999), QTime(10, 20, 30)})
            insert(u"tblEquipmentScan"_s,
                   {{u"EquipmentID"_s, 1},
                    {u"ScanTime"_s, base::wallClock(QDate(2024, 2, 29), time)}});
        // Alike to the engine, and two rows that are one.
        for (const auto &status : {u"In"_s, u"IN"_s, u"in"_s, u"in"_s})
            insert(u"tblEquipmentScan"_s, {{u"EquipmentID"_s, 1}, {u"ScanStatus"_s, status}});
        insert(u"tblEquipmentScan"_s, {{u"ScanStatus"_s, u"of no machine"_s}});
        const qint64 order = insert(u"tblWorkorder"_s, {{u"EquipmentID"_s, 1}}, u"WorkorderNo"_s);
        gcnData->Execute(u"Delete from tblWorkorder where WorkorderNo = ?"_s, {order});
        gcnData->Execute(u"Update tblSysOption set itemValue = 'Green & Sons' where SysOption = "
                         "'GEN_COMPANY_NAME'"_s);
    }
};

} // namespace

TEST_F(Tables, ComeBackAsTheyWereAndGiveTheSameBytes)
{
    fill();
    const Exported exported = exportTables(databaseTarget(), zip());
    const db::RowCounts counts = db::countRows(databaseTarget());
    EXPECT_EQ(exported.tables, counts.size());
    EXPECT_EQ(importTables(zip(), copy()).rows, exported.rows);
    EXPECT_EQ(db::countRows(copy()), counts);
    EXPECT_EQ(db::structureOf(copy()), db::structureOf(databaseTarget()));
    (void)exportTables(copy(), zip(u"again.zip"_s));
    EXPECT_EQ(test::readFile(zip(u"again.zip"_s)), test::readFile(zip()));
    EXPECT_EQ(filesIn(stick()), (QStringList{u"again.zip"_s, u"all.zip"_s, u"copy.mdb"_s}));

    // The values themselves, not only their text.
    db::Connection connection(copy());
    for (const auto &table : {u"tblPart"_s, u"tblEquipmentImage"_s, u"tblEquipmentScan"_s})
        EXPECT_EQ(test::linesOf(connection.Open(u"Select * from "_s + table)),
                  test::linesOf(gcnData->Open(u"Select * from "_s + table)));
    EXPECT_EQ(connection.Insert(u"Insert into tblWorkorder (EquipmentID) values (1)"_s, {},
                                u"WorkorderNo"_s),
              2)
        << "the number of an order that was posted is not given again";
}

TEST_F(Tables, TheTextSaysWhatItHolds)
{
    fill();
    (void)exportTables(databaseTarget(), zip());
    const QByteArray scans = content(zip(), u"tblEquipmentScan.csv"_s);
    EXPECT_EQ(scans, "EquipmentID,ScanTime,ScanStatus\n,,of no "
                     "machine\n1,,IN\n1,,In\n1,,in\n1,,in\n1,2024-02-29,\n"
                     "1,2024-02-29 10:20:30,\n1,2024-02-29 23:59:59.999,\n");
    const QByteArray parts = content(zip(), u"tblPart.csv"_s);
    EXPECT_TRUE(parts.contains("b,,0,1e-20,")) << parts.left(400).toStdString();
    EXPECT_TRUE(
        content(zip(), ContentsFile.toString()).contains("\ntblWorkorder,0,WorkorderNo,2\n"));
}

TEST_F(Tables, AnExportWhileAnotherWritesIsOfOneMoment)
{
    db::Connection other(databaseTarget());
    other.BeginTrans();
    other.Execute(u"Insert into tblEquipment (EquipmentID, UnitNo) values (77, 'x')"_s);
    (void)exportTables(databaseTarget(), zip());
    other.RollbackTrans();
    EXPECT_FALSE(content(zip(), u"tblEquipment.csv"_s).contains("\n77,"));
}

TEST_F(Tables, AFailedExportLeavesWhatWasThere)
{
    test::writeFile(zip(), "the last good one");
    fillWithPictures();
    {
        const test::SmallDisk full(SmallDiskSize);
        EXPECT_NE(raisedBy([&] { (void)exportTables(databaseTarget(), zip()); }).number(), 0);
    }
    EXPECT_NE(raisedBy([&] {
                  (void)exportTables(databaseTarget(), zip(), [](int done, int) {
                      if (done == 3)
                          throw base::Error(1, u"cancelled"_s);
                  });
              }).number(),
              0);
    EXPECT_EQ(test::readFile(zip()), "the last good one");
    EXPECT_EQ(QDir(stick()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
              QStringList{u"all.zip"_s});
}

TEST_F(Tables, BadArchivesAreToldWithTheirPlaceAndMakeNoFile)
{
    fill();
    (void)exportTables(databaseTarget(), zip());
    const QByteArray scan = "EquipmentID,ScanTime,ScanStatus\n";
    const QByteArray contents = content(zip(), ContentsFile.toString());
    const std::tuple<QString, QByteArray, QString> all[] = {
        {u"tblEquipmentScan.csv"_s, scan + "1,yesterday,\n",
         u"tblEquipmentScan, row 2, column ScanTime: \"yesterday\" is not a date."_s},
        {u"tblEquipmentScan.csv"_s, scan + "1,,\n1x,,\n",
         u"tblEquipmentScan, row 3, column EquipmentID: \"1x\" is not a number."_s},
        {u"tblEquipmentScan.csv"_s, scan + "1,\n",
         u"tblEquipmentScan, row 2: there have to be 3 fields, and there are 2."_s},
        {u"tblEquipmentScan.csv"_s, scan,
         u"tblEquipmentScan: there have to be 8 rows, and there are 0."_s},
        {u"tblEquipmentScan.csv"_s, "EquipmentID,Colour\n",
         u"tblEquipmentScan: there is no column \"Colour\"."_s},
        {u"tblEquipmentScan.csv"_s, "EquipmentID,equipmentid\n",
         u"tblEquipmentScan: the column \"equipmentid\" stands there twice."_s},
        {u"tblSysOption.csv"_s, "SysOption,itemValue\nDBVERSION,99999\n",
         u"This export comes from a newer release of Quorvantis: its database has version 99999, "
         "and this program knows versions up to %1."_s.arg(company::schemaVersion())},
        {ContentsFile.toString(), QByteArray(contents).replace("tblCrew,", "tblGrew,"),
         u"The table tblCrew is missing in the archive."_s},
        {ContentsFile.toString(), contents + "tblCrew,0,CrewID,1\n",
         u"contents.csv, row %1: tblCrew stands there twice."_s.arg(contents.count('\n') + 1)},
    };
    for (const auto &[name, text, told] : all) {
        const QString archive = zipWith(name, text);
        EXPECT_EQ(raisedBy([&] { (void)importTables(archive, copy()); }).description(), told);
        EXPECT_FALSE(filesIn(stick()).contains(u"copy.mdb"_s));
        EXPECT_FALSE(filesIn(stick()).contains(u"copy.mdb.new"_s));
    }
    QByteArray cut = test::readFile(zip());
    for (const QByteArray &bytes : {cut.left(cut.size() / 2), QByteArray("GIF89a"), QByteArray()}) {
        test::writeFile(zip(u"bad.zip"_s), bytes);
        EXPECT_TRUE(raisedBy([&] { (void)importTables(zip(u"bad.zip"_s), copy()); })
                        .description()
                        .contains(u"is no zip archive, or is damaged"_s));
    }
    cut[cut.indexOf("tblEquipmentScan.csv") + 30] ^= 0x55;
    test::writeFile(zip(u"bad.zip"_s), cut);
    EXPECT_NE(raisedBy([&] { (void)importTables(zip(u"bad.zip"_s), copy()); }).number(), 0);
    EXPECT_FALSE(filesIn(stick()).contains(u"copy.mdb"_s));
}

TEST_F(Tables, OnlyAnEmptyCompanyIsReplaced)
{
    fill();
    (void)exportTables(databaseTarget(), zip());
    const QString file = copy().file;
    company::createEmptyDatabase(copy());
    {
        const db::Connection held(copy());
        EXPECT_EQ(raisedBy([&] { (void)replaceEmptyCompany(zip(), file); }).number(),
                  db::ErrorNumber::FileInUse);
    }
    (void)replaceEmptyCompany(zip(), file);
    EXPECT_EQ(db::countRows(copy()), db::countRows(databaseTarget()));
    EXPECT_TRUE(raisedBy([&] { (void)replaceEmptyCompany(zip(), file); })
                    .description()
                    .startsWith(u"The company holds records already."_s));
    EXPECT_EQ(filesIn(stick()), (QStringList{u"all.zip"_s, u"copy.mdb"_s}));
}
