#include "equipment/ui/DepreciationPage.h"

#include "core/ui/EmptyText.h"
#include "core/ui/ListGrid.h"
#include "core/ui/Telling.h"
#include "equipment/Depreciation.h"
#include "equipment/ui/DepreciationChart.h"
#include "platform/base/Prompts.h"
#include "platform/base/Trapped.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/KeyFilter.h"
#include "platform/input/Leaving.h"
#include "platform/input/Theme.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>

using namespace Qt::StringLiterals;

namespace {

constexpr char Module[] = "Equipment";
/// Lives that the column can hold.
constexpr int LifeLength = 4;
constexpr int AmountLength = 15;

} // namespace

DepreciationPage::DepreciationPage(MachineFrame &frame, QWidget *parent)
    : RecordPage(frame, parent)
{
    buildPage();
    frame.keepLayout(grdDepreciation, grdDepreciation->objectName());
}

void DepreciationPage::buildPage()
{
    input::FormBuilder form(this);
    form.beginColumns();
    lblPurchaseYear = form.readOnlyField(u"lblPurchaseYear"_s, u"Purchase Year:"_s);
    txtTotalCost = form.textField(u"txtTotalCost"_s, u"&Total Cost:"_s, AmountLength);
    txtSalvageValue = form.textField(u"txtSalvageValue"_s, u"Sal&vage Value:"_s, AmountLength);
    txtAssetYears = form.digitsField(u"txtAssetYears"_s, u"&Life of Asset (Years):"_s, LifeLength);
    cmdRecalculate =
        form.inlineButton(u"cmdRecalculate"_s, u"Recalc&ulate"_s, theme::icon(u"refresh"_s));
    form.nextColumn(2);
    m_chart = new DepreciationChart(this);
    form.widget(m_chart, true);
    form.endColumns();
    grdDepreciation =
        makeListGrid(this, u"grdDepreciation"_s, u"Depreciation schedule"_s,
                     {{.name = u"End of Year"_s, .width = 100},
                      {.name = u"Annual Depreciation"_s, .width = 150, .format = u"$0.00"_s},
                      {.name = u"Accumualted Depreciation"_s, .width = 185, .format = u"$0.00"_s},
                      {.name = u"Book Value"_s, .width = 120, .format = u"$0.00"_s},
                      {.name = u"EquipmentID"_s, .visible = false}});
    showWhenEmpty(*grdDepreciation, u"Nothing has been calculated for this machine yet."_s);
    for (const auto *column :
         {u"End of Year", u"Annual Depreciation", u"Accumualted Depreciation", u"Book Value"})
        grdDepreciation->rows().column(column).align = grid::Align::Right;
    // Rows are worked out as a whole; one that was changed by hand would fit no other.
    grdDepreciation->setEditing(false);
    form.widget(grdDepreciation, true);
    form.finish();

    input::restrictTo(txtTotalCost, input::TypeCheck::Double);
    input::restrictTo(txtSalvageValue, input::TypeCheck::Double);
    // No more than the database can hold, once a rounding has been added to it.
    static const QRegularExpression amount(u"\\d{0,12}(\\.\\d*)?"_s);
    for (QLineEdit *box : {txtTotalCost, txtSalvageValue})
        box->setValidator(new QRegularExpressionValidator(amount, box));
    for (QLineEdit *box : {txtTotalCost, txtSalvageValue, txtAssetYears})
        zeroWhenLeftBlank(box);
    fields().add(txtTotalCost, &clsEquipment::Totalcost);
    fields().add(txtSalvageValue, &clsEquipment::SalvageValue);
    fields().add(txtAssetYears, &clsEquipment::LifeYears);
    connect(cmdRecalculate, &QPushButton::clicked, this, &DepreciationPage::cmdRecalculate_Click);
}

void DepreciationPage::DisplayData(const clsEquipment &machine, const db::Row &row)
{
    RecordPage::DisplayData(machine, row);
    // A cost of 0 can't be calculated with, so that nothing given must not look like it.
    blankIfNeverGiven(txtTotalCost, row, u"Totalcost");
    blankIfNeverGiven(txtSalvageValue, row, u"SalvageValue");
    blankIfNeverGiven(txtAssetYears, row, u"LifeYears");
    m_isAcquired = machine.Acquisitiondate.isValid();
    // Each display goes back to what is stored: a year chosen from the list was a try.
    setPurchaseYear(m_isAcquired ? QString::number(machine.Acquisitiondate.date().year())
                                 : QString());
    enableRecalculate();
}

void DepreciationPage::ClearData()
{
    RecordPage::ClearData();
    m_isAcquired = false;
    setPurchaseYear({});
    enableRecalculate();
}

void DepreciationPage::showMachine(qint64 EquipmentID)
{
    m_equipment = EquipmentID;
    RefreshDepreciationGrid(EquipmentID);
}

void DepreciationPage::setEditable(bool editable)
{
    m_editable = editable;
    enableRecalculate();
}

/// Without a stored date of purchase there is no first year to begin with.
void DepreciationPage::enableRecalculate()
{
    cmdRecalculate->setEnabled(m_editable && m_isAcquired);
}

void DepreciationPage::setPurchaseYear(const QString &year)
{
    lblPurchaseYear->setText(year);
}

void DepreciationPage::RefreshDepreciationGrid(qint64 EquipmentID)
{
    base::trapped(Module, "RefreshDepreciationGrid", [&] {
        const db::Recordset rows = depreciation::stored(EquipmentID);
        grdDepreciation->rows().setRecordset(rows);
        m_chart->show(rows);
    });
}

bool DepreciationPage::ValidationDepreciation()
{
    if (lblPurchaseYear->text().trimmed().isEmpty()) {
        base::showMessage(
            u"Equipment purchase year is empty.First Enter Equipment purchase year."_s);
        return false;
    }
    if (input::isBlank(txtTotalCost))
        return refuse(txtTotalCost, u"Total cost should not be blank."_s);
    if (input::isBlank(txtSalvageValue))
        return refuse(txtSalvageValue, u"Salvage Value should not be blank."_s);
    // Nothing would be left to lose its value.
    if (numberIn(txtTotalCost) <= numberIn(txtSalvageValue))
        return refuse(txtSalvageValue, u"Salvage Value should be less then the Total Cost."_s);
    if (input::isBlank(txtAssetYears))
        return refuse(txtAssetYears, u"Life of Asset should not be blank."_s);
    return true;
}

void DepreciationPage::cmdRecalculate_Click()
{
    if (!ValidationDepreciation())
        return;
    // At once and from what the boxes show, saved or not: while the machine is being edited the
    // rows lie in its transaction.
    telling(Module, "cmdRecalculate_Click", [this] {
        depreciation::store(m_equipment, depreciation::schedule(lblPurchaseYear->text().toShort(),
                                                                numberIn(txtTotalCost),
                                                                numberIn(txtSalvageValue),
                                                                txtAssetYears->text().toInt()));
    });
    RefreshDepreciationGrid(m_equipment);
}
