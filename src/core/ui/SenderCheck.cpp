#include "core/ui/SenderCheck.h"

#include "core/Conversions.h"
#include "platform/base/Prompts.h"

#include <QLineEdit>

using namespace Qt::StringLiterals;

bool VailidateFields(QLineEdit *sender)
{
    const auto refuse = [sender](const QString &text) {
        base::showMessage(text);
        sender->setFocus();
        return false;
    };
    if (sender->text().trimmed().isEmpty())
        return refuse(u"Please enter your email Address."_s);
    QString reason;
    if (!ValidateEmail(sender->text(), reason))
        return refuse(u"Please enter a valid email Address, so that we can get back to you."_s);
    return true;
}
