#include "app/WholeProgram.h"
#include "core/Permission.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

struct Roads : test::WholeProgram
{
    void expectRefusal(bool Rights::*right) { prompts.inform(rights::refusal(right)); }

    test::ScriptedPrompts prompts;
};

} // namespace

TEST_F(Roads, WhatNeedsARightOpensForNobodyWithoutIt)
{
    int refused = 0;
    for (const Opening &row : openingTable()) {
        const QString name = QString::fromLatin1(row.name);
        if (row.right == nullptr || !openings().isJoined(name))
            continue;
        expectRefusal(row.right);
        EXPECT_FALSE(openings().open(name)) << row.name;
        ++refused;
    }
    EXPECT_GT(refused, 0);
}

TEST_F(Roads, EachEntryOfTheMenusLeadsSomewhere)
{
    // What hangs on the installation is there.
    for (const QString &name : {u"OnlinePage"_s, u"ContactPage"_s, u"UpdateSite"_s})
        settings::registry().setValue(settings::MakerKey, name, u"https://example.com"_s);
    test::writeFile(base::applicationPath(u"\\QuickStart.pdf"_s), "%PDF-");
    gsLoginUser = u"ADMIN"_s;
    const frmMainScreen main([] {});
    for (const Opening &row : openingTable()) {
        const QString name = QString::fromLatin1(row.name);
        EXPECT_TRUE(name.isEmpty() || openings().isJoined(name)) << row.object << ' ' << row.name;
    }
}

TEST_F(Roads, NoAddEntryAddsForThoseWhoMayNot)
{
    expectRefusal(rights::Services.add);
    openings().open(u"frmServices", {.mode = Mode::Add});
    const std::pair<QStringView, bool Rights::*> screens[] = {
        {u"frmEquipment", rights::Machines.add}, {u"frmPart", rights::Parts.add}};
    for (const auto &[name, right] : screens) {
        expectRefusal(right);
        test::inScreen([name = name] { openings().open(name, {.mode = Mode::Add}); },
                       [](const test::ScreenDriver &screen) {
                           EXPECT_FALSE(screen.isShown("cmdUpdate"));
                           screen.press("cmdExit");
                       });
    }
}

TEST_F(Roads, TheBoardThatAppearsIsReadOnce)
{
    const shell::MainBoard &board = shell::mainBoard();
    QWidget window;
    board.make(&window);
    int statements = 0;
    gcnData->setObserver([&](const db::Sent &) { ++statements; });
    board.LoadData();
    EXPECT_EQ(statements, 0);
    board.LoadData();
    EXPECT_GT(statements, 0) << "whoever comes back sees the board anew";
    gcnData->setObserver({});
}

TEST_F(Roads, AFailedUpdateFromTheMenuLeadsToItsReport)
{
    settings::registry().setValue(settings::ProductKey, u"VERSION"_s, u"1.0.1"_s);
    const QString script = base::applicationPath(u"\\Script\\DBChanges.mdb"_s);
    QDir().mkpath(QFileInfo(script).absolutePath());
    EXPECT_TRUE(openings().open(u"mnuUpdateDatabase"_s)) << "without a script nothing fails";
    test::writeFile(script, "no database");
    prompts.inform(u"Failed to update the database."_s);
    openings().open(u"mnuUpdateDatabase"_s);
    int reported = 0;
    openings().join(u"frmSendDBUpdate"_s, [&reported] { ++reported; });
    openings().open(u"mnuUpdateDatabase"_s);
    EXPECT_EQ(reported, 1);
    QFile::remove(script);
    openings().open(u"mnuUpdateDatabase"_s);
    EXPECT_EQ(reported, 1);
}
