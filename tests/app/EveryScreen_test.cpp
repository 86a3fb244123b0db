#include "app/WholeProgram.h"
#include "reporting/ui/frmFilterScreen.h"
#include "shell/RightsTable.h"

#include <QKeySequence>
#include <QTabBar>

using namespace Qt::StringLiterals;

namespace {

/// What the keyboard alone must be able to do on every screen.
class EveryScreen : public test::WholeProgram
{
protected:
    EveryScreen()
    {
        // Who may open all of them.
        gsLoginUser = u"ADMIN"_s;
        for (const shell::RightEntry &right : shell::rightsTable())
            gRights.*right.member = true;
        mainScreen = std::make_unique<frmMainScreen>([] {});
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
void expectNames(const QWidget &screen)
{
    QSet<const QWidget *> labelled;
    for (const auto *label : screen.findChildren<QLabel *>())
        labelled.insert(label->buddy());
    for (const auto *control : screen.findChildren<Control *>()) {
        if (!isSeen(*control, screen) || !(control->focusPolicy() & Qt::TabFocus) ||
            control->objectName().startsWith(u"qt_"))
            continue;
        const auto *button = qobject_cast<const QAbstractButton *>(control);
        EXPECT_TRUE(!control->accessibleName().isEmpty() || labelled.contains(control) ||
                    (button && !button->text().isEmpty()))
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
            expectNames<QLineEdit>(screen);
            expectNames<QComboBox>(screen);
            expectNames<grid::GridView>(screen);
            expectNames<QAbstractButton>(screen);
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
