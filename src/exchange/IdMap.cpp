#include "exchange/IdMap.h"

#include "core/Session.h"
#include "exchange/Spliced.h"
#include "platform/db/DbError.h"

using namespace Qt::StringLiterals;

namespace exchange {
namespace {

QString letter(IdMap::Kind kind)
{
    return kind == IdMap::Kind::WorkOrder ? u"W"_s : u"S"_s;
}

QString keyOf(IdMap::Kind kind, const QString &handheldId)
{
    // As the database compares texts.
    return letter(kind) + spliced::quoted(handheldId.trimmed()).toCaseFolded();
}

bool tableExists()
{
    try {
        (void)dataConnection().Open(u"Select * from tblWotemp"_s);
        return true;
    } catch (const db::DbError &error) {
        if (error.number() != db::ErrorNumber::TableUnknown)
            throw;
        return false;
    }
}

} // namespace

void IdMap::prepare()
{
    if (tableExists()) {
        // The ids of a device begin anew after each exchange, and an old one would bring a part to
        // another's order.
        dataConnection().Execute(u"delete * from tblWotemp"_s);
        return;
    }
    try {
        dataConnection().Execute(
            u"Create table tblWotemp( strname nvarchar(1), strid nvarchar(15), strno "
            "nvarchar(15))"_s);
    } catch (const db::DbError &) {
        // Unless another workstation has just made it.
        if (!tableExists())
            throw;
    }
}

qint64 IdMap::IsIDExist(Kind kind, const QString &handheldId) const
{
    return m_numbers.value(keyOf(kind, handheldId), -1);
}

bool IdMap::record(Kind kind, const QString &handheldId, qint64 number)
{
    try {
        dataConnection().Execute(
            u"insert into tblWotemp(strname,strid,strno) values(?,?,?)"_s,
            {letter(kind), spliced::quoted(handheldId.trimmed()), QString::number(number)});
    } catch (const db::DbError &error) {
        // The user is told in the words of the command that made the row.
        qWarning("tblWotemp: %s", error.what());
        return false;
    }
    m_numbers.insert(keyOf(kind, handheldId), number);
    return true;
}

} // namespace exchange
