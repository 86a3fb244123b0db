#include "equipment/ui/DateReading.h"

#include "core/ui/Joints.h"
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
    [[nodiscard]] test::ScreenDriver driver() const { return test::ScreenDriver(*screen); }
    void press(const char *button) const { driver().press(button); }
    [[nodiscard]] input::DateInput &date(const char *name) const
    {
        return driver().control<input::DateInput>(name);
    }
    grid::GridView &sheet() { return *screen->findChild<grid::GridView *>(); }
    int rowOf(qint64 id) { return sheet().rows().findRow(u"EquipmentID", id); }
    QString newDate(qint64 id) { return sheet().rows().text(rowOf(id), NewDate); }
    void addYear(qint64 id)
    {
        QTest::mouseClick(sheet().viewport(), Qt::LeftButton, {},
                          sheet().cellRect(rowOf(id), u"Select").center());
    }
    void expectEditing(bool editing)
    {
        for (const char *button : {"cmdUpdate", "cmdCancel"})
            EXPECT_EQ(driver().isShown(button), editing) << button;
        for (const char *button : {"cmdPrint", "cmdExit"})
            EXPECT_EQ(driver().isShown(button), !editing) << button;
        EXPECT_EQ(driver().isEnabled("cmdRefresh"), !editing);
        EXPECT_EQ(screen->isCloseEnabled(), !editing);
    }

    test::Joints joints;
    std::unique_ptr<DateReading> screen;
};

} // namespace

TEST_F(DateReadings, ListAYearUpToToday)
{
    show<frmInspectionDateReading>();
    EXPECT_EQ(sheet().objectName(), u"grdInspectiondate");
    EXPECT_EQ(sheet().rows().rowCount(), 2);
    EXPECT_EQ(date("datINPDateFrom").date(), QDate(2023, 3, 15));
    EXPECT_EQ(date("datINPDateTo").date(), QDate(2024, 3, 15));
    expectEditing(false);
    date("datINPDateFrom").setDate(QDate(2023, 3, 14));
    press("cmdRefresh");
    EXPECT_EQ(sheet().rows().rowCount(), 3);
    // The range is kept for the workstation.
    press("cmdExit");
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
    EXPECT_EQ(newDate(1), u"02/28/2025");
    press("cmdUpdate");
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
    EXPECT_EQ(newDate(2), u"06/02/2023");
    prompts.say(u"New Inspection date should be greater than old Inspection Date(6/1/2023)."_s);
    test::typeInCell(sheet(), rowOf(2), NewDate, u"06/01/2023"_s);
    EXPECT_EQ(newDate(2), QString());
    addYear(1);
    QTest::keyClick(screen.get(), Qt::Key_Escape);
    expectEditing(true);
    press("cmdCancel");
    expectEditing(false);
    EXPECT_EQ(newDate(1), QString());
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
    press("cmdUpdate");
    expectEditing(true);
    EXPECT_EQ(stored(2), QDate(2023, 6, 1));
    other->RollbackTrans();
    press("cmdUpdate");
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
    press("cmdUpdate");
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
    press("cmdUpdate");
    EXPECT_EQ(stored(2, u"LicenseRenewalDate"_s), QDate(2024, 6, 1));
    EXPECT_EQ(stored(2), QDate(2023, 6, 1));
    press("cmdPrint");
    EXPECT_EQ(filter, u" WHERE LicenseRenewalDate >= #03-15-2023# and LicenseRenewalDate <= "
                      "#03-15-2024#");
    date("datLICDateTo").setDate(QDate());
    prompts.say(u"Please enter valid date."_s);
    press("cmdRefresh");
    press("cmdExit");
    EXPECT_EQ(GetOption(u"LicenseDateFrom"_s, true), u"03/15/2023");
    EXPECT_EQ(GetOption(u"LicenseDateTo"_s, true), QString());
    // Without its report the button is off.
    openings() = {};
    show<frmInspectionDateReading>();
    EXPECT_FALSE(driver().isEnabled("cmdPrint"));
}
