#include "core/CompanySession.h"
#include "core/ui/ScreenDriver.h"
#include "exchange/Export.h"
#include "exchange/ui/Entries.h"

namespace {

using namespace Qt::StringLiterals;
using test::ScreenDriver;

const QString NoProgram = u"QV2go Sync Application is not Installed"_s;
const QString Nothing = u"There is not data for exporting"_s;

using ExportDialog = test::CompanySession;

/// Lets the timer tick now; the window may be gone afterwards.
void tickNow(QWidget &dialog)
{
    auto *timer = dialog.findChild<QTimer *>(u"tmrExport"_s);
    ASSERT_TRUE(timer && timer->isActive());
    EXPECT_EQ(timer->interval(), 1000);
    QMetaObject::invokeMethod(timer, "timeout");
}

QString marks(const ScreenDriver &dialog)
{
    QString shown;
    for (const char *name : {"imgQuery", "imgExport", "imgGenerate", "lblDone"})
        shown += dialog.isShown(name) ? u'x' : u'-';
    return shown;
}

TEST_F(ExportDialog, ShowsAMarkAtEachTickAndClosesAfterTheWork)
{
    insert(u"tblCrew"_s, {{u"CrewNumber"_s, 7}});
    test::ScriptedPrompts prompts;
    prompts.meanwhile([] {
        // A tick that comes while the box waits starts nothing.
        auto *timer = QApplication::activeModalWidget()->findChild<QTimer *>(u"tmrExport"_s);
        EXPECT_FALSE(timer->isActive());
    });
    prompts.inform(u"Quorvantis records have been exported successfully.\nPut the Windows Mobile "
                   "device Into the cradle."_s);
    test::inScreen(ShowExportXml, [](const ScreenDriver &dialog) {
        EXPECT_EQ(dialog.screen().windowTitle(), u"Export to XML");
        EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
        EXPECT_EQ(marks(dialog), u"----");
        tickNow(dialog.screen());
        EXPECT_EQ(marks(dialog), u"x---");
        tickNow(dialog.screen());
        EXPECT_EQ(marks(dialog), u"xx--");
        EXPECT_FALSE(QFile::exists(exchange::exportedFile()));
        tickNow(dialog.screen());
        EXPECT_EQ(marks(dialog), u"xxxx");
        EXPECT_TRUE(dialog.isOpen());
        tickNow(dialog.screen());
        EXPECT_FALSE(dialog.isOpen());
    });
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    EXPECT_TRUE(QFile::exists(exchange::exportedFile()));
}

TEST_F(ExportDialog, WithNothingToExportGoesOnUntilItIsClosed)
{
    test::ScriptedPrompts prompts;
    for (int time = 0; time < 3; ++time)
        prompts.inform(Nothing);
    test::inScreen(ShowExportXml, [](const ScreenDriver &dialog) {
        for (int time = 0; time < 5; ++time)
            tickNow(dialog.screen());
        EXPECT_TRUE(dialog.isOpen());
        dialog.screen().close();
        EXPECT_FALSE(dialog.isOpen());
    });
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(ExportDialog, ClosesAfterAFailure)
{
    insert(u"tblCrew"_s, {{u"CrewNumber"_s, 7}});
    gcnData->Execute(u"Drop table tblServicesPart"_s);
    test::inScreen(ShowExportXml, [](const ScreenDriver &dialog) {
        for (int time = 0; time < 4; ++time)
            tickNow(dialog.screen());
        EXPECT_FALSE(dialog.isOpen());
    });
    EXPECT_EQ(errors.takeOne().ProcedureName, u"ServicePart_XML");
}

TEST_F(ExportDialog, IsFollowedByTheProgramThatCarriesTheFileWhateverCameOfIt)
{
    test::ScriptedPrompts prompts;
    prompts.say(NoProgram);
    test::inScreen(mnuExportXml_Click, [](const ScreenDriver &dialog) { dialog.screen().close(); });

    // A program that leaves a sign, in a folder with a blank.
    const QString folder = environment.folder() + u"/the carrier"_s;
    ASSERT_TRUE(QDir().mkpath(folder));
    const QString program = folder + u"/QuorvantisSync.exe"_s;
    test::writeFile(program, "#!/bin/sh\necho $# > \"$(dirname \"$0\")/started\"\n");
    QFile::setPermissions(program, QFileDevice::ReadOwner | QFileDevice::ExeOwner);
    QString stored = folder + u'\\';
    settings::registry().setValue(settings::MakerKey, u"Path"_s, stored.replace(u'/', u'\\'));
    test::inScreen(mnuExportXml_Click, [](const ScreenDriver &dialog) { dialog.screen().close(); });
    EXPECT_EQ(test::readFile(folder + u"/started"_s), "0\n") << "it is given no arguments";
}

} // namespace
