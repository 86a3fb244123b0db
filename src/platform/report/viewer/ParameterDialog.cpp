#include "platform/report/viewer/ParameterDialog.h"

#include "platform/base/Format.h"
#include "platform/base/Prompts.h"
#include "platform/input/DateInput.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>

namespace report {
namespace {

using namespace Qt::StringLiterals;

constexpr int FieldWidth = 220;

QString promptOf(const Parameter &parameter)
{
    return parameter.prompt.isEmpty() ? parameter.name : parameter.prompt;
}

/// What is asked for, as the message for a wrong answer says it.
QString kindOf(ParameterType type)
{
    switch (type) {
    case ParameterType::Number:
        return u"a number"_s;
    case ParameterType::Date:
        return u"a date, such as 03/15/2024"_s;
    case ParameterType::YesNo:
        return u"Yes or No"_s;
    case ParameterType::Text:
        break;
    }
    return u"a text"_s;
}

} // namespace

QWidget *ParameterDialog::Field::widget() const
{
    if (line)
        return line;
    if (combo)
        return combo;
    return box ? static_cast<QWidget *>(box) : date;
}

std::optional<QVariant> ParameterDialog::Field::answer() const
{
    if (box)
        return box->isChecked();
    if (combo) {
        // A choice keeps its type; what is typed is read as any other answer.
        const int row = combo->findText(combo->currentText(), Qt::MatchFixedString);
        if (row >= 0 && combo->itemData(row).isValid())
            return combo->itemData(row);
        return answerOf(parameter, combo->currentText());
    }
    if (date) {
        if (date->isEmpty())
            return QVariant();
        return date->date().isValid()
                   ? std::optional<QVariant>(QDateTime(date->date(), QTime(0, 0), Qt::UTC))
                   : std::nullopt;
    }
    return answerOf(parameter, line->text());
}

ParameterDialog::Field ParameterDialog::makeField(const Offer &offer, QFormLayout *form)
{
    Field field{offer.parameter};
    QString label = promptOf(offer.parameter);
    if (!offer.choices.isEmpty()) {
        field.combo = new QComboBox;
        // The list is an offer: another value may be typed.
        field.combo->setEditable(true);
        field.combo->setInsertPolicy(QComboBox::NoInsert);
        if (offer.parameter.isOptional)
            field.combo->addItem(QString());
        for (const QVariant &choice : offer.choices)
            field.combo->addItem(base::toText(choice), choice);
        // The usual value need not be in the list; choosing a row for it would put another one in
        // its place.
        field.combo->setCurrentIndex(-1);
        field.combo->setEditText(base::toText(offer.usual));
    } else if (offer.parameter.type == ParameterType::YesNo) {
        field.box = new QCheckBox(label);
        field.box->setChecked(offer.usual.toBool());
        // A box bears its question itself.
        label.clear();
    } else if (offer.parameter.type == ParameterType::Date) {
        field.date = new input::DateInput;
        field.date->setDate(offer.usual.toDateTime());
    } else {
        field.line = new QLineEdit(base::toText(offer.usual));
    }
    QWidget *widget = field.widget();
    widget->setObjectName(offer.parameter.name);
    widget->setAccessibleName(promptOf(offer.parameter));
    widget->setMinimumWidth(FieldWidth);
    form->addRow(label, widget);
    return field;
}

ParameterDialog::ParameterDialog(const QString &title, std::vector<Offer> offers, QWidget *parent)
    : QDialog(parent)
{
    setObjectName(u"parameters"_s);
    setWindowTitle(title);
    auto *form = new QFormLayout(this);
    for (const Offer &offer : offers)
        m_fields.push_back(makeField(offer, form));
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setText(u"&Show"_s);
    connect(buttons, &QDialogButtonBox::accepted, this, &ParameterDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    form->addRow(buttons);
}

void ParameterDialog::accept()
{
    Answers answers;
    for (const Field &field : m_fields) {
        const std::optional<QVariant> answer = field.answer();
        // Well formed, but empty where a value is needed.
        const bool isMissing = answer && answer->isNull() && !field.parameter.isOptional;
        if (!answer || isMissing) {
            base::showMessage(u"Please enter %1 for \"%2\"."_s.arg(kindOf(field.parameter.type),
                                                                   promptOf(field.parameter)));
            // The dialog stays with all that was entered, at what has to be mended.
            field.widget()->setFocus();
            return;
        }
        answers.insert(field.parameter.name.toLower(), *answer);
    }
    m_answers = answers;
    QDialog::accept();
}

std::optional<Answers> askParameters(const Layout &layout, QueryRunner &runner,
                                     const QDateTime &now, QWidget *parent)
{
    if (layout.parameters.isEmpty())
        return Answers();
    std::vector<ParameterDialog::Offer> offers;
    QStringList problems;
    for (const Parameter &parameter : layout.parameters)
        // Lists are read before the dialog opens: one that can't be read is told as the report's
        // error, and not in the middle of the questions.
        offers.push_back(
            {parameter, usualAnswer(parameter, now, problems), choicesOf(parameter, runner)});
    ParameterDialog dialog(layout.title, std::move(offers), parent);
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    return dialog.answers();
}

} // namespace report
