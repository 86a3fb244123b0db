#pragma once

#include "core/ui/Screen.h"
#include "reporting/Preparation.h"

class QPushButton;

namespace report {
class ReportViewer;
} // namespace report

/// The one window in which every report comes up.
class frmReportPreview final : public Screen
{
    Q_OBJECT

public:
    /// The title is that of the window.
    explicit frmReportPreview(const QString &title, QWidget *parent = nullptr);

    /// Lays the report out and shows its first page.
    void show(catalogue::Prepared report);
    /// The same for a report that has read for itself.
    void show(const report::Layout &layout, std::shared_ptr<const report::DataSource> rows,
              const report::Inputs &inputs);

private:
    report::ReportViewer *CRViewerReport = nullptr;
    QPushButton *cmdPrint = nullptr;
    QPushButton *cmdExit = nullptr;
};
