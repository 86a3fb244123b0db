#include "platform/report/designer/PreviewTab.h"

#include "platform/base/Error.h"
#include "platform/base/Prompts.h"
#include "platform/input/Theme.h"
#include "platform/report/viewer/ReportViewer.h"

#include <QLabel>
#include <QListWidget>
#include <QVBoxLayout>

namespace report {
namespace {

using namespace Qt::StringLiterals;

constexpr int RemarksHeight = 110;

} // namespace

PreviewTab::PreviewTab(QWidget *parent)
    : QWidget(parent)
    , m_viewer(new ReportViewer(this))
    , m_heading(new QLabel(u"&Remarks on this report; Enter goes to the object"_s, this))
    , m_remarks(new QListWidget(this))
{
    m_viewer->setObjectName(u"preview"_s);
    m_remarks->setObjectName(u"remarks"_s);
    m_remarks->setAccessibleName(u"Remarks on this report"_s);
    m_remarks->setFixedHeight(RemarksHeight);
    m_remarks->setWordWrap(true);
    m_heading->setBuddy(m_remarks);
    m_heading->setFont(theme::labelFont());
    m_heading->setContentsMargins(6, 2, 6, 0);
    auto *rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(2);
    rows->addWidget(m_viewer, 1);
    rows->addWidget(m_heading);
    rows->addWidget(m_remarks);
    setFocusProxy(m_viewer);
    // Problems come up while rows are read, so all of them are known only at the end.
    connect(m_viewer, &ReportViewer::layoutEnded, this, &PreviewTab::listRemarks);
    connect(m_remarks, &QListWidget::itemActivated, this,
            [this] { choose(m_remarks->currentRow()); });
    connect(m_remarks, &QListWidget::itemClicked, this,
            [this] { choose(m_remarks->currentRow()); });
    m_heading->hide();
    m_remarks->hide();
}

bool PreviewTab::preview(const Layout &layout)
{
    m_viewer->clear();
    m_remarks->clear();
    m_remarks->hide();
    m_heading->hide();
    std::optional<PreviewRows> rows;
    try {
        if (m_provide)
            rows = m_provide(layout);
    } catch (const base::Error &error) {
        base::showCritical(error.description());
        return false;
    }
    if (!rows || !rows->rows)
        return false;
    // Laid out with a name for each object, by which a remark finds its way back.
    m_labelled = labelled(layout);
    m_viewer->setReport(m_labelled.layout, rows->rows, rows->inputs);
    return true;
}

void PreviewTab::leave()
{
    // Nobody looks at these pages any more, and what is designed next needs the processor.
    if (m_viewer->isLayingOut())
        m_viewer->cancelLayout();
}

void PreviewTab::listRemarks()
{
    m_remarks->clear();
    m_remarks->addItems(m_viewer->outcome().problems);
    m_remarks->setVisible(m_remarks->count() > 0);
    m_heading->setVisible(m_remarks->count() > 0);
}

void PreviewTab::choose(int row)
{
    if (row < 0)
        return;
    if (const auto part = partOf(m_labelled, m_remarks->item(row)->text()))
        Q_EMIT partChosen(*part);
}

} // namespace report
