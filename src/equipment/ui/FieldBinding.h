#pragma once

#include "equipment/clsEquipment.h"

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
} // namespace input

/// Ties the controls of a page to the members of a machine's record: one line for each field serves
/// showing, emptying and reading it, and tells whether something was entered.
class FieldBinding
{
public:
    void add(QLineEdit *box, QString clsEquipment::*member);
    void add(QPlainTextEdit *box, QString clsEquipment::*member);
    /// Numbers in plain boxes; an empty one counts as 0.
    void add(QLineEdit *box, qint64 clsEquipment::*member);
    void add(QLineEdit *box, int clsEquipment::*member);
    void add(QLineEdit *box, double clsEquipment::*member);
    void add(input::CurrencyInput *box, double clsEquipment::*member);
    void add(input::DateInput *box, QDateTime clsEquipment::*member);
    /// Lists by the ids of their items. An id that the list lacks is told to the user.
    void add(input::IdCombo *list, qint64 clsEquipment::*member);
    void add(input::IdCombo *list, int clsEquipment::*member);
    /// A list whose id is kept as text.
    void addIdAsText(input::IdCombo *list, QString clsEquipment::*member);
    /// A list of texts. A stored text that it lacks is added to it.
    void add(input::IdCombo *list, QString clsEquipment::*member);
    /// A tick that is kept as "0" or "1".
    void add(QCheckBox *box, QString clsEquipment::*member);

    void show(const clsEquipment &machine) const;
    void clear() const;
    void read(clsEquipment &machine) const;
    /// True when a field is given: a text that is not empty, a number other than 0, an item that is
    /// not the blank one, a date, a tick.
    [[nodiscard]] bool isAnyGiven() const;
    [[nodiscard]] QList<QWidget *> controls() const;
    /// The first date box whose text is neither empty nor a date, null when all are in order.
    [[nodiscard]] input::DateInput *invalidDate() const;

private:
    struct Entry
    {
        QWidget *control;
        std::function<void(const clsEquipment &)> show;
        std::function<void()> clear;
        std::function<void(clsEquipment &)> read;
        std::function<bool()> isGiven;
    };

    template<class Number>
    void addNumber(QLineEdit *box, Number clsEquipment::*member);
    template<class Id>
    void addList(input::IdCombo *list, Id clsEquipment::*member);

    std::vector<Entry> m_entries;
};

/// The number in a box, thousands separators left out; 0 when there is none.
[[nodiscard]] double numberIn(const QLineEdit *box);
