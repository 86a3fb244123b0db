#include "core/OpeningTable.h"
#include "core/Options.h"
#include "core/ui/Openings.h"
#include "organisation/MasterSession.h"
#include "platform/base/Environment.h"
#include "platform/input/DateInput.h"
#include "reporting/ui/FilterEntries.h"
#include "reporting/ui/FilterScreen.h"
#include "support/TestFiles.h"

#include <QComboBox>
#include <QDir>

using namespace Qt::StringLiterals;
using test::inScreen;
using test::ScreenDriver;

namespace {

/// Does what a user does to controls: "txtSite=Yard; cboInactive=Yes; cmdReset" types into a line,
/// takes an item, and presses.
void work(const ScreenDriver &screen, const QString &steps)
{
    for (const QString &step : steps.split(u"; "_s, Qt::SkipEmptyParts)) {
        const QByteArray control = step.section(u'=', 0, 0).toLatin1();
        if (qobject_cast<QAbstractButton *>(&screen.control(control)))
            screen.press(control);
        else if (qobject_cast<QComboBox *>(&screen.control(control)))
            screen.choose(control, step.section(u'=', 1));
        else
            screen.type(control, step.section(u'=', 1));
    }
}

std::string told(const catalogue::Request &asked)
{
    QStringList lines{asked.layout, asked.filter, asked.asked};
    for (const auto &[name, text] : asked.texts.asKeyValueRange())
        lines.append(name + u'=' + text);
    for (const auto &[name, text] : asked.formulas.asKeyValueRange())
        lines.append(name + u'=' + text);
    return lines.join(u'\n').toStdString();
}

/// The filter screens over a company with three machines, and a report that only notes what it was
/// asked for.
class FilterScreens : public test::MasterSession
{
protected:
    FilterScreens()
    {
        joinFilterScreens();
        for (const Opening &row : openingTable())
            if (row.right)
                gRights.*row.right = true;
        filteredReport() = [this](const catalogue::Request &asked) {
            m_asked = asked;
            return true;
        };
        const QString columns = u"EquipmentID,UnitNo,EquipmentName"_s;
        CompanySession::insert(u"tblEquipment"_s, columns, {1, u"A-1"_s, u"Mower"_s});
        CompanySession::insert(u"tblEquipment"_s, columns, {2, u"O'2"_s, u"Blower"_s});
        CompanySession::insert(u"tblEquipment"_s, columns, {3, u"B-1"_s, u"Rake"_s});
    }
    ~FilterScreens() override
    {
        filteredReport() = m_real;
        openings() = {};
        gRights = {};
    }

    /// Works a screen, and leaves it by Exit unless it has closed.
    static void open(const QString &name, const std::function<void(ScreenDriver)> &act)
    {
        inScreen([&] { openings().open(name); },
                 [&](const ScreenDriver &screen) {
                     act(screen);
                     if (screen.isOpen())
                         screen.press("cmdExit");
                 });
    }
    /// What is asked for after these steps; the screen closes.
    catalogue::Request askedBy(const QString &name, const QString &steps)
    {
        m_asked = {};
        open(name, [&](const ScreenDriver &screen) {
            work(screen, steps);
            screen.press("cmdViewReport");
            EXPECT_FALSE(screen.isOpen()) << name.toStdString();
        });
        return m_asked;
    }

    std::function<bool(const catalogue::Request &)> m_real = filteredReport();
    catalogue::Request m_asked;
    /// What the date fields begin with.
    const filters::DateRange year{{2023, 3, 15}, {2024, 3, 15}};
};

} // namespace

TEST_F(FilterScreens, AskForTheReportOfTheirFields)
{
    using namespace filters;
    const DateRange typed{{2024, 1, 2}, {2024, 2, 3}};
    const Machines someMachines{.units = u"A-1,B-1"_s, .inactive = true};
    const QString units = u"txtUnitNo=A-1,B-1; chkInactive"_s;
    const struct
    {
        QString name;
        QString steps;
        catalogue::Request expected;
    } cases[] = {
        {u"ShowEquipmentServices"_s, units, equipmentServicesRequest(someMachines)},
        {u"ShowEquipmentExpense"_s, units, equipmentExpenseRequest(someMachines)},
        {u"ShowEquipmentDetails"_s, units, equipmentDetailsRequest(someMachines)},
        {u"ShowEquipmentDetails"_s, {}, equipmentDetailsRequest({})},
        {u"ShowServiceHistoryTimes"_s,
         u"dtpCompleteDateF=01022024; dtpCompleteDateT=02032024; txtSHEquipment=Rake; optDate"_s,
         request(HistoryTimes{.completed = typed, .names = u"Rake"_s, .byDate = true})},
        {u"ShowServiceHistoryTimes"_s, u"optDate; optEquipment"_s,
         request(HistoryTimes{.completed = typed})},
        {u"ShowInventoryPartHistory"_s, u"txtPartH=P"_s,
         request(PartHistory{
             .completed = year, .parts = u"P"_s, .form = PartHistoryForm::DetailByDate})},
        {u"ShowInventoryPartHistory"_s, u"dtpPdateF=01022024; dtpPdateT=02032024; optPartNumber"_s,
         request(PartHistory{.completed = typed, .form = PartHistoryForm::DetailByPart})},
        {u"ShowInventoryPartHistory"_s, u"optSummary"_s,
         request(PartHistory{.completed = typed, .form = PartHistoryForm::Summary})},
        {u"ShowInventoryPartUsage"_s, u"txtPartIPU=P'1"_s, partUsageRequest(u"P'1"_s)},
        {u"ShowInventryDetails"_s, u"txtPartCategory=Oil; txtSupplier=X; cboInactive=Yes"_s,
         request(Parts{.categories = u"Oil"_s, .suppliers = u"X"_s, .inactive = true})},
        {u"ShowInventryDetails"_s, {}, request(Parts{})},
        {u"ShowInventoryOrderUpCommingServices"_s,
         u"dtpInvFrom=01022024; dtpInvTo=02032024; txtInv_Supplier=X"_s,
         request(UpcomingParts{.due = typed, .suppliers = u"X"_s})},
        {u"ShowInventoryReorder"_s, u"txtPartCategoryIn=Oil; txtSupplierIn=X; optPostedPartWO"_s,
         request(Reorder{.categories = u"Oil"_s, .suppliers = u"X"_s, .lessOrders = true})},
        {u"ShowInventoryReorder"_s, {}, request(Reorder{})},
        {u"ShowEquipmentCrewHistory"_s, u"txtEquipment=Rake; txtCrewNo=a1, 2x"_s,
         request(CrewHistory{.names = u"Rake"_s, .crews = u"1,2"_s})},
        {u"ShowInspectionDateReading"_s, {}, inspectionRequest(year)},
        {u"ShowLicenseDateReading"_s, u"datLICDateFrom=01022024; datLICDateTo=02032024"_s,
         licenseRequest(typed)},
        {u"frmEquipmentListReport"_s, u"txtType=Mower; txtCrew=1; txtSite=Yard; chkgrouponsite"_s,
         request(EquipmentList{
             .types = u"Mower"_s, .crews = u"1"_s, .sites = u"Yard"_s, .groupOnSite = true})},
        {u"frmEquipmentListReport"_s, u"cmbversion=Version 6; chkInactive"_s,
         request(EquipmentList{.version = ListVersion::Six, .inactive = true})},
        {u"frmEquipmentListLandScape"_s, u"txtType=Mower; txtCrew=1"_s,
         wideListRequest(u"Mower"_s, u"1"_s)},
        {u"frmServiceHistory"_s,
         u"dtpCompleteDateF=01022024; dtpCompleteDateT=02032024; txtSHUnitNo=A-1"_s,
         request(ServiceHistory{.completed = typed, .units = u"A-1"_s})},
        {u"frmServiceHistory"_s, u"chkgrouponsite; txtSite=Yard"_s,
         request(
             ServiceHistory{.completed = typed, .sites = u"Yard"_s, .group = HistoryGroup::Site})},
        {u"frmServiceHistory"_s, u"chkgrouponCrew"_s,
         request(ServiceHistory{.completed = typed, .group = HistoryGroup::Crew})},
        {u"frmScanHistory"_s, u"txtSHUnitNo=A-1; optScanTime"_s,
         request(Scans{.scanned = year, .units = u"A-1"_s, .byTime = true})},
        {u"frmScanHistory"_s, u"optByDays; txtNoofdays=1x0"_s,
         request(NotScanned{.today = year.to, .days = u"10"_s})},
        {u"frmEquipmentUtilization"_s, u"txtEQUTType=Mower; txtEQUTCrew=1"_s,
         request(Utilization{.read = year, .types = u"Mower"_s, .crews = u"1"_s})},
        {u"frmEquipmentUtilization"_s, u"chkEquipment; txtEQUTUnitNo=A-1"_s,
         request(SingleUtilization{.read = year, .units = u"A-1"_s})},
        {u"frmWorkorderhistoryReport"_s, u"txtSHUnitNo=A-1; txtWo=1-11, 21x"_s,
         request(WorkorderHistory{.units = u"A-1"_s, .numbers = u"1-11,21"_s})},
        {u"frmWorkorderhistoryReport"_s, u"optsummary"_s,
         request(WorkorderHistory{.summary = true})},
    };
    for (const auto &each : cases)
        EXPECT_EQ(told(askedBy(each.name, each.steps)), told(each.expected))
            << each.name.toStdString();
}

TEST_F(FilterScreens, BeginWhereTheWorkstationLeftTheDates)
{
    // Exit is as good as a report.
    open(u"frmScanHistory"_s,
         [](const ScreenDriver &screen) { screen.type("dtpScanDateF", u"01022024"_s); });
    EXPECT_EQ(GetOption(u"SCAN hISTORY REPORT DATE FROM"_s, true), u"01/02/2024"_s);
    EXPECT_EQ(GetOption(u"SCAN hISTORY REPORT DATE TO"_s, true), u"03/15/2024"_s);
    EXPECT_EQ(GetOption(u"SERVICE hISTORY REPORT DATE FROM"_s, true), QString());
    open(u"frmScanHistory"_s, [](const ScreenDriver &screen) {
        EXPECT_EQ(screen.text("dtpScanDateF"), u"01/02/2024"_s);
        // What can't be read leaves what was kept.
        screen.control<input::DateInput>("dtpScanDateF").setDate(QDate());
    });
    EXPECT_EQ(GetOption(u"SCAN hISTORY REPORT DATE FROM"_s, true), u"01/02/2024"_s);

    open(u"ShowInspectionDateReading"_s, [](const ScreenDriver &screen) {
        EXPECT_EQ(screen.text("datINPDateFrom"), u"03/15/2023"_s);
        screen.type("datINPDateTo", u"02032024"_s);
    });
    EXPECT_EQ(GetOption(u"InspectionDateToReport"_s, true), u"02/03/2024"_s);
    EXPECT_EQ(GetOption(u"LicenseDateToReport"_s, true), QString());
    EXPECT_NE(GetOption(u"HEIGHTfrmFilterScreen"_s, true), QString());
}

TEST_F(FilterScreens, EmptyTheirLinesOnReset)
{
    open(u"ShowInventryDetails"_s, [](const ScreenDriver &screen) {
        EXPECT_EQ(screen.screen().windowTitle(), u"Inventroy Details"_s);
        EXPECT_EQ(screen.text("lblCaption"), u"List of Inventroy Details"_s);
        work(screen, u"txtPartCategory=Oil; txtSupplier=X; cboInactive=Yes; cmdReset"_s);
        EXPECT_EQ(screen.text("txtPartCategory"), QString());
        EXPECT_EQ(screen.text("txtSupplier"), QString());
        EXPECT_EQ(screen.text("cboInactive"), u"No"_s);
    });
    open(u"frmWorkorderhistoryReport"_s, [](const ScreenDriver &screen) {
        work(screen, u"txtWo=5; optsummary; cmdReset"_s);
        EXPECT_EQ(screen.text("txtWo"), QString());
        EXPECT_TRUE(screen.control<QAbstractButton>("optsummary").isChecked());
    });
}

TEST_F(FilterScreens, FillTheirLinesFromPickLists)
{
    const auto tickFirst = [](const QStringList &offered) {
        return [offered](const ScreenDriver &list) {
            EXPECT_EQ(list.text("lblTitle"), u" UnitNo/Equipment Name"_s);
            EXPECT_EQ(test::columnOf(list.grid("grdList"), u"UnitNo"), offered);
            QTest::keyClick(&list.grid("grdList"), Qt::Key_Space);
            list.press("cmdSelect");
        };
    };
    open(u"frmWorkorderhistoryReport"_s, [&](const ScreenDriver &screen) {
        inScreen([&] { screen.press("cmdSHUnitNo"); }, tickFirst({u"A-1"_s, u"B-1"_s, u"O'2"_s}));
        EXPECT_EQ(screen.text("txtSHUnitNo"), u"A-1"_s);
        screen.type("txtSHUnitNo", u"O'2"_s);
        inScreen([&] { screen.press("cmdSHUnitNo"); }, tickFirst({u"A-1"_s, u"B-1"_s}));
        EXPECT_EQ(screen.text("txtSHUnitNo"), u"O'2,A-1"_s);
    });
    // A single machine takes the place of the former one, and may be the same.
    open(u"frmEquipmentUtilization"_s, [](const ScreenDriver &screen) {
        work(screen, u"chkEquipment; txtEQUTUnitNo=A-1"_s);
        for (const QString &unit : {u"B"_s, u"A"_s}) {
            inScreen([&] { screen.press("cmdEQUTUnitNo"); },
                     [&](const ScreenDriver &list) {
                         work(list, u"txtSearch="_s + unit + u"; cmdSelectForEqpUti"_s);
                     });
            EXPECT_EQ(screen.text("txtEQUTUnitNo"), unit + u"-1"_s);
        }
        inScreen([&] { screen.press("cmdEQUTUnitNo"); },
                 [](const ScreenDriver &list) { list.press("cmdExit"); });
        EXPECT_EQ(screen.text("txtEQUTUnitNo"), u"A-1"_s);
    });
}

TEST_F(FilterScreens, OfferWhatTheChoiceTakesNoticeOf)
{
    const QString list = u"txtType cmdType txtCrew txtSite cmdSite chkgrouponsite"_s;
    const QString history = u"txtSite txtSHUnitNo chkgrouponsite chkgrouponCrew"_s;
    const QString scans = u"dtpScanDateF txtSHUnitNo txtNoofdays"_s;
    const QString utilization = u"dtpEQUTDateF txtEQUTUnitNo txtEQUTType txtEQUTCrew"_s;
    const struct
    {
        QString name, steps, of, enabled;
    } cases[] = {
        {u"frmEquipmentListReport"_s, {}, list, list},
        {u"frmEquipmentListReport"_s, u"cmbversion=Version 5"_s, list, u"txtSite cmdSite"_s},
        {u"frmEquipmentListReport"_s, u"cmbversion=Version 2"_s, list,
         u"txtType cmdType txtCrew"_s},
        {u"frmServiceHistory"_s, {}, history, u"txtSHUnitNo chkgrouponsite chkgrouponCrew"_s},
        {u"frmServiceHistory"_s, u"chkgrouponsite"_s, history, u"txtSite chkgrouponsite"_s},
        {u"frmServiceHistory"_s, u"chkgrouponCrew"_s, history, u"chkgrouponCrew"_s},
        {u"frmScanHistory"_s, {}, scans, u"dtpScanDateF txtSHUnitNo"_s},
        {u"frmScanHistory"_s, u"optByDays"_s, scans, u"txtNoofdays"_s},
        {u"frmEquipmentUtilization"_s, {}, utilization, u"dtpEQUTDateF txtEQUTType txtEQUTCrew"_s},
        {u"frmEquipmentUtilization"_s, u"chkEquipment"_s, utilization,
         u"dtpEQUTDateF txtEQUTUnitNo"_s}};
    for (const auto &each : cases)
        open(each.name, [&](const ScreenDriver &screen) {
            work(screen, each.steps);
            QStringList enabled = each.of.split(u' ');
            enabled.removeIf(
                [&](const QString &name) { return !screen.isEnabled(qPrintable(name)); });
            EXPECT_EQ(enabled.join(u' '), each.enabled) << qPrintable(each.steps);
        });
}

TEST_F(FilterScreens, TellWhatIsMissingAndStay)
{
    const QString wrong = u"Please enter correct parameters."_s;
    const struct
    {
        QString name, steps, message;
        Icon icon;
        const char *focus;
    } cases[] = {
        {u"frmEquipmentUtilization"_s, u"chkEquipment"_s, u"Please choose or enter a Unit #."_s,
         Icon::Critical, "txtEQUTUnitNo"},
        {u"frmScanHistory"_s, u"optByDays; txtNoofdays=0"_s,
         u"Please enter the value greater than 0 in last no of days field."_s, Icon::None,
         "txtNoofdays"},
        {u"frmWorkorderhistoryReport"_s, u"txtWo=5-"_s, wrong, Icon::Information, "cmdViewReport"},
        {u"ShowLicenseDateReading"_s, {}, wrong, Icon::Information, "datLICDateTo"}};
    for (const auto &each : cases)
        open(each.name, [&](const ScreenDriver &screen) {
            work(screen, each.steps);
            if (each.steps.isEmpty())
                screen.control<input::DateInput>("datLICDateTo").setDate(QDate());
            expectRefusal(screen, "cmdViewReport", each.message, each.focus, each.icon);
            EXPECT_TRUE(screen.isOpen());
            EXPECT_EQ(m_asked.layout, QString());
        });
}

TEST_F(FilterScreens, MeetTheRealReportsAnswers)
{
    filteredReport() = m_real;
    const QString own = base::applicationPath(u"\\Custom Reports"_s);
    ASSERT_TRUE(QDir().mkpath(own));
    for (const QString &layout :
         {u"rptEquipmentServices"_s, u"rptEquipmentListVer5"_s, u"rptEquipmentList"_s})
        test::writeFile(own + u'/' + layout + u".rpt"_s,
                        "<report version=\"1\"><band kind=\"detail\">"
                        "<field content=\"UnitNo\"/></band></report>");
    // A report that comes up.
    open(u"frmEquipmentListReport"_s, [](const ScreenDriver &screen) {
        screen.press("chkInactive");
        inScreen([&] { screen.press("cmdViewReport"); },
                 [](const ScreenDriver &preview) {
                     EXPECT_EQ(preview.screen().windowTitle(), u"Equipment List"_s);
                     EXPECT_NE(preview.screen().findChild<QWidget *>(u"CRViewerReport"_s), nullptr);
                     preview.press("cmdExit");
                 });
        EXPECT_FALSE(screen.isOpen());
    });
    // A filter that the engine refuses: the report asks, and No leaves the screen as it was.
    open(u"ShowEquipmentServices"_s, [this](const ScreenDriver &screen) {
        screen.type("txtUnitNo", u"\"A-1\""_s);
        prompts.expect(u"Incorrect filter. Show all Equipment Services?"_s, Icon::Information,
                       Buttons::YesNo, Answer::No);
        screen.press("cmdViewReport");
        EXPECT_EQ(screen.text("txtUnitNo"), u"\"A-1\""_s);
    });
    // The same of a report that doesn't ask.
    open(u"frmEquipmentListReport"_s, [this](const ScreenDriver &screen) {
        work(screen, u"cmbversion=Version 5; txtSite=\"Yard\""_s);
        prompts.inform(u"Please enter correct parameters."_s);
        screen.press("cmdViewReport");
        EXPECT_TRUE(screen.isOpen());
    });
}
