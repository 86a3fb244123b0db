#include "core/ui/Binding.h"

#include "core/Flag.h"
#include "core/ui/LookupCombo.h"
#include "platform/base/Environment.h"
#include "platform/base/Format.h"
#include "platform/input/CurrencyInput.h"
#include "platform/input/DateInput.h"
#include "platform/input/PhoneInput.h"
#include "platform/input/SpinInput.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool isFlagSet(const QVariant &value)
{
    const QString flag = value.toString().trimmed();
    return !flag.isEmpty() && flag != u"0";
}

/// The label that leads to a control by its mnemonic.
QString labelOf(const QWidget *control)
{
    for (const QLabel *label : control->window()->findChildren<QLabel *>())
        if (label->buddy() == control)
            return label->text();
    return control->accessibleName();
}

} // namespace

double numberIn(const QLineEdit *box)
{
    return box->text().remove(u',').trimmed().toDouble();
}

QList<QWidget *> Bindings::controls() const
{
    QList<QWidget *> controls;
    for (const Entry &entry : m_entries)
        controls.append(entry.control);
    return controls;
}

bool Bindings::isAnyGiven() const
{
    return std::ranges::any_of(m_entries, [](const Entry &entry) { return entry.isGiven(); });
}

input::DateInput *Bindings::invalidDate() const
{
    for (const Entry &entry : m_entries)
        if (auto *date = qobject_cast<input::DateInput *>(entry.control);
            date && !date->isValidOrEmpty())
            return date;
    return nullptr;
}

QString Bindings::caption(const QString &column) const
{
    const int index = indexOf(column);
    if (index < 0)
        return {};
    const QWidget *control = m_entries[static_cast<std::size_t>(index)].control;
    const auto *box = qobject_cast<const QCheckBox *>(control);
    QString caption = box ? box->text() : labelOf(control);
    caption.remove(u'&');
    if (caption.endsWith(u':'))
        caption.chop(1);
    return caption;
}

QString Bindings::text(const QString &column, const QVariant &value) const
{
    const int index = indexOf(column);
    const QWidget *control =
        index < 0 ? nullptr : m_entries[static_cast<std::size_t>(index)].control;
    if (const auto *list = qobject_cast<const input::IdCombo *>(control)) {
        const int item = list->findData(value.toLongLong());
        if (item >= 0)
            return list->itemText(item).trimmed();
    }
    if (qobject_cast<const QCheckBox *>(control))
        return isFlagSet(value) ? u"Yes"_s : u"No"_s;
    if (value.typeId() == QMetaType::QDateTime && value.toDateTime().time() == QTime(0, 0))
        return base::toText(value.toDateTime().date());
    return base::toText(value);
}

void Bindings::display(Entry &entry, const QVariant &value)
{
    entry.set(value);
    entry.shown = entry.get();
}

void Bindings::empty(Entry &entry)
{
    if (entry.clear)
        entry.clear();
    entry.shown = {};
}

Bindings::Entry Bindings::entryOf(QLineEdit *box)
{
    return {box, [=] { return box->text(); },
            [=](const QVariant &value) { box->setText(value.toString()); },
            [=] { return !box->text().isEmpty(); }};
}

Bindings::Entry Bindings::trimmedEntryOf(QLineEdit *box)
{
    Entry entry = entryOf(box);
    entry.get = [=] { return box->text().trimmed(); };
    return entry;
}

Bindings::Entry Bindings::entryOf(QPlainTextEdit *box)
{
    return {box, [=] { return box->toPlainText(); },
            [=](const QVariant &value) { box->setPlainText(value.toString()); },
            [=] { return !box->document()->isEmpty(); }};
}

Bindings::Entry Bindings::trimmedEntryOf(QPlainTextEdit *box)
{
    Entry entry = entryOf(box);
    entry.get = [=] { return box->toPlainText().trimmed(); };
    return entry;
}

Bindings::Entry Bindings::numberEntryOf(QLineEdit *box)
{
    return {box, [=] { return numberIn(box); },
            [=](const QVariant &value) { box->setText(base::toText(value)); },
            [=] { return numberIn(box) != 0; }, [=] { box->clear(); }};
}

Bindings::Entry Bindings::quantityEntryOf(QLineEdit *box)
{
    Entry entry = numberEntryOf(box);
    entry.set = [=](const QVariant &value) { box->setText(base::twoDecimals(value.toDouble())); };
    return entry;
}

Bindings::Entry Bindings::entryOf(input::PhoneInput *box)
{
    const auto hasDigit = [=] {
        return std::ranges::any_of(box->text(), [](QChar c) { return c.isDigit(); });
    };
    return {box, [=] { return hasDigit() ? box->text() : QString(); },
            [=](const QVariant &value) {
                if (value.toString().isEmpty())
                    box->clear();
                else
                    box->setText(value.toString());
            },
            hasDigit};
}

Bindings::Entry Bindings::entryOf(input::CurrencyInput *box)
{
    return {box, [=] { return box->value(); },
            [=](const QVariant &value) { box->setValue(value.toDouble()); },
            [=] { return box->value() != 0; }};
}

Bindings::Entry Bindings::entryOf(input::DateInput *box)
{
    return {
        box,
        [=] { return box->date().isValid() ? QVariant(base::wallClock(box->date())) : QVariant(); },
        [=](const QVariant &value) { box->setDate(value.toDateTime()); },
        [=] { return !box->isEmpty(); }};
}

Bindings::Entry Bindings::entryOf(input::IdCombo *list)
{
    return {list, [=] { return list->id(); },
            [=](const QVariant &value) { showLookup(*list, value.toLongLong()); },
            [=] { return list->id() != 0; }};
}

Bindings::Entry Bindings::idAsTextEntryOf(input::IdCombo *list)
{
    Entry entry = entryOf(list);
    entry.get = [=] { return QString::number(list->id()); };
    return entry;
}

Bindings::Entry Bindings::textEntryOf(input::IdCombo *list)
{
    return {list, [=] { return list->currentText().trimmed(); },
            [=](const QVariant &value) {
                const QString text = value.toString().trimmed();
                if (text.isEmpty()) {
                    list->setCurrentIndex(0);
                } else if (!list->selectText(text)) {
                    list->add(QStringList{text});
                    list->selectText(text);
                }
            },
            [=] { return !list->currentText().trimmed().isEmpty(); }};
}

Bindings::Entry Bindings::entryOf(input::SpinInput *box)
{
    return {box, [=] { return box->value(); },
            [=](const QVariant &value) { box->setValue(value.toInt()); },
            [=] { return box->value() != 0; }};
}

Bindings::Entry Bindings::entryOf(QCheckBox *box, int ticked)
{
    return {box, [=] { return box->isChecked() ? ticked : 0; },
            [=](const QVariant &value) { box->setChecked(value.toInt() != 0); },
            [=] { return box->isChecked(); }};
}

Bindings::Entry Bindings::entryOf(QCheckBox *box)
{
    return {box, [=] { return flagText(box->isChecked()); },
            [=](const QVariant &value) { box->setChecked(isFlagSet(value)); },
            [=] { return box->isChecked(); }};
}
