#include "workorders/ui/ServiceNote.h"

#include "core/ui/CellWrite.h"
#include "core/ui/Lock.h"
#include "platform/input/Leaving.h"

#include <QPlainTextEdit>

using namespace Qt::StringLiterals;

ServiceNote::ServiceNote(QPlainTextEdit *box, Write write, MayStand mayStand)
    : QObject(box)
    , m_box(box)
    , m_write(std::move(write))
    , m_mayStand(std::move(mayStand))
{
    // Until a service is on show there is nothing that a note could belong to.
    setLocked(m_box, true);
    // Tab goes on to the next control, as everywhere on the form; a note needs no tabs.
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
    // In the box an unchanged note is judged too: a skipped service may have come without one, and
    // whoever is in the box is to give it. Elsewhere nobody is asked for it.
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
    const QString mine = text();
    const std::optional<QString> stored = storeNote(
        "WorkOrder", "Note_Validate", mine, m_shown,
        [&](const std::optional<QVariant> &shown) { return m_write(m_service, mine, shown); });
    if (!stored)
        return false;
    // What is stored counts as shown from now on, so that leaving the box asks no second time.
    if (*stored == mine)
        m_shown = mine;
    else
        show(m_service, *stored);
    return true;
}

QString ServiceNote::text() const
{
    return m_box->toPlainText();
}
