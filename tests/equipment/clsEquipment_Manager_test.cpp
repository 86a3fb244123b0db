#include "equipment/clsEquipment_Manager.h"

#include "core/CompanySession.h"
#include "core/Permission.h"
#include "equipment/DocumentStore.h"
#include "parts/clsPart.h"

using namespace Qt::StringLiterals;

namespace {

clsEquipment bareMachine(qint64 id, const QString &unit)
{
    clsEquipment machine;
    machine.EquipmentID = id;
    machine.UnitNo = unit;
    return machine;
}

QMap<QString, QString> storedRow(qint64 id)
{
    QMap<QString, QString> row;
    const db::Recordset rows =
        gcnData->Open(u"select * from tblEquipment where EquipmentID = ?"_s, {id});
    for (int column = 0; column < rows.columnCount(); ++column)
        row.insert(rows.columnName(column), base::toText(rows.value(0, column)));
    return row;
}

/// Where a machine gathers rows, with the column that holds its number.
constexpr const char *Gathered[] = {
    "tblEquipment",      "tblEquipmentDepreciation", "tblEquipmentCrewHistory",
    "tblServiceUsed",    "tblWOServiceUsedHistory",  "tblEquipmentPart",
    "tblEquipmentCount", "tblEquipmentImage",        "tblEquipmentDocument",
    "tblEquipmentScan",
};

struct Machines : test::CompanySession
{
    Machines() { gRights.EqAdd = gRights.EqMod = gRights.EqDel = true; }
    ~Machines() override { gRights = {}; }

    static qint64 count(const char *table, qint64 id)
    {
        return GetRecordCount(QString::fromLatin1(table), u"EquipmentID = %1"_s.arg(id));
    }
    /// A machine with a row in every table, its posted service under the number id + 500.
    static void addMachineWithAll(qint64 id)
    {
        for (const QString &row :
             {u"tblEquipment(EquipmentID,EquipmentName,UnitNo) values(%1,'m','U%1')"_s,
              u"tblEquipmentDepreciation(EquipmentID,EndofYear) values(%1,2020)"_s,
              u"tblEquipmentCrewHistory(EquipmentID,CrewNumber) values(%1,'1')"_s,
              u"tblServiceUsed(EquipmentID,Name) values(%1,'oil')"_s,
              u"tblServiceUsedPart(ServiceUsedID,PartID) select ServiceUsedID,'S%1' from "
              "tblServiceUsed where EquipmentID = %1"_s,
              u"tblEquipmentScan(EquipmentID,ScanStatus) values(%1,'In')"_s,
              u"tblWOServiceUsedHistory(EquipmentID,ServiceUsedID) values(%1,50%1)"_s,
              u"tblWoPartHistory(ServiceusedID,partID) values(50%1,'P')"_s,
              u"tblEquipmentPart(EquipmentID,PartID) values(%1,'P')"_s,
              u"tblEquipmentCount(EquipmentID,CountType) values(%1,'Hours')"_s,
              u"tblEquipmentImage(EquipmentID,ImageName) values(%1,'front')"_s,
              u"tblEquipmentDocument(EquipmentID,DocumentName) values(%1,'a.txt')"_s})
            gcnData->Execute(u"insert into "_s + row.arg(id));
        QDir().mkpath(documents::folder(id));
        test::writeFile(documents::path(id, u"a.txt"_s), {});
    }

    test::ScriptedPrompts prompts;
    clsEquipment_Manager manager;
};

} // namespace

TEST_F(Machines, EveryColumnIsReadAndWrittenAddedOrModified)
{
    ASSERT_TRUE(manager.SaveRecord(bareMachine(77, u"  M 12 "_s), Mode::Add));
    EXPECT_EQ(storedRow(77).value(u"UnitNo"_s), u"M 12");
    // No two columns hold the same, so that a value in a wrong one shows.
    const db::Recordset columns = gcnData->Open(u"select * from tblEquipment"_s);
    for (int column = 0; column < columns.columnCount(); ++column) {
        QVariant value = 400 + column;
        if (columns.columnKind(column) == sql::ColumnKind::Text)
            value = columns.columnName(column) == u"Inactive" ? 1 : 200 + column;
        else if (columns.columnKind(column) == sql::ColumnKind::Date)
            value = base::wallClock(QDate(2020, 1, 1).addDays(column));
        if (columns.columnName(column) != u"EquipmentID")
            gcnData->Execute(u"update tblEquipment set %1 = ?"_s.arg(columns.columnName(column)),
                             {value});
    }
    const QMap<QString, QString> full = storedRow(77);
    clsEquipment machine =
        clsEquipment_Manager::fromRow(gcnData->Open(u"select * from tblEquipment"_s).current());
    ASSERT_TRUE(manager.SaveRecord(bareMachine(77, u"M 12"_s), Mode::Modify));
    for (const Mode mode : {Mode::Add, Mode::Modify}) {
        machine.EquipmentID = mode == Mode::Add ? 78 : 77;
        machine.UnitNo = QString::number(machine.EquipmentID);
        ASSERT_TRUE(manager.SaveRecord(machine, mode));
        QMap<QString, QString> expected = full;
        expected[u"EquipmentID"_s] = expected[u"UnitNo"_s] = machine.UnitNo;
        const QMap<QString, QString> written = storedRow(machine.EquipmentID);
        for (const auto &[column, value] : expected.asKeyValueRange())
            EXPECT_EQ(written.value(column), value) << qPrintable(column);
    }
    EXPECT_EQ(storedRow(78).value(u"UnitNo"_s), u"78") << "only the machine's own row changes";
}

TEST_F(Machines, ADateThatWasNotGivenIsNull)
{
    ASSERT_TRUE(manager.SaveRecord(bareMachine(77, u"A"_s), Mode::Add));
    const db::Recordset rows = gcnData->Open(u"select * from tblEquipment"_s);
    for (int column = 0; column < rows.columnCount(); ++column)
        EXPECT_EQ(rows.value(0, column).isNull(), rows.columnKind(column) == sql::ColumnKind::Date)
            << rows.columnName(column).toStdString();
    EXPECT_TRUE(manager.DeleteRecord(77));
    EXPECT_TRUE(prompts.shown().empty()) << "without documents there is nothing to say";
}

TEST_F(Machines, ASaveThatFailsLeavesTheTransactionOpen)
{
    BeginTrans();
    ASSERT_TRUE(manager.SaveRecord(bareMachine(1, u"A"_s), Mode::Add));
    EXPECT_FALSE(manager.SaveRecord(bareMachine(1, u"B"_s), Mode::Add));
    EXPECT_EQ(errors.takeOne().ModuleName, u"Class Equipment manager");
    EXPECT_TRUE(gbInTransaction);
    EXPECT_TRUE(manager.SaveRecord(bareMachine(2, u"B"_s), Mode::Add));
    CommitTrans();
    EXPECT_EQ(storedRow(2).value(u"UnitNo"_s), u"B");
}

TEST_F(Machines, DeletingTakesAllThatAMachineHasGatheredAndNothingElse)
{
    addMachineWithAll(1);
    addMachineWithAll(2);
    ASSERT_TRUE(manager.DeleteRecord(1));
    EXPECT_FALSE(gbInTransaction);
    for (const char *table : Gathered) {
        EXPECT_EQ(count(table, 1), 0) << table;
        EXPECT_EQ(count(table, 2), 1) << table;
    }
    EXPECT_EQ(found(u"select ServiceusedID from tblWoPartHistory"_s), u"502");
    EXPECT_EQ(found(u"select PartID from tblServiceUsedPart"_s), u"S2");
    EXPECT_EQ(clsPartManager().CanDeletePart(u"S1"_s), QString());
    EXPECT_EQ(clsPartManager().CanDeletePart(u"S2"_s), u"ServiceUsed Part");
    EXPECT_FALSE(QDir(documents::folder(1)).exists());
    EXPECT_TRUE(QDir(documents::folder(2)).exists());
}

TEST_F(Machines, ThoseWhoMayNotChangeNothingWhateverTheRoad)
{
    addMachineWithAll(1);
    gRights = {};
    EXPECT_FALSE(manager.SaveRecord(bareMachine(2, u"B"_s), Mode::Add));
    EXPECT_FALSE(manager.SaveRecord(bareMachine(1, u"B"_s), Mode::Modify));
    EXPECT_FALSE(manager.DeleteRecord(1));
    for (const ErrorReport &report : errors.take())
        EXPECT_EQ(report.ErrNumber, rights::Refused::Number);
    EXPECT_EQ(found(u"select UnitNo from tblEquipment"_s), u"U1");
    EXPECT_TRUE(documents::exists(1, u"a.txt"_s));
}

TEST_F(Machines, ADeletionThatFailsHalfwayTakesNothing)
{
    addMachineWithAll(1);
    const auto other = database.open();
    other->BeginTrans();
    other->Execute(u"update tblEquipmentCount set CountValue = 5 where EquipmentID = 1"_s);
    EXPECT_FALSE(manager.DeleteRecord(1));
    EXPECT_EQ(errors.takeOne().ProcedureName, u"DeleteRecord");
    other->RollbackTrans();
    EXPECT_FALSE(gbInTransaction);
    for (const char *table : Gathered)
        EXPECT_EQ(count(table, 1), 1) << table;
    EXPECT_TRUE(documents::exists(1, u"a.txt"_s));
}
