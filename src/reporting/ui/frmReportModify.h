#pragma once

#include "core/ui/Screen.h"
#include "platform/db/Recordset.h"
#include "platform/report/designer/ReportDesigner.h"
#include "reporting/OwnReports.h"
#include "reporting/ReportTables.h"

#include <QTimer>

class QPushButton;

/// The designer of reports, on a layout of the program's that is changed or on one of the user's
/// own.
class frmReportModify final : public Screen
{
    Q_OBJECT

public:
    explicit frmReportModify(QWidget *parent = nullptr);

    /// The designer on an empty report, with the tables at hand; comes back when it is closed.
    void CreateNewReport();
    /// The designer on the layout of a file; key is the file's name, by which the rows for
    /// designing are known.
    void ShowReport(const QString &path, const QString &key);

protected:
    bool mayClose() override;

private:
    void buildForm();
    /// Begins with a layout: its fields, its pictures' folder, and a draft of it where there is
    /// one.
    void open(const report::Layout &layout);
    [[nodiscard]] std::optional<report::Layout> layoutAt(const QString &path) const;
    /// Asks whether to go on with what was being designed when the program ended.
    void offerDraft();
    void keepDraft();
    /// By what the draft is found again; one for all reports without a name.
    [[nodiscard]] QString draftKey() const;

    void layoutChanged();
    /// Offers the columns that the query gives now, and for the user's own reports those of all
    /// tables.
    void refreshFields();
    [[nodiscard]] db::Recordset sampleRows() const;
    /// Lets the query give a field too; False when it can't, which is told.
    [[nodiscard]] bool addField(report::Layout &layout, const report::DesignField &field);
    /// The rows of a preview: those of the program's report, or of the layout's own query. Nothing
    /// when the user cancels; raises base::Error.
    [[nodiscard]] std::optional<report::PreviewRows> rowsFor(const report::Layout &layout) const;

    /// Saves, and asks for a name before the first time. True when the file holds the design now.
    bool cmdUpdate_Click();
    void cmdWizard_Click();
    /// Asks until the name is one that a report can have.
    [[nodiscard]] QString askedFileName() const;
    /// Whether what stands in the file may go, in the words for the case.
    [[nodiscard]] bool mayReplace(ownreports::InPlace what) const;
    void showTitle();

    ownreports::Kind m_kind = ownreports::Kind::NewReport;
    QString m_path; ///< of the file that is saved to; empty while it has no name
    QString m_key;  ///< the file's name
    ownreports::Version m_known;
    QList<reporttables::Table> m_tables;
    QString m_shownQuery; ///< of which the designer's fields are
    QTimer m_draft;

    report::ReportDesigner *CRDesignerCtrl1 = nullptr;
    QPushButton *cmdWizard = nullptr;
    QPushButton *cmdUpdate = nullptr;
    QPushButton *cmdExit = nullptr;
};
