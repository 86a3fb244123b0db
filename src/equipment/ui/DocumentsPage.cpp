#include "equipment/ui/DocumentsPage.h"

#include "core/ui/ListGrid.h"
#include "equipment/DocumentStore.h"
#include "platform/base/Prompts.h"
#include "platform/base/Trapped.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/Theme.h"
#include "platform/system/Open.h"

#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

constexpr const char *Module = "Equipment";

} // namespace

DocumentsPage::DocumentsPage(EquipmentFrame &frame, QWidget *parent)
    : EquipmentPage(frame, parent)
{
    input::FormBuilder form(this);
    grdDocument = makeListGrid(this, u"grdDocument"_s, u"Documents of the machine"_s,
                               {{.name = u"Document Name"_s, .width = 460}});
    form.widget(grdDocument, true);
    form.beginRow();
    cmdAddDocument =
        form.inlineButton(u"cmdAddDocument"_s, u"Add Doc&ument..."_s, theme::icon(u"add"_s));
    cmdRemoveDocument =
        form.inlineButton(u"cmdRemoveDocument"_s, u"Re&move Document"_s, theme::icon(u"delete"_s));
    cmdPreview = form.inlineButton(u"cmdPreview"_s, u"Previe&w"_s, theme::icon(u"preview"_s));
    form.endRow();
    form.finish();
    setFocusProxy(grdDocument);
    frame.keepLayout(grdDocument, grdDocument->objectName());
    connect(cmdAddDocument, &QPushButton::clicked, this, &DocumentsPage::cmdAddDocument_Click);
    connect(cmdRemoveDocument, &QPushButton::clicked, this,
            &DocumentsPage::cmdRemoveDocument_Click);
    connect(cmdPreview, &QPushButton::clicked, this, &DocumentsPage::cmdPreview_Click);
    connect(grdDocument, &grid::GridView::rowActivated, this, &DocumentsPage::cmdPreview_Click);
    connect(grdDocument, &grid::GridView::currentRowChanged, this, &DocumentsPage::EnableControls);
}

void DocumentsPage::showMachine(qint64 EquipmentID)
{
    RefreshDocumentGrid(EquipmentID);
}

bool DocumentsPage::hasContent() const
{
    return grdDocument->rows().rowCount() > 0;
}

void DocumentsPage::setEditable(bool editable)
{
    m_editable = editable;
    EnableControls();
}

void DocumentsPage::pageShown()
{
    grdDocument->setFocus();
}

void DocumentsPage::RefreshDocumentGrid(qint64 equipmentID)
{
    const int row = equipmentID == m_equipment ? grdDocument->currentRow() : 0;
    m_equipment = equipmentID;
    base::trapped(Module, "RefreshDocumentGrid", [&] {
        grdDocument->rows().setRecordset(documents::names(m_equipment));
        grdDocument->selectRow(qMin(qMax(row, 0), grdDocument->rows().rowCount() - 1));
    });
    EnableControls();
}

void DocumentsPage::EnableControls()
{
    cmdAddDocument->setEnabled(m_editable);
    cmdRemoveDocument->setEnabled(m_editable && grdDocument->currentRow() >= 0);
    cmdPreview->setEnabled(grdDocument->currentRow() >= 0);
}

QString DocumentsPage::currentName() const
{
    const int row = grdDocument->currentRow();
    return row < 0 ? QString() : grdDocument->rows().text(row, u"Document Name");
}

void DocumentsPage::cmdAddDocument_Click()
{
    frame().beginEdit();
    const QString file = base::prompts().chooseFile(u"Add Document"_s, {u"All Files (*)"_s});
    if (file.isEmpty() || !documents::addDocument(m_equipment, file))
        return;
    RefreshDocumentGrid(m_equipment);
    frame().contentChanged();
}

void DocumentsPage::cmdRemoveDocument_Click()
{
    const QString name = currentName();
    if (name.isEmpty())
        return;
    frame().beginEdit();
    if (!base::askYesNo(u"Are you sure you want to Delete this record?"_s))
        return;
    // A file that can't be deleted is reported; its row has gone all the same.
    static_cast<void>(documents::DeleteDocumentRecord(m_equipment, name));
    RefreshDocumentGrid(m_equipment);
    frame().contentChanged();
}

void DocumentsPage::cmdPreview_Click()
{
    const QString name = currentName();
    if (name.isEmpty())
        return;
    if (!documents::exists(m_equipment, name)) {
        base::showMessage(u"Invalid File or Incorrect Path."_s);
        return;
    }
    base::trapped(Module, "cmdPreview_Click",
                  [&] { sys::openWithDefault(documents::path(m_equipment, name)); });
}
