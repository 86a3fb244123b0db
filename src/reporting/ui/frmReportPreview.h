#pragma once

#include "core/ui/Screen.h"
#include "platform/report/paginate/DataSource.h"

#include <memory>

class QPushButton;

namespace report {
class RecordsetSource;
class ReportViewer;
struct Layout;
} // namespace report

/// The one window in which every report comes up.
class frmReportPreview final : public Screen
{
    Q_OBJECT

public:
    explicit frmReportPreview(const QString &title, QWidget *parent = nullptr);

    /// Lays the rows out, with the company's name and the other named texts.
    void show(const report::Layout &layout, std::shared_ptr<report::RecordsetSource> rows,
              const QHash<QString, QString> &texts = {});

private:
    report::ReportViewer *CRViewerReport = nullptr;
    QPushButton *cmdPrint = nullptr;
    QPushButton *cmdExit = nullptr;
};

/// Joins the reports that exist to the list of what can be opened. Each shows its window and waits
/// until it is closed, and answers True when it came up. Data.
///
///     ShowWorkorderReport          the orders of a statement, each on a page; other: by their
///     crews ShowWorkorderHistoryReport   posted orders of a statement; other: a summary
///     EquipmentCountReport         the sheet on which meters are read
void joinReports();
