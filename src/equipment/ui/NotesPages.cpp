#include "equipment/ui/NotesPages.h"

#include "core/Options.h"
#include "platform/input/DateStamp.h"
#include "platform/input/FormBuilder.h"

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <iterator>

using namespace Qt::StringLiterals;

namespace {

constexpr QString clsEquipment::*UserFields[] = {
    &clsEquipment::UserDefined1,  &clsEquipment::UserDefined2, &clsEquipment::UserDefined3,
    &clsEquipment::UserDefined4,  &clsEquipment::UserDefined5, &clsEquipment::UserDefined6,
    &clsEquipment::UserDefined7,  &clsEquipment::UserDefined8, &clsEquipment::UserDefined9,
    &clsEquipment::UserDefined10,
};
constexpr int UserFieldLength = 100;

} // namespace

NotesPage::NotesPage(MachineFrame &frame, QWidget *parent)
    : RecordPage(frame, parent)
{
    input::FormBuilder form(this);
    QPlainTextEdit *rtfNotes = form.memoField(u"rtfNotes"_s, u"N&otes:"_s, 12);
    form.note(u"Ctrl+D inserts the date and time."_s);
    form.finish();
    input::installDateStamp(rtfNotes);
    fields().add(rtfNotes, &clsEquipment::Notes);
}

UserFieldsPage::UserFieldsPage(MachineFrame &frame, QWidget *parent)
    : RecordPage(frame, parent)
{
    input::FormBuilder form(this);
    for (int number = 1; number <= static_cast<int>(std::size(UserFields)); ++number) {
        QLineEdit *box = form.textField(u"txtUserDefined%1"_s.arg(number),
                                        u"Field %1:"_s.arg(number), UserFieldLength);
        // Read once, when the screen is made: the names are changed on another screen, which is not
        // open beside it.
        DisplayUserDefinedName(number, *form.lastLabel(), *box);
        fields().add(box, UserFields[number - 1]);
    }
    form.finish();
}

void UserFieldsPage::DisplayUserDefinedName(int number, QLabel &label, QLineEdit &box)
{
    const QString caption = GetOption(u"UserDefinedField%1"_s.arg(number), false).trimmed();
    if (caption.isEmpty())
        return;
    // "&" is a character of the customer's, not the mark of a key.
    label.setText(QString(caption).replace(u'&', u"&&"_s) + u':');
    box.setAccessibleName(caption);
}
