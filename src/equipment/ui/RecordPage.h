#pragma once

#include "core/ui/Binding.h"
#include "equipment/clsEquipment.h"
#include "platform/db/Recordset.h"
#include "scheduling/ui/MachinePage.h"

class QToolButton;

namespace input {
class FormBuilder;
}

/// A page that shows fields of the machine's own record.
class RecordPage : public MachinePage
{
    Q_OBJECT

public:
    using MachinePage::MachinePage;

    /// Shows the machine. The row tells what the record can't: which numbers were never entered.
    virtual void DisplayData(const clsEquipment &machine, const db::Row &row);
    /// Shows no machine.
    virtual void ClearData();
    /// Takes what the page shows into the record.
    void SetObjectValues(clsEquipment &machine) const { m_fields.readInto(machine); }
    /// The page's fields, which know the whole machine as it was shown.
    [[nodiscard]] Binding<clsEquipment> &fields() { return m_fields; }
    /// Rebuilds the page's lists of that name, given in capitals.
    virtual void RefreshCombo(const QString &) {}

    void showMachine(qint64) override {}
    [[nodiscard]] bool hasContent() const override { return m_fields.isAnyGiven(); }
    void setEditable(bool) override {}
    /// Refuses while a date box holds no date.
    [[nodiscard]] bool mayLeave() override;
    /// The first control takes the focus.
    void pageShown() override;

protected:
    /// Shows the message for a field, gives it the focus, and answers False.
    static bool refuse(QWidget *field, const QString &message);
    /// Makes the small button beside the list made last. It opens an editor; afterwards all lists
    /// of that name are rebuilt.
    QToolButton *editorButton(input::FormBuilder &form, const QString &name, const QString &tip,
                              const QString &listName, std::function<void()> open);

private:
    Binding<clsEquipment> m_fields{clsEquipment::fields()};
};

/// Fills a list with the blank row and texts whose ids count from 1.
void loadFixedList(input::IdCombo &list, const QStringList &texts);
/// Fills a list with the children of an item; without a parent it stays empty.
void loadChildren(input::IdCombo &list, qint64 parent);
/// Empties a number box whose column is Null or blank.
void blankIfNeverGiven(QLineEdit *box, const db::Row &row, QStringView column);
/// Leaving the box blank fills in "0".
void zeroWhenLeftBlank(QLineEdit *box);
