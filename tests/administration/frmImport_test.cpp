#include "administration/AdministrationScreen.h"
#include "administration/ui/Entries.h"
#include "core/Permission.h"
#include "platform/db/Structure.h"

#include <QLocale>
#include <numeric>

using namespace Qt::StringLiterals;
using test::ScreenDriver;

namespace {

class ImportScreen : public test::AdministrationScreen
{
protected:
    ImportScreen() { gRights.EqAdd = gRights.SerAdd = gRights.PaAdd = true; }
    ~ImportScreen() override { gRights = {}; }

    [[nodiscard]] QString file(const QByteArray &text) const
    {
        const QString path = stick() + u"/rows.csv"_s;
        test::writeFile(path, text);
        return path;
    }
    static QString cell(const ScreenDriver &screen, int row)
    {
        return screen.control<grid::GridView>("grdFindings").rowText(row);
    }
};

} // namespace

TEST_F(ImportScreen, ShowsWhatIsWrongAndImportsWhatIsRight)
{
    work(ShowImport, [&](const ScreenDriver &screen) {
        EXPECT_FALSE(screen.isEnabled("cmdImport"));
        prompts.expectChooser(u"Please choose the file to import"_s,
                              file("Unit,Name,Site\nT1,a,North\nT1,b,North\n"));
        screen.press("cmdBrowse");
        const Rights former = std::exchange(gRights, {});
        prompts.inform(rights::refusal(rights::Machines.add));
        screen.press("cmdImport");
        gRights = former;
        screen.press("cmdCheck");
        EXPECT_EQ(cell(screen, 0), u"3\tUnit No\t\"T1\" stands in row 2 too."_s);
        const QString told = u"1 problem was found in 2 rows. Nothing was imported."_s;
        EXPECT_EQ(screen.text("lblSummary"), told);
        prompts.say(told);
        screen.press("cmdImport");
        (void)file("Unit,Name,Site\nT1,a,North\nT2,b,North\n");
        const QString question = u"The file names entries that the lists do not have yet:\n\nSite: "
                                 "North\n\nDo you want to add them to the lists?"_s;
        prompts.no(question);
        screen.press("cmdImport");
        EXPECT_EQ(cell(screen, 0), u"\tSite\tNew in the list: North"_s);
        EXPECT_EQ(count(u"tblEquipment"_s), 1);
        prompts.yes(question);
        prompts.say(u"2 rows were imported. 1 entry was added to the lists."_s);
        screen.press("cmdImport");
        EXPECT_EQ(count(u"tblEquipment"_s), 3);
        screen.type("txtFile", u"/nowhere.csv"_s);
        EXPECT_EQ(screen.text("lblSummary"), QString());
        prompts.say(u"The file \"/nowhere.csv\" can't be read (No such file or directory)."_s);
        screen.press("cmdCheck");
    });
}

TEST_F(ImportScreen, AnExportIsReadIntoAnEmptyCompany)
{
    const QString zip = stick() + u"/all.zip"_s;
    prompts.expectChooser(u"Export all records"_s, stick() + u"/all"_s);
    // How many rows there are is the company's business.
    const db::RowCounts counts = db::countRows(databaseTarget());
    const qint64 rows = std::accumulate(counts.begin(), counts.end(), qint64(0));
    prompts.inform(
        u"%1 rows of %2 tables were exported to %3.\n\nThe file holds all that the company "
        "has entered, addresses of employees included. Keep it as you keep a backup."_s.arg(
            QLocale(QLocale::English).toString(rows), QString::number(counts.size()), zip));
    ShowExport();
    const QString question =
        u"This puts the exported company in the place of this one, which has to "
        "be empty. Do you want to continue?"_s;
    const auto import = [&](const QString &told) {
        work(ShowImport, [&](const ScreenDriver &screen) {
            screen.choose("cboKind", u"A whole company (an export)"_s);
            EXPECT_FALSE(screen.isEnabled("cmdCheck"));
            EXPECT_FALSE(screen.isEnabled("cmdSheet"));
            screen.type("txtFile", zip);
            prompts.yes(question);
            prompts.say(told);
            screen.press("cmdImport");
        });
    };
    import(
        u"The company holds records already. An export of all tables is read into an empty company "
        "only. Nothing was changed."_s);
    ASSERT_TRUE(connectionsAreOpen());
    gcnData->Execute(u"Delete from tblEquipment"_s);
    import(u"The company was imported. Please end the program and start it again."_s);
    expectWorking(1);
}

TEST_F(ImportScreen, AnEmptySheetIsSaved)
{
    work(ShowImport, [&](const ScreenDriver &screen) {
        screen.choose("cboKind", u"Meter readings"_s);
        prompts.expectChooser(u"Save an empty sheet"_s, stick() + u"/r.csv"_s);
        prompts.say(u"The sheet was saved. Fill it in with a spreadsheet, one row for each record. "
                    "Columns that you don't need may go."_s);
        screen.press("cmdSheet");
    });
    EXPECT_EQ(test::readFile(stick() + u"/r.csv"_s), "\xEF\xBB\xBFUnit No,Date,Meter,Reading\r\n");
}
