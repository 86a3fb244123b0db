#pragma once

#include "core/ui/Binding.h"
#include "scheduling/clsServices.h"

#include <QGroupBox>
#include <QStringList>
#include <array>
#include <vector>

class QCheckBox;
class QGridLayout;
class QLabel;
class QPushButton;

namespace input {
class IdCombo;
}

/// The part of a service's schedule that says which days suit it: weekdays, weeks and months, or up
/// to five days of the month instead.
class PatternBox final : public QGroupBox
{
    Q_OBJECT

public:
    explicit PatternBox(QWidget *parent = nullptr);

    /// Ties its boxes and lists to the pattern of a service.
    void bind(Binding<AssignedService> &fields);
    /// Gives a service the part of the former pattern that its own doesn't use: the flags while it
    /// goes by days of the month, and these otherwise.
    static void keepUnused(clsServices &service, const clsServices &former);
    /// Gives a service the whole former pattern.
    static void keepAll(clsServices &service, const clsServices &former);

    /// What of it can be edited now.
    struct Live
    {
        bool days = false;
        bool weeks = false;
        bool months = false;
        bool dom = false;
    };
    /// Greys all else. What it holds stays.
    void setLive(Live live);

    [[nodiscard]] bool usesDayOfMonth() const;
    [[nodiscard]] bool hasDayOfMonth() const;
    [[nodiscard]] bool hasDay() const { return AllCheck(m_days); }
    [[nodiscard]] bool hasWeek() const { return AllCheck(m_weeks); }
    [[nodiscard]] bool hasMonth() const { return AllCheck(m_months); }
    /// Where to go on when nothing of a group is chosen.
    [[nodiscard]] QWidget *firstDay() const;
    [[nodiscard]] QWidget *firstWeek() const;
    [[nodiscard]] QWidget *firstMonth() const;
    [[nodiscard]] QWidget *firstDayOfMonth() const;

Q_SIGNALS:
    /// The user changed something.
    void edited();
    /// The user turned the days of the month on or off; before edited.
    void dayOfMonthToggled(bool used);

private:
    struct Group
    {
        std::vector<QCheckBox *> boxes;
        QPushButton *markAll = nullptr;
    };

    Group makeGroup(QGridLayout *layout, int row, const QString &caption, const QStringList &names,
                    int perRow, const QString &button);
    void makeDayOfMonthRow(QGridLayout *layout, int row);
    static bool AllCheck(const Group &group);
    static void SetCaption(const Group &group);
    static void setEnabled(const Group &group, bool enabled);
    void cmdMarkAll_Click(const Group &group);
    void AddValue(std::size_t combo, qint64 after);
    void refillBehind(std::size_t combo);
    void clearDaysOfMonth();
    void showDaysOfMonth();

    Group m_days;
    Group m_weeks;
    Group m_months;
    QCheckBox *chkUseDayoftheMonth = nullptr;
    QWidget *m_domRow = nullptr;
    std::array<input::IdCombo *, 5> cboDOM{};
    QPushButton *cmdClearAll = nullptr;
};
