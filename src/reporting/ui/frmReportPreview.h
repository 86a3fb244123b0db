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

/// Joins the reports that exist to the calls that screens make.
void joinReports();

// Each shows its report and waits until the window is closed; True when it came up. Data.

/// The orders of a query, each on a page, or, with byCrew, in the order of their crews.
bool ShowWorkorderReport(const QString &statement, bool byCrew);
/// Posted orders of a query, in detail or as a summary.
bool ShowWorkorderHistoryReport(const QString &statement, bool summary);
/// The sheet on which meters are read.
bool EquipmentCountReport();
