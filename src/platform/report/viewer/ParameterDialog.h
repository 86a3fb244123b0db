#pragma once

#include "platform/report/query/ReportReader.h"

#include <QDialog>
#include <vector>

class QComboBox;
class QCheckBox;
class QFormLayout;
class QLineEdit;

namespace input {
class DateInput;
}

namespace report {

/// Asks for the values of a report's parameters, a field for each: a text, a number, a date with
/// its calendar, a box to tick, or a choice from the parameter's list.
class ParameterDialog final : public QDialog
{
    Q_OBJECT

public:
    /// What is offered for a parameter.
    struct Offer
    {
        Parameter parameter;
        QVariant usual;
        QVariantList choices;
    };

    /// The title is that of the report.
    ParameterDialog(const QString &title, std::vector<Offer> offers, QWidget *parent = nullptr);

    /// What the user has entered.
    [[nodiscard]] const Answers &answers() const { return m_answers; }
    /// Takes the answers; one that is missing or can't be read is told, and the window stays.
    void accept() override;

private:
    struct Field
    {
        Parameter parameter;
        QLineEdit *line = nullptr;
        QComboBox *combo = nullptr;
        QCheckBox *box = nullptr;
        input::DateInput *date = nullptr;

        [[nodiscard]] QWidget *widget() const;
        [[nodiscard]] std::optional<QVariant> answer() const;
    };
    [[nodiscard]] static Field makeField(const Offer &offer, QFormLayout *form);

    std::vector<Field> m_fields;
    Answers m_answers;
};

/// Asks for a layout's parameters, and answers at once where it has none. Nothing when the user
/// cancels. Raises base::Error when a list can't be read.
[[nodiscard]] std::optional<Answers> askParameters(const Layout &layout, QueryRunner &runner,
                                                   const QDateTime &now, QWidget *parent);

} // namespace report
