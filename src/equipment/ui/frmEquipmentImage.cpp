#include "equipment/ui/frmEquipmentImage.h"

#include "equipment/Pictures.h"
#include "equipment/ui/PictureView.h"
#include "platform/base/Prompts.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/Leaving.h"
#include "platform/input/Theme.h"

#include <QFile>
#include <QFileInfo>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

constexpr int NameLength = 100;
/// Enough for the preview, and for telling whether a file is a picture.
constexpr int PreviewSide = 800;

/// Each with its patterns behind what is shown.
const QStringList Filters{u"Bitmap Files(*.bmp) (*.bmp)"_s,
                          u"JPEG(*.JPG,*.JPEG,*.JPE,*.JFIF) (*.JPG *.JPEG *.JPE *.JFIF)"_s,
                          u"GIF(*.GIF) (*.gif)"_s,
                          u"All Pictures Files (*.bmp *.JPG *.JPEG *.JPE *.JFIF *.gif)"_s};

} // namespace

frmEquipmentImage::frmEquipmentImage(qint64 equipmentID, QWidget *parent)
    : Screen(u"frmEquipmentImage"_s, u"Equipment Picture"_s, parent)
    , m_equipment(equipmentID)
{
    buildForm();
}

QString frmEquipmentImage::ShowEquipmentImageDetail(qint64 equipmentID, QWidget *parent)
{
    frmEquipmentImage screen(equipmentID, parent);
    screen.showModal();
    return screen.m_added;
}

void frmEquipmentImage::buildForm()
{
    input::FormBuilder form(this);
    txtFilePath = form.textField(u"txtFilePath"_s, u"File &Path:"_s);
    QToolButton *cmdBrowse =
        form.sideButton(u"cmdBrowse"_s, u"Browse for a picture"_s, u"folder"_s);
    txtFileName = form.textField(u"txtFileName"_s, u"File &Name:"_s, NameLength);
    imgPreview = new PictureView(this);
    imgPreview->setObjectName(u"imgPreview"_s);
    imgPreview->setAccessibleName(u"The picture in the file"_s);
    form.widget(imgPreview, true);
    cmdSave = form.button(u"cmdSave"_s, u"&Save"_s, theme::icon(u"save"_s));
    cmdExit = form.button(u"cmdExit"_s, u"E&xit"_s, theme::icon(u"exit"_s));
    form.finish();
    // A name and Enter.
    cmdSave->setDefault(true);
    resize(460, 380);
    connect(cmdBrowse, &QToolButton::clicked, this, &frmEquipmentImage::cmdBrowse_Click);
    connect(txtFilePath, &QLineEdit::editingFinished, this, &frmEquipmentImage::showPreview);
    connect(cmdSave, &QPushButton::clicked, this, &frmEquipmentImage::cmdSave_Click);
    connect(cmdExit, &QPushButton::clicked, this, &frmEquipmentImage::unload);
}

void frmEquipmentImage::showPreview()
{
    QFile file(txtFilePath->text().trimmed());
    imgPreview->setImage(file.open(QIODevice::ReadOnly) ? decodedPicture(file, PreviewSide)
                                                        : QImage());
}

void frmEquipmentImage::cmdBrowse_Click()
{
    const QString file = base::prompts().chooseFile(u"Select Picture"_s, Filters);
    if (file.isEmpty())
        return;
    txtFilePath->setText(file);
    showPreview();
    // A name to start from; the user's own stays.
    if (input::isBlank(txtFileName))
        txtFileName->setText(QFileInfo(file).completeBaseName().left(NameLength));
    txtFileName->setFocus();
    txtFileName->selectAll();
}

bool frmEquipmentImage::VailidateFields()
{
    const auto refuse = [](QLineEdit *field, const QString &text) {
        base::showMessage(text);
        field->setFocus();
        return false;
    };
    if (input::isBlank(txtFilePath))
        return refuse(txtFilePath, u"File Path should not be blank."_s);
    if (input::isBlank(txtFileName))
        return refuse(txtFileName, u"File Name should not be blank."_s);
    return true;
}

void frmEquipmentImage::cmdSave_Click()
{
    if (!VailidateFields())
        return;
    const QString name = txtFileName->text().trimmed();
    bool isGood = false;
    const auto isPicture = [&isGood](const QByteArray &bytes) {
        isGood = !decodedPicture(bytes, PreviewSide).isNull();
        return isGood;
    };
    if (!pictures::SaveImageInEquipment(m_equipment, txtFilePath->text().trimmed(), name,
                                        isPicture)) {
        // With a good picture only its name can be at fault.
        QLineEdit *refused = isGood ? txtFileName : txtFilePath;
        refused->setFocus();
        refused->selectAll();
        return;
    }
    m_added = name;
    unload();
}
