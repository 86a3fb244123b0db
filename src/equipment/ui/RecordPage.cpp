#include "equipment/ui/RecordPage.h"

#include "core/ui/LookupCombo.h"
#include "platform/base/Prompts.h"
#include "platform/input/DateInput.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/Leaving.h"

#include <QLineEdit>
#include <QToolButton>

using namespace Qt::StringLiterals;

void RecordPage::DisplayData(const clsEquipment &machine, const db::Row &)
{
    m_fields.show(machine);
}

void RecordPage::ClearData()
{
    m_fields.clear();
}

bool RecordPage::mayLeave()
{
    input::DateInput *date = m_fields.invalidDate();
    return !date || refuse(date, u"Please enter valid date."_s);
}

void RecordPage::pageShown()
{
    m_fields.controls().first()->setFocus();
}

bool RecordPage::refuse(QWidget *field, const QString &message)
{
    base::showMessage(message);
    field->setFocus();
    return false;
}

QToolButton *RecordPage::editorButton(input::FormBuilder &form, const QString &name,
                                      const QString &tip, const QString &listName,
                                      std::function<void()> open)
{
    QToolButton *button = form.sideButton(name, tip);
    connect(button, &QToolButton::clicked, this, [this, listName, open = std::move(open)] {
        open();
        // All pages: the same list may stand on several of them.
        frame().RefreshCombo(listName);
    });
    return button;
}

void loadFixedList(input::IdCombo &list, const QStringList &texts)
{
    list.clear();
    list.add(u"  "_s, 0);
    for (const QString &text : texts)
        // Stored is the place in the list, the blank being 0. The order must not change.
        list.add(text, list.count());
}

void loadChildren(input::IdCombo &list, qint64 parent)
{
    if (parent == 0)
        list.clear();
    else
        loadLookupList(list, parent);
}

void blankIfNeverGiven(QLineEdit *box, const db::Row &row, QStringView column)
{
    // The binding shows 0 for Null. Where 0 is an answer of its own, nothing given has to look like
    // nothing.
    if (row.text(column).trimmed().isEmpty())
        box->clear();
}

void zeroWhenLeftBlank(QLineEdit *box)
{
    QObject::connect(box, &QLineEdit::editingFinished, box, [box] {
        // Only where the user could have typed: looking at a machine must change nothing.
        if (!box->isReadOnly() && input::isBlank(box))
            box->setText(u"0"_s);
    });
}
