#include "equipment/DocumentStore.h"
#include "equipment/Pictures.h"
#include "equipment/ui/DocumentsPage.h"
#include "equipment/ui/MachinePartsPage.h"
#include "equipment/ui/PageTest.h"
#include "equipment/ui/PictureView.h"
#include "equipment/ui/PicturesPage.h"

#include <QBuffer>
#include <QImage>

using namespace Qt::StringLiterals;

namespace {

const QString Delete = u"Are you sure you want to Delete this record?"_s;

struct FilesPages : test::PageTest
{
    FilesPages() { addMachine(1, u"M1"_s); }

    static QByteArray picture(QSize size, const char *format)
    {
        QImage image(size, QImage::Format_RGB32);
        image.fill(Qt::darkGreen);
        QBuffer bytes;
        bytes.open(QIODevice::WriteOnly);
        EXPECT_TRUE(image.save(&bytes, format));
        return bytes.data();
    }
    QString file(const QString &name, const QByteArray &content) const
    {
        const QString path = environment.folder() + u'/' + name;
        test::writeFile(path, content);
        return path;
    }
    static void store(qint64 machine, const QString &name, const QByteArray &bytes)
    {
        run(u"insert into tblEquipmentImage(EquipmentID,ImageName,ImageData) values(?,?,?)"_s,
            {machine, name, bytes});
    }
    [[nodiscard]] QImage onShow() const
    {
        return page().control<PictureView>("imgEquipment").image();
    }
};

} // namespace

TEST_F(FilesPages, ThePictureOfTheChosenRowIsShown)
{
    store(1, u"Front"_s, picture({60, 40}, "bmp"));
    store(1, u"Side"_s, picture({30, 50}, "jpg"));
    store(1, u"Torn"_s, "no picture");
    frame.show<PicturesPage>(1);
    EXPECT_EQ(onShow().size(), QSize(60, 40));
    page().grid("grdImage").selectRow(1);
    EXPECT_EQ(onShow().size(), QSize(30, 50));
    // What can't be shown is reported, and the former picture stays.
    page().grid("grdImage").selectRow(2);
    EXPECT_EQ(errors.takeOne().ProcedureName, u"LoadEquipmentPicture");
    EXPECT_EQ(onShow().size(), QSize(30, 50));
    EXPECT_FALSE(QFile::exists(base::appDataPath(u"\\Temp.bmp"_s)));
    frame.page->showMachine(2);
    EXPECT_TRUE(onShow().isNull());
    EXPECT_FALSE(frame.page->hasContent());
    EXPECT_FALSE(page().isEnabled("cmdRemoveImage"));
}

TEST_F(FilesPages, APictureIsAddedByItsScreen)
{
    frame.show<PicturesPage>(1);
    prompts.say(u"File Path should not be blank."_s);
    prompts.expectChooser(u"Select Picture"_s, file(u"text.bmp"_s, "text"));
    prompts.say(u"File Name should not be blank."_s);
    prompts.say(u"Invalid Picture File!"_s);
    prompts.expectChooser(u"Select Picture"_s, file(u"mower.gif.bmp"_s, picture({20, 20}, "bmp")));
    test::inScreen([this] { page().press("cmdAddImage"); },
                   [](const test::ScreenDriver &screen) {
                       auto &name = screen.control<QLineEdit>("txtFileName");
                       screen.press("cmdSave");
                       EXPECT_EQ(screen.focused(), "txtFilePath");
                       screen.press("cmdBrowse");
                       EXPECT_EQ(name.text(), u"text");
                       name.clear();
                       screen.press("cmdSave");
                       EXPECT_EQ(screen.focused(), "txtFileName");
                       QTest::keyClicks(&name, u"Front"_s);
                       screen.press("cmdSave");
                       EXPECT_TRUE(screen.isOpen());
                       screen.press("cmdBrowse");
                       EXPECT_EQ(name.text(), u"Front");
                       QTest::keyClick(&name, Qt::Key_Return);
                   });
    EXPECT_EQ(frame.mode, Mode::Modify);
    EXPECT_EQ(test::columnOf(page().grid("grdImage"), u"Picture Name"), QStringList{u"Front"_s});
    EXPECT_EQ(onShow().size(), QSize(20, 20));
    EXPECT_EQ(pictures::bytes(1, u"Front"_s), picture({20, 20}, "bmp"));

    prompts.no(Delete);
    page().press("cmdRemoveImage");
    EXPECT_TRUE(frame.page->hasContent());
    prompts.yes(Delete);
    page().press("cmdRemoveImage");
    EXPECT_FALSE(frame.page->hasContent());
    EXPECT_TRUE(onShow().isNull());
    frame.cancelEdit();
    EXPECT_EQ(count(u"tblEquipmentImage"_s), 0);
}

TEST_F(FilesPages, DocumentsAreAddedOpenedAndRemoved)
{
    frame.show<DocumentsPage>(1);
    for (const QString &chosen : {QString(), file(u"manual.txt"_s, "text")}) {
        EXPECT_FALSE(page().isEnabled("cmdPreview"));
        prompts.expectChooser(u"Add Document"_s, chosen);
        page().press("cmdAddDocument");
        EXPECT_EQ(frame.mode, Mode::Modify);
        EXPECT_EQ(frame.page->hasContent(), !chosen.isEmpty());
    }
    EXPECT_TRUE(documents::exists(1, u"manual.txt"_s));

    documents::remove(1, u"manual.txt"_s);
    prompts.say(u"Invalid File or Incorrect Path."_s);
    page().press("cmdPreview");
    prompts.yes(Delete);
    page().press("cmdRemoveDocument");
    EXPECT_EQ(errors.takeOne().ErrNumber, base::ErrorNumber::FileNotFound);
    EXPECT_FALSE(frame.page->hasContent());
}

TEST_F(FilesPages, PartsOfAMachineAreAddedAndRemovedInsideTheEdit)
{
    insert(u"tblPart"_s, u"PartID, Description, Price, Inactive, SupplierID"_s,
           {u"F-1"_s, u"Filter"_s, 4.5, 0, 3});
    frame.show<MachinePartsPage>(1);
    test::inScreen([this] { page().press("cmdAddNewPart"); },
                   [](const test::ScreenDriver &screen) {
                       grid::GridModel &rows = screen.grid("grdParts").rows();
                       ASSERT_EQ(rows.rowCount(), 1);
                       rows.edit(0, rows.columnIndex(u"Select"), true);
                       screen.press("cmdSelect");
                   });
    EXPECT_EQ(frame.mode, Mode::Modify);
    EXPECT_EQ(frame.changes, 1);
    EXPECT_EQ(found(u"Select EquipmentID, PartID, QuantityRequired, Price, SupplierID from "
                    "tblEquipmentPart"_s),
              u"1|F-1|1|4.5|3");
    EXPECT_EQ(test::columnOf(page().grid("grdPart"), u"Extended Cost"), QStringList{u"$4.50"_s});
    frame.cancelEdit();
    EXPECT_FALSE(frame.page->hasContent());

    insert(u"tblEquipmentPart"_s, u"EquipmentID, PartID"_s, {1, u"F-1"_s});
    frame.page->showMachine(1);
    prompts.no(Delete);
    page().press("cmdRemovePart");
    EXPECT_EQ(frame.mode, Mode::Modify);
    EXPECT_TRUE(frame.page->hasContent());
    prompts.yes(Delete);
    page().press("cmdRemovePart");
    EXPECT_FALSE(page().isEnabled("cmdRemovePart"));
    frame.cancelEdit();
    EXPECT_TRUE(frame.page->hasContent());
    frame.page->setEditable(false);
    EXPECT_FALSE(page().isEnabled("cmdAddNewPart") || page().isEnabled("cmdRemovePart"));
}
