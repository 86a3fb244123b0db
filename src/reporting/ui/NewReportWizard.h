#pragma once

#include "core/ui/Screen.h"
#include "platform/report/layout/Layout.h"
#include "reporting/NewReport.h"

#include <optional>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QStackedWidget;

/// Makes a new report in four steps: what it is about, columns, groups and totals, its looks. The
/// last one shows its first page.
class NewReportWizard final : public Screen
{
    Q_OBJECT

public:
    /// The tables that a report can be about, as reporttables::tables() gives them.
    explicit NewReportWizard(QList<reporttables::Table> tables, QWidget *parent = nullptr);

    /// The report; nothing when the user gives up.
    [[nodiscard]] std::optional<report::Layout> ask();

protected:
    void EnableControls() override;

private:
    void buildForm();
    [[nodiscard]] QWidget *tablePage();
    [[nodiscard]] QWidget *columnsPage();
    [[nodiscard]] QWidget *groupsPage();
    [[nodiscard]] QWidget *looksPage();
    void takeTable();
    void showTotals();
    /// Lays out the first page as it would be, on the first rows.
    void showPage();
    /// Shows a step; the last one only when a report can be made of the choices. Else what is
    /// missing is told.
    void goTo(int step);
    /// -1 to the left, 1 to the right.
    void moveColumn(int by);
    /// In the order of the list.
    [[nodiscard]] QList<newreport::Field> ticked(const QListWidget *list) const;
    /// What has been chosen so far, each group once.
    [[nodiscard]] newreport::Choice choice() const;
    void cmdFinish_Click();

    QList<reporttables::Table> m_tables;
    QList<newreport::Field> m_fields; ///< of the table that was chosen
    QString m_table;
    std::optional<report::Layout> m_made;

    QStackedWidget *m_pages = nullptr;
    QLabel *lblStep = nullptr;
    QListWidget *lstTables = nullptr;
    QLineEdit *txtTitle = nullptr;
    QListWidget *lstColumns = nullptr;
    QList<QComboBox *> m_groups;
    QListWidget *lstTotals = nullptr;
    QCheckBox *chkCounts = nullptr;
    QComboBox *cboChart = nullptr;
    QComboBox *cboLook = nullptr;
    QComboBox *cboPaper = nullptr;
    QCheckBox *chkLandscape = nullptr;
    QLabel *lblPage = nullptr;
    QPushButton *cmdBack = nullptr;
    QPushButton *cmdNext = nullptr;
    QPushButton *cmdFinish = nullptr;
    QPushButton *cmdCancel = nullptr;
};
