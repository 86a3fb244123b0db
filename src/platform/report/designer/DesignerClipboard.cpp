#include "platform/base/Prompts.h"
#include "platform/report/designer/DesignCanvas.h"
#include "platform/report/designer/DesignerActions.h"
#include "platform/report/designer/Structure.h"
#include "platform/report/paginate/PictureFile.h"

#include <QBuffer>
#include <QClipboard>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImageReader>
#include <QMimeData>

namespace report {
namespace {

using namespace Qt::StringLiterals;

const QString clipboardType = u"application/x-report-layout"_s;
/// A copy that is put beside its original stands so far off.
constexpr Length CopyShift = 300;
constexpr qint64 LargestPicture = 4 * 1024 * 1024;

} // namespace

void DesignerActions::copy() const
{
    const Selection &selection = m_document.selection();
    if (selection.objects.isEmpty())
        return;
    const QByteArray text =
        clipboardText(m_document.layout(), objectsAt(m_document.layout(), selection.objects));
    auto data = std::make_unique<QMimeData>();
    data->setData(clipboardType, text);
    data->setText(QString::fromUtf8(text));
    QGuiApplication::clipboard()->setMimeData(data.release());
}

/// Objects come from this report or another one; words from elsewhere become a text.
void DesignerActions::paste()
{
    const QMimeData *data = QGuiApplication::clipboard()->mimeData();
    const int band = m_canvas.targetBand();
    if (!data || band < 0)
        return;
    m_document.endSeries();
    m_document.change(u"Paste"_s, [&](Layout &layout, Selection &selection) {
        QList<Place> places;
        if (data->hasFormat(clipboardType))
            places = pasteText(layout, band, data->data(clipboardType), {CopyShift, CopyShift});
        else if (data->hasText() && !data->text().trimmed().isEmpty()) {
            Object text = newObject(ObjectKind::Text, {0, 0});
            text.content = data->text().trimmed().replace(u'{', u"{{"_s);
            places = addObjects(layout, band, {text});
        }
        if (!places.isEmpty())
            selection = Selection::of(places);
    });
}

void DesignerActions::duplicate()
{
    m_document.endSeries();
    m_document.change(u"Duplicate"_s, [](Layout &layout, Selection &selection) {
        QList<Place> places;
        for (const Place &place : std::as_const(selection.objects)) {
            Object copied = layout.bands[place.band].objects[place.object];
            // A name is given once in a report.
            copied.name.clear();
            copied.x += CopyShift;
            copied.y += CopyShift;
            places += addObjects(layout, place.band, {copied});
        }
        selection = Selection::of(places);
    });
}

void DesignerActions::selectAll()
{
    const int band = m_canvas.targetBand();
    if (band < 0)
        return;
    QList<Place> places;
    for (int object = 0; object < m_document.layout().bands[band].objects.size(); ++object)
        places.append({band, object});
    m_document.select(Selection::of(places));
}

void DesignerActions::insertPicture()
{
    const QString path = base::prompts().chooseFile(
        u"Picture"_s, {u"Pictures (*.png *.jpg *.jpeg *.bmp *.gif *.svg)"_s});
    if (path.isEmpty())
        return;
    QFile file(path);
    if (file.size() > LargestPicture) {
        base::showMessage(u"The picture is larger than 4 MB. A report keeps it in its own file;"
                          " make it smaller first."_s);
        return;
    }
    if (!file.open(QIODevice::ReadOnly)) {
        base::showMessage(u"The picture \"%1\" can't be read: %2."_s.arg(path, file.errorString()));
        return;
    }
    QByteArray bytes = file.readAll();
    if (const QString fault = pictureFault(bytes); !fault.isEmpty()) {
        base::showMessage(u"\"%1\" %2."_s.arg(path, fault));
        return;
    }
    QBuffer buffer(&bytes);
    const QSize size = QImageReader(&buffer).size();
    const int band = m_canvas.targetBand();
    const Selection former = m_document.selection();
    const bool isReplaced =
        former.objects.size() == 1 && m_document.object(former.lead).kind == ObjectKind::Picture;
    m_document.endSeries();
    // The picture comes with its object as one step, so that undoing leaves no bytes behind.
    m_document.change(u"Insert picture"_s, [&](Layout &layout, Selection &selection) {
        const QString name = storePicture(layout, QFileInfo(path).fileName(), bytes);
        if (isReplaced) {
            layout.bands[former.lead.band].objects[former.lead.object].content = name;
            dropUnusedPictures(layout);
            return;
        }
        Object picture = newObject(ObjectKind::Picture, {0, 0});
        picture.content = name;
        const QSize frame = size.scaled(4000, 2000, Qt::KeepAspectRatio);
        picture.width = frame.width();
        picture.height = frame.height();
        selection = Selection::of(addObjects(layout, band, {picture}));
    });
}

} // namespace report
