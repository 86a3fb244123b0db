#include "reporting/ui/GradualRows.h"

#include "platform/base/Trapped.h"

#include <QElapsedTimer>
#include <limits>

namespace {

constexpr int FirstRows = 200;
constexpr int RowsAtOnce = 100;
constexpr int MillisecondsAtOnce = 8; ///< half of the time between two frames

} // namespace

GradualRows::GradualRows(grid::GridView *list, QObject *parent)
    : QObject(parent)
    , m_list(list)
{
    m_reading.setSingleShot(true);
    connect(&m_reading, &QTimer::timeout, this, &GradualRows::readOn);
}

void GradualRows::show(db::Gradual rows, bool all)
{
    m_reading.stop();
    // The timer is stopped ahead: it must not read on in rows that are gone.
    m_rows = std::move(rows);
    (void)m_rows->fetch(all ? std::numeric_limits<int>::max() : FirstRows);
    m_list->rows().setRecordset(m_rows->rows());
    if (!m_rows->isComplete())
        m_reading.start();
}

void GradualRows::readOn()
{
    base::trapped("GradualRows", "readOn", [this] {
        QElapsedTimer timer;
        timer.start();
        while (m_rows->fetch(RowsAtOnce)) {
            if (timer.elapsed() >= MillisecondsAtOnce) {
                // Between two parts the screen answers keys and paints.
                m_reading.start();
                return;
            }
        }
        takeIn();
    });
}

void GradualRows::readAll()
{
    if (isComplete())
        return;
    m_reading.stop();
    while (m_rows->fetch(std::numeric_limits<int>::max())) {
    }
    takeIn();
}

void GradualRows::takeIn()
{
    m_list->rows().extendRecordset(m_rows->rows());
    Q_EMIT completed();
}
