#include "core/ui/ScreenDriver.h"
#include "exchange/Handheld.h"
#include "exchange/ui/Entries.h"

namespace {

using namespace Qt::StringLiterals;
using test::ScreenDriver;
using Icon = base::Prompts::Icon;
using Buttons = base::Prompts::Buttons;
using Answer = base::Prompts::Answer;

struct ImportScreen : test::Handheld
{
    ImportScreen() { EXPECT_TRUE(QDir().mkpath(path({}))); }

    static QString path(const QString &name)
    {
        return base::environment().applicationFolder + u"/XML_IN/"_s + name;
    }
    static void put(const QString &name, const QByteArray &sections)
    {
        test::writeFile(path(name), "<tables>" + sections + "</tables>");
    }
    static QString rows(const ScreenDriver &screen)
    {
        return test::columnOf(screen.grid("grdFiles"), u"File Name").join(u' ');
    }
    void expectQuestion(const QString &name, Answer answer)
    {
        prompts.expect(u"This will import all the data from \"%1\" to Quorvantis Database.\n"
                       "Do you want to continue?"_s.arg(name),
                       Icon::Question, Buttons::YesNo, answer);
    }
    /// What the log shows that comes up by itself; it is closed.
    static void closeLog(QString &text)
    {
        test::onNextModal([&text](QWidget &log) {
            EXPECT_EQ(log.windowTitle(), u"Log File");
            text = ScreenDriver(log).text("txtLog");
            log.close();
        });
    }
};

TEST_F(ImportScreen, ImportsTheChosenFileShowsTheLogAndClosesAfterTheLast)
{
    put(u"A.xml"_s, "<tblEquipment><record EquipmentID='1' CrewID='1'/></tblEquipment>");
    put(u"B.xml"_s, "<tblEquipment><record EquipmentID='9'/></tblEquipment>"
                    "<tblParts><record PartID='none'/></tblParts>");
    test::inScreen(ShowImportXmlDetails, [&](const ScreenDriver &screen) {
        EXPECT_EQ(rows(screen), u"A.xml B.xml");
        EXPECT_FALSE(screen.isShown("cmdViewLog"));
        EXPECT_FALSE(screen.isShown("cmdImportData"));

        expectQuestion(u"A.xml"_s, Answer::No);
        screen.press("cmdImport");
        EXPECT_EQ(rows(screen), u"A.xml B.xml");
        EXPECT_EQ(count(u"tblEquipmentCrewHistory"_s), 0);

        QString log;
        expectQuestion(u"A.xml"_s, Answer::Yes);
        prompts.say(u"Quorvantis data has been imported."_s);
        closeLog(log);
        screen.press("cmdImport");
        EXPECT_EQ(log, u"All Records are Imported succesfully");
        EXPECT_EQ(count(u"tblEquipmentCrewHistory"_s), 1);
        EXPECT_EQ(rows(screen), u"B.xml");
        EXPECT_TRUE(screen.isShown("cmdViewLog"));

        // What it logs keeps the file; its machines are skipped, since the first file held some.
        for (int again = 0; again < 2; ++again) {
            expectQuestion(u"B.xml"_s, Answer::Yes);
            prompts.say(u"Quorvantis data has been imported."_s);
            closeLog(log);
            screen.press("cmdImport");
            EXPECT_EQ(log.contains(u"Part No=none"), again == 0) << log.toStdString();
            EXPECT_FALSE(log.contains(u"EquipmentID=9"));
        }
        EXPECT_FALSE(screen.isOpen()) << "no file is left";
    });
}

TEST_F(ImportScreen, ReportsAnErrorUnderItsName)
{
    put(u"A.xml"_s, "<tblParts/>");
    expectQuestion(u"A.xml"_s, Answer::Yes);
    test::inScreen(ShowImportXmlDetails, [&](const ScreenDriver &screen) {
        QFile::remove(path(u"A.xml"_s));
        screen.press("cmdImport");
        screen.press("cmdExit");
    });
    EXPECT_EQ(errors.takeOne().ProcedureName, u"cmdImport_Click");
}

TEST_F(ImportScreen, HasAPathForDevelopment)
{
    const QString folder = base::environment().applicationFolder + u"/Development/recive/"_s;
    ASSERT_TRUE(QDir().mkpath(folder));
    test::writeFile(folder + u"done.txt"_s, {});
    prompts.say(u"Import process Succesfully completed"_s);
    test::inScreen(ShowImportXmlDetails, [&](const ScreenDriver &screen) {
        EXPECT_FALSE(screen.isEnabled("cmdImport")) << "no file is offered";
        screen.control<QAbstractButton>("cmdImportData").click();
        screen.press("cmdExit");
    });
}

struct ImportMenu : test::Handheld
{
    /// A program that does nothing, in place of the one that fetches the files.
    void installCarrier() const
    {
        const QString script = environment.folder() + u"/QV2Go ImportSync.exe"_s;
        test::writeFile(script, "#!/bin/sh\n");
        QFile::setPermissions(script, QFileDevice::ReadOwner | QFileDevice::ExeOwner);
        settings::registry().setValue(settings::MakerKey, u"Path"_s, environment.folder() + u'\\');
    }
};

TEST_F(ImportMenu, TellsWhenAllWasImportedAndNothingMoreOtherwise)
{
    send(u"Sy1.xml"_s, newOrder(u"W1"_s));
    prompts.say(u"QV2go Sync Application is not Installed"_s);
    mnuImporttXml_Click();
    EXPECT_EQ(count(u"tblWorkorder"_s), 0);

    installCarrier();
    prompts.say(u"Import process Succesfully completed"_s);
    mnuImporttXml_Click();
    EXPECT_EQ(count(u"tblWorkorder"_s), 1);

    mark();
    send(u"Sy1.xml"_s, newService(u"S1"_s, u"W1"_s));
    prompts.inform(u"Problem In adding workorder service(Workorderno not found)"_s);
    mnuImporttXml_Click();
}

TEST_F(ImportMenu, CanBeCancelledOnceItTakesLong)
{
    installCarrier();
    // A reading that waits for its user makes the import a long one.
    orderService(order(), {{u"Period"_s, u"H"_s}});
    const QByteArray reading = test::command(u"CountReading|1|3/9/2024|Hours|9"_s);
    send(u"Count1.xml"_s, reading.repeated(100));
    test::PatientUser user;
    user.thinks = [] { QTest::qSleep(60); };
    test::onNextModal([](QWidget &box) {
        QTest::mouseClick(box.findChild<QAbstractButton *>(u"cmdCancel"_s), Qt::LeftButton);
        box.setObjectName({});
        box.hide();
    });
    mnuImporttXml_Click();
    EXPECT_TRUE(user.told.endsWith(u"files are still there.\n"));
    EXPECT_EQ(count(u"tblEquipmentCount"_s), 0);
    EXPECT_EQ(files(), u"Count1.xml done.txt");
}

} // namespace
