#include "workorders/ui/RecordParts.h"

#include "core/ui/CellWrite.h"
#include "core/ui/EmptyText.h"
#include "core/ui/ListGrid.h"
#include "platform/base/Prompts.h"
#include "platform/base/Trapped.h"
#include "platform/grid/GridView.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/Theme.h"
#include "workorders/Recording.h"
#include "workorders/Statements.h"
#include "workorders/ui/RecordFrame.h"
#include "workorders/ui/RecordServices.h"
#include "workorders/ui/ServiceNote.h"
#include "workorders/ui/WorkLists.h"

#include <QPlainTextEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

constexpr const char *Module = "WorkOrder";

} // namespace

RecordParts::RecordParts(RecordFrame &frame, const RecordServices &services, QWidget *parent)
    : QWidget(parent)
    , m_frame(frame)
    , m_services(services)
{
    buildBox();
    connectControls();
}

void RecordParts::buildBox()
{
    input::FormBuilder form(this);
    form.beginColumns();
    grdRecordPart = makeListGrid(this, u"grdRecordPart"_s, u"Parts of the service"_s, columns());
    showWhenEmpty(*grdRecordPart, u"No parts."_s);
    form.widget(grdRecordPart, true);
    form.nextColumn();
    txtRecordNote = form.memoField(u"txtRecordNote"_s, u"&Note:"_s, 3);
    form.endColumns();
    cmdRecordAddPart =
        form.leftButton(u"cmdRecordAddPart"_s, u"&Add Part"_s, theme::icon(u"add"_s));
    cmdRecordRemovePart =
        form.leftButton(u"cmdRecordRemovePart"_s, u"Re&move Part"_s, theme::icon(u"delete"_s));
    form.finish();
}

QList<grid::Column> RecordParts::columns()
{
    const auto rule = [this](const worklists::Change &change) {
        // As for the services: a part that is refused may have gone with its order.
        return worklists::told(this, "grdRecordPart_Change", change,
                               [this] { m_frame.showWhatIsLeft(); });
    };
    return {{.name = u"Part Number"_s, .width = 95},
            {.name = u"Used"_s,
             .width = 45,
             .editable = true,
             .editor = grid::Editor::Check,
             .changeRule = rule([this](int row, const QVariant &used) {
                 return usedChanged(row, used.toBool());
             })},
            {.name = u"Description"_s, .width = 135},
            {.name = u"Qty Req"_s, .width = 60, .format = u"0.00"_s},
            {.name = u"Qty Used"_s,
             .width = 65,
             .editable = true,
             .format = u"0.00"_s,
             .editor = grid::Editor::Masked,
             .mask = u"{0,99999}.##"_s,
             .changeRule = rule([this](int row, const QVariant &value) {
                 // An emptied cell is the 0 that is stored for it.
                 const QVariant quantity = value.isValid() ? value : QVariant(0.0);
                 if (!write(row, u"Qty Used"_s, u"QuantityUsed"_s, quantity))
                     return false;
                 grdRecordPart->rows().setValue(row, u"Qty Used", quantity);
                 return true;
             })},
            {.name = u"Price"_s,
             .width = 65,
             .editable = true,
             .format = u"0.00"_s,
             .editor = grid::Editor::Masked,
             .mask = u"{0,99999}.{0,99}"_s,
             .changeRule = rule([this](int row, const QVariant &price) {
                 return write(row, u"Price"_s, u"Price"_s, price);
             })},
            {.name = u"Supplier"_s,
             .width = 110,
             .editable = true,
             .align = grid::Align::Left,
             .editor = grid::Editor::DropDown,
             .changeRule = rule([this](int row, const QVariant &supplier) {
                 return write(row, u"Supplier"_s, u"SupplierID"_s, supplier.toLongLong());
             })}};
}

void RecordParts::connectControls()
{
    m_note = new ServiceNote(
        txtRecordNote, recording::updateNote, [this](qint64 service, const QString &note) {
            // By what the list shows, not by the database: the service was skipped here, a moment
            // ago.
            if (!note.trimmed().isEmpty() || !m_services.isSkipped(service))
                return true;
            base::showCritical(u"Note Field Cann't left blank. When Service has Skiped."_s);
            return false;
        });
    const auto click = [this](QPushButton *button, const char *procedure,
                              void (RecordParts::*action)()) {
        connect(button, &QPushButton::clicked, this, [this, procedure, action] {
            if (m_frame.finishEditing())
                base::trapped(Module, procedure, [&] { (this->*action)(); });
        });
    };
    click(cmdRecordAddPart, "cmdRecordAddPart_Click", &RecordParts::cmdRecordAddPart_Click);
    click(cmdRecordRemovePart, "cmdRecordRemovePart_Click",
          &RecordParts::cmdRecordRemovePart_Click);
}

void RecordParts::EnableControls()
{
    cmdRecordAddPart->setEnabled(m_services.hasServices());
    cmdRecordRemovePart->setEnabled(grdRecordPart->rows().rowCount() > 0);
}

void RecordParts::setSuppliers(const QList<grid::Choice> &suppliers)
{
    grdRecordPart->rows().column(u"Supplier").choices = suppliers;
    grdRecordPart->rows().columnsChanged();
}

void RecordParts::RefreshRecordPartGrid()
{
    base::trapped(Module, "RefreshRecordPartGrid", [this] {
        worklists::load(*grdRecordPart, workorders::statements::recordParts(),
                        m_services.currentService());
    });
    EnableControls();
}

void RecordParts::showPartsAndNote()
{
    RefreshRecordPartGrid();
    base::trapped(Module, "RefreshRecordPartGrid", [this] {
        const qint64 service = m_services.currentService();
        // Read on its own, since a memo is no column of the list.
        m_note->show(service, recording::noteOf(service));
    });
}

bool RecordParts::leaveNote()
{
    return m_note->leave();
}

bool RecordParts::write(int row, const QString &column, const QString &field, const QVariant &value)
{
    grid::GridModel &rows = grdRecordPart->rows();
    return writeCell(rows, row, column, value, [&](const recording::Shown &shown) {
        return recording::UpdateWorkorderPart(rows.text(row, u"Part Number"),
                                              m_services.currentService(), field, value, shown);
    });
}

/// A part is used only by a service that is done.
bool RecordParts::usedChanged(int row, bool used)
{
    grid::GridModel &rows = grdRecordPart->rows();
    if (!m_services.isServiceCompleted()) {
        // The tick is taken back without a word: the service has to be completed first, which ticks
        // its parts by itself.
        rows.setValue(row, u"Used", false);
        return false;
    }
    return recording::UpdateWorkorderPart(rows.text(row, u"Part Number"),
                                          m_services.currentService(), u"Used"_s, used);
}

void RecordParts::cmdRecordAddPart_Click()
{
    const qint64 service = m_services.currentService();
    if (service != 0 &&
        // A part that is added to a service that is done has been used.
        worklists::addParts(grdRecordPart->rows(), service, m_services.isServiceCompleted()))
        showPartsAndNote();
}

void RecordParts::cmdRecordRemovePart_Click()
{
    if (worklists::removePart(*grdRecordPart, m_services.currentService()))
        RefreshRecordPartGrid();
}
