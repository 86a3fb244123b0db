#include "core/OpeningTable.h"
#include "core/ui/Modal.h"
#include "core/ui/Openings.h"
#include "core/ui/ScreenCalls.h"
#include "platform/help/Help.h"
#include "platform/input/QuickLink.h"
#include "shell/QuickLinks.h"
#include "shell/RightsTable.h"
#include "shell/ShellSession.h"
#include "shell/ui/MainBoard.h"
#include "shell/ui/frmMainScreen.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QScrollArea>

using namespace Qt::StringLiterals;
using test::named;

namespace {

struct MainScreen : test::ShellSession
{
    MainScreen()
    {
        QApplication::setApplicationName(u"Quorvantis"_s);
        SetUserRole();
    }
    ~MainScreen() override
    {
        help::closeAll();
        window.reset();
        openings() = {};
        shell::mainBoard() = {};
        screenCalls() = {};
    }
    void open()
    {
        window = std::make_unique<frmMainScreen>([this] { ++ended; });
        test::bringUp(*window);
    }
    void trigger(const QString &entry) { window->menuAction(entry)->trigger(); }
    bool enabled(const QString &entry) { return window->menuAction(entry)->isEnabled(); }
    bool visible(const QString &entry) { return window->menuAction(entry)->isVisible(); }
    input::QuickLink &link(int index)
    {
        return named<input::QuickLink>(*window, u"lblQuickMenu%1"_s.arg(index));
    }

    std::unique_ptr<frmMainScreen> window;
    int ended = 0;
};

} // namespace

TEST_F(MainScreen, ShowsEveryMenuObjectWithItsCaption)
{
    open();
    EXPECT_EQ(window->windowTitle(), u"Quorvantis 2.3.1"_s);
    EXPECT_EQ(window->menuBar()->actions().size(), 7);
    QStringList reports;
    for (const QAction *action : window->menuAction(u"mnuReports"_s)->menu()->actions())
        reports << (action->isSeparator() ? u"-"_s : action->text());
    EXPECT_EQ(reports.join(u'|'), u"Equipment Reports|Work Order History|Service Reports|"
                                  "Inventory Reports|-|Error Report|-|Custom Reports"_s);
    for (const Opening &entry : openingTable()) {
        if (entry.kind != OpeningKind::Entry)
            continue;
        EXPECT_EQ(window->menuAction(QString::fromLatin1(entry.object))->text(),
                  QString::fromLatin1(entry.caption));
    }
}

TEST_F(MainScreen, AnEntryIsEnabledWhenItsScreenJoinedAndItsRightIsGranted)
{
    int opened = 0;
    QList<Mode> modes;
    for (const auto &name : {u"frmEquipmentListReport"_s, u"frmEquipmentReading"_s})
        openings().join(name, [&opened] { ++opened; });
    openings().join(u"frmPart"_s, [&modes](const OpeningArguments &a) { modes.append(a.mode); });
    gRights.EqList = false;
    open();
    EXPECT_FALSE(enabled(u"mnuEquipmentList"_s));
    EXPECT_TRUE(enabled(u"mnuRecordCount"_s));
    EXPECT_TRUE(enabled(u"mnuViewPart"_s));
    EXPECT_FALSE(enabled(u"mnuViewSupplier"_s)) << "nothing has joined it";
    trigger(u"mnuRecordCount"_s);
    EXPECT_EQ(opened, 1);
    trigger(u"mnuViewPart"_s);
    trigger(u"mnuAddPart"_s);
    EXPECT_EQ(modes, (QList<Mode>{Mode::Browse, Mode::Add}));

    openings().join(u"frmPart"_s, [] { throw base::Error(5, u"out of order"_s); });
    trigger(u"mnuViewPart"_s);
    const ErrorReport report = errors.takeOne();
    EXPECT_EQ(report.ModuleName + u' ' + report.ProcedureName, u"MainForm mnuViewPart_Click"_s);
    EXPECT_TRUE(window->isVisible());
    EXPECT_THROW(openings().join(u"mnuViewPart"_s, [] {}), base::Error) << "not a name to open by";
}

TEST_F(MainScreen, PasswordsAreForThoseWhoLoggedInAndUsersForTheAdministrator)
{
    const std::tuple<QString, bool, bool> cases[] = {
        {{}, false, false}, {u"BOB"_s, true, false}, {u"ADMIN"_s, true, true}};
    for (const auto &[user, passwords, users] : cases) {
        gsLoginUser = user;
        open();
        EXPECT_EQ(visible(u"munPasswords"_s), passwords) << qPrintable(user);
        EXPECT_EQ(visible(u"mnuusrmanagement"_s), users) << qPrintable(user);
        EXPECT_EQ(openings().isJoined(u"frmUserManageMent"), users) << "hidden is not enough";
    }
    EXPECT_EQ(named<QLabel>(*window, u"lblUser"_s).text(), u"User: ADMIN"_s);
    test::onNextModal([](QWidget &form) {
        EXPECT_EQ(form.objectName(), u"frmUserManageMent"_s);
        form.close();
    });
    trigger(u"mnuusrmanagement"_s);
}

TEST_F(MainScreen, UpdateDatabaseWaitsForADatabaseOutOfDateAndRunsOnce)
{
    int updates = 0;
    openings().join(u"mnuUpdateDatabase"_s, [&updates] { ++updates; });
    open();
    EXPECT_FALSE(enabled(u"mnuUpdateDatabase"_s));
    gbDatabaseOutOfDate = true;
    open();
    EXPECT_TRUE(enabled(u"mnuUpdateDatabase"_s));
    trigger(u"mnuUpdateDatabase"_s);
    EXPECT_EQ(updates, 1);
    EXPECT_FALSE(enabled(u"mnuUpdateDatabase"_s));
}

TEST_F(MainScreen, AQuickLinkFindsAndOpensUntilTheFindIsCancelled)
{
    QStringList found{u"S1"_s, u" S2"_s, u"  "_s, u"never"_s};
    QStringList opened;
    ScreenCalls::QuickFind asked;
    screenCalls().ShowQuickFind = [&](const ScreenCalls::QuickFind &find) {
        asked = find;
        return found.takeFirst();
    };
    openings().join(u"frmSupplier"_s, [&](const OpeningArguments &a) { opened << a.key; });
    open();
    EXPECT_FALSE(link(shell::EquipmentLink).isEnabled());
    ASSERT_TRUE(link(shell::SuppliersLink).isEnabled());
    QTest::mouseClick(&link(shell::SuppliersLink), Qt::LeftButton);
    EXPECT_EQ(opened, (QStringList{u"S1"_s, u" S2"_s}));
    EXPECT_EQ(found, QStringList{u"never"_s});
    EXPECT_EQ((QStringList{asked.field, asked.label, asked.table, asked.form}).join(u'|'),
              u"Name|Supplier Name|tblSupplier|frmSupplier"_s);

    // By its key too, and cancelled at once.
    found = {QString()};
    opened.clear();
    QTest::keyClick(window.get(), Qt::Key_F5);
    EXPECT_TRUE(found.isEmpty());
    EXPECT_TRUE(opened.isEmpty());
}

TEST_F(MainScreen, TheReportsLinkTogglesTheBoardsPane)
{
    bool shown = true;
    auto &board = shell::mainBoard();
    board.make = [](QWidget *parent) { return new QLabel(u"board"_s, parent); };
    board.reportsVisible = [&shown] { return shown; };
    board.LoadUnloadReportsNavigator = [&shown](bool show) { shown = show; };
    open();
    QTest::mouseClick(&link(shell::ReportsLink), Qt::LeftButton);
    EXPECT_FALSE(shown);
    QTest::keyClick(window.get(), Qt::Key_F8);
    EXPECT_TRUE(shown);
}

TEST_F(MainScreen, WhoComesBackSeesTheBoardAnewButNotForItsOwnErrorBox)
{
    int loads = 0;
    auto &board = shell::mainBoard();
    board.make = [](QWidget *parent) { return new QLabel(u"board"_s, parent); };
    board.LoadData = [&loads] {
        ++loads;
        // As the error report does: a window of its own, which gives the main window back.
        QDialog report;
        QTimer::singleShot(20, &report, &QDialog::accept);
        report.exec();
    };
    window = std::make_unique<frmMainScreen>([] {});
    window->show();
    ASSERT_TRUE(QTest::qWaitFor([&loads] { return loads == 1; }));
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    EXPECT_EQ(loads, 1);

    // The next time the user comes back the board is read again.
    QWidget other;
    test::bringUp(other);
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([&loads] { return loads == 2; }));
}

TEST_F(MainScreen, FitsIntoAScreenOf768LinesAtOneAndAHalf)
{
    shell::mainBoard().make = [](QWidget *parent) { return new QWidget(parent); };
    open();
    window->resize(880, 440);
    EXPECT_EQ(window->size(), QSize(880, 440)) << "a higher window's title is off the screen";
    input::QuickLink &last = link(shell::HelpLink);
    last.setFocus(Qt::TabFocusReason);
    window->findChild<QScrollArea *>()->ensureWidgetVisible(&last);
    EXPECT_TRUE(last.visibleRegion().boundingRect() == last.rect()) << "each link can be reached";
}

TEST_F(MainScreen, ExitEndsAtOnceAndClosingStoresTheSizeAndClosesTheHelp)
{
    open();
    trigger(u"mnuExit"_s);
    EXPECT_EQ(std::exchange(ended, 0), 1);
    EXPECT_EQ(GetOption(u"WIDTHfrmMainScreen"_s, true), QString());
    window->resize(900, 600);
    trigger(u"mnuQuorvantisHelp"_s);
    const auto helpShown = [] {
        return std::ranges::any_of(QApplication::topLevelWidgets(), [](const QWidget *each) {
            return each->objectName() == u"frmHelp" && each->isVisible();
        });
    };
    EXPECT_TRUE(helpShown());
    window->close();
    EXPECT_FALSE(helpShown());
    EXPECT_EQ(ended, 1);
    EXPECT_EQ(GetOption(u"WIDTHfrmMainScreen"_s, true), u"13500"_s);
    EXPECT_EQ(GetOption(u"HEIGHTfrmMainScreen"_s, true), u"9000"_s);
    EXPECT_EQ(GetOption(u"LEFTfrmMainScreen"_s, true), QString());
}

TEST_F(MainScreen, CompactRemovesRowsWithoutAPartFirst)
{
    QDir().mkpath(base::applicationPath(u"\\Data\\Backup"_s));
    gcnData->Execute(u"Insert into tblEquipmentPart (EquipmentID, PartID) values (1, '')"_s);
    gcnData->Execute(u"Insert into tblEquipmentPart (EquipmentID, PartID) values (1, 'A')"_s);
    open();
    prompts.say(u"System will compact the database. It might take a while. Please wait."_s);
    prompts.meanwhile([this] { EXPECT_FALSE(window->isEnabled()); });
    prompts.say(u"System has finished compacting the database."_s);
    trigger(u"mnuCompactDB"_s);
    EXPECT_TRUE(window->isEnabled());
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(count(u"tblEquipmentPart"_s, u"EquipmentID = 1"_s), 1);
    // Without a clean database nothing is compacted.
    gcnData->Execute(u"Drop table tblWoPartHistory"_s);
    prompts.say(u"System will compact the database. It might take a while. Please wait."_s);
    trigger(u"mnuCompactDB"_s);
    EXPECT_NE(errors.takeOne().ErrNumber, 0);
    EXPECT_TRUE(window->isEnabled());
}
