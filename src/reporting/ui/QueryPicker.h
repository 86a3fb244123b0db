#pragma once

#include "reporting/ReportQuery.h"

#include <QWidget>

class QCheckBox;
class QComboBox;
class QListWidget;
class QPushButton;
class QTableWidget;
class QTreeWidget;

/// Puts a query together by picking: tables with their joins, columns, filter and sort.
class QueryPicker final : public QWidget
{
    Q_OBJECT

public:
    explicit QueryPicker(QList<reporttables::Table> tables, QWidget *parent = nullptr);

    /// Shows a query in place of what has been picked; its tables must be among those given.
    void setQuery(const reportquery::Query &query);
    /// What has been picked, also where it can't be run yet (reportquery::problemOf). A value that
    /// begins with "?" is a parameter's name.
    [[nodiscard]] reportquery::Query query() const;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void buildForm();
    void addRow(QTableWidget *table, const QList<QWidget *> &controls);
    void showAll();
    void showSources();
    /// By what the current table is joined, with the columns to choose from; the first one is
    /// joined to none.
    void showJoin();
    void showColumns();
    /// All columns of all tables of the query.
    void fillPlaces(QComboBox *combo, const reportquery::Place &chosen) const;
    [[nodiscard]] static reportquery::Place placeIn(const QComboBox *combo);

    void cmdAddTable_Click();
    void cmdRemoveTable_Click();
    void joinChanged();
    /// Takes over all ticks.
    void columnTicked();
    void addCondition(const reportquery::Condition &condition);
    void addSort(const reportquery::Sort &sort);
    /// Removes the row that the user is at, else the last one.
    void removeRow(QTableWidget *table);
    /// A table as the user knows it, with its name in the query where that is another.
    [[nodiscard]] QString captionOf(const reportquery::Source &source) const;
    [[nodiscard]] QString joinOf(const reportquery::Source &source) const;

    QList<reporttables::Table> m_tables;
    reportquery::Query m_query;
    bool m_isShowing = false;

    QComboBox *cboTable = nullptr;
    QPushButton *cmdAddTable = nullptr;
    QPushButton *cmdRemoveTable = nullptr;
    QListWidget *lstTables = nullptr;
    QComboBox *cboJoinOwn = nullptr;
    QComboBox *cboJoinTo = nullptr;
    QCheckBox *chkOnlyMatching = nullptr;
    QTreeWidget *treColumns = nullptr;
    QTableWidget *tblFilter = nullptr;
    QTableWidget *tblSort = nullptr;
    QCheckBox *chkDistinct = nullptr;
};
