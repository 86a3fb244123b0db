#include "core/ui/Screen.h"

#include "core/CompanySession.h"
#include "core/ui/FormLayout.h"
#include "core/ui/Modal.h"

#include <QGuiApplication>
#include <QScreen>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

class frmSample : public Screen
{
public:
    explicit frmSample(StoreWhat what = StoreWhat::Placement)
        : Screen(u"frmSample"_s, u"Sample"_s, nullptr, what)
    {
        auto *box = new QVBoxLayout(this);
        for (QWidget *control : std::initializer_list<QWidget *>{line, memo, check, combo})
            box->addWidget(control);
        combo->addItems({u"a"_s, u"b"_s, u"c"_s});
        watch({line, memo, check, combo});
        resize(300, 200);
    }
    void DisplayData()
    {
        const Displaying displaying(*this);
        line->setText(u"shown"_s);
        memo->setPlainText(u"shown"_s);
        check->setChecked(true);
        combo->setCurrentIndex(2);
    }
    void EnableControls() override
    {
        calls += static_cast<char>(mode());
        setCloseEnabled(mode() == Mode::Browse);
    }
    bool mayClose() override { return closable; }
    void unloading() override { ++unloads; }

    QLineEdit *line = new QLineEdit(this);
    QPlainTextEdit *memo = new QPlainTextEdit(this);
    QCheckBox *check = new QCheckBox(this);
    QComboBox *combo = new QComboBox(this);
    std::string calls;
    bool closable = true;
    int unloads = 0;
};

struct Screens : test::CompanySession
{
    ~Screens() override { setMainFormParts({}); }

    static void store(const QString &measure, const QString &twips)
    {
        SetOption(measure + u"frmSample"_s, twips, true);
    }
    static QString stored(const QString &measure)
    {
        return GetOption(measure + u"frmSample"_s, true);
    }
    static QRect desktop() { return QGuiApplication::primaryScreen()->availableGeometry(); }
};

} // namespace

TEST_F(Screens, TheUsersFirstEditTurnsBrowseToModify)
{
    using Edit = std::function<void(frmSample &)>;
    for (const Edit &edit : {Edit([](frmSample &f) { QTest::keyClicks(f.line, u"x"_s); }),
                             Edit([](frmSample &f) { QTest::keyClicks(f.memo, u"x"_s); }),
                             Edit([](frmSample &f) { QTest::keyClick(f.check, Qt::Key_Space); }),
                             Edit([](frmSample &f) { QTest::keyClick(f.combo, Qt::Key_Down); })}) {
        frmSample form;
        form.show();
        form.DisplayData();
        form.combo->setCurrentIndex(0);
        EXPECT_EQ(form.mode(), Mode::Browse);
        edit(form);
        EXPECT_EQ(form.mode(), Mode::Modify);
        edit(form);
        EXPECT_EQ(form.calls, "M");
        form.setMode(Mode::Add);
        edit(form);
        EXPECT_EQ(form.calls, "MA");
        form.unload();
    }
}

TEST_F(Screens, ItsCloseBoxAndEscapeFollowTheMode)
{
    frmSample form;
    form.DisplayData();
    test::bringUp(form);
    EXPECT_EQ(form.line->selectedText(), u"shown"_s) << "what one types first replaces it";
    form.setMode(Mode::Modify);
    QTest::keyClick(&form, Qt::Key_Escape);
    EXPECT_FALSE(form.close());
    EXPECT_TRUE(form.isVisible());
    form.setMode(Mode::Browse);
    form.closable = false;
    EXPECT_FALSE(form.close());
    EXPECT_EQ(form.unloads, 0);
    form.closable = true;
    QTest::keyClick(&form, Qt::Key_Escape);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(form.unloads, 1);

    // A modal one stays open while its box changes; its own button closes it whatever that says.
    test::onNextModal([&](QWidget &) {
        form.setMode(Mode::Browse);
        form.setMode(Mode::Add);
        EXPECT_TRUE(form.isVisible());
        form.unload();
    });
    EXPECT_EQ(form.showModal(), QDialog::Accepted);
    EXPECT_EQ(form.unloads, 2);
}

TEST_F(Screens, PlaceAndSizeAreKeptInTwips)
{
    {
        frmSample form;
        form.show();
        form.resize(320, 240);
        form.move(33, 44);
        form.unload();
    }
    QStringList measures;
    for (const QString &measure : {u"LEFT"_s, u"TOP"_s, u"HEIGHT"_s, u"WIDTH"_s})
        measures.append(stored(measure));
    EXPECT_EQ(measures.join(u' '), u"495 660 3600 4800"_s);
    frmSample again;
    again.show();
    EXPECT_EQ(again.pos(), QPoint(33, 44));
    EXPECT_EQ(again.size(), QSize(320, 240));
}

TEST_F(Screens, EachMissingMeasureHasItsOwnDefault)
{
    QWidget mainWindow;
    mainWindow.setGeometry(10, 20, 700, 500);
    mainWindow.show();
    setMainFormParts({&mainWindow, 32, 145});
    const QPoint corner = mainWindow.frameGeometry().topLeft();
    {
        frmSample form;
        form.show();
        EXPECT_EQ(form.pos(), corner + QPoint(145, 64));
    }
    store(u"TOP"_s, u"750"_s);
    store(u"HEIGHT"_s, u"4500"_s);
    frmSample form;
    form.show();
    EXPECT_EQ(form.pos(), QPoint(corner.x() + 145, 50));
    EXPECT_EQ(form.size(), QSize(300, 300));
}

TEST_F(Screens, AScreenStaysOnTheVisibleDesktop)
{
    store(u"LEFT"_s, u"300000"_s);
    store(u"WIDTH"_s, u"900000"_s);
    frmSample form;
    form.show();
    EXPECT_TRUE(desktop().contains(form.frameGeometry()));
    const QRect area(100, 100, 800, 600);
    EXPECT_EQ(keptWithin(QRect(850, 650, 200, 100), area), QRect(700, 600, 200, 100));
    EXPECT_EQ(keptWithin(QRect(0, 0, 2000, 50), area), QRect(100, 100, 800, 50));
    EXPECT_EQ(keptWithin(QRect(300, 300, 10, 10), area), QRect(300, 300, 10, 10));
}

TEST_F(Screens, WhatASmallScreenCantHoldScrollsAboveTheButtons)
{
    frmSample form;
    auto *lines = static_cast<QVBoxLayout *>(form.layout());
    QList<QLineEdit *> fields;
    for (int number = 0; number < 60; ++number) {
        fields.append(new QLineEdit(&form));
        lines->addWidget(fields.last());
    }
    auto *buttons = new QHBoxLayout;
    auto *close = new QPushButton(&form);
    buttons->addWidget(close);
    lines->addLayout(buttons);
    fields.first()->setFocus();
    test::bringUp(form);
    EXPECT_TRUE(desktop().contains(form.frameGeometry()));
    EXPECT_EQ(form.focusWidget(), fields.first());
    const auto seen = [](const QWidget *control) { return !control->visibleRegion().isEmpty(); };
    EXPECT_FALSE(seen(fields.last()));
    EXPECT_TRUE(seen(close));
    // What is out of sight comes into view with the focus, in the order as before.
    fields[58]->setFocus();
    QTest::keyClick(fields[58], Qt::Key_Tab);
    EXPECT_EQ(form.focusWidget(), fields.last());
    EXPECT_TRUE(seen(fields.last()));
    QTest::keyClick(fields.last(), Qt::Key_Tab);
    EXPECT_EQ(form.focusWidget(), close);
}

TEST_F(Screens, AScreenThatKeepsItsSizeOnlyIsCentred)
{
    store(u"LEFT"_s, u"15"_s);
    store(u"WIDTH"_s, u"6000"_s);
    frmSample form(Screen::StoreWhat::SizeOnly);
    form.show();
    EXPECT_EQ(form.width(), 400);
    // The window's frame may not be known yet when it is placed.
    const QPoint off = form.frameGeometry().center() - desktop().center();
    EXPECT_LT(off.manhattanLength(), 40) << off.x() << ' ' << off.y();
    form.unload();
    EXPECT_EQ(stored(u"LEFT"_s), u"15"_s);
    EXPECT_EQ(stored(u"TOP"_s), QString());
}
