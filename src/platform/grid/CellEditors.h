#pragma once

#include "platform/grid/GridTypes.h"

#include <QComboBox>
#include <QDate>
#include <QLineEdit>

class QCalendarWidget;

namespace grid {

/// The box in which a cell is typed. Refuses keystrokes, and pasted texts, that can't become a
/// value of the column.
class TextCellEditor : public QLineEdit
{
    Q_OBJECT
public:
    TextCellEditor(const Column &column, QWidget *parent);
};

/// The same for dates, with a button that opens a calendar (Alt+Down does, too).
class DateCellEditor final : public TextCellEditor
{
    Q_OBJECT
public:
    DateCellEditor(const Column &column, QWidget *parent);

    /// Opens the calendar below the box, at the date that it holds or, without one, at today.
    void showCalendar();

Q_SIGNALS:
    /// A day was chosen in the calendar and now stands in the box.
    void chosen();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void take(QDate date);

    QCalendarWidget *m_calendar = nullptr;
};

/// The list of a drop-down cell; knows ids.
class ChoiceCellEditor final : public QComboBox
{
    Q_OBJECT
public:
    ChoiceCellEditor(const Column &column, QWidget *parent);

    /// Selects an id's entry, or none.
    void select(const QVariant &id);
    /// The selected id, Null when none is.
    [[nodiscard]] QVariant id() const { return currentData(); }
};

} // namespace grid
