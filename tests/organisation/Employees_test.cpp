#include "organisation/MasterSession.h"
#include "organisation/ui/Entries.h"

using namespace Qt::StringLiterals;
using test::inRecords;
using test::opening;
using test::ScreenDriver;

namespace {

struct Employees : test::MasterSession
{
    Employees()
    {
        const qint64 crew = CompanySession::insert(u"tblCrew"_s, u"CrewNumber,Description"_s,
                                                   {1, u"Mowing"_s}, u"CrewID"_s);
        CompanySession::insert(u"tblEmployee"_s,
                               u"EmployeeID,FirstName,Crew,LaborCost,Inactive,IncludeWoList"_s,
                               {u"E1"_s, u"Ann"_s, crew, 20, 0, 1});
        CompanySession::insert(u"tblServiceUsed"_s, u"CrewID,LaborEstimate,CostEstimate"_s,
                               {crew, 2, 40});
    }

    static QString estimate() { return value(u"Select CostEstimate from tblServiceUsed"_s); }

    const QString question =
        u"Do you to update all the labor costs in every service that this employee is assiged "
        "to.?"_s;
};

} // namespace

TEST_F(Employees, ANewOneNeedsANumberOfItsOwnAndAFirstName)
{
    inRecords(opening(ShowEmployeeDetail, Mode::Add, u"0"_s), [this](ScreenDriver screen) {
        EXPECT_EQ(screen.text("cboCountry"), u"United States"_s);
        EXPECT_GT(screen.control<QComboBox>("cboState").count(), 50);
        expectRefusals(screen,
                       {{u"Employee Number should not be blank."_s, "txtEmployeeID", u"e-1"_s},
                        {u"Employee's first name should not be blank."_s, "txtFirstName", u"Bo"_s},
                        {u"Employee Number you specified already exists. Please enter a different "
                         "Employee Number."_s,
                         "txtEmployeeID", u"e2"_s}});
        screen.type("txtSS", u"12-3a4"_s);
        EXPECT_EQ(screen.text("txtSS"), u"1234"_s);
        screen.control<QPlainTextEdit>("txtSkills").insertPlainText(u"x"_s.repeated(300));
        screen.press("cmdUpdate");
        EXPECT_EQ(screen.text("txtEmployeeID"), u"E2"_s);
    });
    EXPECT_EQ(value(u"Select BirthDate from tblEmployee where EmployeeID = 'E2'"_s), QString());
}

TEST_F(Employees, AChangedLaborCostIsCarriedIntoTheServicesOfTheCrewOnYes)
{
    inRecords(opening(ShowEmployeeDetail, Mode::Browse, u"E1"_s), [this](ScreenDriver screen) {
        screen.type("txtLaborRate", u"99"_s);
        screen.press("cmdUpdate"); // the rate takes no part in it
        screen.type("txtLaborCost", u"30"_s);
        prompts.no(question);
        screen.press("cmdUpdate");
        EXPECT_EQ(estimate(), u"40"_s);
        // Touching the crew list asks, even when it ends on the same crew.
        screen.choose("cboCrew", u"1   Mowing"_s);
        prompts.yes(question);
        screen.press("cmdUpdate");
        EXPECT_EQ(estimate(), u"60"_s);
        // Leaving the average raises no question.
        screen.press("chkIncludeWoList");
        screen.press("cmdUpdate");
        EXPECT_EQ(estimate(), u"60"_s);
    });
    EXPECT_FALSE(gbInTransaction);
    EXPECT_EQ(value(u"Select IncludeWoList from tblEmployee"_s), u"0"_s);
}

TEST_F(Employees, AFailureInTheServicesTakesTheSaveBack)
{
    inRecords(opening(ShowEmployeeDetail, Mode::Browse, u"E1"_s), [this](ScreenDriver screen) {
        screen.type("txtLaborCost", u"30"_s);
        gcnData->Execute(u"Drop table tblWoServiceUsed"_s);
        prompts.yes(question);
        prompts.inform(u"Problem in changing Service Total Lobour cost."_s);
        screen.press("cmdUpdate");
        EXPECT_TRUE(screen.isShown("cmdCancel"));
        screen.press("cmdCancel");
        EXPECT_EQ(screen.text("txtLaborCost"), u"20.00"_s);
    });
    EXPECT_EQ(errors.take().size(), 1u);
    EXPECT_FALSE(gbInTransaction);
    EXPECT_EQ(value(u"Select LaborCost from tblEmployee"_s), u"20"_s);
    EXPECT_EQ(estimate(), u"40"_s);
}

TEST_F(Employees, ACountryHasItsOwnStates)
{
    const qint64 canada = insert(
        u"Insert into tblIndicator(ParentID,ItemName,Show) values(1,'Elbonia','1')"_s, u"ItemID"_s);
    gcnData->Execute(
        u"Insert into tblIndicator(ParentID,ItemName,Show) values(%1,'EL','1')"_s.arg(canada));
    inRecords(opening(ShowEmployeeDetail, Mode::Browse, u"E1"_s), [](ScreenDriver screen) {
        auto &states = screen.control<QComboBox>("cboState");
        EXPECT_EQ(states.count(), 1) << "only the blank row without a country";
        screen.choose("cboCountry", u"Elbonia"_s);
        EXPECT_EQ(states.count(), 2);
        EXPECT_GE(states.findText(u"EL"_s), 0);
    });
}
