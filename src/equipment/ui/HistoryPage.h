#pragma once

#include "equipment/History.h"
#include "platform/grid/GridTypes.h"
#include "scheduling/ui/MachinePage.h"

class HistoryParts;
class QPlainTextEdit;
class QPushButton;

namespace input {
class DateInput;
}

/// What has been done on a machine in a range of dates, with the parts and the note of each
/// service. Cells can be corrected, which is written at once.
class HistoryPage final : public MachinePage
{
    Q_OBJECT

public:
    explicit HistoryPage(MachineFrame &frame, QWidget *parent = nullptr);

    void showMachine(qint64 EquipmentID) override;
    [[nodiscard]] bool hasContent() const override;
    void setEditable(bool editable) override;
    [[nodiscard]] bool finishEditing() override;
    [[nodiscard]] bool mayLeave() override;
    void pageShown() override;
    void closing() override;

private:
    void buildPage();
    [[nodiscard]] QList<grid::Column> serviceColumns();
    void readRange();
    [[nodiscard]] bool runsBackwards() const;
    [[nodiscard]] bool checkDate(input::DateInput *box, QDate &former);
    [[nodiscard]] history::Period period() const;

    void RefreshServiceHistoryGrid(qint64 EquipmentID);
    void loadRows();
    void loadCrews();
    /// Shows what the parts of the current service cost.
    void SetPastCost(qint64 ServiceUsedID);
    void RefreshServiceNoteGrid();
    void showDetails();
    void EnableControls();

    void cmdRefresh_Click();
    void cmdDeleteHistory_Click();
    [[nodiscard]] bool changeTime(int row, const QString &column,
                                  const history::TimeCorrection &correction);
    [[nodiscard]] bool changeCrew(int row, qint64 crew);
    void showServiceTime(int row, const QString &column);
    /// Writes the note when it was changed. False when it could not be.
    bool storeNote();
    [[nodiscard]] qint64 serviceOf(int row) const;

    qint64 m_equipment = 0;
    bool m_editable = false;
    qint64 m_noteOf = 0; ///< the service whose note is on show, 0 for none
    bool m_noteChanged = false;
    QDate m_from; ///< the range as it was in order last
    QDate m_to;

    input::DateInput *datFrom = nullptr;
    input::DateInput *datTo = nullptr;
    QPushButton *cmdRefresh = nullptr;
    QPushButton *cmdDeleteHistory = nullptr;
    grid::GridView *grdServiceHistory = nullptr;
    HistoryParts *m_parts = nullptr;
    QPlainTextEdit *txtNote = nullptr;
};
