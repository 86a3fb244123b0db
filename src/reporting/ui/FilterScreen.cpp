#include "reporting/ui/FilterScreen.h"

#include "core/Options.h"
#include "platform/base/Environment.h"
#include "platform/base/Prompts.h"
#include "platform/base/Trapped.h"
#include "platform/db/DbError.h"
#include "platform/input/DateInput.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/Leaving.h"
#include "platform/input/Theme.h"
#include "reporting/ui/QuickFindEntries.h"
#include "reporting/ui/ShowReport.h"

#include <QButtonGroup>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

using namespace Qt::StringLiterals;

namespace {
constexpr int UsualWidth = 560;
} // namespace

std::function<bool(const catalogue::Request &)> &filteredReport()
{
    // A seam for tests, which see what a screen asks for without laying a report out.
    static std::function<bool(const catalogue::Request &)> show = showReport;
    return show;
}

FilterScreen::FilterScreen(const QString &formName, const QString &caption, const char *module,
                           QWidget *parent)
    : Screen(formName, caption, parent, StoreWhat::SizeOnly)
    , m_module(module)
{}

// Building

void FilterScreen::beginFields(input::FormBuilder &form, const QString &heading,
                               const QString &frame)
{
    lblCaption = form.note(heading, u"lblCaption"_s);
    theme::setOwnLook(lblCaption, theme::font(12, true));
    form.beginGroup({}, frame);
}

void FilterScreen::endFields(input::FormBuilder &form)
{
    form.endGroup();
    form.stretch();
    cmdReset = form.leftButton(u"cmdReset"_s, u"Rese&t"_s, theme::icon(u"clear-all"_s));
    cmdViewReport = form.button(u"cmdViewReport"_s, u"&View Report"_s, theme::icon(u"preview"_s));
    cmdExit = form.button(u"cmdExit"_s, u"E&xit"_s, theme::icon(u"exit"_s));
    form.finish();
    cmdViewReport->setDefault(true);
    // A wrong date must not keep the user from emptying the fields or leaving.
    for (QPushButton *button : {cmdReset, cmdExit})
        input::setCausesValidation(button, false);
    connect(cmdViewReport, &QPushButton::clicked, this, &FilterScreen::cmdViewReport_Click);
    connect(cmdReset, &QPushButton::clicked, this, &FilterScreen::cmdReset_Click);
    connect(cmdExit, &QPushButton::clicked, this, &FilterScreen::unload);
}

QLineEdit *FilterScreen::valueField(input::FormBuilder &form, const ValueField &field)
{
    form.beginRow();
    QLineEdit *box = form.textField(field.name, field.label);
    QPushButton *button = form.inlineButton(field.button, u"Select"_s, theme::icon(u"list"_s));
    form.endRow();
    // Several buttons of a screen read "Select"; a screen reader tells them apart by this.
    button->setAccessibleName(u"Select: "_s + input::plainCaption(field.label));
    connect(button, &QPushButton::clicked, this,
            [this, box, &list = field.list, how = field.pick] { pick(box, list, how); });
    form.field({}, examples(u"Examples: Blank = All,  001, A-11"_s));
    m_lines.append(box);
    m_buttons.insert(box, button);
    return box;
}

QLineEdit *FilterScreen::typedField(input::FormBuilder &form, const TypedField &field)
{
    const bool isShort = field.maxLength > 0;
    if (isShort)
        form.beginRow();
    QLineEdit *box = form.textField(field.name, field.label, field.maxLength);
    if (isShort) {
        form.widget(examples(field.examples));
        form.endRow();
    } else {
        form.field({}, examples(field.examples));
    }
    m_lines.append(box);
    return box;
}

QLabel *FilterScreen::examples(const QString &text)
{
    auto *label = new QLabel(text, this);
    label->setTextFormat(Qt::PlainText);
    theme::setOwnLook(label, theme::textFont());
    return label;
}

FilterScreen::Range FilterScreen::rangeField(input::FormBuilder &form, const RangeField &field)
{
    form.beginRow();
    const Range range{form.dateField(field.from, field.label), form.dateField(field.to, u"T&o"_s)};
    form.endRow();
    // Without options of its own a range begins anew each time: the last year up to today.
    const auto begin = [this](input::DateInput *box, const QString &key, QDate fallback) {
        box->setDate(key.isEmpty() ? fallback : dateOption(key, fallback));
        box->checkOnLeave();
        m_dates.append(box);
        if (!key.isEmpty())
            m_remembered.append({key, box});
    };
    begin(range.from, field.fromKey, base::today().addYears(-1));
    begin(range.to, field.toKey, base::today());
    return range;
}

QList<QRadioButton *> FilterScreen::options(input::FormBuilder &form, const QString &label,
                                            const QList<Option> &choices)
{
    form.beginRow(label);
    auto *group = new QButtonGroup(this);
    QList<QRadioButton *> made;
    for (const Option &choice : choices) {
        made.append(form.optionButton(choice.name, choice.caption));
        group->addButton(made.last());
    }
    form.endRow();
    // One is always on, so that a screen never has to ask which.
    made.first()->setChecked(true);
    return made;
}

void FilterScreen::setUsable(QLineEdit *field, bool usable)
{
    field->setEnabled(usable);
    if (QPushButton *button = m_buttons.value(field))
        button->setEnabled(usable);
}

filters::DateRange FilterScreen::Range::dates() const
{
    return {from->date(), to->date()};
}

// What the user does

void FilterScreen::pick(QLineEdit *box, const picklists::PickList &list, Pick pick)
{
    const QString secondType = u"VARCHAR"_s;
    // Several are added to those that stand there; a single one takes their place.
    if (pick == Pick::Several) {
        const QString picked =
            ShowItemListDetail(list.query, picklists::condition(list, box->text()), list.title,
                               list.key, list.keyType, list.second, secondType);
        box->setText(picklists::withPicked(box->text(), picked));
    } else if (const QString picked = ShowItemListDetailForEquUti(
                   list.query, picklists::condition(list, {}), list.title, list.key, list.keyType,
                   list.second, secondType);
               !picked.isEmpty()) {
        box->setText(picked);
    }
    box->setFocus();
}

void FilterScreen::cmdViewReport_Click()
{
    // Enter and Alt+V press the button without leaving the date that was typed.
    if (input::focusedMayLeave(this) && showReportOfFields())
        unload();
}

bool FilterScreen::showReportOfFields()
{
    return base::trapped(m_module, "cmdViewReport_Click", false, [this] {
        // What the report doesn't ask about itself comes through to here.
        const base::Whole steps;
        try {
            const std::optional<catalogue::Request> asked = request();
            return asked && filteredReport()(*asked);
        } catch (const base::Error &error) {
            // A clause that can't be built raises this, and so does an engine that refuses what was
            // typed; anything else is no mistake of the user's and goes to the error log.
            if (error.number() != db::ErrorNumber::Syntax)
                throw;
            base::showInformation(u"Please enter correct parameters."_s);
            focusMissingDate();
            return false;
        }
    });
}

/// A clause that can't be made is mostly one without its date, so the first empty one is shown.
void FilterScreen::focusMissingDate()
{
    for (input::DateInput *box : std::as_const(m_dates)) {
        if (box->isEnabled() && !box->date().isValid())
            return box->setFocus();
    }
}

void FilterScreen::cmdReset_Click()
{
    for (QLineEdit *line : std::as_const(m_lines))
        line->clear();
    resetChoices();
}

QSize FilterScreen::sizeHint() const
{
    return Screen::sizeHint().expandedTo({UsualWidth, 0});
}

void FilterScreen::unloading()
{
    // A date that can't be read is not worth keeping in the place of one that can.
    for (const Remembered &each : std::as_const(m_remembered)) {
        if (const QDate date = each.box->date(); date.isValid())
            SetOption(each.key, filters::dateText(date), true);
    }
}
