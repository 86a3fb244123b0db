#include "core/Permission.h"
#include "core/RecordFields.h"
#include "platform/db/DbError.h"
#include "scheduling/Fleet.h"
#include "scheduling/Readings.h"
#include "scheduling/clsServices.h"

namespace {

using namespace Qt::StringLiterals;

struct clsServicesManagerTest : test::Fleet
{
    clsServicesManagerTest()
    {
        gRights.SerAdd = gRights.SerMod = gRights.SerDel = true;
        machine(1);
    }
    ~clsServicesManagerTest() override
    {
        gRights = {};
        readings::setFirstReadingAsker({});
    }

    static clsServices stored(ServiceStore store, qint64 key)
    {
        const db::Recordset rows =
            store == ServiceStore::Catalogue
                ? gcnData->Open(u"Select * from tblServices where ServiceID = ?"_s, {key})
                : gcnData->Open(u"Select * from tblServiceUsed where ServiceUsedID = ?"_s, {key});
        return clsServicesManager::fromRow(rows.current(), store);
    }
    /// A service under the key 55 with another value in each of its fields.
    static clsServices everyFieldDifferent()
    {
        clsServices service;
        int last = 0;
        for (const record::Field<clsServices> &field : clsServices::fields())
            std::visit(
                [&](auto member) {
                    using Value = std::decay_t<decltype(service.*member)>;
                    if constexpr (std::is_same_v<Value, QString>)
                        service.*member = QString::number(++last % 10);
                    else if constexpr (std::is_arithmetic_v<Value>)
                        service.*member = static_cast<Value>(++last);
                },
                field.member);
        service.ServiceID = 55;
        service.Name = u"Grease 'all' points"_s;
        service.SeparateWo = u"1"_s;
        service.LaborEstimate = 2.25;
        service.Note = u"It's hot"_s;
        return service;
    }
    clsServicesManager manager;
};

TEST_F(clsServicesManagerTest, EveryFieldComesBackFromBothStores)
{
    QStringList unknown;
    const std::vector<QStringView> fields = record::columns(clsServices::fields());
    const db::Recordset table = gcnData->Open(u"Select * from tblServices"_s);
    for (int column = 0; column < table.columnCount(); ++column)
        if (std::ranges::none_of(fields, [&](QStringView field) {
                return field.compare(table.columnName(column), Qt::CaseInsensitive) == 0;
            }))
            unknown.append(table.columnName(column));
    EXPECT_EQ(unknown, (QStringList{u"ServiceID"_s, u"NextScheduledDate"_s}));
    clsServices service = everyFieldDifferent();
    ASSERT_NE(service.Dece, service.Jan);
    ASSERT_TRUE(manager.SaveRecord(service, Mode::Add, ServiceStore::Catalogue));
    EXPECT_EQ(stored(ServiceStore::Catalogue, 55), service);
    service.Name = u"Grease"_s;
    service.Dece = 0;
    ASSERT_TRUE(manager.SaveRecord(service, Mode::Modify, ServiceStore::Catalogue));
    EXPECT_EQ(stored(ServiceStore::Catalogue, 55), service);

    service.ServiceID = assigned();
    ASSERT_TRUE(manager.SaveRecord(service, Mode::Modify, ServiceStore::Assigned,
                                   {.EquipmentID = 1,
                                    .NextScheduledDate = day(4, 1),
                                    .NextScheduledCount = 7,
                                    .Inactive = 1}));
    EXPECT_EQ(stored(ServiceStore::Assigned, service.ServiceID), service);
    const db::Recordset row = manager.GetServiceInfo(service.ServiceID, ServiceStore::Assigned);
    EXPECT_EQ(AssignedService::fromRow(row.row(0)).NextScheduledCount, 7);
    EXPECT_EQ(found(u"Select NextScheduledDate, NextScheduledCount, Inactive, LastDatePerformed, "
                    "ServiceID from tblServiceUsed"_s),
              u"4/1/2024|7|1|3/1/2024|100")
        << "the last two are not the screen's to change";
}

TEST_F(clsServicesManagerTest, AJobNumberReachesAssignedAndOrderedServicesButNotHistory)
{
    for (const int id : {100, 101})
        assigned({{u"ServiceID"_s, id}});
    insert(u"tblWoServiceUsed"_s, {{u"ServiceID"_s, 100}, {u"JobNo"_s, 1}});
    ASSERT_TRUE(manager.UpdateJobNoForAllService(100, 42));
    EXPECT_EQ(found(u"Select ServiceID, JobNo from tblServiceUsed order by ServiceID"_s),
              u"100|42\n101|1"_s);
    EXPECT_EQ(value(u"Select JobNo from tblWoServiceUsed"_s), 42);
}

TEST_F(clsServicesManagerTest, DeletesAServiceWithItsParts)
{
    catalogue(55);
    catalogue(56);
    for (const int id : {55, 56})
        insert(u"tblServicesPart"_s, {{u"ServiceID"_s, id}, {u"PartID"_s, u"F1"_s}});
    assigned({{u"ServiceID"_s, 56}});
    EXPECT_EQ(manager.CanDeletePart(55), QString());
    EXPECT_EQ(manager.CanDeletePart(56), u"Service Used"_s);
    ASSERT_TRUE(manager.DeleteRecord(55));
    EXPECT_EQ(found(u"Select ServiceID from tblServices"_s), u"56"_s);
    EXPECT_EQ(found(u"Select ServiceID from tblServicesPart"_s), u"56"_s);

    failAt(u"tblServicesPart"_s);
    EXPECT_FALSE(manager.DeleteRecord(56));
    failAt({});
    (void)errors.takeOne();
    EXPECT_EQ(count(u"tblServices"_s), 1) << "a service goes with its parts or not at all";
}

TEST_F(clsServicesManagerTest, TheFirstReadingIsWhereACountServiceCountsFrom)
{
    readings::setFirstReadingAsker(
        [this](qint64 equipment, qint64, const QString &name, QString &type) {
            EXPECT_EQ(name, u"Oil change"_s);
            readings::add(equipment, day(3, 12), type, 500);
            return true;
        });
    clsServices service =
        stored(ServiceStore::Assigned, assigned({{u"Period"_s, u"H"_s}, {u"EInterval"_s, 100}}));
    ASSERT_TRUE(manager.SaveRecord(service, Mode::Modify, ServiceStore::Assigned,
                                   {.EquipmentID = 1, .NextScheduledCount = 100}));
    EXPECT_EQ(found(u"Select NextScheduledCount, NextScheduledDate from tblServiceUsed"_s),
              u"600|"_s)
        << "the reading reached the target of before, which doesn't count";
}

TEST_F(clsServicesManagerTest, EveryKindOfCountAsksForItsFirstReadingAndLeavesAGivenDate)
{
    QStringList asked;
    readings::setFirstReadingAsker([&](qint64, qint64, const QString &, const QString &type) {
        asked.append(type);
        return false;
    });
    for (const QString &period : {u"C"_s, u"H"_s, u"K"_s, u"I"_s, u"D"_s}) {
        clsServices service =
            stored(ServiceStore::Assigned, assigned({{u"Period"_s, period}, {u"EInterval"_s, 0}}));
        for (int saves = 0; saves < 2; ++saves)
            ASSERT_TRUE(manager.SaveRecord(
                service, Mode::Modify, ServiceStore::Assigned,
                {.EquipmentID = 1, .NextScheduledDate = day(4, 1), .NextScheduledCount = 0}));
    }
    EXPECT_EQ(asked, (QStringList{u"Counts"_s, u"Hours"_s, u"Kilometers"_s, u"Miles"_s}));
    EXPECT_EQ(count(u"tblEquipmentCount"_s, u"CountValue = 0 and ChangeDate = #03/15/2024#"_s), 4)
        << "none was given, so each counts from 0";
    EXPECT_EQ(count(u"tblServiceUsed"_s, u"NextScheduledDate = #04/01/2024#"_s), 5)
        << "the meters have reached the targets, but the dates were given";
}

TEST_F(clsServicesManagerTest, ThoseWhoMayNotChangeNothingWhateverTheRoad)
{
    clsServices service = stored(ServiceStore::Catalogue, catalogue(55));
    service.Name = u"Grease"_s;
    gRights = {};
    EXPECT_FALSE(manager.SaveRecord(service, Mode::Modify, ServiceStore::Catalogue));
    EXPECT_FALSE(manager.DeleteRecord(55));
    service.ServiceID = 56;
    EXPECT_FALSE(manager.SaveRecord(service, Mode::Add, ServiceStore::Catalogue));
    for (const ErrorReport &report : errors.take())
        EXPECT_EQ(report.ErrNumber, rights::Refused::Number);
    EXPECT_EQ(found(u"Select ServiceID, Name from tblServices"_s), u"55|Oil change");
}

TEST_F(clsServicesManagerTest, ARefusedWriteIsReportedAndFalse)
{
    clsServices service = everyFieldDifferent();
    service.Name = QString(101, u'x');
    EXPECT_FALSE(manager.SaveRecord(service, Mode::Add, ServiceStore::Catalogue));
    EXPECT_EQ(service.ServiceID, 55) << "only a taken key is tried again with another one";
    failAt(u"Update"_s);
    EXPECT_FALSE(manager.UpdateJobNoForAllService(100, 42));
    EXPECT_FALSE(manager.SaveServiceUsedRecord(1, {}, {}, {}));
    failAt({});
    EXPECT_EQ(errors.take().size(), 3u);
}

TEST_F(clsServicesManagerTest, AKeyThatIsAlwaysTakenIsGivenUpAfterTenTries)
{
    int tries = 0;
    gcnData->setObserver([&](const db::Sent &sent) {
        if (!sent.statement.startsWith(u"insert", Qt::CaseInsensitive))
            return;
        ++tries;
        throw db::DbError(db::ErrorNumber::DuplicateKey, u"taken"_s);
    });
    clsServices service = everyFieldDifferent();
    EXPECT_FALSE(manager.SaveRecord(service, Mode::Add, ServiceStore::Catalogue));
    gcnData->setObserver({});
    EXPECT_EQ(errors.takeOne().ErrNumber, db::ErrorNumber::DuplicateKey);
    EXPECT_EQ(tries, 10);
    EXPECT_EQ(service.ServiceID, 315093000 + 8) << "the moment's key, then those behind it";
}

TEST_F(clsServicesManagerTest, TheDatesOfAnAssignedServiceAreSetOrEmptied)
{
    const qint64 id = assigned({{u"EInterval"_s, QVariant()}});
    ASSERT_TRUE(manager.SaveServiceUsedRecord(id, day(2, 1), {}, day(4, 1)));
    EXPECT_EQ(
        found(
            u"Select LastDateScheduled, LastDatePerformed, NextScheduledDate from tblServiceUsed"_s),
        u"2/1/2024||4/1/2024");
    EXPECT_EQ(stored(ServiceStore::Assigned, id).EInterval, 1) << "of one that it lacks";
}

} // namespace
