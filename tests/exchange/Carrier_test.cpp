#include "carrier/Carrying.h"

#include "carrier/Journal.h"
#include "support/Raised.h"
#include "support/TestFiles.h"

#include <QTemporaryDir>

namespace {

using namespace Qt::StringLiterals;
using test::readFile;
using test::writeFile;

struct Stopped
{};

struct Carrier : testing::Test
{
    Carrier()
    {
        settings.device = place(u"device"_s);
        settings.data = place(u"Data.xml"_s);
        settings.inbox = place(u"Xml_IN"_s);
        settings.copies = place(u"Copies"_s);
        settings.patience = std::chrono::seconds(0);
        EXPECT_TRUE(QDir().mkpath(settings.device));
    }

    [[nodiscard]] QString place(const QString &name) const { return m_folder.filePath(name); }
    void record(const QString &name, const QByteArray &content) const
    {
        writeFile(settings.device + u'/' + name, content);
    }
    static QString files(const QString &folder)
    {
        return QDir(folder).entryList(QDir::Files, QDir::Name).join(u' ');
    }
    [[nodiscard]] QByteArray waiting(const QString &name) const
    {
        return readFile(settings.inbox + u'/' + name);
    }
    /// What the import leaves of the inbox.
    void emptyInbox() const
    {
        for (const QString &name : QDir(settings.inbox).entryList(QDir::Files))
            EXPECT_TRUE(QFile::remove(settings.inbox + u'/' + name));
    }
    void fetch(bool answer = false)
    {
        questions = 0;
        carrier::fromDevice(settings, {[] {},
                                       [&](const QString &) {
                                           ++questions;
                                           return answer;
                                       }});
    }

    template<class Action>
    static void expectTold(const QString &beginning, const Action &action)
    {
        EXPECT_TRUE(test::raisedBy(action).description().startsWith(beginning));
    }

    const carrier::Company nobody{[] {}, [](const QString &) { return false; }};
    carrier::Settings settings;
    int questions = 0;

private:
    QTemporaryDir m_folder;
};

TEST_F(Carrier, BringsTheDevicesFilesAndKeepsANumberedCopyOfEach)
{
    fetch();
    EXPECT_EQ(files(settings.inbox), QString()) << "no transfer without files";
    record(u"Sy1.xml"_s, "one");
    record(u"Count.xml"_s, "two");
    record(u"sy2.xml"_s, "is none of them");
    record(u"Data.xml"_s, "nor is this");
    fetch();
    EXPECT_EQ(files(settings.inbox), u"Count.xml Sy1.xml done.txt");
    EXPECT_EQ(waiting(u"Sy1.xml"_s), "one");
    EXPECT_EQ(waiting(u"Count.xml"_s), "two");
    EXPECT_EQ(files(settings.device), u"Data.xml sy2.xml");
    EXPECT_EQ(files(settings.copies), u"000001 Count.xml 000002 Sy1.xml carried.txt");
    EXPECT_EQ(readFile(settings.copies + u"/000002 Sy1.xml"_s), "one");
    EXPECT_EQ(questions, 0);
}

TEST_F(Carrier, NeverOverwritesWhatWaits)
{
    record(u"Sy1.xml"_s, "first");
    fetch();
    record(u"Sy1.xml"_s, "second");
    fetch();
    EXPECT_EQ(waiting(u"Sy1.xml"_s), "first");
    EXPECT_EQ(waiting(u"Sy1-2.xml"_s), "second");
    // What waits already is just taken off the device.
    record(u"Sy7.xml"_s, "second");
    fetch();
    EXPECT_EQ(files(settings.inbox), u"Sy1-2.xml Sy1.xml done.txt");
    EXPECT_EQ(files(settings.device), QString());
    EXPECT_EQ(questions, 0);
}

TEST_F(Carrier, AsksAboutWhatWasImportedAlready)
{
    record(u"Sy1.xml"_s, "one");
    fetch();
    emptyInbox();
    for (const bool answer : {false, true}) {
        record(u"Sy5.xml"_s, "one");
        fetch(answer);
        EXPECT_EQ(questions, 1);
        EXPECT_EQ(files(settings.inbox), answer ? u"Sy5.xml done.txt"_s : QString());
        EXPECT_EQ(files(settings.device), QString());
    }
}

TEST_F(Carrier, CompletesWhatWasInterruptedWithoutLosingOrDoubling)
{
    for (int step = 0; step < 4; ++step) {
        const QByteArray number = QByteArray::number(step);
        record(u"Sy1.xml"_s, "one " + number);
        record(u"Sy2.xml"_s, "two " + number);
        int passed = 0;
        try {
            carrier::fromDevice(settings, {[&] {
                                               if (passed++ == step)
                                                   throw Stopped();
                                           },
                                           [](const QString &) { return false; }});
            FAIL() << step;
        } catch (const Stopped &) {
        }
        EXPECT_TRUE(step == 3 || !files(settings.inbox).contains(u"done.txt")) << step;
        fetch();
        EXPECT_EQ(questions, 0) << step;
        EXPECT_EQ(waiting(u"Sy1.xml"_s), "one " + number);
        EXPECT_EQ(waiting(u"Sy2.xml"_s), "two " + number);
        EXPECT_EQ(files(settings.inbox), u"Sy1.xml Sy2.xml done.txt");
        EXPECT_EQ(files(settings.device), QString());
        emptyInbox();
    }
}

TEST_F(Carrier, TakesTheExchangeFileToTheDevice)
{
    expectTold(u"There is nothing to take to the handheld yet"_s,
               [&] { carrier::toDevice(settings, nobody); });
    writeFile(settings.data, "new");
    record(u"Data.xml"_s, "old");
    carrier::toDevice(settings, nobody);
    EXPECT_EQ(readFile(settings.device + u"/Data.xml"_s), "new");
    EXPECT_EQ(files(settings.copies), u"000001 Data.xml carried.txt");
    EXPECT_EQ(files(settings.device), u"Data.xml") << "nothing is left of the way there";
}

TEST_F(Carrier, TellsWhenTheDeviceIsNotThere)
{
    writeFile(settings.data, "new");
    ASSERT_TRUE(QDir().rmdir(settings.device));
    for (const auto carry : {carrier::toDevice, carrier::fromDevice})
        expectTold(u"The handheld isn't there."_s, [&] { carry(settings, nobody); });
    settings.device.clear();
    expectTold(u"It is not said where the handheld is."_s, [&] { fetch(); });
    EXPECT_FALSE(QDir(settings.inbox).exists());
}

TEST_F(Carrier, ReadsItsSettings)
{
    const QString folder = QFileInfo(settings.device).path();
    EXPECT_EQ(test::raisedBy([&] { (void)carrier::readSettings(folder); }).number(),
              base::ErrorNumber::FileNotFound);
    writeFile(folder + u"/carrier.ini"_s, "[Carrier]\nDevice=/media/phone\nInbox=../in\n"
                                          "Messages=text\nPatience=7\n");
    const carrier::Settings read = carrier::readSettings(folder);
    EXPECT_EQ(read.device, u"/media/phone");
    EXPECT_EQ(read.inbox, QDir::cleanPath(folder + u"/../in"_s));
    EXPECT_EQ(read.data, QDir::cleanPath(folder + u"/../XML_OUT/Data.xml"_s));
    EXPECT_EQ(read.copies, folder + u"/Copies"_s);
    EXPECT_TRUE(read.textOnly);
    EXPECT_EQ(read.patience, std::chrono::seconds(7));
    writeFile(folder + u"/carrier.ini"_s, "[Carrier]\nPatience=long\n");
    EXPECT_EQ(test::raisedBy([&] { (void)carrier::readSettings(folder); }).number(),
              base::ErrorNumber::InvalidCall);
}

} // namespace
