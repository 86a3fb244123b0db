#include "app/Screens.h"
#include "core/CompanySession.h"
#include "core/OpeningTable.h"
#include "core/ui/Openings.h"
#include "core/ui/ScreenCalls.h"
#include "core/ui/ScreenDriver.h"
#include "platform/grid/GridView.h"
#include "reporting/ui/frmFilterScreen.h"
#include "shell/RightsTable.h"
#include "shell/ui/MainBoard.h"
#include "shell/ui/frmMainScreen.h"

#include <QKeySequence>
#include <QLabel>
#include <QTabBar>

using namespace Qt::StringLiterals;

namespace {

/// What the keyboard alone must be able to do on every screen.
class EveryScreen : public test::CompanySession
{
protected:
    EveryScreen()
    {
        // Who may open all of them.
        gsLoginUser = u"ADMIN"_s;
        for (const shell::RightEntry &right : shell::rightsTable())
            gRights.*right.member = true;
        app::joinScreens();
        mainScreen = std::make_unique<frmMainScreen>([] {});
    }
    ~EveryScreen() override
    {
        mainScreen.reset();
        openings() = {};
        screenCalls() = {};
        shell::mainBoard() = {};
        gsLoginUser.clear();
        gRights = {};
    }

    /// The openings that show a screen of their own.
    static QStringList names()
    {
        QStringList names{u"ShowCompleteWorkorder"_s};
        for (const Opening &row : openingTable())
            if (QLatin1StringView(row.name).startsWith("frm"_L1))
                names.append(QString::fromLatin1(row.name));
        for (const frmFilterScreen::Entry &entry : frmFilterScreen::entries())
            names.append(entry.name.toString());
        names.removeDuplicates();
        return names;
    }

    std::unique_ptr<frmMainScreen> mainScreen;
};

bool isSeen(const QWidget &control, const QWidget &screen)
{
    return control.isVisibleTo(&screen) && control.window() == &screen;
}

/// The captions by which Alt and a letter lead somewhere on what is in view.
QStringList captions(const QWidget &screen)
{
    QStringList found;
    for (const auto *label : screen.findChildren<QLabel *>())
        if (isSeen(*label, screen) && label->buddy())
            found.append(label->text());
    for (const auto *button : screen.findChildren<QAbstractButton *>())
        if (isSeen(*button, screen))
            found.append(button->text());
    for (const auto *bar : screen.findChildren<QTabBar *>())
        for (int tab = 0; isSeen(*bar, screen) && tab < bar->count(); ++tab)
            found.append(bar->tabText(tab));
    return found;
}

void expectEachLetterOnce(const QWidget &screen)
{
    QHash<QKeySequence, QString> owners;
    for (const QString &caption : captions(screen)) {
        const QKeySequence letter = QKeySequence::mnemonic(caption);
        if (letter.isEmpty())
            continue;
        EXPECT_FALSE(owners.contains(letter))
            << screen.objectName().toStdString() << ": \"" << caption.toStdString() << "\" and \""
            << owners.value(letter).toStdString() << '"';
        owners.insert(letter, caption);
    }
}

template<class Control>
void expectNames(const QWidget &screen, const std::function<QString(const Control &)> &ownText)
{
    QSet<const QWidget *> labelled;
    for (const auto *label : screen.findChildren<QLabel *>())
        labelled.insert(label->buddy());
    for (const auto *control : screen.findChildren<Control *>()) {
        if (!isSeen(*control, screen) || !(control->focusPolicy() & Qt::TabFocus) ||
            control->objectName().startsWith(u"qt_"))
            continue;
        EXPECT_TRUE(!control->accessibleName().isEmpty() || labelled.contains(control) ||
                    !ownText(*control).isEmpty())
            << screen.objectName().toStdString() << ": " << control->objectName().toStdString()
            << " has no name for assistive tools";
    }
}

/// Looks at a screen with each of its pages in front.
void forEachPage(QWidget &screen, const std::function<void()> &look)
{
    const auto bars = screen.findChildren<QTabBar *>();
    if (bars.isEmpty())
        return look();
    for (int tab = 0; tab < bars.first()->count(); ++tab) {
        bars.first()->setCurrentIndex(tab);
        look();
    }
}

} // namespace

TEST_F(EveryScreen, IsWorkedByTheKeyboardAlone)
{
    const auto look = [](QWidget &screen) {
        forEachPage(screen, [&] {
            expectEachLetterOnce(screen);
            expectNames<QLineEdit>(screen, [](auto &) { return QString(); });
            expectNames<QComboBox>(screen, [](auto &) { return QString(); });
            expectNames<grid::GridView>(screen, [](auto &) { return QString(); });
            expectNames<QAbstractButton>(screen, [](auto &button) { return button.text(); });
        });
    };
    int adding = 0;
    for (const QString &name : names()) {
        if (!openings().isJoined(name))
            continue;
        test::inScreen([&] { openings().open(name); },
                       [&](const test::ScreenDriver &driver) {
                           QWidget &screen = driver.screen();
                           look(screen);
                           // Save and Cancel stand in the place of others then.
                           auto *add = screen.findChild<QAbstractButton *>(u"cmdAdd"_s);
                           auto *cancel = screen.findChild<QAbstractButton *>(u"cmdCancel"_s);
                           if (add && cancel && name != u"frmServicesManager") {
                               add->click();
                               look(screen);
                               cancel->click();
                               ++adding;
                           }
                           screen.close();
                       });
    }
    EXPECT_GE(adding, 4);
}
