#pragma once

#include "core/RecordFields.h"

#include <QList>
#include <QString>
#include <QVariant>
#include <functional>
#include <vector>

class QCheckBox;
class QLineEdit;
class QPlainTextEdit;
class QWidget;

namespace input {
class CurrencyInput;
class DateInput;
class IdCombo;
class PhoneInput;
class SpinInput;
} // namespace input

/// Ties controls to the fields of a record: one line for each field serves showing, emptying and
/// reading it, finds what the user changed, and tells how a value reads on the screen.
class Bindings
{
public:
    Bindings() = default;
    virtual ~Bindings() = default;
    Bindings(const Bindings &) = delete;
    Bindings &operator=(const Bindings &) = delete;

    /// The controls that hold the record, in the order in which they were bound.
    [[nodiscard]] QList<QWidget *> controls() const;
    /// True when a field is given: a text that is not empty, a number other than 0, an item that is
    /// not the blank one, a date, a tick.
    [[nodiscard]] bool isAnyGiven() const;
    /// The first date box whose text is neither empty nor a date, null when all are in order.
    [[nodiscard]] input::DateInput *invalidDate() const;

    /// The caption beside the control of a column, empty when it is not bound here.
    [[nodiscard]] QString caption(const QString &column) const;
    /// A value of a column as its control would show it.
    [[nodiscard]] QString text(const QString &column, const QVariant &value) const;
    /// Somebody else has stored a value: it becomes what counts as shown, and is shown unless what
    /// was typed here is kept.
    virtual void rebase(const QString &column, const QVariant &theirs, bool keepMine) = 0;

protected:
    struct Entry
    {
        QWidget *control;
        std::function<QVariant()> get;
        std::function<void(const QVariant &)> set;
        std::function<bool()> isGiven;
        std::function<void()>
            clear{};      ///< where the empty box looks unlike the blank record's value
        QVariant shown{}; ///< what the control held once it showed the record
    };

    /// How a control of each kind holds a value. Trimmed: without the blanks around it; number: as
    /// a number, an empty box as 0; quantity: the same, shown with two decimals; id as text: the id
    /// of a list's item, kept as text; text: the item's own text. ticked is the number that a tick
    /// stands for.
    static Entry entryOf(QLineEdit *box);
    static Entry trimmedEntryOf(QLineEdit *box);
    static Entry entryOf(QPlainTextEdit *box);
    static Entry trimmedEntryOf(QPlainTextEdit *box);
    static Entry numberEntryOf(QLineEdit *box);
    static Entry quantityEntryOf(QLineEdit *box);
    static Entry entryOf(input::PhoneInput *box);
    static Entry entryOf(input::CurrencyInput *box);
    static Entry entryOf(input::DateInput *box);
    static Entry entryOf(input::IdCombo *list);
    static Entry idAsTextEntryOf(input::IdCombo *list);
    static Entry textEntryOf(input::IdCombo *list);
    static Entry entryOf(input::SpinInput *box);
    static Entry entryOf(QCheckBox *box);
    static Entry entryOf(QCheckBox *box, int ticked);

    /// Shows a value in one control, and remembers how it looks there.
    static void display(Entry &entry, const QVariant &value);
    /// Empties one control. Whatever it holds counts as changed then, since a new record has no
    /// shown value to differ from.
    static void empty(Entry &entry);
    /// The place of a column among the entries, nothing when it is not bound.
    [[nodiscard]] virtual int indexOf(const QString &column) const = 0;

    std::vector<Entry> m_entries;
};

/// The bindings of a record type, over its table of fields.
template<class Record>
class Binding final : public Bindings
{
public:
    explicit Binding(std::span<const record::Field<Record>> fields)
        : m_fields(fields)
    {}

    /// Each binds one control to one member. Of the texts, add keeps them as they were typed.
    void add(QLineEdit *box, QString Record::*member) { push(entryOf(box), member); }
    /// Blanks around the text are not stored.
    void addTrimmed(QLineEdit *box, QString Record::*member) { push(trimmedEntryOf(box), member); }
    void add(QPlainTextEdit *box, QString Record::*member) { push(entryOf(box), member); }
    void addTrimmed(QPlainTextEdit *box, QString Record::*member)
    {
        push(trimmedEntryOf(box), member);
    }
    /// Numbers in plain boxes; an empty one counts as 0.
    void add(QLineEdit *box, qint64 Record::*member) { push(numberEntryOf(box), member); }
    void add(QLineEdit *box, int Record::*member) { push(numberEntryOf(box), member); }
    void add(QLineEdit *box, double Record::*member) { push(numberEntryOf(box), member); }
    /// A quantity, shown with two decimals.
    void addQuantity(QLineEdit *box, double Record::*member) { push(quantityEntryOf(box), member); }
    /// A number in its mask; without a digit it is stored empty.
    void add(input::PhoneInput *box, QString Record::*member) { push(entryOf(box), member); }
    void add(input::CurrencyInput *box, double Record::*member) { push(entryOf(box), member); }
    void add(input::DateInput *box, QDateTime Record::*member) { push(entryOf(box), member); }
    /// Lists by the ids of their items. An id that the list lacks is told to the user, and kept.
    void add(input::IdCombo *list, qint64 Record::*member) { push(entryOf(list), member); }
    void add(input::IdCombo *list, int Record::*member) { push(entryOf(list), member); }
    /// A list whose id is kept as text.
    void addIdAsText(input::IdCombo *list, QString Record::*member)
    {
        push(idAsTextEntryOf(list), member);
    }
    /// A list of texts. A stored text that it lacks is added to it.
    void add(input::IdCombo *list, QString Record::*member) { push(textEntryOf(list), member); }
    void add(input::SpinInput *box, int Record::*member) { push(entryOf(box), member); }
    /// A tick that is kept as a number, 0 without it.
    void add(QCheckBox *box, int Record::*member, int ticked)
    {
        push(entryOf(box, ticked), member);
    }
    /// Controls of a kind of their own: get gives what they hold, as the member keeps it, set shows
    /// a value. The control is the one whose caption names the field.
    void add(QWidget *control, const record::Member<Record> &member, std::function<QVariant()> get,
             std::function<void(const QVariant &)> set)
    {
        push({control, std::move(get), std::move(set), [] { return false; }}, member);
    }
    /// A tick that is kept as "0" or "1".
    void add(QCheckBox *box, QString Record::*member) { push(entryOf(box), member); }

    /// Shows a record, which counts as the stored one from now on.
    void show(const Record &record)
    {
        m_shown = record;
        for (std::size_t i = 0; i < m_entries.size(); ++i)
            display(m_entries[i], record::value(record, m_members[i]));
    }
    /// Empties the controls for a record that is not stored yet, of which all counts as typed.
    void clear()
    {
        show(Record());
        for (Entry &entry : m_entries)
            empty(entry);
    }
    /// The record as it was shown, with what the user changed since.
    [[nodiscard]] Record read() const
    {
        Record record = m_shown;
        readInto(record);
        return record;
    }
    /// Puts what the user changed since the record was shown into another record.
    void readInto(Record &record) const
    {
        for (std::size_t i = 0; i < m_entries.size(); ++i) {
            if (const QVariant held = m_entries[i].get(); held != m_entries[i].shown)
                record::setValue(record, m_members[i], held);
        }
    }
    /// The record as it was shown, and as others have changed it since (see rebase).
    [[nodiscard]] const Record &shown() const { return m_shown; }

    void rebase(const QString &column, const QVariant &theirs, bool keepMine) override
    {
        for (const record::Field<Record> &field : m_fields)
            if (field.column.compare(column, Qt::CaseInsensitive) == 0)
                record::setValue(m_shown, field.member, theirs);
        if (const int index = indexOf(column); index >= 0 && !keepMine)
            display(m_entries[static_cast<std::size_t>(index)], theirs);
    }

private:
    void push(Entry entry, const record::Member<Record> &member)
    {
        entry.shown = entry.get();
        m_entries.push_back(std::move(entry));
        m_members.push_back(member);
    }

    [[nodiscard]] int indexOf(const QString &column) const override
    {
        for (const record::Field<Record> &field : m_fields) {
            if (field.column.compare(column, Qt::CaseInsensitive) != 0)
                continue;
            const auto found = std::ranges::find(m_members, field.member);
            return found == m_members.end() ? -1 : static_cast<int>(found - m_members.begin());
        }
        return -1;
    }

    std::span<const record::Field<Record>> m_fields;
    std::vector<record::Member<Record>> m_members; ///< of the entries, in their order
    Record m_shown;
};

/// The number in a box, thousands separators left out; 0 when there is none.
[[nodiscard]] double numberIn(const QLineEdit *box);
