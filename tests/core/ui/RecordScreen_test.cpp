#include "core/ui/MasterScreen.h"

#include "core/CompanySession.h"
#include "core/RecordStore.h"
#include "core/ui/ListGrid.h"
#include "core/ui/ScreenDriver.h"
#include "platform/input/FormBuilder.h"

#include <QHeaderView>

using namespace Qt::StringLiterals;
using test::ScreenDriver;
using Icon = base::Prompts::Icon;
using Buttons = base::Prompts::Buttons;
using Answer = base::Prompts::Answer;

namespace {

struct SampleCrew
{
    qint64 CrewID = 0;
    QString CrewNumber;
    QString Description;

    static std::span<const record::Field<SampleCrew>> fields()
    {
        static constexpr record::Field<SampleCrew> all[] = {
            {u"CrewNumber", &SampleCrew::CrewNumber}, {u"Description", &SampleCrew::Description}};
        return all;
    }
    static SampleCrew fromRow(const db::Row &row)
    {
        SampleCrew crew = record::load<SampleCrew>(row, fields());
        crew.CrewID = row.integer(u"CrewID");
        return crew;
    }
};

/// Nothing uses a crew but what the test says.
struct Crews
{
    bool DeleteRecord(qint64 id) const
    {
        gcnData->Execute(u"Delete from tblCrew where CrewID=?"_s, {id});
        return true;
    }
    QString usedBy(qint64) const { return word; }

    inline static QString word;
};

/// Crews without any rule but a required number.
class frmSample final : public MasterScreen<SampleCrew, Crews, &Crews::usedBy>
{
public:
    frmSample()
        : MasterScreen(u"frmSample"_s, u"Sample"_s)
    {
        setRights(rights::Parts);
        input::FormBuilder form(this);
        grid::GridView *list =
            makeListGrid(this, u"grdSample"_s, u"Crews"_s,
                         {{.name = u"CrewNumber"_s}, {.name = u"Description"_s}});
        form.widget(list, true);
        txtNumber = form.textField(u"txtNumber"_s, u"&Number:"_s);
        txtDescription = form.textField(u"txtDescription"_s, u"D&escription:"_s);
        makeButtons(form, {.find = true});
        form.finish();
        m_fields.add(txtNumber, &SampleCrew::CrewNumber);
        m_fields.add(txtDescription, &SampleCrew::Description);
        setFields({&m_fields});
        setListGrid(list);
    }

    QString nearer; ///< what a step of the save names as being in the way

protected:
    db::Recordset loadRows() override
    {
        return gcnData->Open(u"Select * from tblCrew order by CrewNumber"_s);
    }
    QString keyColumn() const override { return u"CrewID"_s; }
    void prepareNewRecord() override { txtNumber->setFocus(); }
    bool VailidateFields() override
    {
        if (txtNumber->text().isEmpty())
            return refuse(txtNumber, u"Number should not be blank."_s);
        return confirmMassChange(txtNumber, m_fields.shown().CrewNumber);
    }
    std::optional<QVariant> saveRecord() override
    {
        const SampleCrew crew = m_fields.read();
        if (!nearer.isEmpty())
            throw InTheWay(nearer);
        if (mode() == Mode::Add)
            return gcnData->Insert(u"Insert into tblCrew(CrewNumber,Description) values(?,?)"_s,
                                   {crew.CrewNumber, crew.Description}, u"CrewID"_s);
        record::change<SampleCrew>(record::Store::Data, u"tblCrew", SampleCrew::fields(), crew,
                                   m_fields.shown(), u"CrewID", crew.CrewID, SampleCrew::fromRow);
        return QVariant(crew.CrewID);
    }
    QString recordName() const override { return u"the crew \"%1\""_s.arg(txtNumber->text()); }

private:
    QLineEdit *txtNumber = nullptr;
    QLineEdit *txtDescription = nullptr;
};

struct RecordScreens : test::CompanySession
{
    RecordScreens() { gRights.PaAdd = gRights.PaMod = gRights.PaDel = true; }
    ~RecordScreens() override
    {
        gRights = {};
        Crews::word.clear();
    }

    void addCrews(std::initializer_list<int> numbers)
    {
        for (const int number : numbers)
            m_keys.append(insert(u"tblCrew"_s, u"CrewNumber,Description"_s,
                                 {number, u"Crew %1"_s.arg(number)}, u"CrewID"_s));
    }
    QString work(Mode mode, const QVariant &key, std::function<void(ScreenDriver)> act)
    {
        frmSample sample;
        QString shownLast;
        test::inRecords([&] { shownLast = sample.showRecord(mode, key); }, std::move(act));
        return shownLast;
    }
    static std::string buttons(const ScreenDriver &screen)
    {
        std::string shown;
        for (const char *name :
             {"cmdAdd", "cmdDelete", "cmdFind", "cmdUpdate", "cmdCancel", "cmdExit"})
            if (screen.isShown(name))
                shown += std::string(screen.isEnabled(name) ? "" : "-") + (name + 3) + ' ';
        return shown;
    }
    static std::string moves(const ScreenDriver &screen)
    {
        std::string enabled;
        for (const char *name : {"cmdFirst", "cmdPrevious", "cmdNext", "cmdLast"})
            if (screen.isEnabled(name))
                enabled += std::string(name + 3) + ' ';
        return enabled;
    }

    test::ScriptedPrompts prompts;
    QList<QVariant> m_keys;
};

} // namespace

TEST_F(RecordScreens, MovesThroughTheRowsAndStopsAtTheEnds)
{
    addCrews({1, 2, 3});
    const QString last = work(Mode::Browse, m_keys[1], [](ScreenDriver screen) {
        EXPECT_EQ(screen.text("txtNumber"), u"2"_s);
        EXPECT_EQ(moves(screen), "First Previous Next Last ");
        screen.press("cmdNext");
        EXPECT_EQ(screen.text("txtDescription"), u"Crew 3"_s);
        EXPECT_EQ(moves(screen), "First Previous ");
        screen.press("cmdFirst");
        EXPECT_EQ(screen.text("txtNumber"), u"1"_s);
        EXPECT_EQ(moves(screen), "Next Last ");
        auto &grid = screen.grid("grdSample");
        EXPECT_EQ(grid.currentRow(), 0);
        QTest::keyClick(&grid, Qt::Key_Down);
        EXPECT_EQ(screen.text("txtNumber"), u"2"_s);
    });
    EXPECT_EQ(last, m_keys[1].toString());
}

TEST_F(RecordScreens, TheListComesBackAsItWasLeft)
{
    work(Mode::Browse, {}, [](ScreenDriver screen) {
        auto &grid = screen.grid("grdSample");
        EXPECT_FALSE(grid.rows().column(u"CrewID").visible) << "was not asked for";
        grid.header()->resizeSection(grid.rows().columnIndex(u"Description"), 222);
    });
    work(Mode::Browse, {}, [](ScreenDriver screen) {
        EXPECT_EQ(screen.grid("grdSample").rows().column(u"Description").width, 222);
    });
}

TEST_F(RecordScreens, TheFirstEditSwapsTheButtonsAndCancelSwapsThemBack)
{
    addCrews({1, 2});
    work(Mode::Browse, 4711, [](ScreenDriver screen) {
        EXPECT_EQ(screen.text("txtNumber"), u"1"_s) << "the first, for a key that is not there";
        EXPECT_EQ(buttons(screen), "Add Delete Find Exit ");
        screen.screen().resize(screen.screen().minimumSizeHint());
        const QSize size = screen.screen().size();
        QTest::keyClicks(&screen.control("txtDescription"), u"!"_s);
        EXPECT_EQ(buttons(screen), "Update Cancel ");
        EXPECT_EQ(moves(screen), "");
        EXPECT_FALSE(screen.isEnabled("grdSample"));
        QTest::keyClick(&screen.screen(), Qt::Key_Escape);
        ASSERT_TRUE(screen.isOpen());
        screen.press("cmdCancel");
        EXPECT_EQ(screen.screen().size(), size) << "grew for buttons that are not there at once";
        EXPECT_EQ(screen.text("txtDescription"), u"Crew 1"_s);
        EXPECT_EQ(buttons(screen), "Add Delete Find Exit ");
        QTest::keyClick(&screen.screen(), Qt::Key_Escape);
        EXPECT_FALSE(screen.isOpen());
    });
}

TEST_F(RecordScreens, ASavedRowIsShownAndAFailedCheckKeepsTheMode)
{
    addCrews({1, 3});
    work(Mode::Add, {}, [this](ScreenDriver screen) {
        EXPECT_EQ(screen.focused(), "txtNumber");
        prompts.inform(u"Number should not be blank."_s);
        screen.press("cmdUpdate");
        EXPECT_EQ(buttons(screen), "Update Cancel ");
        screen.type("txtNumber", u"2"_s);
        screen.press("cmdUpdate");
        EXPECT_EQ(buttons(screen), "Add Delete Find Exit ");
        EXPECT_EQ(screen.grid("grdSample").currentRow(), 1);
    });
}

TEST_F(RecordScreens, RightsRefuseAddAndDeleteAndLockTheFields)
{
    gRights = {};
    addCrews({1});
    prompts.inform(test::NoRights);
    work(Mode::Add, {}, [&](ScreenDriver screen) {
        EXPECT_EQ(buttons(screen), "Add Delete Find Exit ");
        EXPECT_TRUE(screen.control<QLineEdit>("txtNumber").isReadOnly());
        QTest::keyClicks(&screen.control("txtNumber"), u"9"_s);
        EXPECT_EQ(screen.text("txtNumber"), u"1"_s);
        prompts.inform(test::NoRights);
        screen.press("cmdDelete");
    });
    EXPECT_EQ(GetRecordCount(u"tblCrew"_s, {}), 1);
}

TEST_F(RecordScreens, DeletionAsksThenTellsWhatUsesTheRecord)
{
    addCrews({1, 2});
    const QString question = u"Are you sure you want to Delete this record?"_s;
    work(Mode::Browse, m_keys[1], [&](ScreenDriver screen) {
        prompts.no(question);
        screen.press("cmdDelete");
        Crews::word = u"Services"_s;
        prompts.yes(question);
        prompts.inform(u"Deletion not allowed. Record is being used in Services."_s);
        screen.press("cmdDelete");
        EXPECT_EQ(GetRecordCount(u"tblCrew"_s, {}), 2);
        Crews::word.clear();
        prompts.yes(question);
        screen.press("cmdDelete");
        EXPECT_EQ(screen.text("txtNumber"), u"1"_s);
        prompts.yes(question);
        screen.press("cmdDelete");
        EXPECT_EQ(screen.text("txtNumber"), QString());
        // Without rows only Add and Return are left.
        const auto expectLittle = [&] {
            EXPECT_EQ(buttons(screen) + moves(screen), "Add -Delete -Find Exit ");
            EXPECT_TRUE(screen.control<QLineEdit>("txtNumber").isReadOnly());
        };
        expectLittle();
        screen.press("cmdAdd");
        EXPECT_FALSE(screen.control<QLineEdit>("txtNumber").isReadOnly());
        screen.press("cmdCancel");
        expectLittle();
    });
}

TEST_F(RecordScreens, AMassChangeIsAskedForOnlyWhenTheNameOfAUsedRecordChanges)
{
    addCrews({1});
    Crews::word = u"Employee"_s;
    const QString question = u"This will change 1 for all your Employee. Do you want to do this?"_s;
    work(Mode::Browse, {}, [&](ScreenDriver screen) {
        screen.type("txtDescription", u"Other"_s);
        screen.press("cmdUpdate"); // the number is the same
        screen.type("txtNumber", u"5"_s);
        prompts.no(question);
        screen.press("cmdUpdate");
        EXPECT_EQ(screen.text("txtNumber"), u"1"_s);
        EXPECT_EQ(screen.focused(), "txtNumber");
        EXPECT_EQ(buttons(screen), "Update Cancel ");
        screen.type("txtNumber", u"5"_s);
        prompts.yes(question);
        screen.press("cmdUpdate");
    });
    EXPECT_EQ(GetRecordCount(u"tblCrew"_s, u"CrewNumber = 5"_s), 1);
}

TEST_F(RecordScreens, WhatAnotherWorkstationChangedIsToldAndTheUserChooses)
{
    addCrews({1});
    const std::unique_ptr<db::Connection> other = database.open();
    const auto describe = [&](const QString &text) {
        other->Execute(u"Update tblCrew set Description = ?"_s, {text});
    };
    const auto expectQuestion = [this](const QString &mine, const QString &theirs, Answer answer) {
        prompts.expect(u"Another workstation has changed the crew \"1\" meanwhile.\n\nDescription: "
                       "yours \"%1\", theirs \"%2\"\n\nDo you want to store your values? No shows "
                       "theirs, and nothing is stored yet."_s.arg(mine, theirs),
                       Icon::Question, Buttons::YesNoCancel, answer);
    };
    const auto stored = [] { return value(u"Select Description from tblCrew"_s).toString(); };
    work(Mode::Browse, {}, [&](ScreenDriver screen) {
        screen.type("txtDescription", u"mine"_s);
        describe(u"theirs"_s);
        expectQuestion(u"mine"_s, u"theirs"_s, Answer::Cancel);
        screen.press("cmdUpdate");
        EXPECT_EQ(screen.text("txtDescription"), u"mine"_s) << "what was typed is still there";
        EXPECT_EQ(stored(), u"theirs"_s);

        expectQuestion(u"mine"_s, u"theirs"_s, Answer::Yes);
        screen.press("cmdUpdate");
        EXPECT_EQ(stored(), u"mine"_s);

        screen.type("txtDescription", u"more"_s);
        describe(u"again"_s);
        expectQuestion(u"more"_s, u"again"_s, Answer::No);
        screen.press("cmdUpdate");
        EXPECT_EQ(screen.text("txtDescription"), u"again"_s);
        EXPECT_EQ(stored(), u"again"_s);
        EXPECT_EQ(buttons(screen), "Update Cancel ");
        screen.type("txtDescription", u"last"_s);
        screen.press("cmdUpdate");
        EXPECT_EQ(stored(), u"last"_s) << "theirs counts as shown by now";

        screen.type("txtNumber", u"2"_s);
        describe(u"beside"_s);
        screen.press("cmdUpdate");
        EXPECT_EQ(stored(), u"beside"_s) << "a field that was not changed is left to the other";
        EXPECT_EQ(screen.text("txtDescription"), u"beside"_s);
    });
}

TEST_F(RecordScreens, ARowThatIsGoneCanBeAddedAgainAndAHeldOneIsLeft)
{
    addCrews({1, 2});
    const QString gone = u"Another workstation has deleted the crew \"1\" or given it another "
                         "number. What you typed is still here. Do you want to add it as a new "
                         "record?"_s;
    const std::unique_ptr<db::Connection> other = database.open();
    work(Mode::Browse, {}, [&](ScreenDriver screen) {
        screen.type("txtDescription", u"mine"_s);
        other->BeginTrans();
        other->Execute(u"Update tblCrew set Description = 'held'"_s);
        const QString busy =
            u"Another workstation is changing the crew \"1\". Please try again in a moment."_s;
        prompts.say(busy);
        screen.press("cmdUpdate");
        // What a step of the save has named is told as it stands.
        auto &sample = static_cast<frmSample &>(screen.screen());
        sample.nearer = u"Another workstation is counting part \"P-1\"."_s;
        prompts.say(sample.nearer);
        screen.press("cmdUpdate");
        sample.nearer.clear();
        screen.press("cmdCancel");
        prompts.yes(u"Are you sure you want to Delete this record?"_s);
        prompts.say(busy);
        screen.press("cmdDelete");
        EXPECT_EQ(count(u"tblCrew"_s), 2);
        screen.type("txtDescription", u"mine"_s);
        other->RollbackTrans();

        other->Execute(u"Delete from tblCrew where CrewNumber = 1"_s);
        prompts.no(gone);
        screen.press("cmdUpdate");
        EXPECT_EQ(screen.text("txtDescription"), u"mine"_s);
        EXPECT_EQ(count(u"tblCrew"_s), 1);
        prompts.yes(gone);
        screen.press("cmdUpdate");
        EXPECT_EQ(screen.text("txtDescription"), u"mine"_s);
        EXPECT_EQ(count(u"tblCrew"_s, u"CrewNumber = 1 and Description = 'mine'"_s), 1);
    });
}
