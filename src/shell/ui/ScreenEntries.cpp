#include "shell/ui/ScreenEntries.h"

#include "core/ui/ScreenCalls.h"
#include "platform/base/Error.h"
#include "shell/MenuTree.h"

using namespace Qt::StringLiterals;

namespace shell {

void ScreenEntries::add(const QString &menuObject, Open open)
{
    const MenuEntry *entry = menuEntry(menuObject);
    if (entry == nullptr || entry->kind != MenuKind::Entry)
        throw base::Error(base::ErrorNumber::NoSuchItem,
                          u"There is no menu entry \"%1\""_s.arg(menuObject));
    m_entries.insert(menuObject, std::move(open));
}

bool ScreenEntries::contains(QStringView menuObject) const
{
    return m_entries.contains(menuObject.toString());
}

void ScreenEntries::open(QStringView menuObject) const
{
    // A copy, since a screen may join others while it is open.
    if (const Open function = m_entries.value(menuObject.toString()))
        function();
}

void ScreenEntries::addRecordScreen(const QString &form, OpenRecord open)
{
    m_recordScreens.insert(form, std::move(open));
}

ScreenEntries::OpenRecord ScreenEntries::recordScreen(const QString &form) const
{
    return m_recordScreens.value(form);
}

ScreenEntries &screenEntries()
{
    static ScreenEntries entries;
    return entries;
}

bool isQuickLinkJoined(int index)
{
    const ScreenEntries &entries = screenEntries();
    if (index == HelpLink)
        return true;
    const QString menu = QString::fromLatin1(quickLinks()[index].menuEntry);
    if (!menu.isEmpty())
        return entries.contains(menu);
    if (const QuickFindTarget *target = quickFindTarget(index))
        return screenCalls().ShowQuickFind &&
               entries.recordScreen(QString::fromLatin1(target->form));
    if (index == PartInventoryLink)
        return entries.ShowPartQuickFind && entries.recordScreen(u"frmPart"_s);
    return !entries.board.isEmpty() && entries.board.LoadUnloadReportsNavigator;
}

void findAndOpen(const std::function<QString()> &find, const ScreenEntries::OpenRecord &open)
{
    for (QString key = find(); !key.trimmed().isEmpty(); key = find())
        open(key);
}

void runQuickFindLoop(int index)
{
    const ScreenEntries &entries = screenEntries();
    if (const QuickFindTarget *target = quickFindTarget(index)) {
        const auto text = [](const char *latin1) { return QString::fromLatin1(latin1); };
        findAndOpen(
            [&] {
                return screenCalls().ShowQuickFind({.field = text(target->field),
                                                    .label = text(target->label),
                                                    .table = text(target->table),
                                                    .form = text(target->form)});
            },
            entries.recordScreen(text(target->form)));
    } else if (index == PartInventoryLink) {
        findAndOpen(entries.ShowPartQuickFind, entries.recordScreen(u"frmPart"_s));
    }
}

} // namespace shell
