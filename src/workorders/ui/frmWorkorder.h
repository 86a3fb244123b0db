#pragma once

#include "core/ui/Screen.h"
#include "workorders/WorkorderFilter.h"

class QCheckBox;
class QLineEdit;
class QPushButton;
class QTabWidget;
class PrintWorkPage;
class RecordWorkPage;

namespace input {
class DateInput;
}

/// The work-order screen: what is due becomes orders and is printed on the first tab, and what was
/// done is recorded and posted on the second.
class frmWorkorder final : public Screen
{
    Q_OBJECT

public:
    explicit frmWorkorder(QWidget *parent = nullptr);

    /// Turns to the first tab; with a unit number the machine's first row without an order is
    /// selected.
    void ShowPrintWorkorder(const QString &unitNo = {});
    /// Turns to the second tab; the order is selected unless it is 0.
    void ShowCompleteWorkorder(qint64 WorkorderNo = 0);

protected:
    bool mayClose() override;
    void unloading() override;

private:
    enum Tab { PrintTab, CompleteTab };

    void buildForm();
    QWidget *buildFilter();
    void Form_Load();
    void Form_Unload();
    /// Stores what is being edited on either page; False when it is refused.
    [[nodiscard]] bool finishEditing();
    void EnableControls() override;
    /// Turns to a tab and shows what belongs to it, without reading anything.
    void showTab(Tab tab);
    /// What the boxes say now; an empty date is today.
    [[nodiscard]] WorkorderFilter filter() const;
    [[nodiscard]] QDate dateFrom() const;
    [[nodiscard]] QDate dateTo() const;
    /// A window that runs backwards is put right: a later beginning takes the end along, an earlier
    /// end is told and goes back.
    void datDateFrom_Change();
    void datDateTo_Change();
    [[nodiscard]] bool reachToday();
    void sstabWorkorder_Click(int tab);
    void cmdRefreshWo_Click();
    void cmdPrint_Click();
    void cmdPost_Click();
    /// Posts orders, as far as the user leaves none behind. The list then holds those that were
    /// posted. False when none was, which has been told.
    [[nodiscard]] bool post(QList<qint64> &orders, QDate completed);
    [[nodiscard]] bool postWhatCanBe(QList<qint64> &orders, QDate completed);
    /// Offers the lists of what was posted just now.
    void printPosted(const QList<qint64> &orders);
    void cmdUnschedule_Click();

    QWidget *fraFilter = nullptr;
    input::DateInput *datDateFrom = nullptr;
    input::DateInput *datDateTo = nullptr;
    QLineEdit *txtCrewRange = nullptr;
    QLineEdit *txtAssignCrew = nullptr;
    QCheckBox *chkGroupWo = nullptr;
    QPushButton *cmdRefreshWo = nullptr;
    QTabWidget *sstabWorkorder = nullptr;
    PrintWorkPage *m_printing = nullptr;
    RecordWorkPage *m_recording = nullptr;
    QPushButton *cmdUnschedule = nullptr;
    QPushButton *cmdPrint = nullptr;
    QPushButton *cmdPost = nullptr;
    QPushButton *cmdExit = nullptr;
};
