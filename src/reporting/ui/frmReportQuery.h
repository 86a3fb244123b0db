#pragma once

#include "core/ui/Screen.h"
#include "platform/grid/GridTypes.h"
#include "platform/report/layout/Layout.h"
#include "reporting/OwnReports.h"
#include "reporting/ReportTables.h"

#include <QVariantMap>
#include <optional>

class QLabel;
class QPlainTextEdit;
class QPushButton;
class QTabWidget;
class QueryPicker;

/// What a report reads: its query, by picking or as text, the parameters that it asks for, and the
/// further rows that it reads beside. The rows of a report of the program's own are given; of such
/// a one only the other two are shown.
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
    void buildRowSets();
    /// A page with a grid whose rows the user adds and removes; a new row begins with these values.
    [[nodiscard]] grid::GridView *addEntryPage(const QString &title, const QString &note,
                                               const QString &gridName,
                                               const QList<grid::Column> &columns,
                                               const QVariantMap &newRow);
    void showEntries();
    void tabChanged(int tab);
    /// What has been entered; nothing when it can't be run, which has been told.
    [[nodiscard]] std::optional<report::Layout> entered();
    /// Of the page that counts; nothing when what was picked can't be run, which has been told.
    [[nodiscard]] std::optional<QString> enteredQuery();
    [[nodiscard]] QList<report::Parameter> enteredParameters() const;
    [[nodiscard]] QList<report::RowSet> enteredRowSets() const;
    /// Tells which row has no name, or that of another one.
    [[nodiscard]] bool hasNames(grid::GridView *entries);
    /// Runs all that is read beside the report's own rows; what is wrong has been told.
    [[nodiscard]] bool canRead(const report::Layout &layout) const;
    /// Runs the query and shows its first rows. False when it can't be run, which has been told.
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
    grid::GridView *grdParameters = nullptr;
    grid::GridView *grdRowSets = nullptr;
    grid::GridView *grdRows = nullptr;
    QLabel *lblRows = nullptr;
    QPushButton *cmdShowRows = nullptr;
    QPushButton *cmdTake = nullptr;
    QPushButton *cmdCancel = nullptr;
};
