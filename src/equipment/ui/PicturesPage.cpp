#include "equipment/ui/PicturesPage.h"

#include "core/ui/EmptyText.h"
#include "core/ui/ListGrid.h"
#include "equipment/Pictures.h"
#include "equipment/ui/PictureView.h"
#include "equipment/ui/ThumbnailColumn.h"
#include "equipment/ui/frmEquipmentImage.h"
#include "platform/base/Error.h"
#include "platform/base/Prompts.h"
#include "platform/base/Trapped.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/Theme.h"

#include <QFile>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

constexpr const char *Module = "Equipment";
constexpr int InvalidPicture = 481;
/// No screen shows more of a picture, and larger ones need not be held.
constexpr int LongestSide = 4096;

} // namespace

PicturesPage::PicturesPage(MachineFrame &frame, QWidget *parent)
    : GridPage(frame, parent)
{
    input::FormBuilder form(this);
    form.beginColumns();
    grdImage =
        makeListGrid(this, u"grdImage"_s, u"Pictures of the machine"_s,
                     {{.name = u"Picture"_s, .caption = u" "_s, .width = ThumbnailColumn::Side + 8},
                      {.name = u"Picture Name"_s, .width = 116}});
    showWhenEmpty(*grdImage, u"This machine has no pictures."_s);
    form.widget(grdImage, true);
    form.nextColumn(2);
    imgEquipment = new PictureView(this);
    imgEquipment->setObjectName(u"imgEquipment"_s);
    imgEquipment->setAccessibleName(u"The chosen picture"_s);
    form.widget(imgEquipment, true);
    form.endColumns();
    form.beginRow();
    cmdAddImage = form.inlineButton(u"cmdAddImage"_s, u"Add Pict&ure..."_s, theme::icon(u"add"_s));
    cmdRemoveImage =
        form.inlineButton(u"cmdRemoveImage"_s, u"Re&move Picture"_s, theme::icon(u"delete"_s));
    form.endRow();
    form.finish();
    m_thumbnails =
        new ThumbnailColumn(grdImage, u"Picture"_s, u"Picture Name"_s, [this](const QString &name) {
            return base::trapped(Module, "RefreshImageGrid", QByteArray(),
                                 [&] { return pictures::bytes(equipment(), name); });
        });
    setGrid(grdImage);
    connect(cmdAddImage, &QPushButton::clicked, this, &PicturesPage::cmdAddImage_Click);
    connect(cmdRemoveImage, &QPushButton::clicked, this, &PicturesPage::cmdRemoveImage_Click);
}

void PicturesPage::showMachine(qint64 EquipmentID)
{
    RefreshImageGrid(EquipmentID);
}

void PicturesPage::showEvent(QShowEvent *event)
{
    GridPage::showEvent(event);
    if (m_pictureIsOld)
        LoadEquipmentPicture();
}

void PicturesPage::RefreshImageGrid(qint64 equipmentID)
{
    // Another machine may have a picture of the same name.
    m_thumbnails->forget();
    showRows(equipmentID, "RefreshImageGrid", [&] { return pictures::names(equipmentID); });
}

void PicturesPage::rowChanged()
{
    EnableControls();
    LoadEquipmentPicture();
}

void PicturesPage::LoadEquipmentPicture()
{
    // Going through the machines on another page must not wait for their photographs.
    m_pictureIsOld = !isVisible();
    if (m_pictureIsOld)
        return;
    const QString name = chosen(u"Picture Name");
    if (name.isEmpty()) {
        imgEquipment->setImage({});
        return;
    }
    base::trapped(Module, "LoadEquipmentPicture", [&] {
        const pictures::ScratchFile scratch(pictures::bytes(equipment(), name));
        QFile file(scratch.path());
        const QImage image =
            file.open(QIODevice::ReadOnly) ? decodedPicture(file, LongestSide) : QImage();
        if (image.isNull())
            throw base::Error(InvalidPicture,
                              u"The picture \"%1\" can't be shown: what is stored for it is no "
                              "picture that this program knows."_s.arg(name));
        imgEquipment->setImage(image);
    });
}

void PicturesPage::EnableControls()
{
    cmdAddImage->setEnabled(isEditable());
    cmdRemoveImage->setEnabled(isEditable() && grdImage->currentRow() >= 0);
}

void PicturesPage::cmdAddImage_Click()
{
    frame().beginEdit();
    const QString added = frmEquipmentImage::ShowEquipmentImageDetail(equipment(), this);
    RefreshImageGrid(equipment());
    if (!added.isEmpty())
        grdImage->selectRow(grdImage->rows().findRow(u"Picture Name", added));
    frame().contentChanged();
}

void PicturesPage::cmdRemoveImage_Click()
{
    removeChosen(chosen(u"Picture Name"), [this](const QString &name) {
        return pictures::DeleteImageRecord(equipment(), name);
    });
}
