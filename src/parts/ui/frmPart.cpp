#include "parts/ui/frmPart.h"

#include "core/Flag.h"
#include "core/Permission.h"
#include "core/RowTests.h"
#include "core/Tables.h"
#include "core/ui/Combos.h"
#include "core/ui/LookupCombo.h"
#include "core/ui/Openings.h"
#include "core/ui/ScreenCalls.h"
#include "organisation/clsIndicator.h"
#include "organisation/ui/Entries.h"
#include "platform/base/Format.h"
#include "platform/base/Prompts.h"
#include "platform/input/CurrencyInput.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/KeyFilter.h"
#include "platform/input/Leaving.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

/// A blank box counts as 0.
bool isNumeric(const QLineEdit *box)
{
    const QString text = box->text().trimmed();
    bool isNumber = text.isEmpty();
    if (!isNumber)
        (void)text.toDouble(&isNumber);
    return isNumber;
}

} // namespace

frmPart::frmPart(QWidget *parent)
    : MasterScreen(u"frmPart"_s, u"Parts"_s, parent)
{
    setRights(rights::Parts);
    buildForm();
    loadCategories();
    loadSuppliers();
}

void frmPart::buildForm()
{
    input::FormBuilder form(this);
    addDescription(form);
    addStock(form);
    txtNotes = form.memoField(u"txtNotes"_s, u"&Notes:"_s, 3);
    makeButtons(form, {.find = true, .print = true});
    form.finish();
    resize(660, 580);

    bindFields();
    setFields({&m_fields});
    // A number in use must not keep the user in its box who only wants to get out.
    for (QPushButton *button : {cmdCancel, cmdExit})
        input::setCausesValidation(button, false);
}

void frmPart::bindFields()
{
    m_fields.addTrimmed(txtPartID, &clsPart::PartID);
    m_fields.addTrimmed(txtDescription, &clsPart::Description);
    m_fields.add(cboPartCategory, &clsPart::PartCategoryID);
    m_fields.add(cboSupplier, &clsPart::SupplierID);
    m_fields.add(txtPrice, &clsPart::Price);
    m_fields.addTrimmed(txtBin, &clsPart::Bin);
    m_fields.addTrimmed(txtBarCode, &clsPart::Bar_Code);
    m_fields.add(chkNotTrackInventory, &clsPart::TrackInventory);
    m_fields.addQuantity(txtQuantity, &clsPart::Quantity);
    m_fields.addQuantity(txtMax, &clsPart::QtyMax);
    m_fields.addQuantity(txtMin, &clsPart::QtyMin);
    m_fields.add(chkInactive, &clsPart::Inactive);
    m_fields.addTrimmed(txtNotes, &clsPart::Notes);
}

void frmPart::addDescription(input::FormBuilder &form)
{
    txtPartID = form.textField(u"txtPartID"_s, u"Part N&umber:"_s, 30);
    // Numbers are the same in any case; typed in capitals, they look the same, too.
    input::upperCaseAsTyped(txtPartID);
    input::validateOnLeave(txtPartID, [this] { return txtPartID_Validate(); });
    txtDescription = form.textField(u"txtDescription"_s, u"D&escription:"_s, 100);
    cboPartCategory = form.comboField(u"cboPartCategory"_s, u"Cate&gory:"_s);
    connect(form.sideButton(u"cmdPartCategory"_s, u"Edit the categories"_s), &QToolButton::clicked,
            this, [this] {
                ShowIndicatorDetail(LookupList::PartCategory, cboPartCategory->id());
                // The editor may have changed the list; the part keeps its category while that is
                // there.
                rebuildKeepingChoice(*cboPartCategory, [this] { loadCategories(); });
            });
    cboSupplier = form.comboField(u"cboSupplier"_s, u"Supp&lier:"_s);
    connect(form.sideButton(u"cmdSupplier"_s, u"Open the suppliers"_s), &QToolButton::clicked, this,
            [this] {
                ShowSupplierDetail(Mode::Browse, cboSupplier->id());
                rebuildKeepingChoice(*cboSupplier, [this] { loadSuppliers(); });
            });
    txtPrice = form.currencyField(u"txtPrice"_s, u"Pr&ice:"_s);
    // Times the largest quantity of a service it is still an amount.
    txtPrice->setMostDigits(9);
    txtBin = form.textField(u"txtBin"_s, u"&Bin:"_s, 30);
    txtBarCode = form.textField(u"txtBarCode"_s, u"Bar C&ode:"_s, 50);
}

void frmPart::addStock(input::FormBuilder &form)
{
    form.beginRow();
    chkNotTrackInventory =
        form.checkBox(u"chkNotTrackInventory"_s, u"Do Not &Track for Inventory"_s);
    chkInactive = form.checkBox(u"chkInactive"_s, u"Inacti&ve"_s);
    form.endRow();
    fraInventory = form.beginGroup(u"Inventory"_s, u"fraInventory"_s);
    form.beginColumns();
    txtQuantity = form.textField(u"txtQuantity"_s, u"&Quantity on Hand:"_s, 12);
    form.nextColumn();
    txtPartCommited = form.textField(u"txtPartCommited"_s, u"Part Co&mmited:"_s);
    // What open orders reserve is counted, not entered.
    txtPartCommited->setReadOnly(true);
    form.endColumns();
    form.beginRow(u"Reorder"_s);
    txtMax = form.textField(u"txtMax"_s, {}, 12);
    // The two boxes stand in a sentence, whose words are the label of the second only.
    txtMax->setAccessibleName(u"Units to reorder"_s);
    txtMin = form.textField(u"txtMin"_s, u"units &when Quantity on Hand drops below"_s, 12);
    form.endRow();
    form.endGroup();

    for (QLineEdit *box : {txtQuantity, txtMax, txtMin}) {
        input::restrictTo(box, input::TypeCheck::Double);
        // When it is left, since a number grows digit by digit.
        connect(box, &QLineEdit::editingFinished, this, [this, box] { formatQuantity(box); });
    }
    connect(chkNotTrackInventory, &QCheckBox::toggled, this, &frmPart::ChangePosition);
}

void frmPart::loadCategories()
{
    LoadItemWithIdToCombo(*cboPartCategory, GetIndicatorInfo(LookupList::PartCategory, false, true),
                          u"ItemID"_s, u"ItemName"_s, true);
}

void frmPart::loadSuppliers()
{
    LoadItemWithIdToCombo(*cboSupplier, clsPartManager().GetSupplierInfo(), u"SupplierID"_s,
                          u"Name"_s, true);
}

void frmPart::formatQuantity(QLineEdit *box)
{
    // What is no number stays to be corrected; Save tells of it.
    if (isNumeric(box))
        box->setText(base::twoDecimals(numberIn(box)));
}

bool frmPart::txtPartID_Validate()
{
    if (!IsDuplicate(u"tblpart"_s, u"PartID"_s, m_fields.shown().PartID, txtPartID->text(), false))
        return true;
    // A place of its own in the same rows: the search must not move what is on show.
    db::Recordset clone = rows().Clone();
    QString holder;
    // Another workstation's part may be in the table and not in these rows. Its name is missing in
    // the sentence then.
    if (clone.Find(u"PartID='%1'"_s.arg(base::doubledQuotes(txtPartID->text().trimmed()))))
        holder = clone.current().text(u"Description");
    base::showInformation(
        u"This part number is already in use on \"%1\". Please assign a different "
        "number."_s.arg(holder));
    // Emptied, so that leaving the box a second time doesn't pass with the number of another part.
    txtPartID->clear();
    return false;
}

void frmPart::ChangePosition()
{
    // Hidden, not emptied: the stock is there again when the part is tracked again.
    fraInventory->setVisible(!chkNotTrackInventory->isChecked());
}

db::Recordset frmPart::loadRows()
{
    return clsPartManager().GetPartInfo();
}

void frmPart::DisplayData(const db::Row &row)
{
    MasterScreen::DisplayData(row);
    txtPartCommited->setText(
        // Read with each display, since orders are made and posted all day.
        base::twoDecimals(clsPartManager().PartCommited(m_fields.shown().PartID)));
    ChangePosition();
}

void frmPart::ClearData()
{
    MasterScreen::ClearData();
    txtPartCommited->clear();
    ChangePosition();
}

void frmPart::prepareNewRecord()
{
    txtPartID->setFocus();
}

bool frmPart::VailidateFields()
{
    if (input::isBlank(txtPartID))
        return refuse(txtPartID, u"Part Number should not be blank."_s);
    if (input::isBlank(txtDescription))
        return refuse(txtDescription, u"Description should not be blank."_s);
    if (!isNumeric(txtQuantity))
        return refuse(txtQuantity, u"Quantity should be numeric."_s);
    const clsPartManager manager;
    // An inactive part is offered nowhere any more, which machines and services that have it could
    // not know.
    if (chkInactive->isChecked()) {
        const QString word = manager.CanDeletePart(txtPartID->text().trimmed());
        if (!word.isEmpty())
            return refuse(chkInactive, u"This part is already assigned to %1 and can not be "
                                       "decativated."_s.arg(word));
    }
    if (IsDuplicate(u"tblpart"_s, u"PartID"_s, m_fields.shown().PartID, txtPartID->text(), false))
        return refuse(txtPartID, u"Part Number you specified already exists. Please enter a "
                                 "different Part Number."_s);
    // Compared with its case: the numbers in the other tables would differ from the part's own.
    if (mode() == Mode::Modify && txtPartID->text().trimmed() != m_fields.shown().PartID) {
        const QString word = manager.CanDeletePart(m_fields.shown().PartID);
        if (!word.isEmpty())
            return refuse(txtPartID, u"You can't modified this Part Number. It's being used in "
                                     "%1."_s.arg(word));
    }
    return true;
}

std::optional<QVariant> frmPart::saveRecord()
{
    const clsPart part = m_fields.read();
    if (!clsPartManager().SaveRecord(part, mode(), m_fields.shown()))
        return std::nullopt;
    txtPartID->setFocus();
    return QVariant(part.PartID);
}

QString frmPart::recordName() const
{
    return u"the part \"%1\""_s.arg(txtPartID->text().trimmed());
}

void frmPart::recordShown()
{
    // Search and report are other folders' screens, which may not have joined.
    cmdFind->setEnabled(hasRows() && screenCalls().ShowQuickFind != nullptr);
    cmdPrint->setEnabled(hasRows() && openings().isJoined(u"ShowInventoryReport"));
}

void frmPart::cmdFind_Click()
{
    const QString found = screenCalls().ShowQuickFind(
        // The number on show is where the search begins.
        {u"PartID"_s, u"Part Number"_s, u"tblPart"_s, u"frmPart"_s, m_fields.shown().PartID});
    if (!found.trimmed().isEmpty())
        RefreshRecordSet(found);
}

void frmPart::cmdPrint_Click()
{
    openings().open(u"ShowInventoryReport", {.query = u" where  tblPart.PartID = '%1'"_s.arg(
                                                 base::doubledQuotes(m_fields.shown().PartID))});
}
