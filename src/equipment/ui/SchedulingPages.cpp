#include "equipment/ui/SchedulingPages.h"

#include "platform/grid/GridView.h"
#include "scheduling/ui/CountPage.h"
#include "scheduling/ui/ServicePage.h"

#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

MachineScreen screenOf(EquipmentFrame &frame, std::function<void()> refreshOthers)
{
    return {[&frame] { return frame.frameMode() == Mode::Browse; }, [&frame] { frame.beginEdit(); },
            [&frame] { return frame.save(); }, [&frame] { frame.cancelEdit(); },
            [&frame, refreshOthers = std::move(refreshOthers)] {
                refreshOthers();
                frame.contentChanged();
            }};
}

void fillWith(QWidget *page, QWidget *content)
{
    auto *stack = new QVBoxLayout(page);
    stack->setContentsMargins(0, 0, 0, 0);
    stack->addWidget(content);
}

} // namespace

EquipmentServicePage::EquipmentServicePage(EquipmentFrame &frame, QWidget *parent)
    : EquipmentPage(frame, parent)
    , m_page(new ServicePage(screenOf(frame, [this] { Q_EMIT servicesChanged(); }), this))
{
    fillWith(this, m_page);
    frame.keepLayout(m_page->grid(), m_page->grid()->objectName());
}

void EquipmentServicePage::showMachine(qint64 EquipmentID)
{
    m_page->RefreshServiceGrid(EquipmentID);
}

bool EquipmentServicePage::hasContent() const
{
    return m_page->hasContent();
}

void EquipmentServicePage::setEditable(bool editable)
{
    m_page->setMayEdit(editable);
}

bool EquipmentServicePage::finishEditing()
{
    return m_page->finishEditing();
}

void EquipmentServicePage::pageShown()
{
    m_page->grid()->setFocus();
}

EquipmentCountPage::EquipmentCountPage(EquipmentFrame &frame, QWidget *parent)
    : EquipmentPage(frame, parent)
    , m_page(new CountPage(screenOf(frame, [this] { Q_EMIT readingsChanged(); }), this))
{
    fillWith(this, m_page);
    frame.keepLayout(m_page->grid(), m_page->grid()->objectName());
}

void EquipmentCountPage::showMachine(qint64 EquipmentID)
{
    m_page->RefreshCountGrid(EquipmentID);
}

bool EquipmentCountPage::hasContent() const
{
    return m_page->hasContent();
}

void EquipmentCountPage::setEditable(bool editable)
{
    m_page->setMayEdit(editable);
}

void EquipmentCountPage::pageShown()
{
    m_page->grid()->setFocus();
}
