#include "reporting/ui/frmReportPreview.h"

#include "core/CompanySession.h"
#include "core/General.h"
#include "core/ui/Openings.h"
#include "core/ui/ScreenDriver.h"
#include "reporting/ReportFiles.h"
#include "support/ScriptedPrompts.h"
#include "workorders/Statements.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

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

    qint64 order = 0;
    test::ScriptedPrompts prompts;
};

} // namespace

TEST_F(ReportPreview, ShowsTheOrdersInEitherLayout)
{
    for (const bool byCrew : {false, true}) {
        bool shown = false;
        test::inScreen([&] { shown = print(byCrew); },
                       [](const test::ScreenDriver &driver) {
                           EXPECT_EQ(driver.screen().windowTitle(), u"Work Orders"_s);
                           driver.press("cmdExit");
                       });
        EXPECT_TRUE(shown);
    }
}

TEST_F(ReportPreview, WithoutRowsSaysSo)
{
    gcnData->Execute(u"Update tblWoServiceUsed set Skip = '1'"_s);
    prompts.expect(u"No records found."_s, base::Prompts::Icon::Information);
    EXPECT_FALSE(print());
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(ReportPreview, ALayoutThatIsMissingOrDamagedIsReportedFirst)
{
    gcnData->Execute(u"Delete from tblWoServiceUsed"_s);
    QFile file(reportfiles::layoutPath(u"rptWorkorder"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("<report version=\"1\">\n  <band kind=\"detail\" height=\"5\"/>\n</report>");
    file.close();
    EXPECT_FALSE(print());
    ErrorReport report = errors.takeOne();
    EXPECT_EQ(report.ProcedureName, u"ShowWorkorderReport"_s);
    EXPECT_TRUE(report.ErrDescription.contains(u"Line 2, column"_s))
        << qPrintable(report.ErrDescription);
    ASSERT_TRUE(file.remove());
    EXPECT_FALSE(print());
    report = errors.takeOne();
    EXPECT_TRUE(report.ErrDescription.contains(u"missing"_s)) << qPrintable(report.ErrDescription);
}
