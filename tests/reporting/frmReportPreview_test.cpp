#include "reporting/ui/ShowReport.h"

#include "core/CompanySession.h"
#include "core/ui/Openings.h"
#include "core/ui/ScreenDriver.h"
#include "platform/db/DbError.h"
#include "reporting/ReportFiles.h"
#include "support/Raised.h"
#include "support/ScriptedPrompts.h"
#include "support/TestFiles.h"
#include "workorders/Statements.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace {

class ReportPreview : public test::CompanySession
{
protected:
    ReportPreview()
    {
        joinReports();
        reportfiles::installDelivered(base::environment().applicationFolder);
        insert(u"tblEquipment"_s, u"EquipmentID,UnitNo,EquipmentName,Inactive"_s,
               {1, u"M1"_s, u"Mower"_s, 0});
        order = insert(u"tblWorkorder"_s, u"EquipmentID,Printed"_s, {1, 0}, u"WorkorderNo"_s);
        insert(u"tblWoServiceUsed"_s, u"WorkorderNo,Name"_s, {order, u"Oil change"_s});
    }

    [[nodiscard]] bool print(bool byCrew = false) const
    {
        return openings().open(
            u"ShowWorkorderReport",
            {.query = workorders::statements::printedOrders(QString::number(order)),
             .other = byCrew});
    }

    static void ownLayout(const QString &report, const QByteArray &content)
    {
        const QString folder = base::applicationPath(u"\\Custom Reports"_s);
        ASSERT_TRUE(QDir().mkpath(folder));
        test::writeFile(folder + u"/%1.rpt"_s.arg(report), content);
    }
    /// The question whether to show everything in place of what a filter asks for.
    void expectOffer(const QString &text, base::Prompts::Answer answer)
    {
        prompts.expect(text, base::Prompts::Icon::Information, base::Prompts::Buttons::YesNo,
                       answer);
    }
    /// Whether an action shows a preview, which is closed.
    static bool isShown(const std::function<bool()> &open, const QString &title = u"Work Orders"_s)
    {
        bool shown = false;
        test::inScreen([&] { shown = open(); },
                       [&](const test::ScreenDriver &driver) {
                           EXPECT_EQ(driver.screen().windowTitle(), title);
                           driver.press("cmdExit");
                       });
        return shown;
    }
    static constexpr const char *Plain = "<report version=\"1\"><band kind=\"detail\">"
                                         "<field content=\"UnitNo\"/></band></report>";

    qint64 order = 0;
    test::ScriptedPrompts prompts;
};

} // namespace

TEST_F(ReportPreview, ShowsTheOrdersInEitherLayoutOrSaysThatThereAreNone)
{
    for (const bool byCrew : {false, true})
        EXPECT_TRUE(isShown([&] { return print(byCrew); }));
    gcnData->Execute(u"Update tblWoServiceUsed set Skip = '1'"_s);
    prompts.inform(u"No records found."_s);
    EXPECT_FALSE(print());
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(ReportPreview, ALayoutThatIsMissingOrDamagedIsReportedFirst)
{
    gcnData->Execute(u"Delete from tblWoServiceUsed"_s);
    const QString file = reportfiles::layoutPath(u"rptWorkorder"_s);
    test::writeFile(file,
                    "<report version=\"1\">\n  <band kind=\"detail\" height=\"5\"/>\n</report>");
    for (const QString &part : {u"Line 2, column"_s, u"missing"_s}) {
        EXPECT_FALSE(print());
        const ErrorReport report = errors.takeOne();
        EXPECT_EQ(report.ProcedureName, u"ShowWorkorderReport"_s);
        EXPECT_TRUE(report.ErrDescription.contains(part)) << qPrintable(report.ErrDescription);
        QFile::remove(file);
    }
}

TEST_F(ReportPreview, ARefusedFilterIsAskedAboutInTheReportsOwnWords)
{
    for (const QString &report : {u"rptEquipmentServices"_s, u"rptEquipmentList"_s})
        ownLayout(report, Plain);
    const QString details = u"Incorrect filter. Show all Equipment Details?"_s;
    const QString services = u"Incorrect filter. Show all Equipment Services?"_s;
    const QString soon = u" where tblServiceUsed.NextScheduledDate = 'soon'"_s;
    for (const auto &[layout, filter, question] :
         {std::tuple(u"rptEquipmentServices"_s, u" where UnitNo in ()"_s, services),
          {u"rptEquipmentServices"_s, u" where Nowhere = 1"_s, services},
          {u"rptEquipmentServices"_s, soon, details},
          {u"rptEquipmentList"_s, u" where AcquisitionDate = 'soon'"_s, details}}) {
        expectOffer(question, base::Prompts::Answer::No);
        EXPECT_FALSE(showReport({.layout = layout, .filter = filter})) << qPrintable(filter);
    }
    // Yes shows everything, and nothing of what was asked.
    expectOffer(details, base::Prompts::Answer::Yes);
    EXPECT_TRUE(isShown(
        [] {
            return showReport({.layout = u"rptEquipmentList"_s,
                               .filter = u"where Inactive = "_s,
                               .asked = u"Active machines"_s});
        },
        u"Equipment List"_s));
}

TEST_F(ReportPreview, AReportOnlyReads)
{
    EXPECT_FALSE(
        showReport({.layout = u"rptWorkorder"_s, .filter = u"delete from tblWorkorder"_s}));
    EXPECT_EQ(errors.takeOne().ErrNumber, db::ErrorNumber::ReadOnly);
    EXPECT_EQ(count(u"tblWorkorder"_s), 1);
}

TEST_F(ReportPreview, ADamagedLayoutOfTheCustomersOwnGivesWayWhenTheUserWantsIt)
{
    ownLayout(u"rptWorkorder"_s, "<report version=\"1\">\n  <nonsense\n");
    const QString failure =
        test::raisedBy([] { (void)reportfiles::readLayout(u"rptWorkorder"_s); }).description();
    EXPECT_TRUE(failure.contains(u"Line 3, column"_s)) << qPrintable(failure);
    const QString question = failure + u"\n\nUse the layout that came with the program instead?"_s;
    prompts.no(question);
    EXPECT_FALSE(print());
    prompts.yes(question);
    EXPECT_TRUE(isShown([&] { return print(); }));
}

TEST_F(ReportPreview, TheErrorReportKnowsOnlyTheDeliveredLayout)
{
    ASSERT_TRUE(!reportfiles::isDelivered(u"rptErrorReport"_s) ||
                QFile::remove(reportfiles::layoutPath(u"rptErrorReport"_s)));
    ownLayout(u"rptErrorReport"_s, Plain);
    prompts.inform(u"Report not found."_s);
    EXPECT_FALSE(openings().open(u"ShowErrorList"));
}
