#pragma once

#include "core/ui/Screen.h"
#include "equipment/DateSheet.h"

class QPushButton;

namespace input {
class DateInput;
}

/// A sheet on which the machines whose date lies in a range get new dates, saved together.
class DateReading : public Screen
{
    Q_OBJECT

public:
    explicit DateReading(const datesheet::Sheet &sheet, QWidget *parent = nullptr);

    /// Shows the machines whose date lies between those in the boxes; what was typed for others
    /// goes.
    void RefreshRecordSet();

protected:
    void EnableControls() override;
    void unloading() override;

private:
    void buildForm();
    void buildGrid();
    void readRange();
    /// False when one of the two dates is missing or wrong, which the user has been told.
    [[nodiscard]] bool rangeIsInOrder();
    /// Shows what is stored, and goes back to the mode Browse.
    void leaveEditing();

    /// Gives a machine its old date a year later, as if it had been typed.
    void ButtonClick(int row, const QString &column);
    /// Judges a date that was typed into a row; a refused one is told and taken out again.
    [[nodiscard]] bool Change(int row, const QVariant &date);
    void cmdRefresh_Click();
    void cmdUpdate_Click();
    void cmdCancel_Click();
    void cmdPrint_Click();

    const datesheet::Sheet &m_sheet;

    input::DateInput *datFrom = nullptr;
    input::DateInput *datTo = nullptr;
    grid::GridView *m_grid = nullptr;
    QPushButton *cmdRefresh = nullptr;
    QPushButton *cmdUpdate = nullptr;
    QPushButton *cmdCancel = nullptr;
    QPushButton *cmdPrint = nullptr;
    QPushButton *cmdExit = nullptr;
};
