#include "administration/SecondPlace.h"

#include "administration/AdministrationSession.h"
#include "core/Options.h"

using namespace Qt::StringLiterals;
using namespace administration;

namespace {

using SecondPlaces = test::AdministrationSession;

} // namespace

TEST_F(SecondPlaces, AreTheWorkstationsOwn)
{
    EXPECT_FALSE(endingCopy());
    SetOption(SecondPlaceOption.toString(), u" /media/stick "_s, true);
    EXPECT_EQ(secondPlace(), u"/media/stick"_s);
    EXPECT_EQ(endingCopy()->folder, u"/media/stick"_s);
    settings::registry().setValue(settings::ProductKey, u"GUID"_s,
                                  u"ANOTHERANOTHERANOTHERANOTHERANOT"_s);
    EXPECT_FALSE(endingCopy());
    SetOption(SecondPlaceOption.toString(), u"/x"_s, true);
    settings::registry().setValue(settings::ProductKey, u"HOST"_s, u"office"_s);
    EXPECT_FALSE(endingCopy()) << "the files of a host are not ours";
}

TEST_F(SecondPlaces, TheLastProgramOfTheDayCopiesAndPrunes)
{
    for (const QString &day : {u"2024-03-13"_s, u"2024-03-14"_s})
        test::writeFile(stick() + u"/Quorvantis %1.mdb"_s.arg(day), "a day");
    const EndingCopy copy{stick(), {.days = 2, .weeks = 0, .months = 0}};
    {
        const db::Connection other(target(gsDatabasePath));
        copyAtEnd(copy);
        EXPECT_EQ(filesIn(stick()).size(), 2) << "another workstation is still working";
    }
    copyAtEnd(copy);
    EXPECT_FALSE(connectionsAreOpen());
    EXPECT_EQ(filesIn(stick()),
              (QStringList{u"Quorvantis 2024-03-14.mdb"_s, u"Quorvantis 2024-03-15.mdb"_s}));
    EXPECT_EQ(machinesIn(stick() + u"/Quorvantis 2024-03-15.mdb"_s), 1);
    openConnections();
    addMachine(2);
    copyAtEnd(copy);
    EXPECT_EQ(machinesIn(stick() + u"/Quorvantis 2024-03-15.mdb"_s), 2);
}

TEST_F(SecondPlaces, AStickThatIsNotThereIsTold)
{
    const QString folder = stick() + u"/none"_s;
    prompts.inform(u"Today's copy for %1 could not be made: the folder can't be reached.\nThe "
                   "database itself is as it was."_s.arg(folder));
    copyAtEnd({folder, {}});
    openConnections();
    expectWorking(1);
}
