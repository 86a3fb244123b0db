#pragma once

#include "core/ui/Screen.h"
#include "reporting/FilterRequests.h"
#include "reporting/PickLists.h"

#include <functional>
#include <optional>

class QAbstractButton;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace input {
class DateInput;
class FormBuilder;
} // namespace input

/// How a filter screen's report comes up: True when it did. It is showReport() unless a test wants
/// to see what was asked.
[[nodiscard]] std::function<bool(const catalogue::Request &)> &filteredReport();

/// What the filter screens of reports share: a heading, fields of which each makes itself known as
/// it is built, and the buttons that show the report, empty the fields and leave. A screen builds
/// its fields between beginFields and endFields, and says what they come to.
///
/// A report that came up closes the screen behind it; otherwise it stays as it was.
class FilterScreen : public Screen
{
    Q_OBJECT

protected:
    /// module: label of its errors, a literal.
    FilterScreen(const QString &formName, const QString &caption, const char *module,
                 QWidget *parent);

    // --- Building --------------------------------------------------------------------------------

    /// The screen's heading, and the frame (its name) that the fields stand in.
    void beginFields(input::FormBuilder &form, const QString &heading, const QString &frame);
    /// The buttons; nothing can be added behind them.
    void endFields(input::FormBuilder &form);

    enum class Pick { Several, One };
    struct ValueField
    {
        QString name;
        QString label;
        QString button; ///< name of its Select button
        const picklists::PickList &list;
        Pick pick = Pick::Several;
    };
    /// A line for values parted by commas, with its button and the examples.
    QLineEdit *valueField(input::FormBuilder &form, const ValueField &field);
    struct TypedField
    {
        QString name;
        QString label;
        QString examples;
        int maxLength = 0;
    };
    /// A line that is typed only. The examples stand beside a short one, below a long one.
    QLineEdit *typedField(input::FormBuilder &form, const TypedField &field);
    struct RangeField
    {
        QString label;
        QString from; ///< names of the controls
        QString to;
        QString fromKey{}; ///< options that keep the range for the workstation; may be empty
        QString toKey{};
    };
    struct Range
    {
        input::DateInput *from = nullptr;
        input::DateInput *to = nullptr;

        [[nodiscard]] filters::DateRange dates() const;
    };
    /// Two dates, which begin where the workstation left them.
    Range rangeField(input::FormBuilder &form, const RangeField &field);
    struct Option
    {
        QString name;
        QString caption;
    };
    /// Options in a row, of which the first one is on.
    QList<QRadioButton *> options(input::FormBuilder &form, const QString &label,
                                  const QList<Option> &choices);
    /// Enables what was made for a line of values: the line and its button.
    void setUsable(QLineEdit *field, bool usable);

    // --- What differs ----------------------------------------------------------------------------

    /// The report that the fields ask for; nothing when the user has been told what is missing.
    [[nodiscard]] virtual std::optional<catalogue::Request> request() const = 0;
    /// Puts back, on reset, what is no line of text.
    virtual void resetChoices() {}

    [[nodiscard]] QSize sizeHint() const override;
    void unloading() override;

private:
    struct Remembered
    {
        QString key;
        input::DateInput *box;
    };
    QLabel *examples(const QString &text);
    /// Lets values of a line be picked from their list.
    void pick(QLineEdit *box, const picklists::PickList &list, Pick pick);
    void cmdViewReport_Click();
    void cmdReset_Click();
    /// True when the report came up. A filter that can't be one is told.
    [[nodiscard]] bool showReportOfFields();
    void focusMissingDate();

    const char *m_module;
    QList<QLineEdit *> m_lines;
    QHash<QLineEdit *, QPushButton *> m_buttons; ///< Select, by its line
    QList<input::DateInput *> m_dates;
    QList<Remembered> m_remembered;

    QLabel *lblCaption = nullptr;
    QPushButton *cmdViewReport = nullptr;
    QPushButton *cmdReset = nullptr;
    QPushButton *cmdExit = nullptr;
};
