#include "shell/ui/frmMainScreen.h"

#include "administration/CompactDatabase.h"
#include "core/OpeningTable.h"
#include "core/Permission.h"
#include "core/RegistryValues.h"
#include "core/Session.h"
#include "core/ui/FormLayout.h"
#include "core/ui/Launch.h"
#include "core/ui/Openings.h"
#include "platform/base/Environment.h"
#include "platform/base/Prompts.h"
#include "platform/base/Trapped.h"
#include "platform/help/Help.h"
#include "platform/input/QuickLink.h"
#include "platform/input/Theme.h"
#include "shell/CleanUpParts.h"
#include "shell/QuickLinks.h"
#include "shell/Updates.h"
#include "shell/ui/CheckForUpdates.h"
#include "shell/ui/HeaderBar.h"
#include "shell/ui/MainBoard.h"
#include "shell/ui/QuickLinkActions.h"
#include "shell/ui/frmAbout.h"
#include "shell/ui/frmChangePassword.h"
#include "shell/ui/frmSendDBUpdate.h"
#include "shell/ui/frmSetup.h"
#include "shell/ui/frmUserManageMent.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QFileInfo>
#include <QLabel>
#include <QMenuBar>
#include <QPointer>
#include <QScrollArea>
#include <QShortcut>
#include <QStatusBar>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr auto module = "MainForm";
constexpr auto administrator = u"ADMIN";
constexpr int sideBarWidth = 180;
constexpr QSize factorySize(1032, 746); // the factory size that the options hold, in pixels

QString latin1(const char *text)
{
    return QString::fromLatin1(text);
}

QString onlinePage()
{
    return GetMakerRegistryValue(u"OnlinePage"_s);
}

QString contactPage()
{
    return GetMakerRegistryValue(u"ContactPage"_s);
}

QString quickStartManual()
{
    return base::applicationPath(u"\\QuickStart.pdf"_s);
}

} // namespace

frmMainScreen::frmMainScreen(std::function<void()> End, QWidget *parent)
    : QMainWindow(parent)
    , m_end(std::move(End))
{
    setObjectName(u"frmMainScreen"_s);
    // Ahead of menus and links, which are grey for what has not joined.
    joinOwnEntries();
    buildMenu();
    buildSideBar();
    buildBoard();
    buildStatusBar();
    MDIForm_Load();
}

void frmMainScreen::joinOwnEntries()
{
    // None of them holds on to this window, which they may outlive.
    Openings &all = openings();
    // It ends the process at once, past closeEvent: the window's size is stored by its close box
    // alone.
    all.join(u"mnuExit"_s, [end = m_end] {
        if (end)
            end();
    });
    all.join(u"frmChangePassword"_s, [] { frmChangePassword::ShowSystemSettings(); });
    all.join(u"frmSetup"_s, [](const OpeningArguments &a) { frmSetup::ShowSystemSettings(a.key); });
    all.join(u"frmSendDBUpdate"_s, [] { frmSendDBUpdate::ShowSendDBUpdateDetails(); });
    // Not joined for others at all: hidden in the menu it could still be opened by its name.
    if (gsLoginUser == administrator)
        all.join(u"frmUserManageMent"_s, [] { frmUserManageMent::ShowUserManagement(); });
    all.join(u"mnuCompactDB"_s, [window = QPointer(this)] {
        if (window)
            window->mnuCompactDB_Click();
    });
    all.join(u"mnuQuorvantisHelp"_s, [] { help::showHelp(QApplication::activeWindow()); });
    all.join(u"frmAbout"_s, [] { frmAbout::ShowAbout(); });
    // What has no target on this computer is not offered.
    if (!onlinePage().isEmpty())
        all.join(u"mnuQuorvantisOnline"_s, [] { launchIt(onlinePage()); });
    if (!contactPage().isEmpty())
        all.join(u"mnuContactUs"_s, [] { launchIt(contactPage()); });
    if (!updates::feedAddress().isEmpty())
        all.join(u"mnuCheckForUpdates"_s, mnuCheckForUpdates_Click);
    if (QFileInfo::exists(quickStartManual()))
        all.join(u"mnuQickStart"_s, [] { launchIt(quickStartManual()); });
}

void frmMainScreen::buildMenu()
{
    for (const Opening &entry : openingTable()) {
        // What screens offer by a button of theirs stands in no menu.
        if (entry.kind == OpeningKind::Inner)
            continue;
        QMenu *parent = m_menus.value(latin1(entry.parent));
        const QString name = latin1(entry.object);
        if (entry.kind == OpeningKind::Menu) {
            // A menu stands in the list ahead of all that it holds.
            QMenu *menu = parent != nullptr ? parent->addMenu(latin1(entry.caption))
                                            : menuBar()->addMenu(latin1(entry.caption));
            menu->setObjectName(name);
            m_menus.insert(name, menu);
            m_actions.insert(name, menu->menuAction());
            continue;
        }
        QAction *action = entry.kind == OpeningKind::Separator
                              ? parent->addSeparator()
                              : parent->addAction(latin1(entry.caption));
        action->setObjectName(name);
        action->setStatusTip(latin1(entry.purpose));
        m_actions.insert(name, action);
        // By its name and not by its row: the error report tells which entry was chosen.
        connect(action, &QAction::triggered, this, [this, name] { openEntry(name); });
    }
    // Shown in the menu as well, where other keys of the side bar have no entry.
    m_actions.value(u"mnuQuorvantisHelp"_s)->setShortcut(Qt::Key_F1);
}

void frmMainScreen::buildSideBar()
{
    picHeaderBar = new shell::HeaderBar(this);
    picSideMenuBar = new QWidget(this);
    picSideMenuBar->setObjectName(u"picSideMenuBar"_s);
    picSideMenuBar->setAccessibleName(u"Quick links"_s);
    picSideMenuBar->setAutoFillBackground(true);
    auto *column = new QVBoxLayout(picSideMenuBar);
    column->setContentsMargins(6, 10, 6, 10);
    column->setSpacing(4);
    for (int index = 0; const shell::QuickLink &each : shell::quickLinks()) {
        auto *link = new input::QuickLink(latin1(each.label), theme::icon(latin1(each.icon)),
                                          picSideMenuBar);
        link->setObjectName(u"lblQuickMenu%1"_s.arg(index));
        link->setToolTip(u"%1 (%2)"_s.arg(latin1(each.purpose), latin1(each.key)));
        link->setStatusTip(latin1(each.purpose));
        // A link that would lead nowhere is grey like an entry of the menus.
        link->setEnabled(shell::isQuickLinkJoined(index));
        connect(link, &input::QuickLink::clicked, this,
                [this, index] { lblQuickMenu_Click(index); });
        // F1 is the menu's: two owners of a key would leave it to neither.
        if (index != shell::HelpLink) {
            auto *key = new QShortcut(QKeySequence(latin1(each.key)), this);
            connect(key, &QShortcut::activated, link, &input::QuickLink::click);
        }
        lblQuickMenu[static_cast<std::size_t>(index)] = link;
        column->addWidget(link);
        ++index;
    }
    column->addStretch();
}

void frmMainScreen::buildBoard()
{
    auto *middle = new QWidget(this);
    auto *whole = new QVBoxLayout(middle);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->setSpacing(0);
    whole->addWidget(picHeaderBar);
    auto *below = new QHBoxLayout;
    below->setSpacing(0);
    // On a small or much enlarged screen the links scroll: they must not make the window higher
    // than the screen, which would put its title beyond the edge.
    auto *sideBar = new QScrollArea(middle);
    sideBar->setWidget(picSideMenuBar);
    sideBar->setWidgetResizable(true);
    sideBar->setFrameShape(QFrame::NoFrame);
    sideBar->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    sideBar->setFocusPolicy(Qt::NoFocus);
    sideBar->setFixedWidth(sideBarWidth);
    below->addWidget(sideBar);
    // The board is a screen of another folder, which this one doesn't know.
    if (const auto &board = shell::mainBoard(); !board.isEmpty())
        below->addWidget(board.make(middle), 1);
    else
        below->addStretch(1);
    whole->addLayout(below, 1);
    setCentralWidget(middle);
}

void frmMainScreen::buildStatusBar()
{
    // With security off nobody has logged in, and there is no name to show.
    statusBar()->setSizeGripEnabled(true);
    if (!gsLoginUser.isEmpty()) {
        auto *user = new QLabel(u"User: "_s + gsLoginUser, this);
        user->setObjectName(u"lblUser"_s);
        statusBar()->addPermanentWidget(user);
    }
}

void frmMainScreen::MDIForm_Load()
{
    base::trapped(module, "MDIForm_Load", [this] {
        setCaptions();
        m_actions.value(u"mnuusrmanagement"_s)->setVisible(gsLoginUser == administrator);
        // Without a login there is no password to change.
        m_actions.value(u"munPasswords"_s)->setVisible(!gsLoginUser.isEmpty());
        // The size comes ahead of the stored one, which takes its place where there is one.
        resize(factorySize);
        ApplyCenteredFormLayout(this, objectName());
        ApplyMainFormColors();
        ApplySideBarColors();
        // From now on new screens are placed beside the side bar.
        setMainFormParts({this, theme::headerHeight, sideBarWidth});
        CheckRole();
    });
}

void frmMainScreen::setCaptions()
{
    const QString product = QApplication::applicationName();
    setWindowTitle(product + u' ' + GetVersionNo());
    m_actions.value(u"mnuQuorvantisHelp"_s)->setText(product + u" Help"_s);
    m_actions.value(u"mnuQuorvantisOnline"_s)->setText(product + u" Online"_s);
    m_actions.value(u"mnuAboutQuorvantis"_s)->setText(u"About "_s + product);
}

void frmMainScreen::ApplyMainFormColors()
{
    QPalette colours = palette();
    colours.setColor(QPalette::Window, theme::formColor());
    setPalette(colours);
}

void frmMainScreen::ApplySideBarColors()
{
    QPalette colours = picSideMenuBar->palette();
    colours.setColor(QPalette::Window, theme::panelColor());
    picSideMenuBar->setPalette(colours);
}

void frmMainScreen::CheckRole()
{
    for (const Opening &entry : openingTable()) {
        if (entry.kind == OpeningKind::Entry)
            m_actions.value(latin1(entry.object))
                ->setEnabled(openings().isJoined(latin1(entry.name)) &&
                             rights::isGranted(entry.right));
    }
    // It waits for the start to find the database out of date.
    if (!gbDatabaseOutOfDate)
        m_actions.value(u"mnuUpdateDatabase"_s)->setEnabled(false);
}

bool frmMainScreen::CleanUpParts() const
{
    return ::CleanUpParts();
}

void frmMainScreen::openEntry(const QString &name)
{
    // What an opened screen raises ends here: the report names the entry, and the window stays.
    base::trapped(module, qPrintable(name + u"_Click"_s), [&] {
        if (name == u"mnuUpdateDatabase")
            mnuUpdateDatabase_Click();
        else if (const Opening *entry = menuOpening(name))
            openings().open(latin1(entry->name), {.mode = entry->mode});
    });
}

void frmMainScreen::mnuCompactDB_Click()
{
    // Told ahead, since the window doesn't answer until it is done.
    base::showMessage(u"System will compact the database. It might take a while. Please wait."_s);
    // A database that can't be cleaned is not copied over the one that is there. The failure has
    // been reported.
    if (!CleanUpParts())
        return;
    // No entry may be chosen meanwhile: the connections are closed. CompactDatabase passes no error
    // on, so both are taken back in any case.
    setEnabled(false);
    QApplication::setOverrideCursor(Qt::WaitCursor);
    CompactDatabase();
    QApplication::restoreOverrideCursor();
    setEnabled(true);
}

void frmMainScreen::mnuUpdateDatabase_Click()
{
    // Once only: a script that has failed is marked as run, and a second try would find nothing
    // left to do.
    openings().open(u"mnuUpdateDatabase");
    m_actions.value(u"mnuUpdateDatabase"_s)->setEnabled(false);
}

void frmMainScreen::lblQuickMenu_Click(int index)
{
    base::trapped(module, "lblQuickMenu_Click", [&] { runQuickLink(index); });
}

void frmMainScreen::runQuickLink(int index)
{
    // The keys of the links reach here also while a link is grey.
    if (!shell::isQuickLinkJoined(index))
        return;
    const QString opening = latin1(shell::quickLinks()[static_cast<std::size_t>(index)].opening);
    const auto &board = shell::mainBoard();
    if (!opening.isEmpty())
        openings().open(opening);
    else if (index == shell::ReportsLink)
        board.LoadUnloadReportsNavigator(!board.reportsVisible());
    else
        shell::runQuickFindLoop(index);
}

bool frmMainScreen::event(QEvent *event)
{
    // The window is left while the board is being read: by a box of the board's own.
    if (event->type() == QEvent::WindowDeactivate && m_activating)
        m_skipActivation = true;
    if (event->type() == QEvent::WindowActivate && !m_activating) {
        // A box that the last activation itself has shown is no reason for another one: an error
        // of the board would come up again without end.
        if (!std::exchange(m_skipActivation, false))
            MDIForm_Activate();
    }
    return QMainWindow::event(event);
}

void frmMainScreen::MDIForm_Activate()
{
    m_activating = true;
    base::trapped(module, "MDIForm_Activate", [this] {
        if (const auto &LoadData = shell::mainBoard().LoadData)
            LoadData();
    });
    m_activating = false;
}

void frmMainScreen::closeEvent(QCloseEvent *event)
{
    // The help is a window of its own, which would keep the process alive.
    MDIForm_QueryUnload();
    MDIForm_Unload();
    event->accept();
    // The process ends with its main form, whatever other windows there are.
    if (m_end)
        m_end();
}

void frmMainScreen::MDIForm_QueryUnload()
{
    help::closeAll();
}

void frmMainScreen::MDIForm_Unload()
{
    base::trapped(module, "MDIForm_Unload",
                  // The size only: the window is centred at each start.
                  [this] { StoreFormLayout(*this, objectName(), false); });
}
