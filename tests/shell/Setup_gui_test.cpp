#include "administration/SecondPlace.h"
#include "core/ui/FormLayout.h"
#include "core/ui/ScreenDriver.h"
#include "shell/Setup.h"
#include "shell/ShellSession.h"
#include "shell/ui/frmSetup.h"

#include <QTabWidget>

using namespace Qt::StringLiterals;
using test::ScreenDriver;

namespace {

struct Setup : test::ShellSession
{
    Setup() { test::bringUp(screen); }

    void page(int index) { driver.control<QTabWidget>("tabOptions").setCurrentIndex(index); }
    bool canApply() const { return driver.control("cmdApply").isEnabled(); }

    frmSetup screen;
    ScreenDriver driver{screen};
};

} // namespace

TEST_F(Setup, StoresOnlyWhatWasChanged)
{
    EXPECT_FALSE(canApply());
    driver.type("txtCompanyName", u"Greenways"_s);
    // Another workstation changes an option that this screen still shows as it was.
    SetOption(u"SERVICE_LATE_RED"_s, u"21"_s, false);
    driver.press("cmdApply");
    EXPECT_FALSE(canApply());
    EXPECT_EQ(GetOption(u"GEN_COMPANY_NAME"_s, false), u"Greenways"_s);
    EXPECT_EQ(GetOption(u"SERVICE_LATE_RED"_s, false), u"21"_s);
}

TEST_F(Setup, EveryOptionHasItsBoxAndComesBack)
{
    int number = 0;
    for (const QStringView option : shell::companyOptions())
        SetOption(option.toString(), QString::number(++number), false);
    frmSetup opened;
    const ScreenDriver boxes(opened);
    QStringList shown;
    for (int field = 1; field <= 10; ++field)
        shown.append(boxes.text(qPrintable(u"txtField%1"_s.arg(field))));
    for (const char *box :
         {"txtCompanyName", "txtCompanyAddress1", "txtCompanyAddress2", "txtCompanyEmail",
          "txtCompanyWebSite", "txtCountReadingDelay", "txtServiceLateYellow", "txtServiceLateRed"})
        shown.append(boxes.text(box));
    // The fourteenth is the phone number, of which three digits are none.
    EXPECT_EQ(shown.join(u' '), u"1 2 3 4 5 6 7 8 9 10 11 12 13 15 16 17 18 19"_s);
}

TEST_F(Setup, CancelReadsAgainAndReturnLosesWithoutAQuestion)
{
    const QString former = driver.text("txtCompanyEmail");
    driver.type("txtCompanyEmail", u"office@greenways.example"_s);
    driver.press("cmdCancel");
    EXPECT_EQ(driver.text("txtCompanyEmail"), former);
    EXPECT_FALSE(canApply());
    driver.type("txtCompanyEmail", u"office@greenways.example"_s);
    driver.press("cmdExit");
    EXPECT_FALSE(screen.isVisible());
    EXPECT_EQ(GetOption(u"GEN_COMPANY_EMAIL"_s, false), former);
}

TEST_F(Setup, ABlankCaptionOfAFreeFieldBecomesTheUsualOne)
{
    page(1);
    driver.type("txtField3", u"  "_s);
    driver.control("txtField4").setFocus();
    EXPECT_EQ(driver.text("txtField3"), u"User Field3"_s);
    driver.press("cmdOk");
    EXPECT_EQ(GetOption(u"UserDefinedField3"_s, false), u"User Field3"_s);
}

TEST_F(Setup, APhoneNumberWithoutItsDigitsIsNeitherLeftNorStored)
{
    driver.control("txtCompanyPhone").setFocus();
    QTest::keyClicks(&driver.control("txtCompanyPhone"), u"555"_s);
    prompts.inform(u"Invalid phone No."_s);
    // As a hand does it: the window comes to itself between press and release.
    QTest::mousePress(&driver.control("cmdApply"), Qt::LeftButton);
    QCoreApplication::processEvents();
    QTest::mouseRelease(&driver.control("cmdApply"), Qt::LeftButton);
    EXPECT_TRUE(driver.control("txtCompanyPhone").hasFocus());
    EXPECT_EQ(GetOption(u"GEN_COMPANY_PHONE"_s, false), QString());
    driver.press("cmdCancel");
}

TEST_F(Setup, SecurityIsStoredWithTheWordToRestart)
{
    for (const bool on : {true, false}) {
        prompts.inform(u"To enable/disable passwords please close and restart the program"_s);
        driver.control<QCheckBox>("chkSecurity").setChecked(on);
        driver.press("cmdApply");
        EXPECT_EQ(GetOption(u"SECURITYONOFF"_s, false), on ? u"1"_s : u"0"_s);
    }
}

TEST_F(Setup, AnOptionThatAnotherProgramHoldsStaysChanged)
{
    driver.type("txtCompanyName", u"Greenways"_s);
    gcnData->BeginTrans();
    gcnData->Execute(
        u"Update tblSysOption set itemValue = 'x' where SysOption = 'GEN_COMPANY_NAME'"_s);
    driver.press("cmdApply");
    gcnData->RollbackTrans();
    EXPECT_NE(errors.takeOne().ErrNumber, 0);
    EXPECT_TRUE(canApply());
    driver.press("cmdApply");
    EXPECT_EQ(GetOption(u"GEN_COMPANY_NAME"_s, false), u"Greenways"_s);
}

TEST_F(Setup, TheWorkstationHasItsWindowsAndThePaperOfReports)
{
    SetOption(u"HEIGHTfrmEquipment"_s, 100, true);
    SetOption(u"LEFTfrmFilterScreen"_s, 7, true);
    page(3);
    driver.press("cmdDefaultFormSize");
    QStringList stored;
    for (const auto &measure : {u"HEIGHTfrmEquipment"_s, u"LEFTfrmEquipment"_s, u"TOPfrmCrew"_s,
                                u"WIDTHfrmSetup"_s, u"LEFTfrmFilterScreen"_s})
        stored.append(GetOption(measure, true));
    // A form without a place of its own keeps the one it has.
    EXPECT_EQ(stored.join(u' '), u"7425 2180 3855 7965 7"_s);
    driver.choose("cboPaper", u"A4"_s);
    driver.press("cmdOk");
    EXPECT_EQ(GetOption(u"REPORT PAPER"_s, true), u"A4"_s);
    EXPECT_EQ(GetOption(u"REPORT PAPER"_s, false), QString());
}

TEST_F(Setup, TheRuleOfCopiesHasItsPage)
{
    const QString folder = environment.folder();
    QDir().mkpath(copies::startCopiesFolder());
    test::writeFile(copies::startCopiesFolder() + u'/' + copies::nameOfDay({2024, 3, 14}), "a day");
    frmSetup opened;
    opened.show();
    const ScreenDriver boxes(opened);
    boxes.control<QTabWidget>("tabOptions").setCurrentIndex(7);
    EXPECT_EQ(boxes.control<QLabel>("lblNewestCopy").text(), u"Thursday, 03-14-2024"_s);
    EXPECT_TRUE(boxes.control<QCheckBox>("chkDailyCopy").isChecked());
    EXPECT_FALSE(boxes.isEnabled("cmdApply"));
    boxes.type("spnDays", u"5"_s);
    boxes.type("spnMonths", u"3"_s);
    boxes.type("spnRestores", u"2"_s);
    prompts.expectChooser(u"Please choose a second place for the copies"_s, folder);
    boxes.press("cmdSecondPlace");
    boxes.press("cmdApply");
    EXPECT_EQ(copies::keepRuleOf(*gcnLookup), (copies::KeepRule{5, 4, 3, 2}));
    EXPECT_EQ(administration::secondPlace(), folder);
    boxes.control<QCheckBox>("chkDailyCopy").click();
    boxes.press("cmdOk");
    EXPECT_EQ(copies::keepRuleOf(*gcnLookup), (copies::KeepRule{5, 4, 3, 2, false}));
}
