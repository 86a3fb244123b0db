#include "equipment/ui/DateReading.h"

#include "core/ui/Openings.h"
#include "equipment/ui/PageTest.h"
#include "equipment/ui/frmInspectionDateReading.h"
#include "equipment/ui/frmLicenseDateReading.h"

using namespace Qt::StringLiterals;

namespace {

const QString NewDate = u"New Inspection Date"_s;

struct DateReadings : test::PageTest
{
    DateReadings()
    {
        addDated(1, {2024, 2, 29});
        addDated(2, {2023, 6, 1});
        addDated(3, {2023, 3, 14});
    }
    ~DateReadings() override
    {
        screen.reset();
        openings() = {};
        gRights = {};
    }

    static void addDated(qint64 id, QDate date)
    {
        addMachine(id, u"U%1"_s.arg(id));
        run(u"update tblEquipment set InspectionDate = ?, LicenseRenewalDate = ? where "
            "EquipmentID = ?"_s,
            {base::wallClock(date), base::wallClock(date), id});
    }
    static QDate stored(qint64 id, const QString &column = u"InspectionDate"_s)
    {
        return value(u"Select %1 from tblEquipment where EquipmentID = ?"_s.arg(column), {id})
            .toDateTime()
            .date();
    }
    template<class Form>
    void show()
    {
        screen = std::make_unique<Form>();
        test::bringUp(*screen);
    }
    template<class Control>
    Control &named(const QString &name)
    {
        return *screen->findChild<Control *>(name);
    }
    QPushButton &button(const QString &name) { return named<QPushButton>(name); }
    void press(const QString &name) { QTest::mouseClick(&button(name), Qt::LeftButton); }
    grid::GridView &sheet() { return *screen->findChild<grid::GridView *>(); }
    int rowOf(qint64 id) { return sheet().rows().findRow(u"EquipmentID", id); }
    void addYear(qint64 id)
    {
        QTest::mouseClick(sheet().viewport(), Qt::LeftButton, {},
                          sheet().cellRect(rowOf(id), u"Select").center());
    }
    void expectEditing(bool editing)
    {
        EXPECT_EQ(button(u"cmdUpdate"_s).isVisible(), editing);
        EXPECT_EQ(button(u"cmdCancel"_s).isVisible(), editing);
        EXPECT_EQ(button(u"cmdPrint"_s).isVisible(), !editing);
        EXPECT_EQ(button(u"cmdExit"_s).isVisible(), !editing);
        EXPECT_EQ(button(u"cmdRefresh"_s).isEnabled(), !editing);
        EXPECT_EQ(screen->isCloseEnabled(), !editing);
    }

    std::unique_ptr<DateReading> screen;
};

} // namespace

TEST_F(DateReadings, ListAYearUpToToday)
{
    show<frmInspectionDateReading>();
    EXPECT_EQ(sheet().objectName(), u"grdInspectiondate");
    EXPECT_EQ(sheet().rows().rowCount(), 2);
    EXPECT_EQ(named<input::DateInput>(u"datINPDateFrom"_s).date(), QDate(2023, 3, 15));
    EXPECT_EQ(named<input::DateInput>(u"datINPDateTo"_s).date(), QDate(2024, 3, 15));
    expectEditing(false);
    named<input::DateInput>(u"datINPDateFrom"_s).setDate(QDate(2023, 3, 14));
    press(u"cmdRefresh"_s);
    EXPECT_EQ(sheet().rows().rowCount(), 3);
    // The range is kept for the workstation.
    press(u"cmdExit"_s);
    EXPECT_EQ(GetOption(u"InspectionDateFrom"_s, true), u"03/14/2023");
    show<frmInspectionDateReading>();
    EXPECT_EQ(sheet().rows().rowCount(), 3);
}

TEST_F(DateReadings, AddOneYearAndSave)
{
    show<frmInspectionDateReading>();
    addYear(1);
    expectEditing(true);
    addYear(1);
    EXPECT_EQ(sheet().rows().text(rowOf(1), NewDate), u"02/28/2025");
    press(u"cmdUpdate"_s);
    expectEditing(false);
    EXPECT_EQ(stored(1), QDate(2025, 2, 28));
    EXPECT_EQ(stored(2), QDate(2023, 6, 1));
    // Its date lies beyond the range now.
    EXPECT_EQ(rowOf(1), -1);
}

TEST_F(DateReadings, ADateThatIsNotLaterIsRefusedAndCancelDropsTheNewOnes)
{
    show<frmInspectionDateReading>();
    EXPECT_EQ(sheet().currentColumn(), NewDate);
    prompts.say(u"Please enter valid date."_s);
    test::typeInCell(sheet(), rowOf(2), NewDate, u"06/32/2023"_s);
    test::typeInCell(sheet(), rowOf(2), NewDate, u"06022023"_s);
    EXPECT_EQ(sheet().rows().text(rowOf(2), NewDate), u"06/02/2023");
    prompts.say(u"New Inspection date should be greater than old Inspection Date(6/1/2023)."_s);
    test::typeInCell(sheet(), rowOf(2), NewDate, u"06/01/2023"_s);
    EXPECT_EQ(sheet().rows().text(rowOf(2), NewDate), QString());
    addYear(1);
    QTest::keyClick(screen.get(), Qt::Key_Escape);
    expectEditing(true);
    press(u"cmdCancel"_s);
    expectEditing(false);
    EXPECT_TRUE(sheet().rows().value(rowOf(1), NewDate).isNull());
    EXPECT_EQ(stored(1), QDate(2024, 2, 29));
}

TEST_F(DateReadings, AFailedSaveKeepsTheSheet)
{
    show<frmInspectionDateReading>();
    addYear(2);
    addYear(1);
    const auto other = database.open();
    other->BeginTrans();
    other->Execute(u"update tblEquipment set UnitNo = 'x' where EquipmentID = 1"_s);
    prompts.say(u"Another workstation is changing machine U1. Nothing was stored. Please try "
                "again in a moment."_s);
    press(u"cmdUpdate"_s);
    expectEditing(true);
    EXPECT_EQ(stored(2), QDate(2023, 6, 1));
    other->RollbackTrans();
    press(u"cmdUpdate"_s);
    EXPECT_EQ(stored(2), QDate(2024, 6, 1));
    EXPECT_EQ(stored(1), QDate(2025, 2, 28));
}

TEST_F(DateReadings, WhatAnotherWorkstationHasChangedIsToldAndStays)
{
    addDated(4, {2024, 1, 5});
    addDated(5, {2024, 1, 6});
    show<frmInspectionDateReading>();
    for (const qint64 id : {1, 2, 4, 5})
        addYear(id);
    run(u"update tblEquipment set InspectionDate = #03/01/2024# where EquipmentID = 1"_s);
    run(u"update tblEquipment set InspectionDate = #01/06/2025# where EquipmentID = 5"_s);
    run(u"delete from tblEquipment where EquipmentID = 4"_s);
    prompts.say(u"Another workstation has changed these machines meanwhile. Their new dates "
                "were not stored:\n\nU1: yours \"2/28/2025\", theirs \"3/1/2024\"\nU4 has "
                "been deleted."_s);
    press(u"cmdUpdate"_s);
    expectEditing(false);
    EXPECT_EQ(stored(1), QDate(2024, 3, 1));
    EXPECT_EQ(stored(2), QDate(2024, 6, 1));
    EXPECT_EQ(sheet().rows().text(rowOf(1), u"InspectionDate"_s), u"03/01/2024");
}

TEST_F(DateReadings, LicensesHaveTheirOwnColumnOptionsAndReport)
{
    QString filter;
    gRights.LicRenDateReading = true;
    openings().join(u"ShowEquipmentLicenseReport"_s,
                    [&](const OpeningArguments &asked) { filter = asked.query; });
    show<frmLicenseDateReading>();
    EXPECT_EQ(screen->objectName(), u"frmLicenseDateReading");
    EXPECT_EQ(sheet().objectName(), u"grdLicensedate");
    addYear(2);
    press(u"cmdUpdate"_s);
    EXPECT_EQ(stored(2, u"LicenseRenewalDate"_s), QDate(2024, 6, 1));
    EXPECT_EQ(stored(2), QDate(2023, 6, 1));
    press(u"cmdPrint"_s);
    EXPECT_EQ(filter, u" WHERE LicenseRenewalDate >= #03-15-2023# and LicenseRenewalDate <= "
                      "#03-15-2024#");
    named<input::DateInput>(u"datLICDateTo"_s).setDate(QDate());
    prompts.say(u"Please enter valid date."_s);
    press(u"cmdRefresh"_s);
    press(u"cmdExit"_s);
    EXPECT_EQ(GetOption(u"LicenseDateFrom"_s, true), u"03/15/2023");
    EXPECT_EQ(GetOption(u"LicenseDateTo"_s, true), QString());
    // Without its report the button is off.
    openings() = {};
    show<frmInspectionDateReading>();
    EXPECT_FALSE(button(u"cmdPrint"_s).isEnabled());
}
