#include "shell/ui/QuickLinkActions.h"

#include "core/ui/Openings.h"
#include "core/ui/ScreenCalls.h"
#include "shell/QuickLinks.h"
#include "shell/ui/MainBoard.h"

using namespace Qt::StringLiterals;

namespace shell {

bool isQuickLinkJoined(int index)
{
    // The help is part of this program.
    if (index == HelpLink)
        return true;
    const QString opening = QString::fromLatin1(quickLinks()[index].opening);
    if (!opening.isEmpty())
        return openings().isJoined(opening);
    if (const QuickFindTarget *target = quickFindTarget(index))
        return screenCalls().ShowQuickFind &&
               openings().isJoined(QString::fromLatin1(target->form));
    if (index == PartInventoryLink)
        return screenCalls().ShowPartQuickFind && openings().isJoined(u"frmPart");
    return !mainBoard().isEmpty() && mainBoard().LoadUnloadReportsNavigator;
}

void findAndOpen(const std::function<QString()> &find, const QString &form)
{
    // Round and round, as one works through a list of machines: Cancel in the find is the way out.
    for (QString key = find(); !key.trimmed().isEmpty(); key = find())
        openings().open(form, {.key = key});
}

void runQuickFindLoop(int index)
{
    if (const QuickFindTarget *target = quickFindTarget(index)) {
        const auto text = [](const char *latin1) { return QString::fromLatin1(latin1); };
        findAndOpen(
            [&] {
                return screenCalls().ShowQuickFind({.field = text(target->field),
                                                    .label = text(target->label),
                                                    .table = text(target->table),
                                                    .form = text(target->form)});
            },
            text(target->form));
    } else if (index == PartInventoryLink) {
        findAndOpen(screenCalls().ShowPartQuickFind, u"frmPart"_s);
    }
}

} // namespace shell
