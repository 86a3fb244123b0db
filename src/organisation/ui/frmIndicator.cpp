#include "organisation/ui/frmIndicator.h"

#include "core/Identifiers.h"
#include "core/Tables.h"
#include "core/ui/Combos.h"
#include "core/ui/ListGrid.h"
#include "core/ui/LookupCombo.h"
#include "organisation/clsIndicator.h"
#include "platform/base/Prompts.h"
#include "platform/base/Trapped.h"
#include "platform/input/FormBuilder.h"

#include <QLabel>
#include <QLineEdit>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

constexpr int NameLength = 35;
// As it stands in an address.
constexpr int StateNameLength = 2;
/// A parent that no item has, for lists whose parents are missing.
constexpr qint64 NoParent = -1;

db::Recordset members(qint64 parent)
{
    return GetTableInfoWithIndicator(u"tblindicator"_s, u"itemname"_s,
                                     u"parentid =%1"_s.arg(parent));
}

} // namespace

frmIndicator::frmIndicator(const Opening &opening, QWidget *parent)
    : RecordScreen(u"frmIndicator"_s, u"Lookup List"_s, parent)
    , m_opening(opening)
{
    buildForm();
    lstIndicatorP_Click();
    RefreshRecordSet(m_opening.itemID);
}

void frmIndicator::buildForm()
{
    input::FormBuilder form(this);
    form.beginColumns();
    lstIndicatorP = form.comboField(u"lstIndicatorP"_s, u"&List:"_s);
    cboIndicator = form.comboField(u"cboIndicator"_s, u"&Of:"_s);
    lblFilter = form.lastLabel();
    lstIndicator = makeListGrid(this, u"lstIndicator"_s, u"Items of the list"_s,
                                {{.name = u"ItemName"_s, .caption = u"Name"_s, .width = 230}});
    form.widget(lstIndicator, true);
    form.nextColumn();
    txtItemID = form.textField(u"txtItemID"_s, u"&ID:"_s);
    txtItemID->setReadOnly(true);
    txtName = form.textField(u"txtName"_s, u"Na&me:"_s, NameLength);
    cboParentType = form.comboField(u"cboParentType"_s, u"Paren&t:"_s);
    lblParent = form.lastLabel();
    form.stretch();
    form.endColumns();
    makeButtons(form, {});
    form.finish();
    resize(620, 400);
    // The list itself is the way to move, and gives the form more room for names.
    for (QToolButton *button : {cmdFirst, cmdPrevious, cmdNext, cmdLast})
        button->hide();
    m_fields.addTrimmed(txtName, &clsIndicator::ItemName);
    // The parent is not bound: a list without parents hides its box, and stores its own number.
    setFields({&m_fields}, {cboParentType});
    setListGrid(lstIndicator);
    // What one opens the editor for is to look for an item. The first edit of its name begins a
    // change.
    lstIndicator->setFocus();
    // Only the user's own choice: the presets below fill both boxes before there are rows.
    connect(cboIndicator, &QComboBox::activated, this, [this] { RefreshRecordSet(); });
}

void frmIndicator::lstIndicatorP_Click()
{
    LoadItemWithIdToCombo(*lstIndicatorP,
                          GetTableInfoWithIndicator(u"tblindicator"_s, u"ItemId"_s,
                                                    u"Itemid =%1"_s.arg(m_opening.listNumber)),
                          u"ItemID"_s, u"ItemName"_s, false);
    const QString list = lstIndicatorP->currentText();
    setWindowTitle(list);
    // Known by the names that ship with the data: a list's own row stands in no list, so that
    // nobody can rename it.
    if (list == u"Make Type")
        m_parentLabel = u"Type"_s;
    else if (list == u"Model Type")
        m_parentLabel = u"Make Type"_s;
    else if (list == u"State")
        m_parentLabel = u"Country"_s;
    txtName->setMaxLength(list == u"State" ? StateNameLength : NameLength);
    for (QWidget *control : QList<QWidget *>{cboIndicator, lblFilter, cboParentType, lblParent})
        control->setVisible(hasParents());
    if (!hasParents())
        return;
    lblFilter->setText(m_parentLabel + u':');
    lblParent->setText(m_parentLabel + u':');
    loadParents(*cboIndicator);
    loadParents(*cboParentType);
    presetParent();
}

void frmIndicator::loadParents(input::IdCombo &combo) const
{
    qint64 parents = LookupList::Country;
    if (m_opening.listNumber == LookupList::Make)
        parents = LookupList::EquipmentType;
    else if (m_opening.listNumber == LookupList::Model && m_opening.engine)
        parents = LookupList::EngineMake;
    else if (m_opening.listNumber == LookupList::Model)
        // Makes of two types may share a name: without a type none is offered, or a model would
        // come to hang under the wrong one.
        parents = m_opening.typeID == 0 ? NoParent : m_opening.typeID;
    LoadItemWithIdToCombo(combo, GetIndicatorInfo(parents, true, true), u"ItemID"_s, u"ItemName"_s,
                          false);
}

void frmIndicator::presetParent()
{
    const QString wanted = m_opening.parentValue.trimmed();
    bool isNumber = false;
    qint64 parent = wanted.toLongLong(&isNumber);
    // Who opens the editor on an item need not know where it hangs.
    if (wanted.isEmpty() && m_opening.itemID != 0) {
        base::trapped("frmIndicator", "ShowIndicatorDetail",
                      [&] { parent = clsIndicatorManager().ParentOf(m_opening.itemID); });
        isNumber = true;
    }
    // Both, so that a new item goes where the list shows it.
    for (input::IdCombo *combo : {cboIndicator, cboParentType}) {
        if (isNumber)
            combo->select(parent);
        else if (!wanted.isEmpty())
            combo->selectText(wanted);
    }
}

db::Recordset frmIndicator::loadRows()
{
    if (!hasParents())
        return members(m_opening.listNumber);
    // Without parents there is nothing to edit, also where items of a parent that was deleted are
    // left over.
    return members(cboIndicator->count() > 0 ? cboIndicator->id() : NoParent);
}

void frmIndicator::DisplayData(const db::Row &row)
{
    m_fields.show(clsIndicator::fromRow(row));
    const clsIndicator &item = m_fields.shown();
    txtItemID->setText(QString::number(item.ItemID));
    // Told and not refused: the item can be given another parent.
    if (hasParents() && !cboParentType->display(item.ParentID))
        base::showMessage(u"One of lookup item has been deleted\nmanually from  database"_s);
}

void frmIndicator::ClearData()
{
    txtItemID->clear();
    m_fields.clear();
    if (hasParents())
        // A new item begins under the parent whose items are listed.
        cboParentType->select(cboIndicator->id());
}

void frmIndicator::prepareNewRecord()
{
    // A preview: the database gives the number when the row is saved.
    txtItemID->setText(QString::number(GenerateIDWithIndicator(u"tblIndicator"_s, u"ItemID"_s)));
    txtName->setFocus();
}

qint64 frmIndicator::parentOfItem() const
{
    return hasParents() ? cboParentType->id() : m_opening.listNumber;
}

bool frmIndicator::VailidateFields()
{
    if (txtName->text().trimmed().isEmpty())
        return refuse(txtName, u"Name should not be blank."_s);
    if (hasParents() && cboParentType->currentText().trimmed().isEmpty())
        return refuse(cboParentType, m_parentLabel + u" should not be blank."_s);
    if (NameDupl(parentOfItem(), txtName->text()))
        return refuse(txtName,
                      u"The name you specified already exists. Specify a different name."_s);
    return true;
}

bool frmIndicator::NameDupl(qint64 parent, const QString &name) const
{
    // A change of case only would find the item itself.
    if (m_fields.shown().ItemName.toUpper() == name.toUpper())
        return false;
    return clsIndicatorManager().IsNameTaken(parent, name);
}

std::optional<QVariant> frmIndicator::saveRecord()
{
    clsIndicator item = m_fields.read();
    item.ParentID = parentOfItem();
    item.ItemID = txtItemID->text().toLongLong();
    // Who saves an item wants it offered, also when it had been hidden.
    item.Show = 1;
    item.FSize = 0;
    if (!clsIndicatorManager().SaveRecord(item, mode(), m_fields.shown()))
        return std::nullopt;
    return QVariant(item.ItemID);
}

QString frmIndicator::recordName() const
{
    return u"the item \"%1\""_s.arg(txtName->text().trimmed());
}

bool frmIndicator::deleteRecord(const QVariant &key)
{
    return clsIndicatorManager().DeleteRecord(key.toLongLong());
}

QString frmIndicator::usedBy(const QVariant &key) const
{
    return clsIndicatorManager().CanDeleteIndicator(key.toLongLong());
}

void frmIndicator::recordShown()
{
    // While an item is edited the list stays the one it was taken from.
    cboIndicator->setEnabled(mode() == Mode::Browse);
}
