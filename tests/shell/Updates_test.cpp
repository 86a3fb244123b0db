#include "shell/Updates.h"

#include "core/Told.h"
#include "shell/ShellSession.h"

#include <QElapsedTimer>
#include <QTest>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

struct Updates : test::ShellSession
{
    Updates()
    {
        share = environment.folder() + u"/my share"_s;
        QDir().mkpath(share);
        SetRegistryValue(u"VERSION"_s, u"1.0.1"_s);
        SetRegistryValue(u"SRCPATH"_s, share);
        SetRegistryValue(u"CLIENTVERSION"_s, u"1.9.0"_s);
    }
    void release(const QByteArray &text) const { test::writeFile(share + u"/update.txt"_s, text); }
    void installer(const QByteArray &script) const
    {
        test::writeFile(share + u"/Setup.exe"_s, script);
        QFile::setPermissions(share + u"/Setup.exe"_s,
                              QFileDevice::ReadOwner | QFileDevice::ExeOwner);
    }

    told::Listener told;
    QString share;
};

const QString Found =
    u"System found an update for Quorvantis. It will start automatically in a moment."_s;

} // namespace

TEST_F(Updates, ComeFromTheFolderThatTheInstallationNames)
{
    const QString client = u"C5"_s;
    SetRegistryValue(u"CLIENTVERSION"_s, client);
    const std::array<QString, 5> cases[] = {
        {u"1.0.1"_s, u" \\\\office\\setup "_s, u"/p/"_s, u"//office/setup"_s, client},
        {u"1.1.1"_s, u"/s"_s, {}, u"/s"_s, client},
        {u"1.1.2"_s, u"/s"_s, u"\\\\office\\qv\\"_s, u"//office/qv/Client"_s, u"1.1.2"_s},
        {u"1.0.1"_s, {}, u"/p/"_s, u"/p/Client"_s, u"1.0.1"_s},
        // What no folder is named for isn't asked.
        {u"1.1.0"_s, {}, u"/p/"_s, {}, {}},
        {u"1.1.1"_s, {}, u"/p/"_s, {}, {}},
        {u"1.0.1"_s, {}, {}, {}, {}},
        {u"2.3.1"_s, u"/s"_s, {}, {}, {}},
    };
    for (const auto &[version, source, path, folder, installed] : cases) {
        SetRegistryValue(u"VERSION"_s, version);
        SetRegistryValue(u"SRCPATH"_s, source);
        SetRegistryValue(u"PATH"_s, path);
        const auto found = updates::releaseShare();
        EXPECT_EQ(found ? found->folder : QString(), folder) << version.toStdString();
        EXPECT_EQ(found ? found->installed : QString(), installed);
    }
}

TEST_F(Updates, ANewerReleaseStartsItsInstallerAndEndsTheProgram)
{
    release(" 1.9.1 \r\n");
    const QString mark = environment.folder() + u"/started"_s;
    installer("#!/bin/sh\ntouch '" + mark.toUtf8() + "'\n");
    EXPECT_TRUE(updates::CheckForUpdate());
    EXPECT_EQ(told.sentences(), QStringList(Found));
    EXPECT_TRUE(QTest::qWaitFor([&] { return QFile::exists(mark); }));
}

TEST_F(Updates, TheStartGoesOnWithoutANewerRelease)
{
    installer("#!/bin/sh\n");
    // As text, 1.10.0 comes before 1.9.0.
    for (const char *text : {"1.9.0", "1.10.0\n", "1.8.9", "", "\n2.0"}) {
        release(text);
        EXPECT_FALSE(updates::CheckForUpdate()) << text;
    }
    release("2.0");
    SetRegistryValue(updates::AtStartValue, u"0"_s);
    EXPECT_FALSE(updates::CheckForUpdate());
    SetRegistryValue(u"SRCPATH"_s, {});
    SetRegistryValue(updates::AtStartValue, {});
    EXPECT_FALSE(updates::CheckForUpdate());
    EXPECT_TRUE(told.sentences().isEmpty());
}

TEST_F(Updates, AMissingFileIsReportedAndASlowShareLeftAlone)
{
    const auto expectReport = [this](const char *why) {
        EXPECT_FALSE(updates::CheckForUpdate()) << why;
        EXPECT_EQ(errors.takeOne().ProcedureName, u"CheckForUpdate"_s) << why;
    };
    expectReport("without a release");
    release("2.0");
    expectReport("without the installer");
    // A folder that is named for releases has to be there, one beside other things need not.
    SetRegistryValue(u"SRCPATH"_s, share + u"/none"_s);
    expectReport("without the folder");
    SetRegistryValue(u"SRCPATH"_s, {});
    SetRegistryValue(u"PATH"_s, share + u'/');
    EXPECT_FALSE(updates::CheckForUpdate());
    QDir(share).mkdir(u"Client"_s);
    expectReport("an empty folder beside other things");
    SetRegistryValue(u"SRCPATH"_s, share);
    QFile::remove(share + u"/update.txt"_s);
    ASSERT_EQ(mkfifo(qPrintable(share + u"/update.txt"_s), 0600), 0);
    QElapsedTimer clock;
    clock.start();
    EXPECT_FALSE(updates::CheckForUpdate());
    EXPECT_LT(clock.elapsed(), 3000);
}

TEST_F(Updates, TheLastOfferOfTheFeedCounts)
{
    EXPECT_EQ(updates::feedAddress(), QString());
    settings::registry().setValue(settings::MakerKey, u"UpdateSite"_s, u"https://example.com//"_s);
    EXPECT_EQ(updates::feedAddress(), u"https://example.com/setup/LatestUPT/Quorvantis.xml"_s);

    const updates::Offer offer = updates::offerIn(
        "<?xml version='1.0'?><all><QUORVANTIS><v>1.0</v><u>http://old</u><t>Old</t></QUORVANTIS>"
        "<other><v>9</v></other><QUORVANTIS><v> 1.0.2 </v><u>http://new</u><t>1.0.2 &amp; "
        "more</t></QUORVANTIS></all>");
    EXPECT_EQ(offer.version, u"1.0.2"_s);
    EXPECT_EQ(offer.address, u"http://new"_s);
    EXPECT_EQ(updates::sentenceOf(offer), u"Quorvantis 1.0.2 & more is available."_s);
    EXPECT_TRUE(updates::isNewer(offer));
    EXPECT_FALSE(updates::isNewer({.version = u"1.0.1"_s, .address = {}, .text = {}}));
    EXPECT_EQ(updates::sentenceOf({}), QString());
    EXPECT_EQ(updates::offerIn("<all/>").version, QString());
    EXPECT_EQ(updates::offerIn("<all><QUORVANTIS><v>2</v></QUORVANTIS></all>").address, QString());
    for (const char *feed :
         {"", "<html><body><p>Hello<br></body></html>", "<all><QUORVANTIS>", "\xff\xfe"})
        EXPECT_TRUE(test::raisedBy([&] { static_cast<void>(updates::offerIn(feed)); })
                        .description()
                        .contains(u"no list of releases"_s))
            << feed;
}
