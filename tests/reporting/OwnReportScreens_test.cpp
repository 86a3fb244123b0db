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
#include "support/TestFiles.h"

#include <QLabel>
#include <QListWidget>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

namespace {

class OwnReportScreens : public test::OwnReportSession
{
protected:
    static void retitle(const test::ScreenDriver &driver, const QString &title)
    {
        driver.control<report::ReportDesigner>("CRDesignerCtrl1")
            .document()
            .change(u"Title"_s,
                    [&](report::Layout &layout, report::Selection &) { layout.title = title; });
    }
    void expectSaveQuestion(Answer answer)
    {
        prompts.expect(u"Do you want to save the changes?"_s, Icon::Question, Buttons::YesNoCancel,
                       answer);
    }
};

TEST_F(OwnReportScreens, TheListAnswersTheFileThatWasChosen)
{
    const auto choose = [](bool toModify, const std::function<void(test::ScreenDriver)> &act) {
        QString chosen;
        test::inScreen(
            [&] {
                frmUserDefinedReports list;
                chosen = toModify ? list.ShowReportList() : list.ShowUserDefinedReportDetatils();
            },
            act);
        return chosen;
    };
    EXPECT_EQ(choose(false,
                     [](const test::ScreenDriver &driver) {
                         EXPECT_FALSE(driver.isShown("fraReports"));
                         EXPECT_FALSE(driver.isEnabled("cmdViewReport"));
                         driver.press("cmdAdd");
                     }),
              u"A"_s);
    test::writeFile(own(u"Ours.rpt"_s), "x");
    EXPECT_EQ(choose(false,
                     [](const test::ScreenDriver &driver) {
                         EXPECT_EQ(driver.control<QAbstractButton>("cmdViewReport").text(),
                                   u"&View Report"_s);
                         driver.press("cmdViewReport");
                     }),
              own(u"Ours.rpt"_s));
    EXPECT_EQ(choose(true,
                     [](const test::ScreenDriver &driver) {
                         EXPECT_EQ(driver.control<QAbstractButton>("cmdViewReport").text(),
                                   u"&Modify Report"_s);
                         auto &grid = driver.control<grid::GridView>("grdReports");
                         grid.selectRow(grid.rows().findRow(u"Reports Name", u"EquipmentList"_s));
                         driver.press("cmdViewReport");
                     }),
              path(u"Reports"_s, u"rptEquipmentList.rpt"_s));
    EXPECT_EQ(choose(true,
                     [](const test::ScreenDriver &driver) {
                         driver.press("optUserReport");
                         driver.press("cmdViewReport");
                     }),
              own(u"Ours.rpt"_s));
    EXPECT_EQ(choose(true, [](const test::ScreenDriver &driver) { driver.press("cmdExit"); }),
              QString());
}

TEST_F(OwnReportScreens, AReportOfTheUsersOwnReadsForItself)
{
    report::Layout asking = parts(u"select PartID from tblPart where Price >= ?Least"_s);
    report::Parameter least;
    least.name = u"Least"_s;
    least.type = report::ParameterType::Number;
    asking.parameters = {least};
    // Expressions read the answer, and further rows come along.
    report::Object answer = asking.bands.first().objects.first();
    answer.content = u"Least"_s;
    asking.bands.first().objects.append(answer);
    report::RowSet same;
    same.name = u"same"_s;
    same.key = same.of = u"PartID"_s;
    same.query = u"select PartID, Price from tblPart"_s;
    asking.rowSets = {same};
    report::Band sub;
    sub.kind = report::BandKind::SubDetail;
    sub.rows = same.name;
    answer.content = u"Price"_s;
    sub.objects = {answer};
    asking.bands.append(sub);
    report::writeLayoutFile(asking, own(u"Asking.rpt"_s));
    bool shown = false;
    test::inScreen(
        [&] { shown = ShowUserDefinedReport(own(u"Asking.rpt"_s)); },
        [](const test::ScreenDriver &question) {
            question.type("Least", u"2"_s);
            test::onNextModal([](QWidget &preview) {
                const test::ScreenDriver driver(preview);
                EXPECT_EQ(preview.windowTitle(), u"Our parts"_s);
                EXPECT_EQ(driver.control<report::ReportViewer>("CRViewerReport").outcome().problems,
                          QStringList());
                driver.press("cmdExit");
            });
            QTest::keyClick(&question.screen(), Qt::Key_Return);
        });
    EXPECT_TRUE(shown);
    test::inScreen([&] { shown = ShowUserDefinedReport(own(u"Asking.rpt"_s)); },
                   [](const test::ScreenDriver &question) {
                       QTest::keyClick(&question.screen(), Qt::Key_Escape);
                   });
    EXPECT_FALSE(shown);

    report::writeLayoutFile(parts({}), own(u"Empty.rpt"_s));
    prompts.expect(u"This report doesn't say yet which data it shows. Please open it by \"Modify "
                   "Reports\" and choose them."_s,
                   Icon::Information);
    EXPECT_FALSE(ShowUserDefinedReport(own(u"Empty.rpt"_s)));
    report::writeLayoutFile(parts(u"delete from tblPart"_s), own(u"Hostile.rpt"_s));
    EXPECT_FALSE(ShowUserDefinedReport(own(u"Hostile.rpt"_s)));
    EXPECT_TRUE(errors.takeOne().ErrDescription.contains(u"only read"));
    EXPECT_EQ(count(u"tblPart"_s), 3);
}

TEST_F(OwnReportScreens, ACopyOfADeliveredReportAsksForItsParametersToo)
{
    insert(u"tblEquipment"_s, {{u"EquipmentID"_s, 1}, {u"EquipmentName"_s, u"Mower"_s}});
    report::Layout layout = reportfiles::readDelivered(u"rptEquipmentList"_s);
    report::Parameter note;
    note.name = u"Note"_s;
    layout.parameters = {note};
    report::writeLayoutFile(layout, path(u"Custom Reports"_s, u"rptEquipmentList.rpt"_s));
    bool shown = true;
    test::inScreen([&] { shown = showReport({.layout = u"rptEquipmentList"_s}); },
                   [](const test::ScreenDriver &question) {
                       EXPECT_EQ(question.screen().objectName(), u"parameters"_s);
                       QTest::keyClick(&question.screen(), Qt::Key_Escape);
                   });
    EXPECT_FALSE(shown);
}

TEST_F(OwnReportScreens, ANewReportIsAskedForItsNameUntilItHasOne)
{
    test::inScreen(
        [] { frmReportModify().CreateNewReport(); },
        [this](const test::ScreenDriver &driver) {
            retitle(driver, u"Mine"_s);
            prompts.expectInput(u"Please give a file name."_s, QString());
            prompts.expectInput(u"Please give a file name."_s, std::nullopt);
            prompts.expectInput(u"Please give a file name."_s, u"../Reports/rptPart"_s);
            prompts.expect(
                u"A report's name can't have any of these characters: \\ / : * ? \" < > |"_s,
                Icon::None);
            prompts.expectInput(u"Please give a file name."_s, u"Mine"_s);
            driver.press("cmdUpdate");
            EXPECT_EQ(titleIn(own(u"Mine.rpt"_s)), u"Mine"_s);
            retitle(driver, u"Mine again"_s);
            driver.press("cmdUpdate");
            EXPECT_EQ(titleIn(own(u"Mine.rpt"_s)), u"Mine again"_s);
            driver.press("cmdExit");
        });
}

TEST_F(OwnReportScreens, AnExistingReportStaysUntilTheUserWantsItReplaced)
{
    report::writeLayoutFile(parts(u"select 1"_s), own(u"Mine.rpt"_s));
    test::inScreen([] { frmReportModify().CreateNewReport(); },
                   [this](const test::ScreenDriver &driver) {
                       retitle(driver, u"Mine"_s);
                       for (const Answer answer : {Answer::No, Answer::Yes}) {
                           prompts.expectInput(u"Please give a file name."_s, u"mine"_s);
                           prompts.expect(u"There is a report of this name already. Replace it?"_s,
                                          Icon::Warning, Buttons::YesNo, answer);
                           driver.press("cmdUpdate");
                           EXPECT_EQ(titleIn(own(u"Mine.rpt"_s)),
                                     answer == Answer::No ? u"Our parts"_s : u"Mine"_s);
                       }
                       driver.press("cmdExit");
                   });
}

TEST_F(OwnReportScreens, AChangedDeliveredReportGoesToTheCustomersFolder)
{
    const QString delivered = path(u"Reports"_s, u"rptPart.rpt"_s);
    const QString custom = path(u"Custom Reports"_s, u"rptPart.rpt"_s);
    report::writeLayoutFile(parts({}), delivered);
    const QByteArray asItCame = test::readFile(delivered);
    const auto modify = [&](const std::function<void(test::ScreenDriver)> &act) {
        test::inScreen([&] { frmReportModify().ShowReport(delivered, u"rptPart.rpt"_s); }, act);
    };
    modify([this, &custom](const test::ScreenDriver &driver) {
        retitle(driver, u"Changed"_s);
        expectSaveQuestion(Answer::Cancel);
        driver.press("cmdExit");
        EXPECT_TRUE(driver.isOpen());
        EXPECT_FALSE(QFile::exists(custom));
        expectSaveQuestion(Answer::No);
        driver.press("cmdExit");
    });
    EXPECT_FALSE(QFile::exists(custom));
    modify([this](const test::ScreenDriver &driver) {
        retitle(driver, u"Changed"_s);
        expectSaveQuestion(Answer::Yes);
        driver.press("cmdExit");
    });
    EXPECT_EQ(titleIn(custom), u"Changed"_s);
    EXPECT_EQ(test::readFile(delivered), asItCame);
    modify([this, &custom](const test::ScreenDriver &driver) {
        retitle(driver, u"Ours"_s);
        report::writeLayoutFile(parts(u"select 2"_s), custom);
        prompts.expect(u"Another workstation has saved this report since you opened it. Replace "
                       "what was saved there?"_s,
                       Icon::Warning, Buttons::YesNo, Answer::No);
        driver.press("cmdUpdate");
        EXPECT_EQ(titleIn(custom), u"Our parts"_s);
        expectSaveQuestion(Answer::No);
        driver.press("cmdExit");
    });
}

TEST_F(OwnReportScreens, ADraftIsOfferedAndGoesOnWhereTheWorkEnded)
{
    const QString file = own(u"Mine.rpt"_s);
    report::writeLayoutFile(parts(u"select PartID from tblPart"_s), file);
    report::Layout draft = parts(u"select PartID from tblPart"_s);
    draft.title = u"Half done"_s;
    drafts::keep(file, draft, ownreports::versionOf(file));
    const QString question =
        u"This report was being designed on %1 and was not saved. Go on with "
        "it?"_s.arg(drafts::find(file)->kept.toString(u"MM/dd/yyyy hh:mm AP"_s));
    prompts.expect(question, Icon::Question, Buttons::YesNo, Answer::No);
    test::inScreen([&] { frmReportModify().ShowReport(file, u"Mine.rpt"_s); },
                   [](const test::ScreenDriver &driver) { driver.press("cmdExit"); });
    prompts.expect(question, Icon::Question, Buttons::YesNo, Answer::Yes);
    test::inScreen([&] { frmReportModify().ShowReport(file, u"Mine.rpt"_s); },
                   [](const test::ScreenDriver &driver) {
                       driver.press("cmdUpdate");
                       driver.press("cmdExit");
                   });
    EXPECT_EQ(titleIn(file), u"Half done"_s);
    EXPECT_FALSE(drafts::find(file));
}

TEST_F(OwnReportScreens, ADraftOfAnOlderFileAsksBeforeItReplacesTheNewerOne)
{
    const QString file = own(u"Mine.rpt"_s);
    report::writeLayoutFile(parts(u"select PartID from tblPart"_s), file);
    report::Layout draft = reportfiles::readLayoutAt(file);
    draft.title = u"Half done"_s;
    drafts::keep(file, draft, ownreports::versionOf(file));
    report::writeLayoutFile(parts(u"select Price as PartID from tblPart"_s), file);
    prompts.expect(u"This report was being designed on %1 and was not saved. Go on with it?"_s.arg(
                       drafts::find(file)->kept.toString(u"MM/dd/yyyy hh:mm AP"_s)),
                   Icon::Question, Buttons::YesNo, Answer::Yes);
    test::inScreen([&] { frmReportModify().ShowReport(file, u"Mine.rpt"_s); },
                   [this](const test::ScreenDriver &driver) {
                       prompts.expect(
                           u"Another workstation has saved this report since you opened it. "
                           "Replace what was saved there?"_s,
                           Icon::Warning, Buttons::YesNo, Answer::No);
                       driver.press("cmdUpdate");
                       expectSaveQuestion(Answer::No);
                       driver.press("cmdExit");
                   });
    EXPECT_EQ(titleIn(file), u"Our parts"_s);
}

TEST_F(OwnReportScreens, ADamagedCopyGivesWayToTheDeliveredLayoutWhenTheUserWantsIt)
{
    const QString custom = path(u"Custom Reports"_s, u"rptSupplierReport.rpt"_s);
    test::writeFile(custom, "<report version=\"1\">\n  <nonsense\n");
    const auto ask = [&](Answer answer) {
        QString failure;
        try {
            static_cast<void>(reportfiles::readLayoutAt(custom));
        } catch (const base::Error &error) {
            failure = error.description();
        }
        prompts.expect(failure + u"\n\nBegin with the layout that came with the program?"_s,
                       Icon::Question, Buttons::YesNo, answer);
    };
    ask(Answer::No);
    frmReportModify().ShowReport(custom, u"rptSupplierReport.rpt"_s);
    ask(Answer::Yes);
    test::inScreen([&] { frmReportModify().ShowReport(custom, u"rptSupplierReport.rpt"_s); },
                   [](const test::ScreenDriver &driver) {
                       EXPECT_EQ(driver.control<report::ReportDesigner>("CRDesignerCtrl1").layout(),
                                 reportfiles::readDelivered(u"rptSupplierReport"_s));
                       driver.press("cmdExit");
                   });
    test::writeFile(own(u"Mine.rpt"_s), "<report version=\"1\">\n  <nonsense\n");
    frmReportModify().ShowReport(own(u"Mine.rpt"_s), u"Mine.rpt"_s);
    EXPECT_TRUE(errors.takeOne().ErrDescription.contains(u"Line 3"));
}

TEST_F(OwnReportScreens, WhatIsDesignedIsKeptAsADraftMeanwhile)
{
    test::inScreen(
        [] { frmReportModify().CreateNewReport(); },
        [this](const test::ScreenDriver &driver) {
            retitle(driver, u"Mine"_s);
            EXPECT_TRUE(QTest::qWaitFor([] { return drafts::find(u"new"_s).has_value(); }, 6000));
            expectSaveQuestion(Answer::No);
            driver.press("cmdExit");
        });
    EXPECT_FALSE(drafts::find(u"new"_s));
}

TEST_F(OwnReportScreens, TheWizardMakesAReportThatShowsItsRows)
{
    test::inScreen(
        [] { frmReportModify().CreateNewReport(); },
        [this](const test::ScreenDriver &driver) {
            test::onNextModal([](QWidget &window) {
                const test::ScreenDriver wizard(window);
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
            auto &designer = driver.control<report::ReportDesigner>("CRDesignerCtrl1");
            EXPECT_EQ(designer.layout().title, u"Parts of ours"_s);
            EXPECT_EQ(designer.layout().groups.size(), 1);
            designer.showPreview();
            designer.viewer().finishLayout();
            EXPECT_EQ(designer.viewer().outcome().problems, QStringList());
            EXPECT_GT(designer.viewer().pageCount(), 0);
            expectSaveQuestion(Answer::No);
            driver.press("cmdExit");
        });
}

TEST_F(OwnReportScreens, AFieldOfATableIsReadFromThenOn)
{
    insert(u"tblSupplier"_s, {{u"SupplierID"_s, 1}, {u"Name"_s, u"Acme"_s}});
    gcnData->Execute(u"update tblPart set SupplierID = 1, Bin = 'B7'"_s);
    test::inScreen(
        [] { frmReportModify().CreateNewReport(); },
        [this](const test::ScreenDriver &driver) {
            auto &data = driver.control<QTreeWidget>("data");
            const auto choose = [&](const QString &shown) {
                const auto found = data.findItems(shown, Qt::MatchExactly | Qt::MatchRecursive);
                ASSERT_FALSE(found.isEmpty()) << qPrintable(shown);
                Q_EMIT data.itemDoubleClicked(found.first(), 0);
            };
            choose(u"Bin"_s);
            choose(u"Name (Supplier_Name)"_s);
            prompts.expect(u"\"Scans of machines\" has nothing in common with the tables that the "
                           "report reads. Please join it in the query."_s,
                           Icon::None);
            choose(u"Scan Time (ScanTime)"_s);
            auto &designer = driver.control<report::ReportDesigner>("CRDesignerCtrl1");
            EXPECT_EQ(found(designer.layout().query).section(u'\n', 0, 0), u"B7|Acme"_s);
            designer.showPreview();
            designer.viewer().finishLayout();
            EXPECT_EQ(designer.viewer().outcome().problems, QStringList());
            expectSaveQuestion(Answer::No);
            driver.press("cmdExit");
        });
}

TEST_F(OwnReportScreens, AReportWhoseRowsCannotBeReadIsDesignedWithoutThem)
{
    const QString query = u"select Nowhere from tblPart"_s;
    report::writeLayoutFile(parts(query), own(u"Mine.rpt"_s));
    QString reason;
    try {
        static_cast<void>(gcnData->Open(u"select TOP 100 Nowhere from tblPart"_s));
    } catch (const base::Error &error) {
        reason = error.description();
    }
    prompts.expect(u"The report's rows can't be read.\n"_s + reason, Icon::None);
    test::inScreen([&] { frmReportModify().ShowReport(own(u"Mine.rpt"_s), u"Mine.rpt"_s); },
                   [&](const test::ScreenDriver &driver) {
                       EXPECT_EQ(
                           driver.control<report::ReportDesigner>("CRDesignerCtrl1").layout().query,
                           query);
                       driver.press("cmdExit");
                   });
}

TEST_F(OwnReportScreens, EveryDeliveredReportIsPreviewedInTheDesigner)
{
    for (const QString &name : {u"rptInventoryReport"_s, u"rptWorkorder"_s}) {
        test::inScreen(
            [&] {
                frmReportModify().ShowReport(path(u"Reports"_s, name + u".rpt"_s),
                                             name + u".rpt"_s);
            },
            [](const test::ScreenDriver &driver) {
                EXPECT_FALSE(driver.isShown("cmdWizard"));
                auto &designer = driver.control<report::ReportDesigner>("CRDesignerCtrl1");
                designer.showPreview();
                designer.viewer().finishLayout();
                EXPECT_EQ(designer.viewer().outcome().problems, QStringList());
                driver.press("cmdExit");
            });
    }
}

} // namespace
