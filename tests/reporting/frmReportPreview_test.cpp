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
using Icon = base::Prompts::Icon;

namespace {

class ReportPreview : public test::CompanySession
{
protected:
    ReportPreview()
    {
        joinReports();
        reportfiles::installDelivered(base::environment().applicationFolder);
        gcnData->Execute(u"Insert into tblEquipment(EquipmentID,UnitNo,EquipmentName,Inactive) "
                         "values(1,'M1','Mower',0)"_s);
        order = gcnData->Insert(u"Insert into tblWorkorder(EquipmentID,Printed) values(1,'0')"_s,
                                {}, u"WorkorderNo"_s);
        gcnData->Execute(u"Insert into tblWoServiceUsed(WorkorderNo,Name) values(?,'Oil change')"_s,
                         {order});
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
    void expectQuestion(const QString &text, Icon icon, bool yes)
    {
        prompts.expect(text, icon, base::Prompts::Buttons::YesNo,
                       yes ? base::Prompts::Answer::Yes : base::Prompts::Answer::No);
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

TEST_F(ReportPreview, ShowsTheOrdersInEitherLayout)
{
    for (const bool byCrew : {false, true})
        EXPECT_TRUE(isShown([&] { return print(byCrew); }));
}

TEST_F(ReportPreview, WithoutRowsSaysSo)
{
    gcnData->Execute(u"Update tblWoServiceUsed set Skip = '1'"_s);
    prompts.expect(u"No records found."_s, Icon::Information);
    EXPECT_FALSE(print());
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(ReportPreview, ALayoutThatIsMissingOrDamagedIsReportedFirst)
{
    gcnData->Execute(u"Delete from tblWoServiceUsed"_s);
    const QString file = reportfiles::layoutPath(u"rptWorkorder"_s);
    test::writeFile(file,
                    "<report version=\"1\">\n  <band kind=\"detail\" height=\"5\"/>\n</report>");
    EXPECT_FALSE(print());
    ErrorReport report = errors.takeOne();
    EXPECT_EQ(report.ProcedureName, u"ShowWorkorderReport"_s);
    EXPECT_TRUE(report.ErrDescription.contains(u"Line 2, column"_s))
        << qPrintable(report.ErrDescription);
    ASSERT_TRUE(QFile::remove(file));
    EXPECT_FALSE(print());
    report = errors.takeOne();
    EXPECT_TRUE(report.ErrDescription.contains(u"missing"_s)) << qPrintable(report.ErrDescription);
}

TEST_F(ReportPreview, ARefusedFilterIsAskedAboutInTheReportsOwnWords)
{
    for (const QString &report : {u"rptEquipmentServices"_s, u"rptEquipmentList"_s})
        ownLayout(report, Plain);
    const auto asked = [&](const char *layout, const QString &filter, const QString &question) {
        expectQuestion(question, Icon::Information, false);
        EXPECT_FALSE(showReport({.layout = QString::fromLatin1(layout), .filter = filter}))
            << layout;
    };
    const QString syntax = u" where UnitNo in ()"_s;
    const QString parameter = u" where Nowhere = 1"_s;
    asked("rptEquipmentServices", syntax, u"Incorrect filter. Show all Equipment Services?"_s);
    asked("rptEquipmentServices", parameter, u"Incorrect filter. Show all Equipment Services?"_s);
    asked("rptEquipmentServices", u" where tblServiceUsed.NextScheduledDate = 'soon'"_s,
          u"Incorrect filter. Show all Equipment Details?"_s);
    asked("rptEquipmentList", u" where AcquisitionDate = 'soon'"_s,
          u"Incorrect filter. Show all Equipment Details?"_s);
    // Yes shows everything, and nothing of what was asked.
    expectQuestion(u"Incorrect filter. Show all Equipment Details?"_s, Icon::Information, true);
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
    expectQuestion(question, Icon::Question, false);
    EXPECT_FALSE(print());
    expectQuestion(question, Icon::Question, true);
    EXPECT_TRUE(isShown([&] { return print(); }));
}

TEST_F(ReportPreview, TheErrorReportKnowsOnlyTheDeliveredLayout)
{
    ASSERT_TRUE(!reportfiles::isDelivered(u"rptErrorReport"_s) ||
                QFile::remove(reportfiles::layoutPath(u"rptErrorReport"_s)));
    ownLayout(u"rptErrorReport"_s, Plain);
    prompts.expect(u"Report not found."_s, Icon::Information);
    EXPECT_FALSE(openings().open(u"ShowErrorList"));
}
