#include "workorders/ui/ServiceNote.h"

#include "core/ui/Lock.h"
#include "platform/input/Leaving.h"

#include <QPlainTextEdit>

ServiceNote::ServiceNote(QPlainTextEdit *box, Write write, MayStand mayStand)
    : QObject(box)
    , m_box(box)
    , m_write(std::move(write))
    , m_mayStand(std::move(mayStand))
{
    setLocked(m_box, true);
    m_box->setTabChangesFocus(true);
    input::validateOnLeave(m_box, [this] { return store(); });
}

void ServiceNote::show(qint64 service, const QString &note)
{
    m_service = service;
    m_shown = note;
    m_box->setPlainText(note);
    setLocked(m_box, service == 0);
}

bool ServiceNote::leave()
{
    if ((text() == m_shown && !m_box->hasFocus()) || store())
        return true;
    m_box->setFocus();
    return false;
}

bool ServiceNote::store()
{
    if (m_service == 0)
        return true;
    if (m_mayStand && !m_mayStand(m_service, text()))
        return false;
    if (text() == m_shown)
        return true;
    if (!m_write(m_service, text()))
        return false;
    m_shown = text();
    return true;
}

QString ServiceNote::text() const
{
    return m_box->toPlainText();
}
