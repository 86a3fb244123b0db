#include "workorders/ui/ServiceNote.h"

#include "core/RecordStore.h"
#include "core/ui/Lock.h"
#include "core/ui/Telling.h"
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
    return telling("WorkOrder", "Note_Validate", false, [this] { return write(); });
}

bool ServiceNote::write()
{
    QString theirs;
    try {
        if (!m_write(m_service, text(), m_shown))
            return false;
        m_shown = text();
        return true;
    } catch (const record::Conflict &conflict) {
        // The service itself is gone: no note can be stored in any place.
        if (conflict.isGone())
            throw;
        theirs = conflict.differences().front().theirs.toString();
    }
    if (!base::askYesNo(
            u"Another workstation has changed this note meanwhile:\n\n%1\n\nDo you want "
            "to store yours in its place?"_s.arg(theirs))) {
        // Theirs is what counts as shown from now on, so that leaving the box asks no second time.
        show(m_service, theirs);
        return true;
    }
    // Over whatever it is by now: the user has decided.
    if (!m_write(m_service, text(), std::nullopt))
        return false;
    m_shown = text();
    return true;
}

QString ServiceNote::text() const
{
    return m_box->toPlainText();
}
