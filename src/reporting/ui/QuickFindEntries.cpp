#include "reporting/ui/QuickFindEntries.h"

#include "reporting/ui/frmItemList.h"
#include "reporting/ui/frmPartQuickFind.h"
#include "reporting/ui/frmQuickFind.h"

#include <QApplication>

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

void joinQuickFinds()
{
    screenCalls().ShowQuickFind = ShowQuickFind;
    screenCalls().ShowPartQuickFind = [] { return frmPartQuickFindEntry::ShowQuickFind({}); };
    screenCalls().ShowItemListDetail = ShowItemListDetail;
}
