#pragma once

#include "workorders/Board.h"
#include "workorders/ui/LatenessStyle.h"

#include <QWidget>

class QBoxLayout;
class QLabel;
class QToolButton;

namespace grid {
class GridView;
}
namespace input {
class LinkLabel;
}

/// The board behind all other screens: what has fallen due, what stands open, the reports, and six
/// shortcuts. It holds no data of its own, and is read anew each time the main window is activated.
class frmOverDueWork final : public QWidget
{
    Q_OBJECT

public:
    explicit frmOverDueWork(QWidget *parent = nullptr);

    /// Reads what is due and open. What was expanded and selected stays so.
    void LoadData();
    /// Shows or hides the reports.
    void LoadUnloadReportsNavigator(bool show);
    [[nodiscard]] bool reportsVisible() const;

protected:
    void paintEvent(QPaintEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    enum Shortcut { PrintOrders, RecordOrders, Reading, NewPart, CheckIn, AssignCrew };

    /// What a reading anew keeps of the board.
    struct BoardView
    {
        bool openExpanded = true;
        bool dueExpanded = true;
        QString current{}; ///< key of the selected row
    };

    void buildShortcuts(QBoxLayout *column);
    void buildBoard(QBoxLayout *row);
    void buildReports(QBoxLayout *row);
    [[nodiscard]] grid::Style boardStyle(int row, const QString &column) const;
    [[nodiscard]] grid::Style reportStyle(int row) const;
    void fillWidth();
    void ShowReports();
    /// By what a row is found again when the board has been read anew.
    [[nodiscard]] QString keyOf(int row) const;
    [[nodiscard]] BoardView boardView() const;
    void showEntries(const QList<board::Entry> &entries, int openRow, int dueRow);
    void selectEntry(const QString &key);
    void cmdToolbar_Click(int index);
    void grdEquipWithSer_HyperLinkClick(int row);
    void grdReport_HyperLinkClick(int row);

    LatenessStyle m_lateness;

    QLabel *lblToday = nullptr;
    QLabel *lblSummary = nullptr;
    QLabel *lblBoard = nullptr;
    QToolButton *cmdToolbar[6] = {};
    grid::GridView *grdEquipWithSer = nullptr;
    QWidget *picReports = nullptr;
    input::LinkLabel *lblReports = nullptr;
    QToolButton *imgClose = nullptr;
    grid::GridView *grdReport = nullptr;
};
