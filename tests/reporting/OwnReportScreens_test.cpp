#include "core/ui/Modal.h"
#include "platform/grid/GridView.h"
#include "platform/report/designer/DesignDocument.h"
#include "platform/report/viewer/ReportViewer.h"
#include "reporting/OwnReportSession.h"
#include "reporting/ReportDrafts.h"
#include "reporting/ui/OwnReportEntries.h"
#include "reporting/ui/ShowReport.h"
#include "reporting/ui/frmReportModify.h"
#include "reporting/ui/frmUserDefinedReports.h"
#include "support/Raised.h"
#include "support/TestFiles.h"

#include <QLabel>
#include <QListWidget>
#include <QTest>
#include <QTreeWidget>

using namespace Qt::StringLiterals;
using test::ScreenDriver;

namespace {

class OwnReportScreens : public test::OwnReportSession
{
protected:
    static report::ReportDesigner &designer(const ScreenDriver &driver)
    {
        return driver.control<report::ReportDesigner>("CRDesignerCtrl1");
    }
    static void retitle(const ScreenDriver &driver, const QString &title)
    {
        designer(driver).document().change(
            u"Title"_s, [&](report::Layout &layout, report::Selection &) { layout.title = title; });
    }
    /// Designs a report of a file, or a new one, and leaves the designer.
    static void design(const QString &file, const std::function<void(ScreenDriver)> &act)
    {
        test::inScreen(
            [&] {
                if (file.isEmpty())
                    frmReportModify().CreateNewReport();
                else
                    frmReportModify().ShowReport(file, QFileInfo(file).fileName());
            },
            [&](const ScreenDriver &driver) {
                act(driver);
                if (driver.isOpen())
                    driver.press("cmdExit");
            });
    }
    static void expectPreviewed(const ScreenDriver &driver)
    {
        designer(driver).showPreview();
        designer(driver).viewer().finishLayout();
        EXPECT_EQ(designer(driver).viewer().outcome().problems, QStringList());
        EXPECT_GT(designer(driver).viewer().pageCount(), 0);
    }
    void expectNameQuestion(const std::optional<QString> &answer)
    {
        prompts.expectInput(u"Please give a file name."_s, answer);
    }
    void expectConflictQuestion()
    {
        prompts.expect(
            u"Another workstation has saved this report since you opened it. Replace what "
            "was saved there?"_s,
            Icon::Warning, Buttons::YesNo, Answer::No);
    }
    /// A draft of the report in a file, and the question whether to go on with it.
    QString keepDraft(const QString &file)
    {
        report::Layout draft = reportfiles::readLayoutAt(file);
        draft.title = u"Half done"_s;
        drafts::keep(file, draft, ownreports::versionOf(file));
        return u"This report was being designed on %1 and was not saved. Go on with it?"_s.arg(
            drafts::find(file)->kept.toString(u"MM/dd/yyyy hh:mm AP"_s));
    }
    /// What a failing action tells.
    template<class Action>
    static QString failureOf(Action &&action)
    {
        return test::raisedBy(action).description();
    }
    void expectSaveQuestion(Answer answer)
    {
        prompts.expect(u"Do you want to save the changes?"_s, Icon::Question, Buttons::YesNoCancel,
                       answer);
    }
};

TEST_F(OwnReportScreens, TheListAnswersTheFileThatWasChosen)
{
    const auto chosen = [](auto show, const std::function<void(ScreenDriver)> &act) {
        QString file;
        test::inScreen([&] { file = (frmUserDefinedReports().*show)(); }, act);
        return file;
    };
    const auto toView = &frmUserDefinedReports::ShowUserDefinedReportDetatils;
    const auto toModify = &frmUserDefinedReports::ShowReportList;
    const auto press = [](const char *button) {
        return [button](const ScreenDriver &driver) { driver.press(button); };
    };
    EXPECT_EQ(chosen(toView,
                     [](const ScreenDriver &driver) {
                         EXPECT_FALSE(driver.isShown("fraReports"));
                         EXPECT_FALSE(driver.isEnabled("cmdViewReport"));
                         driver.press("cmdAdd");
                     }),
              u"A"_s);
    test::writeFile(own(u"Ours.rpt"_s), "x");
    EXPECT_EQ(chosen(toView, press("cmdViewReport")), own(u"Ours.rpt"_s));
    EXPECT_EQ(chosen(toModify,
                     [](const ScreenDriver &driver) {
                         grid::GridView &grid = driver.grid("grdReports");
                         grid.selectRow(grid.rows().findRow(u"Reports Name", u"EquipmentList"_s));
                         driver.press("cmdViewReport");
                     }),
              path(u"Reports"_s, u"rptEquipmentList.rpt"_s));
    EXPECT_EQ(chosen(toModify,
                     [](const ScreenDriver &driver) {
                         driver.press("optUserReport");
                         driver.press("cmdViewReport");
                     }),
              own(u"Ours.rpt"_s));
    EXPECT_EQ(chosen(toModify, press("cmdExit")), QString());
}

TEST_F(OwnReportScreens, AReportOfTheUsersOwnReadsForItself)
{
    // Expressions read the answer, and further rows come along.
    const report::Layout asking = ours(R"(<parameter name="Least" type="number"/>
        <query>select PartID from tblPart where Price &gt;= ?Least</query>
        <rows name="same" key="PartID" of="PartID">select PartID, Price from tblPart</rows>
        <band kind="detail"><field content="PartID"/><field content="Least"/></band>
        <band kind="subDetail" rows="same"><field content="Price"/></band>)");
    report::writeLayoutFile(asking, own(u"Asking.rpt"_s));
    const auto escape = [](const ScreenDriver &question) {
        EXPECT_EQ(question.screen().objectName(), u"parameters"_s);
        QTest::keyClick(&question.screen(), Qt::Key_Escape);
    };
    bool shown = false;
    test::inScreen(
        [&] { shown = ShowUserDefinedReport(own(u"Asking.rpt"_s)); },
        [](const ScreenDriver &question) {
            question.type("Least", u"2"_s);
            test::onNextModal([](QWidget &preview) {
                const ScreenDriver driver(preview);
                EXPECT_EQ(preview.windowTitle(), u"Our parts"_s);
                EXPECT_EQ(driver.control<report::ReportViewer>("CRViewerReport").outcome().problems,
                          QStringList());
                driver.press("cmdExit");
            });
            QTest::keyClick(&question.screen(), Qt::Key_Return);
        });
    EXPECT_TRUE(shown);
    test::inScreen([&] { shown = ShowUserDefinedReport(own(u"Asking.rpt"_s)); }, escape);
    EXPECT_FALSE(shown);
    // A copy of a delivered report asks for its parameters too.
    insert(u"tblEquipment"_s, {{u"EquipmentID"_s, 1}, {u"EquipmentName"_s, u"Mower"_s}});
    report::Layout delivered = reportfiles::readDelivered(u"rptEquipmentList"_s);
    delivered.parameters = asking.parameters;
    report::writeLayoutFile(delivered, path(u"Custom Reports"_s, u"rptEquipmentList.rpt"_s));
    shown = true;
    test::inScreen([&] { shown = showReport({.layout = u"rptEquipmentList"_s}); }, escape);
    EXPECT_FALSE(shown);

    report::writeLayoutFile(parts({}), own(u"Empty.rpt"_s));
    prompts.inform(u"This report doesn't say yet which data it shows. Please open it by \"Modify "
                   "Reports\" and choose them."_s);
    EXPECT_FALSE(ShowUserDefinedReport(own(u"Empty.rpt"_s)));
    report::writeLayoutFile(parts(u"delete from tblPart"_s), own(u"Hostile.rpt"_s));
    EXPECT_FALSE(ShowUserDefinedReport(own(u"Hostile.rpt"_s)));
    EXPECT_TRUE(errors.takeOne().ErrDescription.contains(u"only read"));
    EXPECT_EQ(count(u"tblPart"_s), 3);
}

TEST_F(OwnReportScreens, ANewReportIsAskedForItsNameUntilItHasOne)
{
    design({}, [this](const ScreenDriver &driver) {
        retitle(driver, u"Mine"_s);
        expectNameQuestion(QString());
        expectNameQuestion(std::nullopt);
        expectNameQuestion(u"../Reports/rptPart"_s);
        prompts.say(u"A report's name can't have any of these characters: \\ / : * ? \" < > |"_s);
        expectNameQuestion(u"Mine"_s);
        driver.press("cmdUpdate");
        EXPECT_EQ(titleIn(own(u"Mine.rpt"_s)), u"Mine"_s);
        retitle(driver, u"Mine again"_s);
        driver.press("cmdUpdate");
        EXPECT_EQ(titleIn(own(u"Mine.rpt"_s)), u"Mine again"_s);
    });
    // An existing report stays until its user wants it replaced.
    design({}, [this](const ScreenDriver &driver) {
        retitle(driver, u"New"_s);
        for (const auto &[answer, title] :
             {std::pair(Answer::No, u"Mine again"_s), {Answer::Yes, u"New"_s}}) {
            expectNameQuestion(u"mine"_s);
            prompts.expect(u"There is a report of this name already. Replace it?"_s, Icon::Warning,
                           Buttons::YesNo, answer);
            driver.press("cmdUpdate");
            EXPECT_EQ(titleIn(own(u"Mine.rpt"_s)), title);
        }
    });
}

TEST_F(OwnReportScreens, AChangedDeliveredReportGoesToTheCustomersFolder)
{
    const QString delivered = path(u"Reports"_s, u"rptPart.rpt"_s);
    const QString custom = path(u"Custom Reports"_s, u"rptPart.rpt"_s);
    report::writeLayoutFile(parts({}), delivered);
    const QByteArray asItCame = test::readFile(delivered);
    design(delivered, [&](const ScreenDriver &driver) {
        retitle(driver, u"Changed"_s);
        expectSaveQuestion(Answer::Cancel);
        driver.press("cmdExit");
        EXPECT_TRUE(driver.isOpen());
        EXPECT_FALSE(QFile::exists(custom));
        expectSaveQuestion(Answer::No);
    });
    EXPECT_FALSE(QFile::exists(custom));
    design(delivered, [this](const ScreenDriver &driver) {
        retitle(driver, u"Changed"_s);
        expectSaveQuestion(Answer::Yes);
    });
    EXPECT_EQ(titleIn(custom), u"Changed"_s);
    // By keys alone: saved from the sheet, and left from there.
    design(delivered, [](const ScreenDriver &driver) {
        retitle(driver, u"Changed again"_s);
        designer(driver).window()->activateWindow();
        designer(driver).setFocus();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_S, Qt::ControlModifier);
        EXPECT_FALSE(designer(driver).isModified());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_R, Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor([&] { return !driver.isOpen(); }));
    });
    EXPECT_EQ(titleIn(custom), u"Changed again"_s);
    EXPECT_EQ(test::readFile(delivered), asItCame);
    design(delivered, [&](const ScreenDriver &driver) {
        retitle(driver, u"Ours"_s);
        report::writeLayoutFile(parts(u"select 2"_s), custom);
        expectConflictQuestion();
        driver.press("cmdUpdate");
        EXPECT_EQ(titleIn(custom), u"Our parts"_s);
        expectSaveQuestion(Answer::No);
    });
}

TEST_F(OwnReportScreens, ADraftIsOfferedAndGoesOnWhereTheWorkEnded)
{
    const QString file = own(u"Mine.rpt"_s);
    report::writeLayoutFile(parts(u"select PartID from tblPart"_s), file);
    const QString question = keepDraft(file);
    prompts.no(question);
    design(file, [](const ScreenDriver &) {});
    prompts.yes(question);
    design(file, [](const ScreenDriver &driver) { driver.press("cmdUpdate"); });
    EXPECT_EQ(titleIn(file), u"Half done"_s);
    EXPECT_FALSE(drafts::find(file));
    // One of an older file asks before it replaces the newer one.
    prompts.yes(keepDraft(file));
    report::writeLayoutFile(parts(u"select Price as PartID from tblPart"_s), file);
    design(file, [this](const ScreenDriver &driver) {
        expectConflictQuestion();
        driver.press("cmdUpdate");
        expectSaveQuestion(Answer::No);
    });
    EXPECT_EQ(titleIn(file), u"Our parts"_s);
    // What is designed is kept meanwhile.
    design({}, [this](const ScreenDriver &driver) {
        retitle(driver, u"Mine"_s);
        EXPECT_TRUE(QTest::qWaitFor([] { return drafts::find(u"new"_s).has_value(); }, 6000));
        expectSaveQuestion(Answer::No);
    });
    EXPECT_FALSE(drafts::find(u"new"_s));
}

TEST_F(OwnReportScreens, ADamagedCopyGivesWayToTheDeliveredLayoutWhenTheUserWantsIt)
{
    const QString custom = path(u"Custom Reports"_s, u"rptSupplierReport.rpt"_s);
    test::writeFile(custom, "<report version=\"1\">\n  <nonsense\n");
    const QString question = failureOf([&] { (void)reportfiles::readLayoutAt(custom); }) +
                             u"\n\nBegin with the layout that came with the program?"_s;
    prompts.no(question);
    frmReportModify().ShowReport(custom, u"rptSupplierReport.rpt"_s);
    prompts.yes(question);
    design(custom, [](const ScreenDriver &driver) {
        EXPECT_EQ(designer(driver).layout(), reportfiles::readDelivered(u"rptSupplierReport"_s));
    });
    test::writeFile(own(u"Mine.rpt"_s), "<report version=\"1\">\n  <nonsense\n");
    frmReportModify().ShowReport(own(u"Mine.rpt"_s), u"Mine.rpt"_s);
    EXPECT_TRUE(errors.takeOne().ErrDescription.contains(u"Line 3"));
}

TEST_F(OwnReportScreens, TheWizardMakesAReportThatShowsItsRows)
{
    design({}, [this](const ScreenDriver &driver) {
        test::onNextModal([](QWidget &window) {
            const ScreenDriver wizard(window);
            auto &tables = wizard.control<QListWidget>("lstTables");
            tables.setCurrentItem(tables.findItems(u"Parts"_s, Qt::MatchExactly).first());
            wizard.type("txtTitle", u"Parts of ours"_s);
            wizard.press("cmdNext");
            wizard.press("cmdNext");
            wizard.choose("cboGroup1", u"Supplier"_s);
            auto &totals = wizard.control<QListWidget>("lstTotals");
            totals.findItems(u"Price"_s, Qt::MatchExactly).first()->setCheckState(Qt::Checked);
            wizard.press("cmdNext");
            wizard.choose("cboChart", u"Bars"_s);
            EXPECT_FALSE(wizard.control<QLabel>("lblPage").pixmap(Qt::ReturnByValue).isNull());
            wizard.press("cmdFinish");
        });
        driver.press("cmdWizard");
        EXPECT_EQ(designer(driver).layout().title, u"Parts of ours"_s);
        EXPECT_EQ(designer(driver).layout().groups.size(), 1);
        expectPreviewed(driver);
        expectSaveQuestion(Answer::No);
    });
}

TEST_F(OwnReportScreens, AFieldOfATableIsReadFromThenOn)
{
    insert(u"tblSupplier"_s, {{u"SupplierID"_s, 1}, {u"Name"_s, u"Acme"_s}});
    gcnData->Execute(u"update tblPart set SupplierID = 1, Bin = 'B7'"_s);
    design({}, [this](const ScreenDriver &driver) {
        auto &data = driver.control<QTreeWidget>("data");
        const auto choose = [&](const QString &shown) {
            const auto found = data.findItems(shown, Qt::MatchExactly | Qt::MatchRecursive);
            ASSERT_FALSE(found.isEmpty()) << qPrintable(shown);
            Q_EMIT data.itemDoubleClicked(found.first(), 0);
        };
        choose(u"Bin"_s);
        choose(u"Name (Supplier_Name)"_s);
        prompts.say(u"\"Scans of machines\" has nothing in common with the tables that the report "
                    "reads. Please join it in the query."_s);
        choose(u"Scan Time (ScanTime)"_s);
        EXPECT_EQ(found(designer(driver).layout().query).section(u'\n', 0, 0), u"B7|Acme"_s);
        expectPreviewed(driver);
        expectSaveQuestion(Answer::No);
    });
}

TEST_F(OwnReportScreens, AReportWhoseRowsCannotBeReadIsDesignedWithoutThem)
{
    const QString query = u"select Nowhere from tblPart"_s;
    report::writeLayoutFile(parts(query), own(u"Mine.rpt"_s));
    prompts.say(u"The report's rows can't be read.\n"_s +
                failureOf([] { (void)gcnData->Open(u"select TOP 100 Nowhere from tblPart"_s); }));
    design(own(u"Mine.rpt"_s),
           [&](const ScreenDriver &driver) { EXPECT_EQ(designer(driver).layout().query, query); });
}

TEST_F(OwnReportScreens, DeliveredReportsArePreviewedInTheDesigner)
{
    for (const QString &name : {u"rptInventoryReport.rpt"_s, u"rptWorkorder.rpt"_s})
        design(path(u"Reports"_s, name), [](const ScreenDriver &driver) {
            EXPECT_FALSE(driver.isShown("cmdWizard"));
            expectPreviewed(driver);
        });
}

} // namespace
