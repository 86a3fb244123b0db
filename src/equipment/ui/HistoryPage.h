#pragma once

#include "equipment/History.h"
#include "platform/grid/GridTypes.h"
#include "scheduling/ui/MachinePage.h"

#include <functional>

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
    using Change = std::function<bool(int row, const QVariant &value)>;

    void buildPage();
    /// Each with the rule by which a correction is checked and stored.
    [[nodiscard]] QList<grid::Column> serviceColumns();
    /// As this workstation has left it; today when it never did.
    void readRange();
    [[nodiscard]] bool runsBackwards() const;
    /// Takes over a date of the range that is in order; another one is told, and gives way to the
    /// former where it turns the range round. False then.
    [[nodiscard]] bool checkDate(input::DateInput *box, QDate &former);
    [[nodiscard]] history::Period period() const;

    void RefreshServiceHistoryGrid(qint64 EquipmentID);
    /// The services of the range, with what their parts cost.
    void loadRows();
    void loadCrews();
    /// Shows what the parts of the current service cost.
    void SetPastCost(qint64 ServiceUsedID);
    void RefreshServiceNoteGrid();
    void showNote(qint64 service, const QString &note);
    /// Shows parts and note of the current service, having stored the note of the one before.
    void showDetails();
    void EnableControls();

    void cmdRefresh_Click();
    void cmdDeleteHistory_Click();
    /// Runs a column's change inside the machine's edit.
    [[nodiscard]] bool grdServiceHistory_Change(const Change &change, int row,
                                                const QVariant &value);
    /// Stores a corrected time and shows what follows from it. False when it was refused, which is
    /// told, or not written.
    [[nodiscard]] bool changeTime(int row, const QString &column, const QString &typed);
    /// Gives a service to another crew and shows what its hours cost there.
    [[nodiscard]] bool changeCrew(int row, qint64 crew);
    /// Opens the entry of times on a row, when one of its times was clicked.
    void showServiceTime(int row, const QString &column);
    /// Writes the note when it was changed. False when it could not be.
    bool storeNote();
    [[nodiscard]] qint64 serviceOf(int row) const;

    qint64 m_equipment = 0;
    bool m_editable = false;
    qint64 m_noteOf = 0; ///< the service whose note is on show, 0 for none
    QString m_shownNote; ///< as it was read
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
