#include "equipment/ui/DocumentsPage.h"

#include "core/ui/EmptyText.h"
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

DocumentsPage::DocumentsPage(MachineFrame &frame, QWidget *parent)
    : GridPage(frame, parent)
{
    input::FormBuilder form(this);
    grdDocument = makeListGrid(this, u"grdDocument"_s, u"Documents of the machine"_s,
                               {{.name = u"Document Name"_s, .width = 460}});
    showWhenEmpty(*grdDocument, u"This machine has no documents."_s);
    form.widget(grdDocument, true);
    form.beginRow();
    cmdAddDocument =
        form.inlineButton(u"cmdAddDocument"_s, u"Add Doc&ument..."_s, theme::icon(u"add"_s));
    cmdRemoveDocument =
        form.inlineButton(u"cmdRemoveDocument"_s, u"Re&move Document"_s, theme::icon(u"delete"_s));
    cmdPreview = form.inlineButton(u"cmdPreview"_s, u"Previe&w"_s, theme::icon(u"preview"_s));
    form.endRow();
    form.finish();
    setGrid(grdDocument);
    connect(cmdAddDocument, &QPushButton::clicked, this, &DocumentsPage::cmdAddDocument_Click);
    connect(cmdRemoveDocument, &QPushButton::clicked, this,
            &DocumentsPage::cmdRemoveDocument_Click);
    connect(cmdPreview, &QPushButton::clicked, this, &DocumentsPage::cmdPreview_Click);
    connect(grdDocument, &grid::GridView::rowActivated, this, &DocumentsPage::cmdPreview_Click);
}

void DocumentsPage::showMachine(qint64 EquipmentID)
{
    RefreshDocumentGrid(EquipmentID);
}

void DocumentsPage::RefreshDocumentGrid(qint64 equipmentID)
{
    showRows(equipmentID, "RefreshDocumentGrid", [&] { return documents::names(equipmentID); });
}

void DocumentsPage::EnableControls()
{
    const bool isChosen = grdDocument->currentRow() >= 0;
    cmdAddDocument->setEnabled(isEditable());
    cmdRemoveDocument->setEnabled(isEditable() && isChosen);
    // Looking needs no right to change.
    cmdPreview->setEnabled(isChosen);
}

void DocumentsPage::cmdAddDocument_Click()
{
    // The name lies in the machine's transaction, the file doesn't.
    frame().beginEdit();
    const QString file = base::prompts().chooseFile(u"Add Document"_s, {u"All Files (*)"_s});
    const auto mayReplace = [](const QString &name) {
        return base::askYesNo(name + u" already exists. Would you like to replace it."_s);
    };
    if (file.isEmpty() || !documents::addDocument(equipment(), file, mayReplace))
        return;
    RefreshDocumentGrid(equipment());
    frame().contentChanged();
}

void DocumentsPage::cmdRemoveDocument_Click()
{
    removeChosen(chosen(u"Document Name"), [this](const QString &name) {
        // A file that can't be deleted is reported; its row has gone all the same.
        static_cast<void>(documents::DeleteDocumentRecord(equipment(), name));
        return true;
    });
}

void DocumentsPage::cmdPreview_Click()
{
    const QString name = chosen(u"Document Name");
    if (name.isEmpty())
        return;
    // Files lie outside the database, where others may move or delete them.
    if (!documents::exists(equipment(), name)) {
        base::showMessage(u"Invalid File or Incorrect Path."_s);
        return;
    }
    base::trapped(Module, "cmdPreview_Click",
                  [&] { sys::openWithDefault(documents::path(equipment(), name)); });
}
