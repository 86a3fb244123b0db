#include "shell/ui/frmMainScreen.h"

#include "core/General.h"
#include "core/Session.h"
#include "core/ui/FormLayout.h"
#include "core/ui/Launch.h"
#include "platform/base/Environment.h"
#include "platform/base/Prompts.h"
#include "platform/base/Trapped.h"
#include "platform/help/Help.h"
#include "platform/input/QuickLink.h"
#include "platform/input/Theme.h"
#include "shell/CleanUpParts.h"
#include "shell/RightsTable.h"
#include "shell/ui/HeaderBar.h"
#include "shell/ui/ScreenEntries.h"
#include "shell/ui/StartPage.h"
#include "shell/ui/frmAbout.h"
#include "shell/ui/frmChangePassword.h"
#include "shell/ui/frmUserManageMent.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QFileInfo>
#include <QLabel>
#include <QMenuBar>
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
    joinOwnEntries();
    buildMenu();
    buildSideBar();
    buildBoard();
    buildStatusBar();
    MDIForm_Load();
}

void frmMainScreen::joinOwnEntries()
{
    m_ownEntries = {
        {u"mnuExit"_s, [this] { mnuExit_Click(); }},
        {u"mnuChangePassword"_s, [] { frmChangePassword::ShowSystemSettings(); }},
        {u"mnuusrmanagement"_s, [] { frmUserManageMent::ShowUserManagement(); }},
        {u"mnuQuorvantisHelp"_s, [this] { help::showHelp(this); }},
        {u"mnuAboutQuorvantis"_s, [] { frmAbout::ShowAbout(); }},
    };
    // What has no target on this computer is not offered.
    if (!onlinePage().isEmpty())
        m_ownEntries.insert(u"mnuQuorvantisOnline"_s, [] { launchIt(onlinePage()); });
    if (!contactPage().isEmpty())
        m_ownEntries.insert(u"mnuContactUs"_s, [] { launchIt(contactPage()); });
    if (QFileInfo::exists(quickStartManual()))
        m_ownEntries.insert(u"mnuQickStart"_s, [] { launchIt(quickStartManual()); });
}

void frmMainScreen::buildMenu()
{
    for (const shell::MenuEntry &entry : shell::menuTree()) {
        QMenu *parent = m_menus.value(latin1(entry.parent));
        const QString name = latin1(entry.name);
        if (entry.kind == shell::MenuKind::Menu) {
            QMenu *menu = parent != nullptr ? parent->addMenu(latin1(entry.caption))
                                            : menuBar()->addMenu(latin1(entry.caption));
            menu->setObjectName(name);
            m_menus.insert(name, menu);
            m_actions.insert(name, menu->menuAction());
            continue;
        }
        QAction *action = entry.kind == shell::MenuKind::Separator
                              ? parent->addSeparator()
                              : parent->addAction(latin1(entry.caption));
        action->setObjectName(name);
        action->setStatusTip(latin1(entry.purpose));
        m_actions.insert(name, action);
        connect(action, &QAction::triggered, this, [this, name] { openEntry(name); });
    }
    m_actions.value(u"mnuQuorvantisHelp"_s)->setShortcut(Qt::Key_F1);
}

void frmMainScreen::buildSideBar()
{
    picHeaderBar = new shell::HeaderBar(this);
    picSideMenuBar = new QWidget(this);
    picSideMenuBar->setObjectName(u"picSideMenuBar"_s);
    picSideMenuBar->setAccessibleName(u"Quick links"_s);
    picSideMenuBar->setAutoFillBackground(true);
    picSideMenuBar->setFixedWidth(sideBarWidth);
    auto *column = new QVBoxLayout(picSideMenuBar);
    column->setContentsMargins(6, 10, 6, 10);
    column->setSpacing(4);
    for (int index = 0; const shell::QuickLink &each : shell::quickLinks()) {
        auto *link = new input::QuickLink(latin1(each.label), theme::icon(latin1(each.icon)),
                                          picSideMenuBar);
        link->setObjectName(u"lblQuickMenu%1"_s.arg(index));
        link->setToolTip(u"%1 (%2)"_s.arg(latin1(each.purpose), latin1(each.key)));
        link->setStatusTip(latin1(each.purpose));
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
    below->addWidget(picSideMenuBar);
    if (const auto &board = shell::screenEntries().board; !board.isEmpty()) {
        below->addWidget(board.make(middle), 1);
    } else {
        m_startPage = new shell::StartPage(middle);
        connect(m_startPage, &shell::StartPage::quickLinkClicked, this,
                &frmMainScreen::lblQuickMenu_Click);
        m_startPage->LoadData();
        below->addWidget(m_startPage, 1);
    }
    whole->addLayout(below, 1);
    setCentralWidget(middle);
}

void frmMainScreen::buildStatusBar()
{
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
        m_actions.value(u"munPasswords"_s)->setVisible(!gsLoginUser.isEmpty());
        resize(factorySize);
        ApplyCenteredFormLayout(this, objectName());
        ApplyMainFormColors();
        ApplySideBarColors();
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
    if (m_startPage != nullptr)
        m_startPage->applyFonts();
}

void frmMainScreen::ApplySideBarColors()
{
    QPalette colours = picSideMenuBar->palette();
    colours.setColor(QPalette::Window, theme::panelColor());
    picSideMenuBar->setPalette(colours);
}

void frmMainScreen::CheckRole()
{
    for (const shell::MenuEntry &entry : shell::menuTree()) {
        if (entry.kind == shell::MenuKind::Entry)
            m_actions.value(latin1(entry.name))
                ->setEnabled(isOffered(entry) && shell::isAllowed(entry));
    }
    // It waits for the start to find the database out of date.
    if (!gbDatabaseOutOfDate)
        m_actions.value(u"mnuUpdateDatabase"_s)->setEnabled(false);
}

bool frmMainScreen::CleanUpParts() const
{
    return ::CleanUpParts();
}

bool frmMainScreen::isOffered(const shell::MenuEntry &entry) const
{
    const QString name = latin1(entry.name);
    return m_ownEntries.contains(name) || shell::screenEntries().contains(name);
}

void frmMainScreen::openEntry(const QString &name)
{
    base::trapped(module, qPrintable(name + u"_Click"_s), [&] {
        const shell::MenuEntry *entry = shell::menuEntry(name);
        if (entry == nullptr)
            return;
        if (!shell::isAllowed(*entry))
            base::showMessage(shell::insufficientRightsMessage());
        else if (name == u"mnuUpdateDatabase")
            mnuUpdateDatabase_Click();
        else if (const auto own = m_ownEntries.value(name))
            own();
        else
            shell::screenEntries().open(name);
    });
}

void frmMainScreen::mnuUpdateDatabase_Click()
{
    shell::screenEntries().open(u"mnuUpdateDatabase");
    m_actions.value(u"mnuUpdateDatabase"_s)->setEnabled(false);
}

void frmMainScreen::mnuExit_Click()
{
    if (m_end)
        m_end();
}

void frmMainScreen::lblQuickMenu_Click(int index)
{
    base::trapped(module, "lblQuickMenu_Click", [&] { runQuickLink(index); });
}

void frmMainScreen::runQuickLink(int index)
{
    if (!shell::isQuickLinkJoined(index))
        return;
    const QString entry = latin1(shell::quickLinks()[static_cast<std::size_t>(index)].menuEntry);
    const auto &board = shell::screenEntries().board;
    if (!entry.isEmpty())
        openEntry(entry);
    else if (index == shell::ReportsLink)
        board.LoadUnloadReportsNavigator(!board.reportsVisible());
    else
        shell::runQuickFindLoop(index);
}

bool frmMainScreen::event(QEvent *event)
{
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
        if (m_startPage != nullptr)
            m_startPage->LoadData();
        else if (const auto &LoadData = shell::screenEntries().board.LoadData)
            LoadData();
    });
    m_activating = false;
}

void frmMainScreen::closeEvent(QCloseEvent *event)
{
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
                  [this] { StoreFormLayout(*this, objectName(), false); });
}
