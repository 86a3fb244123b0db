#include "scheduling/ui/PatternBox.h"

#include "platform/input/IdCombo.h"
#include "platform/input/Theme.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <algorithm>
#include <span>

using namespace Qt::StringLiterals;

namespace {

using Flag = int clsServices::*;

constexpr Flag DayFlags[] = {&clsServices::Sun, &clsServices::Mon, &clsServices::Tue,
                             &clsServices::Wed, &clsServices::Thu, &clsServices::Fri,
                             &clsServices::Sat};
constexpr Flag WeekFlags[] = {&clsServices::FirstW, &clsServices::SecondW, &clsServices::ThirdW,
                              &clsServices::ForthW, &clsServices::LastW};
constexpr Flag MonthFlags[] = {&clsServices::Jan, &clsServices::Feb, &clsServices::Mar,
                               &clsServices::Apr, &clsServices::May, &clsServices::Jun,
                               &clsServices::Jul, &clsServices::Aug, &clsServices::Sep,
                               &clsServices::Oct, &clsServices::Nov, &clsServices::Dece};
constexpr Flag DomFields[] = {&clsServices::DOM1, &clsServices::DOM2, &clsServices::DOM3,
                              &clsServices::DOM4, &clsServices::DOM5};

constexpr int Selected = 1;
constexpr qint64 LastDay = 31;
constexpr int ButtonColumn = 8;

} // namespace

PatternBox::PatternBox(QWidget *parent)
    : QGroupBox(u"Suitable Days"_s, parent)
{
    setObjectName(u"fraPattern"_s);
    auto *layout = new QGridLayout(this);
    layout->setContentsMargins(10, 8, 10, 10);
    layout->setHorizontalSpacing(10);
    layout->setVerticalSpacing(6);
    // The flags are bound in the order of these names, Sunday first, as the columns count them.
    m_days = makeGroup(layout, 0, u"Days of Week:"_s,
                       {u"Sun"_s, u"Mon"_s, u"Tue"_s, u"Wed"_s, u"Thu"_s, u"Fri"_s, u"Sat"_s}, 7,
                       u"cmdMarkAllDays"_s);
    m_weeks = makeGroup(layout, 1, u"Weeks of Month:"_s,
                        {u"First"_s, u"Second"_s, u"Third"_s, u"Fourth"_s, u"Last"_s}, 7,
                        u"cmdAllWeeks"_s);
    m_months = makeGroup(layout, 2, u"Months of Year:"_s,
                         {u"Jan"_s, u"Feb"_s, u"Mar"_s, u"Apr"_s, u"May"_s, u"Jun"_s, u"Jul"_s,
                          u"Aug"_s, u"Sep"_s, u"Oct"_s, u"Nov"_s, u"Dec"_s},
                         6, u"cmdMOY"_s);
    makeDayOfMonthRow(layout, 4);
    // The boxes stay together at the left; the buttons stand in one column at the right.
    layout->setColumnStretch(ButtonColumn - 1, 1);
    // Makes Tab go through the box where it stands on its form.
    setFocusProxy(m_days.boxes.front());
}

PatternBox::Group PatternBox::makeGroup(QGridLayout *layout, int row, const QString &caption,
                                        const QStringList &names, int perRow, const QString &button)
{
    Group group;
    layout->addWidget(new QLabel(caption, this), row, 0);
    for (int i = 0; i < names.size(); ++i) {
        auto *box = new QCheckBox(names[i], this);
        box->setObjectName(u"chk"_s + names[i]);
        layout->addWidget(box, row + i / perRow, 1 + i % perRow);
        // Clicked, not toggled: a service that is shown sets the boxes, too.
        connect(box, &QCheckBox::clicked, this, &PatternBox::edited);
        group.boxes.push_back(box);
    }
    group.markAll = new QPushButton(this);
    group.markAll->setObjectName(button);
    // Enter in a box is Save, not a whole group of ticks.
    group.markAll->setAutoDefault(false);
    layout->addWidget(group.markAll, row, ButtonColumn);
    for (QCheckBox *box : group.boxes)
        connect(box, &QCheckBox::toggled, this, [group] { SetCaption(group); });
    connect(group.markAll, &QPushButton::clicked, this, [this, group] { cmdMarkAll_Click(group); });
    SetCaption(group);
    return group;
}

void PatternBox::makeDayOfMonthRow(QGridLayout *layout, int row)
{
    chkUseDayoftheMonth = new QCheckBox(u"Use Da&y of the Month"_s, this);
    chkUseDayoftheMonth->setObjectName(u"chkUseDayoftheMonth"_s);
    layout->addWidget(chkUseDayoftheMonth, row, 0, 1, 2);
    m_domRow = new QWidget(this);
    auto *line = new QHBoxLayout(m_domRow);
    line->setContentsMargins(0, 0, 0, 0);
    for (std::size_t i = 0; i < cboDOM.size(); ++i) {
        auto *combo = new input::IdCombo(m_domRow);
        combo->setObjectName(u"cboDOM%1"_s.arg(i + 1));
        combo->setAccessibleName(u"Day of the month %1"_s.arg(i + 1));
        // Two digits and the arrow.
        combo->setFixedWidth(combo->fontMetrics().horizontalAdvance(u"00"_s) + 44);
        cboDOM[i] = combo;
        AddValue(i, 0);
        line->addWidget(combo);
        connect(combo, &QComboBox::activated, this, [this, i] {
            refillBehind(i);
            Q_EMIT edited();
        });
    }
    line->addStretch();
    layout->addWidget(m_domRow, row, 2, 1, ButtonColumn - 2);
    cmdClearAll = new QPushButton(theme::icon(u"clear-all"_s), u"Cle&ar All"_s, this);
    cmdClearAll->setObjectName(u"cmdClearAll"_s);
    cmdClearAll->setAutoDefault(false);
    layout->addWidget(cmdClearAll, row, ButtonColumn);
    // The row keeps its height while the lists are hidden, so that nothing jumps when they come.
    layout->setRowMinimumHeight(row, cmdClearAll->sizeHint().height());

    connect(cmdClearAll, &QPushButton::clicked, this, [this] {
        clearDaysOfMonth();
        Q_EMIT edited();
    });
    connect(chkUseDayoftheMonth, &QCheckBox::toggled, this, &PatternBox::showDaysOfMonth);
    connect(chkUseDayoftheMonth, &QCheckBox::clicked, this, [this](bool used) {
        Q_EMIT dayOfMonthToggled(used);
        Q_EMIT edited();
    });
    showDaysOfMonth();
}

bool PatternBox::AllCheck(const Group &group)
{
    // One tick is enough for the button to offer the opposite, in spite of the name.
    return std::ranges::any_of(group.boxes, [](const QCheckBox *box) { return box->isChecked(); });
}

void PatternBox::SetCaption(const Group &group)
{
    const bool any = AllCheck(group);
    group.markAll->setText(any ? u"UnSelect All"_s : u"Select All"_s);
    group.markAll->setIcon(theme::icon(any ? u"clear-all"_s : u"select-all"_s));
}

void PatternBox::setEnabled(const Group &group, bool enabled)
{
    for (QCheckBox *box : group.boxes)
        box->setEnabled(enabled);
    group.markAll->setEnabled(enabled);
}

void PatternBox::cmdMarkAll_Click(const Group &group)
{
    const bool mark = !AllCheck(group);
    for (QCheckBox *box : group.boxes)
        box->setChecked(mark);
    Q_EMIT edited();
}

/// Offers the days behind the given one, below a blank.
void PatternBox::AddValue(std::size_t combo, qint64 after)
{
    input::IdCombo &list = *cboDOM[combo];
    // A choice that is still on offer outlives the refilling; another one is given up.
    const qint64 chosen = list.id();
    list.clear();
    list.add(QString(), 0);
    for (qint64 day = after + 1; day <= LastDay; ++day)
        list.add(QString::number(day), day);
    if (!list.select(chosen))
        list.select(0);
}

void PatternBox::refillBehind(std::size_t combo)
{
    qint64 last = 0;
    for (std::size_t i = 0; i < cboDOM.size(); ++i) {
        // The lists in front of the one that was changed stay as they are: days rise from left to
        // right.
        if (i > combo)
            AddValue(i, last);
        last = std::max(last, cboDOM[i]->id());
    }
}

void PatternBox::clearDaysOfMonth()
{
    for (std::size_t i = 0; i < cboDOM.size(); ++i) {
        cboDOM[i]->select(0);
        AddValue(i, 0);
    }
}

void PatternBox::showDaysOfMonth()
{
    m_domRow->setVisible(chkUseDayoftheMonth->isChecked());
    cmdClearAll->setVisible(chkUseDayoftheMonth->isChecked());
}

void PatternBox::bind(Binding<AssignedService> &fields)
{
    const auto bindAll = [&](const Group &group, std::span<const Flag> flags) {
        for (std::size_t i = 0; i < flags.size(); ++i)
            fields.add(group.boxes[i], flags[i], Selected);
    };
    bindAll(m_days, DayFlags);
    bindAll(m_weeks, WeekFlags);
    bindAll(m_months, MonthFlags);
    fields.add(chkUseDayoftheMonth, &clsServices::Dom, Selected);
    // Each list offers the days behind those of the lists before it, so they are shown in order.
    for (std::size_t i = 0; i < cboDOM.size(); ++i) {
        fields.add(
            cboDOM[i], DomFields[i], [this, i] { return static_cast<int>(cboDOM[i]->id()); },
            [this, i](const QVariant &day) {
                if (i == 0)
                    clearDaysOfMonth();
                cboDOM[i]->select(day.toInt());
                refillBehind(i);
            });
    }
}

void PatternBox::keepUnused(clsServices &service, const clsServices &former)
{
    const auto keep = [&](std::span<const Flag> flags) {
        for (const Flag flag : flags)
            service.*flag = former.*flag;
    };
    // What is greyed is not read from the boxes, and what was stored there comes back when the user
    // changes his mind another day.
    if (service.Dom == 0) {
        keep(DomFields);
        return;
    }
    keep(DayFlags);
    keep(WeekFlags);
    keep(MonthFlags);
}

void PatternBox::keepAll(clsServices &service, const clsServices &former)
{
    service.Dom = former.Dom;
    for (const std::span<const Flag> flags :
         std::initializer_list<std::span<const Flag>>{DayFlags, WeekFlags, MonthFlags, DomFields})
        for (const Flag flag : flags)
            service.*flag = former.*flag;
}

void PatternBox::setLive(Live live)
{
    setEnabled(m_days, live.days);
    setEnabled(m_weeks, live.weeks);
    setEnabled(m_months, live.months);
    chkUseDayoftheMonth->setEnabled(live.dom);
    for (input::IdCombo *combo : cboDOM)
        combo->setEnabled(live.dom);
    cmdClearAll->setEnabled(live.dom);
}

bool PatternBox::usesDayOfMonth() const
{
    return chkUseDayoftheMonth->isChecked();
}

bool PatternBox::hasDayOfMonth() const
{
    return cboDOM.front()->id() != 0;
}

QWidget *PatternBox::firstDay() const
{
    return m_days.boxes.front();
}

QWidget *PatternBox::firstWeek() const
{
    return m_weeks.boxes.front();
}

QWidget *PatternBox::firstMonth() const
{
    return m_months.boxes.front();
}

QWidget *PatternBox::firstDayOfMonth() const
{
    return cboDOM.front();
}
