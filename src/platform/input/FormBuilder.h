#pragma once

#include <QIcon>
#include <QList>
#include <QString>

class QBoxLayout;
class QCheckBox;
class QGridLayout;
class QGroupBox;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;
class QToolButton;
class QVBoxLayout;

namespace input {

class CurrencyInput;
class DateInput;
class IdCombo;
class LinkLabel;
class MaskedInput;
class PhoneInput;
class SpinInput;
class TimeInput;

/// Lays out a form in rows of label and field, so that all screens share margins, alignment, fonts,
/// mnemonics and names. Every control is made with its name (its objectName, which tests and
/// assistive tools use) and its caption (which becomes the label with its buddy, and the accessible
/// name). Tab moves in the order of making.
///
///     FormBuilder form(this);
///     txtName = form.textField(u"txtName"_s, u"&Name"_s, 50);
///     form.beginGroup(u"Address"_s, u"fraAddress"_s);
///     cboState = form.comboField(u"cboState"_s, u"S&tate"_s);
///     cmdState = form.sideButton(u"cmdState"_s, u"Edit the states"_s);
///     form.endGroup();
///     cmdSave = form.button(u"cmdSave"_s, u"&Save"_s, theme::icon(u"save"_s));
///     form.finish();
///
/// A form of several pages uses one builder for each page widget. The builder may go once
/// finished; the controls belong to the form.
class FormBuilder
{
public:
    /// Lays out a widget that has no layout yet.
    explicit FormBuilder(QWidget *form);
    FormBuilder(const FormBuilder &) = delete;
    FormBuilder &operator=(const FormBuilder &) = delete;

    // --- Fields: a label at the left, the control right of it -----------------------------------

    /// A line of text; a length of 0 sets no limit.
    QLineEdit *textField(const QString &name, const QString &label, int maxLength = 0);
    QLineEdit *passwordField(const QString &name, const QString &label, int maxLength = 0);
    /// A line of text that takes digits only.
    QLineEdit *digitsField(const QString &name, const QString &label, int maxLength = 0);
    /// A field of each kind of input; name becomes the object name, label its caption with "&"
    /// before the key.
    CurrencyInput *currencyField(const QString &name, const QString &label);
    DateInput *dateField(const QString &name, const QString &label);
    TimeInput *timeField(const QString &name, const QString &label);
    PhoneInput *phoneField(const QString &name, const QString &label);
    MaskedInput *maskedField(const QString &name, const QString &label, const QString &pattern);
    SpinInput *spinField(const QString &name, const QString &label);
    IdCombo *comboField(const QString &name, const QString &label);
    /// Lines of text; the box grows with the form.
    QPlainTextEdit *memoField(const QString &name, const QString &label, int lines = 4);
    QListWidget *listField(const QString &name, const QString &label, int lines = 5);
    /// A value that is shown only.
    QLabel *readOnlyField(const QString &name, const QString &label);
    LinkLabel *linkField(const QString &name, const QString &label, const QString &text);
    /// A box to tick, in the column of the fields, with its caption beside it.
    QCheckBox *checkBox(const QString &name, const QString &caption);
    QRadioButton *optionButton(const QString &name, const QString &caption);
    /// A control of the caller's, named by him, in a row of its own.
    void field(const QString &label, QWidget *control);
    /// A small button at the end of the last field; the tip is its accessible name too.
    QToolButton *sideButton(const QString &name, const QString &tip,
                            const QString &iconName = QStringLiteral("edit"));
    /// The label of the last field, for captions that change. Null for boxes to tick.
    [[nodiscard]] QLabel *lastLabel() const { return m_lastLabel; }

    // --- Things across the whole width -------------------------------------------------------

    /// A line of plain explanation.
    QLabel *note(const QString &text, const QString &name = {});
    /// A control of the caller's; with stretch it takes the height that is left.
    void widget(QWidget *control, bool stretch = false);
    /// Blank space that takes the height that is left.
    void stretch();

    // --- Structure ---------------------------------------------------------------------------

    /// A box with a title around all that is made up to endGroup; it can hold columns and further
    /// groups.
    QGroupBox *beginGroup(const QString &title, const QString &name = {});
    void endGroup();
    /// Columns side by side, begun with the first one.
    void beginColumns();
    /// Begins the next column, so many times as wide as one of 1.
    void nextColumn(int widthFactor = 1);
    void endColumns();
    /// Fields, boxes, buttons made between beginRow and endRow stand in one line, each behind its
    /// label.
    void beginRow(const QString &label = {});
    void endRow();
    /// A button where the next field would stand (not in the button row).
    QPushButton *inlineButton(const QString &name, const QString &caption, const QIcon &icon = {});

    // --- The button row ----------------------------------------------------------------------

    /// A button at the right of the row.
    QPushButton *button(const QString &name, const QString &caption, const QIcon &icon = {});
    /// A button at the left of the row.
    QPushButton *leftButton(const QString &name, const QString &caption, const QIcon &icon = {});
    /// A button with a picture only, at the left of the row (first, previous, next, last).
    QToolButton *toolButton(const QString &name, const QString &tip, const QIcon &icon);
    struct Navigation
    {
        QToolButton *first, *previous, *next, *last;
    };
    /// The four buttons through a list of records, with these names.
    Navigation navigation(const QString &first, const QString &previous, const QString &next,
                          const QString &last);

    /// Sets the button row, tab order, fonts and colours. Once, at the end.
    void finish();

private:
    /// What is being filled: the form, a group or a column.
    struct Block
    {
        QWidget *owner = nullptr;
        QVBoxLayout *stack = nullptr;
        /// The rows begun last, as long as nothing stood across them.
        QGridLayout *rows = nullptr;
        /// Set in a column: the line of columns it belongs to.
        QHBoxLayout *columns = nullptr;
        /// Something in it takes the height that is left.
        bool stretches = false;
        bool earlierColumnStretches = false;
    };

    Block &block() { return m_blocks.last(); }
    /// The rows that take the next field; new ones behind what stands across the width.
    QGridLayout *rows();
    void beginBlock(QWidget *owner, QVBoxLayout *stack, QHBoxLayout *columns = nullptr);
    void closeColumn();
    /// Names a control, for tests and assistive tools, and puts it into the tab order.
    void prepare(QWidget *control, const QString &name, const QString &caption);
    /// buddy: the control to which the label's key leads, null for none.
    QLabel *makeLabel(const QString &text, QWidget *buddy);
    /// How a control fills its row.
    enum class Fill { Wide, Narrow, Tall };
    /// Puts a control behind its label: into the open line, else into a row of its own.
    void place(QLabel *label, QWidget *control, Fill fill);
    void addField(const QString &name, const QString &label, QWidget *control, Fill fill);
    QPushButton *makeButton(const QString &name, const QString &caption, const QIcon &icon);
    void addButtonRow();

    QWidget *m_form;
    QList<Block> m_blocks;
    /// The controls in the order of making, for Tab.
    QList<QWidget *> m_order;
    QList<QWidget *> m_leftButtons;
    QList<QWidget *> m_rightButtons;
    /// The line between beginRow and endRow.
    QHBoxLayout *m_line = nullptr;
    bool m_lineIsWide = false;
    /// Where the last field stands, for its side buttons.
    QHBoxLayout *m_lastCell = nullptr;
    QWidget *m_lastControl = nullptr;
    QLabel *m_lastLabel = nullptr;
};

/// A caption without its mnemonic mark and closing colon, for accessible names.
[[nodiscard]] QString plainCaption(QString caption);

} // namespace input
