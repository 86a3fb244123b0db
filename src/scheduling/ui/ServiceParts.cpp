#include "scheduling/ui/ServiceParts.h"

#include "core/InTheWay.h"
#include "core/Session.h"
#include "core/ui/CellWrite.h"
#include "core/ui/EmptyText.h"
#include "core/ui/ListGrid.h"
#include "core/ui/Telling.h"
#include "parts/PartSelection.h"
#include "parts/ui/Entries.h"
#include "platform/base/Decimal.h"
#include "platform/base/Format.h"
#include "platform/base/Prompts.h"
#include "platform/base/Trapped.h"
#include "platform/input/Theme.h"
#include "scheduling/RequiredParts.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr const char *Module = "frmServices";
const QString AmountMask = u"{0,99999}.{0,99}"_s;

} // namespace

ServiceParts::ServiceParts(ServiceStore store, QWidget *parent)
    : QGroupBox(u"Parts"_s, parent)
    , m_store(store)
{
    buildBox();
    connect(grdPartUsed, &grid::GridView::changed, this, [this] {
        showCost();
        Q_EMIT edited();
    });
    connect(cmdAddPart, &QPushButton::clicked, this, &ServiceParts::cmdAddPart_Click);
    connect(cmdRemove, &QPushButton::clicked, this, &ServiceParts::cmdRemove_Click);
}

void ServiceParts::buildBox()
{
    setObjectName(u"fraParts"_s);
    const auto amount = [this](const QString &name, int width, const QString &format,
                               const QString &field) {
        return grid::Column{.name = name,
                            .width = width,
                            .editable = true,
                            .format = format,
                            .editor = grid::Editor::Masked,
                            .mask = AmountMask,
                            .changeRule = [this, name, field](int row, const QVariant &value) {
                                return SavePartGirdChanges(row, name, field, value);
                            }};
    };
    grdPartUsed = makeListGrid(this, u"grdPartUsed"_s, u"Parts of the service"_s,
                               {{.name = u"Part Number"_s, .width = 110},
                                {.name = u"Description"_s, .width = 170},
                                amount(u"Qty Req"_s, 70, u"0.00"_s, u"QuantityRequired"_s),
                                amount(u"Price"_s, 80, u"$0.00"_s, u"Price"_s)});
    showWhenEmpty(*grdPartUsed, u"This service needs no parts."_s);
    // Three rows, below which a list can't be worked.
    grdPartUsed->setMinimumHeight(96);
    const auto button = [this](const QString &name, const QString &caption, const QString &icon) {
        auto *made = new QPushButton(theme::icon(icon), caption, this);
        made->setObjectName(name);
        made->setAutoDefault(false);
        return made;
    };
    cmdAddPart = button(u"cmdAddPart"_s, u"Add &Part"_s, u"add"_s);
    cmdRemove = button(u"cmdRemove"_s, u"Re&move Part"_s, u"delete"_s);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(cmdAddPart);
    buttons->addWidget(cmdRemove);
    buttons->addStretch();
    lblPartCost = new QLabel(this);
    lblPartCost->setObjectName(u"lblPartCost"_s);
    buttons->addWidget(new QLabel(u"Part Cost:"_s, this));
    buttons->addWidget(lblPartCost);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(10, 8, 10, 10);
    layout->addWidget(grdPartUsed, 1);
    layout->addLayout(buttons);
    setFocusProxy(grdPartUsed);
}

void ServiceParts::RefreshPartGrid(qint64 key)
{
    m_key = key;
    base::trapped(Module, "RefreshPartGrid", [&] {
        const int row = grdPartUsed->currentRow();
        grdPartUsed->rows().setRecordset(requiredparts::list(m_store, m_key));
        grdPartUsed->selectRow(qMin(qMax(row, 0), grdPartUsed->rows().rowCount() - 1));
    });
    EnableControls();
    showCost();
}

void ServiceParts::showCost()
{
    lblPartCost->setText(base::money(SetPastCost()));
    Q_EMIT costChanged();
}

double ServiceParts::SetPastCost() const
{
    const grid::GridModel &rows = grdPartUsed->rows();
    base::Money cost;
    for (int row = 0; row < rows.rowCount(); ++row)
        // Exactly, and rounded once at the end: binary fractions would add up to other cents.
        cost += base::Money(rows.value(row, u"Price").toDouble())
                    .times(rows.value(row, u"Qty Req").toDouble());
    return cost.cents().toDouble();
}

void ServiceParts::setMayEdit(bool may)
{
    m_mayEdit = may;
    EnableControls();
}

void ServiceParts::EnableControls()
{
    grdPartUsed->setEditing(m_mayEdit);
    cmdAddPart->setEnabled(m_mayEdit);
    cmdRemove->setEnabled(m_mayEdit && grdPartUsed->rows().rowCount() > 0);
}

/// A failure undoes all that the transaction holds, so that no half of a change is saved later.
/// Where another workstation was in the way nothing was written, and what was changed before stays.
template<class Body>
bool ServiceParts::write(const char *procedure, Body &&change)
{
    // Whether the transaction holds earlier changes, or is opened here just for this one.
    const bool holdsEdit = gbInTransaction;
    return telling(Module, procedure, false, [&] {
        TransactionScope transaction;
        try {
            const bool done = change();
            transaction.leaveOpen();
            return done;
        } catch (const InTheWay &) {
            if (holdsEdit)
                transaction.leaveOpen();
            throw;
        }
    });
}

void ServiceParts::cmdAddPart_Click()
{
    if (!grdPartUsed->finishEditing())
        return;
    if (m_store == ServiceStore::Catalogue)
        base::showMessage(
            u"Note: You should not add equipment specfic parts to the master service list."_s);
    // Behind the note: a new service may have to be saved first, which closes the matter when it
    // fails.
    if (mayAdd && !mayAdd())
        return;
    QStringList present;
    for (int row = 0; row < grdPartUsed->rows().rowCount(); ++row)
        present.append(grdPartUsed->rows().text(row, u"Part Number"));
    QString selection = parts::exclusionList(present);
    if (!frmPartManagerEntry::ShowServiceManager(selection, true))
        return;
    const bool added = write("cmdAddPart_Click", [&] {
        requiredparts::add(m_store, m_key, parts::parseSelection(selection));
        return true;
    });
    RefreshPartGrid(m_key);
    if (added)
        Q_EMIT edited();
}

void ServiceParts::cmdRemove_Click()
{
    const int row = grdPartUsed->currentRow();
    if (row < 0 || !base::askYesNo(u"Are you sure you want to Delete this record?"_s))
        return;
    const bool removed = write("cmdRemove_Click", [&] {
        requiredparts::remove(m_store, m_key, grdPartUsed->rows().text(row, u"Part Number"));
        return true;
    });
    RefreshPartGrid(m_key);
    if (removed)
        Q_EMIT edited();
}

bool ServiceParts::SavePartGirdChanges(int row, const QString &column, const QString &field,
                                       const QVariant &value)
{
    grid::GridModel &rows = grdPartUsed->rows();
    // An emptied cell is the 0 that is stored for it.
    const QVariant stored = value.isNull() ? QVariant(0) : value;
    const bool saved = write("SavePartGirdChanges", [&] {
        return writeCell(rows, row, column, value, [&](const std::optional<QVariant> &shown) {
            requiredparts::change(m_store, m_key, rows.text(row, u"Part Number"), field, stored,
                                  shown);
            return true;
        });
    });
    if (!saved) {
        // Not before the grid is done with the cell.
        QMetaObject::invokeMethod(
            this, [this] { RefreshPartGrid(m_key); }, Qt::QueuedConnection);
        return false;
    }
    if (value.isNull())
        rows.setValue(row, column, 0.0);
    return true;
}
