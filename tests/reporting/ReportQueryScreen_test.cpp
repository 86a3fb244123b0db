#include "core/ui/Modal.h"
#include "reporting/OwnReportSession.h"
#include "reporting/ui/ExpressionDialog.h"
#include "reporting/ui/frmReportQuery.h"
#include "support/Raised.h"

#include <QListWidget>
#include <QTabWidget>
#include <QTableWidget>
#include <QTreeWidget>

using namespace Qt::StringLiterals;
using test::ScreenDriver;

namespace {

class ReportQueryScreen : public test::OwnReportSession
{
protected:
    /// What the dialog makes of a layout; nothing when it is cancelled.
    static std::optional<report::Layout> ask(const report::Layout &layout,
                                             const std::function<void(ScreenDriver)> &act,
                                             ownreports::Kind kind = ownreports::Kind::NewReport)
    {
        std::optional<report::Layout> asked;
        test::inScreen([&] { asked = frmReportQuery(layout, kind, reporttables::tables()).ask(); },
                       act);
        return asked;
    }
    static QTabWidget &tabs(const ScreenDriver &driver)
    {
        return driver.control<QTabWidget>("tabQuery");
    }
    static QString textOf(const QString &query, const std::function<void(ScreenDriver)> &act)
    {
        return ask(parts(query), act).value_or(parts(u"(none)"_s)).query;
    }
    static void setText(const ScreenDriver &driver, const QString &query)
    {
        tabs(driver).setCurrentIndex(1);
        driver.control<QPlainTextEdit>("txtQuery").setPlainText(query);
    }
};

TEST_F(ReportQueryScreen, AQueryIsPickedShownAsTextAndBack)
{
    const QString picked = textOf({}, [](const ScreenDriver &driver) {
        driver.choose("cboTable", u"Parts"_s);
        driver.press("cmdAddTable");
        auto &columns = driver.control<QTreeWidget>("treColumns");
        columns.topLevelItem(0)->child(0)->setCheckState(0, Qt::Checked);
        tabs(driver).setCurrentIndex(1);
        EXPECT_EQ(driver.text("txtQuery"), u"SELECT [tblPart].[PartID]\nFROM [tblPart]"_s);
        setText(driver, u"select PartID, Price from tblPart where Price > 1"_s);
        tabs(driver).setCurrentIndex(0);
        driver.press("cmdShowRows");
        EXPECT_EQ(test::columnOf(driver.grid("grdRows"), u"PartID"),
                  (QStringList{u"P2"_s, u"P3"_s}));
        driver.press("cmdTake");
    });
    EXPECT_EQ(found(picked), u"P2|2\nP3|3"_s);

    const QString text = u"select Sum(Price) as Worth from tblPart"_s;
    EXPECT_EQ(textOf(text,
                     [this](const ScreenDriver &driver) {
                         EXPECT_EQ(tabs(driver).currentIndex(), 1);
                         prompts.say(u"This query can be changed as text only."_s);
                         tabs(driver).setCurrentIndex(0);
                         EXPECT_EQ(tabs(driver).currentIndex(), 1);
                         tabs(driver).setCurrentIndex(2);
                         driver.press("cmdTake");
                     }),
              text);
    EXPECT_EQ(textOf({},
                     [this](const ScreenDriver &driver) {
                         setText(driver, u"delete from tblPart"_s);
                         prompts.say(u"This query can't be run.\nA report may only read: its "
                                     "statement has to begin with \"Select\"."_s);
                         driver.press("cmdTake");
                         EXPECT_TRUE(driver.isOpen());
                         driver.press("cmdCancel");
                     }),
              u"(none)"_s);
    EXPECT_EQ(count(u"tblPart"_s), 3);
}

TEST_F(ReportQueryScreen, AFilterIsTypedAndTheRowInHandIsRemoved)
{
    const QString asked =
        textOf(u"select PartID from tblPart"_s, [this](const ScreenDriver &driver) {
            const auto &filter = driver.control<QTableWidget>("tblFilter");
            driver.press("cmdAddFilter");
            driver.press("cmdAddFilter");
            prompts.say(u"Please say what \"PartID\" is compared with."_s);
            driver.press("cmdTake");
            EXPECT_TRUE(driver.isOpen());
            prompts.say(u"Please say what \"PartID\" is compared with."_s);
            tabs(driver).setCurrentIndex(1);
            EXPECT_EQ(tabs(driver).currentIndex(), 0);
            QTest::keyClicks(filter.cellWidget(1, 2), u"P2"_s);
            filter.cellWidget(0, 2)->setFocus();
            driver.press("cmdRemoveFilter");
            driver.press("cmdTake");
        });
    EXPECT_EQ(found(asked), u"P2"_s);
}

TEST_F(ReportQueryScreen, AJoinIsSeenAndChanged)
{
    const QString asked =
        textOf(u"select PartID from tblPart"_s, [this](const ScreenDriver &driver) {
            driver.choose("cboTable", u"Suppliers"_s);
            driver.press("cmdAddTable");
            EXPECT_EQ(driver.text("cboJoinOwn"), u"Supplier ID"_s);
            EXPECT_EQ(driver.text("cboJoinTo"), u"Parts: Supplier"_s);
            driver.press("chkOnlyMatching");
            driver.choose("cboJoinTo", u"Parts: Part Category"_s);
            EXPECT_EQ(driver.control<QListWidget>("lstTables").item(1)->text(),
                      u"Suppliers, Supplier ID = Parts: Part Category"_s);
            driver.choose("cboTable", u"Scans of machines"_s);
            driver.press("cmdAddTable");
            prompts.say(u"Please say by which columns \"tblEquipmentScan\" is joined."_s);
            driver.press("cmdTake");
            driver.press("cmdRemoveTable");
            driver.press("cmdTake");
        });
    EXPECT_EQ(asked, u"SELECT [tblPart].[PartID]\nFROM [tblPart]\nINNER JOIN [tblSupplier] ON "
                     "[tblPart].[PartCategoryID] = [tblSupplier].[SupplierID]"_s);
}

TEST_F(ReportQueryScreen, ParametersHaveNamesOfTheirOwnAndListsThatCanBeRead)
{
    const auto asked = ask(
        parts({}),
        [this](const ScreenDriver &driver) {
            grid::GridModel &rows = driver.grid("grdParameters").rows();
            tabs(driver).setCurrentIndex(0);
            driver.press("grdParametersAdd");
            prompts.say(u"Each line needs a name of its own."_s);
            driver.press("cmdTake");
            rows.setValue(0, u"Name", u"Site"_s);
            rows.setValue(0, u"List (a query)", u"select Nothing from tblSite"_s);
            prompts.say(u"The list of \"Site\" can't be read.\n"_s +
                        test::raisedBy([] {
                            (void)gcnData->Open(u"select TOP 1 Nothing from tblSite"_s);
                        }).description());
            driver.press("cmdTake");
            EXPECT_TRUE(driver.isOpen());
            rows.setValue(0, u"List (a query)", u"select SiteName from tblSite"_s);
            rows.setValue(0, u"Type", static_cast<int>(report::ParameterType::Date));
            driver.press("grdParametersAdd");
            rows.setValue(1, u"Name", u"SITE"_s);
            prompts.say(u"Each line needs a name of its own."_s);
            driver.press("cmdTake");
            driver.press("grdParametersRemove");

            tabs(driver).setCurrentIndex(1);
            grid::GridModel &sets = driver.grid("grdRowSets").rows();
            driver.press("grdRowSetsAdd");
            sets.setValue(0, u"Name", u"sites"_s);
            sets.setValue(0, u"Query", u"select SiteName from tblSite where City = ?Site"_s);
            sets.setValue(0, u"Their key", u"SiteID"_s);
            prompts.say(u"The rows \"sites\" can't be read.\nThey have no column \"SiteID\" as "
                        "their key."_s);
            driver.press("cmdTake");
            sets.setValue(0, u"Their key", u"SiteName"_s);
            sets.setValue(0, u"Belongs to the row with", u"Site"_s);
            driver.press("cmdTake");
        },
        ownreports::Kind::DefaultReport);
    ASSERT_TRUE(asked);
    ASSERT_EQ(asked->rowSets.size(), 1);
    EXPECT_EQ(asked->rowSets.first().key, u"SiteName"_s);
    EXPECT_EQ(asked->rowSets.first().of, u"Site"_s);
    ASSERT_EQ(asked->parameters.size(), 1);
    EXPECT_EQ(asked->parameters.first().name, u"Site"_s);
    EXPECT_EQ(asked->parameters.first().type, report::ParameterType::Date);
}

TEST_F(ReportQueryScreen, ADeliveredReportReadsAsItDidWhenNothingIsChanged)
{
    for (const QString &name : {u"rptEquipmentDetail"_s, u"rptServiceList"_s}) {
        const report::Layout layout = reportfiles::readDelivered(name);
        EXPECT_EQ(ask(
                      layout, [](const ScreenDriver &driver) { driver.press("cmdTake"); },
                      ownreports::Kind::DefaultReport),
                  layout)
            << qPrintable(name);
    }
}

TEST_F(ReportQueryScreen, AnExpressionIsWrittenWithTheOfferOfNames)
{
    report::ExpressionQuestion question;
    question.caption = u"Content"_s;
    for (const QString &name : {u"PartID"_s, u"Part Name"_s})
        question.fields.append({{}, name, {}});
    const db::Recordset rows =
        gcnData->Open(u"select PartID, Description as [Part Name] from tblPart order by PartID"_s);
    std::optional<QString> written;
    test::inScreen([&] { written = askExpression(question, parts({}), rows, nullptr); },
                   [](const ScreenDriver &driver) {
                       auto &editor = driver.control<QPlainTextEdit>("txtExpression");
                       QTest::keyClicks(&editor, u"upper("_s);
                       EXPECT_FALSE(driver.text("lblError").isEmpty());
                       QTest::keyClicks(&editor, u"nam"_s);
                       QWidget *offer = QApplication::activePopupWidget();
                       ASSERT_NE(offer, nullptr);
                       QTest::keyClick(offer, Qt::Key_Return);
                       QTest::keyClicks(&editor, u")"_s);
                       EXPECT_EQ(editor.toPlainText(), u"upper([Part Name])"_s);
                       EXPECT_EQ(driver.text("lblError"), QString());
                       EXPECT_TRUE(driver.text("lblValues").contains(u"PART 2"));
                       driver.press("cmdTake");
                   });
    EXPECT_EQ(written, u"upper([Part Name])"_s);
}

} // namespace
