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
    QImage onShow() { return control<PictureView>(u"imgEquipment"_s).image(); }
    grid::GridView &grid(const QString &name) { return control<grid::GridView>(name); }
    bool isEnabled(const QString &button) { return control<QPushButton>(button).isEnabled(); }
};

} // namespace

TEST_F(FilesPages, ThePictureOfTheChosenRowIsShown)
{
    store(1, u"Front"_s, picture({60, 40}, "bmp"));
    store(1, u"Side"_s, picture({30, 50}, "jpg"));
    store(1, u"Torn"_s, "no picture");
    frame.show<PicturesPage>(1);
    EXPECT_EQ(onShow().size(), QSize(60, 40));
    grid(u"grdImage"_s).selectRow(1);
    EXPECT_EQ(onShow().size(), QSize(30, 50));
    // What can't be shown is reported, and the former picture stays.
    grid(u"grdImage"_s).selectRow(2);
    EXPECT_EQ(errors.takeOne().ProcedureName, u"LoadEquipmentPicture");
    EXPECT_EQ(onShow().size(), QSize(30, 50));
    EXPECT_FALSE(QFile::exists(base::appDataPath(u"\\Temp.bmp"_s)));
    frame.page->showMachine(2);
    EXPECT_TRUE(onShow().isNull());
    EXPECT_FALSE(frame.page->hasContent());
    EXPECT_FALSE(isEnabled(u"cmdRemoveImage"_s));
}

TEST_F(FilesPages, APictureIsAddedByItsScreen)
{
    frame.show<PicturesPage>(1);
    const QString good = file(u"mower.gif.bmp"_s, picture({20, 20}, "bmp"));
    const QString bad = file(u"text.bmp"_s, "text");
    prompts.say(u"File Path should not be blank."_s);
    prompts.expectChooser(u"Select Picture"_s, bad);
    prompts.say(u"File Name should not be blank."_s);
    prompts.say(u"Invalid Picture File!"_s);
    prompts.expectChooser(u"Select Picture"_s, good);
    test::onNextModal([](QWidget &screen) {
        const auto press = [&screen](const QString &name) {
            QTest::mouseClick(&test::named<QWidget>(screen, name), Qt::LeftButton);
        };
        auto &path = test::named<QLineEdit>(screen, u"txtFilePath"_s);
        auto &name = test::named<QLineEdit>(screen, u"txtFileName"_s);
        press(u"cmdSave"_s);
        EXPECT_TRUE(path.hasFocus());
        press(u"cmdBrowse"_s);
        EXPECT_EQ(name.text(), u"text");
        name.clear();
        press(u"cmdSave"_s);
        EXPECT_TRUE(name.hasFocus());
        QTest::keyClicks(&name, u"Front"_s);
        press(u"cmdSave"_s);
        EXPECT_TRUE(screen.isVisible());
        press(u"cmdBrowse"_s);
        EXPECT_EQ(name.text(), u"Front");
        QTest::keyClick(&name, Qt::Key_Return);
    });
    click(u"cmdAddImage"_s);
    EXPECT_EQ(frame.mode, Mode::Modify);
    EXPECT_EQ(grid(u"grdImage"_s).rows().text(0, u"Picture Name"), u"Front");
    EXPECT_EQ(onShow().size(), QSize(20, 20));
    EXPECT_EQ(pictures::bytes(1, u"Front"_s), picture({20, 20}, "bmp"));

    prompts.no(Delete);
    click(u"cmdRemoveImage"_s);
    EXPECT_TRUE(frame.page->hasContent());
    prompts.yes(Delete);
    click(u"cmdRemoveImage"_s);
    EXPECT_FALSE(frame.page->hasContent());
    EXPECT_TRUE(onShow().isNull());
    frame.cancelEdit();
    EXPECT_EQ(count(u"tblEquipmentImage"_s), 0);
}

TEST_F(FilesPages, DocumentsAreAddedOpenedAndRemoved)
{
    frame.show<DocumentsPage>(1);
    EXPECT_FALSE(isEnabled(u"cmdPreview"_s));
    prompts.expectChooser(u"Add Document"_s, QString());
    click(u"cmdAddDocument"_s);
    EXPECT_EQ(frame.mode, Mode::Modify);
    const QString chosen = file(u"manual.txt"_s, "text");
    prompts.expectChooser(u"Add Document"_s, chosen);
    click(u"cmdAddDocument"_s);
    EXPECT_TRUE(frame.page->hasContent());
    EXPECT_TRUE(documents::exists(1, u"manual.txt"_s));
    EXPECT_TRUE(isEnabled(u"cmdPreview"_s));

    documents::remove(1, u"manual.txt"_s);
    prompts.say(u"Invalid File or Incorrect Path."_s);
    click(u"cmdPreview"_s);
    prompts.yes(Delete);
    click(u"cmdRemoveDocument"_s);
    EXPECT_EQ(errors.takeOne().ErrNumber, base::ErrorNumber::FileNotFound);
    EXPECT_FALSE(frame.page->hasContent());
}

TEST_F(FilesPages, PartsOfAMachineAreRemovedInsideTheEdit)
{
    run(u"insert into tblPart(PartID,Description) values('F-1','Filter')"_s);
    run(u"insert into tblEquipmentPart(EquipmentID,PartID,QuantityRequired,Price) "
        "values(1,'F-1',2,4.5)"_s);
    frame.show<MachinePartsPage>(1);
    EXPECT_EQ(grid(u"grdPart"_s).rows().text(0, u"Extended Cost"), u"$4.50");
    prompts.no(Delete);
    click(u"cmdRemovePart"_s);
    EXPECT_EQ(frame.mode, Mode::Modify);
    EXPECT_TRUE(frame.page->hasContent());
    prompts.yes(Delete);
    click(u"cmdRemovePart"_s);
    EXPECT_FALSE(isEnabled(u"cmdRemovePart"_s));
    frame.cancelEdit();
    EXPECT_TRUE(frame.page->hasContent());
    frame.page->setEditable(false);
    EXPECT_FALSE(isEnabled(u"cmdAddNewPart"_s));
    EXPECT_FALSE(isEnabled(u"cmdRemovePart"_s));
}

TEST_F(FilesPages, APartThatTheSelectorGivesIsAdded)
{
    run(u"insert into tblPart(PartID,Description,Price,Inactive,SupplierID) "
        "values('F-1','Filter',4.5,0,3)"_s);
    frame.show<MachinePartsPage>(1);
    test::onNextModal([](QWidget &screen) {
        auto &list = *screen.findChild<grid::GridView *>();
        ASSERT_EQ(list.rows().rowCount(), 1);
        grid::GridModel &rows = list.rows();
        rows.edit(0, rows.columnIndex(u"Select"), true);
        QTest::mouseClick(&test::named<QWidget>(screen, u"cmdSelect"_s), Qt::LeftButton);
    });
    click(u"cmdAddNewPart"_s);
    ASSERT_EQ(grid(u"grdPart"_s).rows().rowCount(), 1);
    EXPECT_EQ(grid(u"grdPart"_s).rows().text(0, u"Part Number"), u"F-1");
    EXPECT_EQ(found(u"Select EquipmentID, PartID, QuantityRequired, Price, SupplierID from "
                    "tblEquipmentPart"_s),
              u"1|F-1|1|4.5|3");
    EXPECT_EQ(frame.changes, 1);
    frame.cancelEdit();
    EXPECT_EQ(count(u"tblEquipmentPart"_s), 0);
}
