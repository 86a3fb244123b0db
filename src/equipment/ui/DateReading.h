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

    void RefreshRecordSet();

protected:
    void EnableControls() override;
    void unloading() override;

private:
    void buildForm();
    void buildGrid();
    void readRange();
    /// The range, when both dates are in order; otherwise the user has been told.
    [[nodiscard]] bool rangeIsInOrder();
    void leaveEditing();

    void ButtonClick(int row, const QString &column);
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
