// The company's file is lost, and a backup brings it back.
#include "core/Session.h"
#include "tour/Tour.h"

#include <QFile>

namespace tour {

using namespace Qt::StringLiterals;

namespace {

const QString BackupName = u"backup"_s;
const QString SecondPlace = u"second place"_s;

} // namespace

Task Tour::takeABackup()
{
    co_await m_hands.chooseEntry(u"mnumakebackup"_s);
    m_hands.requireWindow(u"frmbackup"_s);
    require(m_folder.mkpath(SecondPlace), u"The second place can't be made."_s);
    co_await m_hands.press(u"cmdPlan"_s);
    m_hands.requireWindow(u"frmSetup"_s);
    co_await m_hands.type(u"txtSecondPlace"_s, path(SecondPlace));
    see(u"plan"_s, u"The options say which copies the program makes by itself."_s);
    co_await m_hands.press(u"cmdOk"_s);
    m_hands.requireWindow(u"frmbackup"_s);
    co_await m_hands.type(u"txtFolderPath"_s, m_folder.absolutePath());
    co_await m_hands.type(u"txtFileName"_s, BackupName);
    see(u"backup"_s, u"A backup to a folder of the user's; below it what is copied by itself."_s);
    co_await m_hands.press(u"cmdBackup"_s);
    const QString told = Hands::message();
    require(
        told.startsWith(u"Backup taken Succesfully\n\nThe copy was opened, checked and counted"),
        u"The backup tells: %1"_s.arg(told));
    see(u"backup-proven"_s, u"The copy was proven before it got its name."_s);
    co_await m_hands.answer(told, u"OK"_s);
    co_await m_hands.press(u"cmdExit"_s);
    m_hands.requireWindow(u"frmMainScreen"_s);
}

Task Tour::restoreIt()
{
    const qint64 open = m_company->openOrders();
    const qint64 overdue = m_company->overdueMachines();
    const QStringList orders = m_company->orderNumbers();
    m_company.reset();
    require(QFile::remove(gsDatabasePath), u"The company's file can't be removed."_s);
    co_await m_hands.chooseEntry(u"mnurestorebackup"_s);
    m_hands.requireWindow(u"frmRestore"_s);
    co_await m_hands.type(u"txtFolderPath"_s, path(BackupName));
    co_await m_hands.press(u"cmdRestore"_s);
    const QString question = Hands::message();
    require(question.startsWith(u"Do you want to put the backup in the place of the database?"),
            u"The restore asks: %1"_s.arg(question));
    see(u"restore"_s, u"The company's file is lost; the restore shows what the backup holds."_s);
    co_await m_hands.answer(question, u"Yes"_s);
    co_await m_hands.answer(u"Restore Database Succesfully"_s, u"OK"_s);
    co_await m_hands.press(u"cmdExit"_s);
    m_hands.requireWindow(u"frmMainScreen"_s);
    m_company.emplace(databaseTarget(), m_today);
    require(
        m_company->openOrders() == open && m_company->overdueMachines() == overdue,
        u"%1 orders and %2 machines with overdue work were there, %3 and %4 came back."_s.arg(open)
            .arg(overdue)
            .arg(m_company->openOrders())
            .arg(m_company->overdueMachines()));
    requireBoard();
    see(u"restored"_s,
        u"The board as it was before the loss: %1 work orders are open."_s.arg(open));
    co_await m_hands.chooseEntry(u"mnuRecordWork"_s);
    m_hands.requireWindow(u"frmWorkorder"_s);
    requireList(u"grdRecordWo"_s, u"WorkOrderNo"_s, orders);
    see(u"restored-orders"_s, u"The same orders as before, read from the restored company."_s);
    co_await m_hands.press(u"cmdExit"_s);
    m_hands.requireWindow(u"frmMainScreen"_s);
    QFile::remove(path(BackupName));
    // The program copies the day at its end when nobody else is at work.
    m_company.reset();
}

void Tour::requireSecondCopy()
{
    QDir place(path(SecondPlace));
    const QString copy = u"Quorvantis %1.mdb"_s.arg(m_today.toString(Qt::ISODate));
    require(place.entryList(QDir::Files) == QStringList{copy},
            u"The end of the program must leave \"%1\" in the second place."_s.arg(copy));
    m_out << "The program has ended, and has left the day's copy in the second place." << Qt::endl;
    place.removeRecursively();
}

} // namespace tour
