#pragma once

#include "core/ui/Screen.h"
#include "platform/report/layout/Layout.h"
#include "reporting/OwnReports.h"
#include "reporting/ReportTables.h"

#include <optional>

class QLabel;
class QPlainTextEdit;
class QPushButton;
class QTabWidget;
class QueryPicker;

/// What a report reads: its query, by picking or as text, and the parameters that it asks for. The
/// rows of a report of the program's own are given; of such a one only the parameters are shown.
class frmReportQuery final : public Screen
{
    Q_OBJECT

public:
    frmReportQuery(const report::Layout &layout, ownreports::Kind kind,
                   const QList<reporttables::Table> &tables, QWidget *parent = nullptr);

    /// The layout with its new query; nothing when the user gives up.
    [[nodiscard]] std::optional<report::Layout> ask();

private:
    void buildForm();
    void buildQueryTabs();
    void buildParameters();
    void showParameters();
    void tabChanged(int tab);
    /// What has been entered; nothing when it can't be run, which has been told.
    [[nodiscard]] std::optional<report::Layout> entered();
    [[nodiscard]] std::optional<QString> enteredQuery();
    [[nodiscard]] std::optional<QList<report::Parameter>> enteredParameters();
    bool cmdShowRows_Click();
    void cmdTake_Click();

    report::Layout m_layout;
    ownreports::Kind m_kind;
    QList<reporttables::Table> m_tables;
    bool m_isTaken = false;
    bool m_isText = false; ///< the text is what counts, not what was picked

    QTabWidget *tabQuery = nullptr;
    QueryPicker *m_picker = nullptr;
    QPlainTextEdit *txtQuery = nullptr;
    QWidget *m_parametersPage = nullptr;
    grid::GridView *grdParameters = nullptr;
    grid::GridView *grdRows = nullptr;
    QLabel *lblRows = nullptr;
    QPushButton *cmdShowRows = nullptr;
    QPushButton *cmdTake = nullptr;
    QPushButton *cmdCancel = nullptr;
};
