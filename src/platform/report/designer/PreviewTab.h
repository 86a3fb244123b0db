#pragma once

#include "platform/report/designer/Remarks.h"
#include "platform/report/designer/ReportDesigner.h"

#include <QWidget>

class QLabel;
class QListWidget;

namespace report {

class ReportViewer;

/// A report on its rows, with what was remarked on it below; a remark leads to its object.
class PreviewTab final : public QWidget
{
    Q_OBJECT

public:
    explicit PreviewTab(QWidget *parent = nullptr);
    /// Without one there is no preview.
    void setRowsProvider(RowsProvider provider) { m_provide = std::move(provider); }
    [[nodiscard]] bool hasProvider() const { return static_cast<bool>(m_provide); }
    /// Asks for rows and lays the report out. False when the user has given up, or the rows can't
    /// be read, which is told.
    bool preview(const Layout &layout);
    /// Stops what is being laid out.
    void leave();
    [[nodiscard]] ReportViewer &viewer() const { return *m_viewer; }

Q_SIGNALS:
    /// The user wants to see what a remark speaks of.
    void partChosen(const Selection &part);

private:
    /// What was remarked on the whole report, once it is laid out.
    void listRemarks();
    void choose(int row);

    RowsProvider m_provide;
    Labelled m_labelled;
    ReportViewer *m_viewer;
    QLabel *m_heading;
    QListWidget *m_remarks;
};

} // namespace report
