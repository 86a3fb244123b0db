#include "reporting/ui/QuickFindEntries.h"

#include "reporting/ui/frmItemList.h"
#include "reporting/ui/frmPartQuickFind.h"
#include "reporting/ui/frmQuickFind.h"

#include <QApplication>
#include <QHash>

namespace {

QHash<QString, std::function<void()>> &newRecordScreens()
{
    static QHash<QString, std::function<void()>> screens;
    return screens;
}

} // namespace

QString ShowQuickFind(const ScreenCalls::QuickFind &request)
{
    return frmQuickFind(request, QApplication::activeWindow()).ShowQuickFind();
}

QString frmPartQuickFindEntry::ShowQuickFind(const QString &partID)
{
    return frmPartQuickFind(partID, QApplication::activeWindow()).ShowQuickFind();
}

QString ShowItemListDetail(const QString &selectText, const QString &filterText,
                           const QString &title, const QString &keyColumn, const QString &keyType,
                           const QString &secondColumn, const QString &secondType)
{
    return frmItemList(
               {selectText, filterText, title, keyColumn, keyType, secondColumn, secondType},
               frmItemList::Choice::Several, QApplication::activeWindow())
        .choose();
}

QString ShowItemListDetailForEquUti(const QString &selectText, const QString &filterText,
                                    const QString &title, const QString &keyColumn,
                                    const QString &keyType, const QString &secondColumn,
                                    const QString &secondType)
{
    return frmItemList(
               {selectText, filterText, title, keyColumn, keyType, secondColumn, secondType},
               frmItemList::Choice::One, QApplication::activeWindow())
        .choose();
}

void setNewRecordScreen(const QString &table, std::function<void()> open)
{
    newRecordScreens().insert(table, std::move(open));
}

std::function<void()> newRecordScreen(const QString &table)
{
    return newRecordScreens().value(table);
}

void joinQuickFinds()
{
    screenCalls().ShowQuickFind = ShowQuickFind;
    screenCalls().ShowItemListDetail = ShowItemListDetail;
}
