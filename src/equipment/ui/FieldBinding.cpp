#include "equipment/ui/FieldBinding.h"

#include "core/Flag.h"
#include "core/ui/LookupCombo.h"
#include "platform/base/Environment.h"
#include "platform/base/Format.h"
#include "platform/input/CurrencyInput.h"
#include "platform/input/DateInput.h"

#include <QCheckBox>
#include <QPlainTextEdit>
#include <algorithm>

using namespace Qt::StringLiterals;

double numberIn(const QLineEdit *box)
{
    return box->text().remove(u',').trimmed().toDouble();
}

void FieldBinding::add(QLineEdit *box, QString clsEquipment::*member)
{
    m_entries.push_back({box, [=](const clsEquipment &machine) { box->setText(machine.*member); },
                         [=] { box->clear(); },
                         [=](clsEquipment &machine) { machine.*member = box->text(); },
                         [=] { return !box->text().isEmpty(); }});
}

void FieldBinding::add(QPlainTextEdit *box, QString clsEquipment::*member)
{
    m_entries.push_back({box,
                         [=](const clsEquipment &machine) { box->setPlainText(machine.*member); },
                         [=] { box->clear(); },
                         [=](clsEquipment &machine) { machine.*member = box->toPlainText(); },
                         [=] { return !box->document()->isEmpty(); }});
}

template<class Number>
void FieldBinding::addNumber(QLineEdit *box, Number clsEquipment::*member)
{
    m_entries.push_back(
        {box,
         [=](const clsEquipment &machine) {
             box->setText(base::toText(QVariant::fromValue(machine.*member)));
         },
         [=] { box->clear(); },
         [=](clsEquipment &machine) { machine.*member = static_cast<Number>(numberIn(box)); },
         [=] { return numberIn(box) != 0; }});
}

void FieldBinding::add(QLineEdit *box, qint64 clsEquipment::*member)
{
    addNumber(box, member);
}

void FieldBinding::add(QLineEdit *box, int clsEquipment::*member)
{
    addNumber(box, member);
}

void FieldBinding::add(QLineEdit *box, double clsEquipment::*member)
{
    addNumber(box, member);
}

void FieldBinding::add(input::CurrencyInput *box, double clsEquipment::*member)
{
    m_entries.push_back({box, [=](const clsEquipment &machine) { box->setValue(machine.*member); },
                         [=] { box->setValue(0); },
                         [=](clsEquipment &machine) { machine.*member = box->value(); },
                         [=] { return box->value() != 0; }});
}

void FieldBinding::add(input::DateInput *box, QDateTime clsEquipment::*member)
{
    m_entries.push_back({box, [=](const clsEquipment &machine) { box->setDate(machine.*member); },
                         [=] { box->setDate(QDate()); },
                         [=](clsEquipment &machine) {
                             machine.*member =
                                 box->date().isValid() ? base::wallClock(box->date()) : QDateTime();
                         },
                         [=] { return !box->isEmpty(); }});
}

template<class Id>
void FieldBinding::addList(input::IdCombo *list, Id clsEquipment::*member)
{
    m_entries.push_back(
        {list, [=](const clsEquipment &machine) { showLookup(*list, machine.*member); },
         [=] { showLookup(*list, 0); },
         [=](clsEquipment &machine) { machine.*member = static_cast<Id>(list->id()); },
         [=] { return list->id() != 0; }});
}

void FieldBinding::add(input::IdCombo *list, qint64 clsEquipment::*member)
{
    addList(list, member);
}

void FieldBinding::add(input::IdCombo *list, int clsEquipment::*member)
{
    addList(list, member);
}

void FieldBinding::addIdAsText(input::IdCombo *list, QString clsEquipment::*member)
{
    m_entries.push_back(
        {list,
         [=](const clsEquipment &machine) { showLookup(*list, (machine.*member).toLongLong()); },
         [=] { showLookup(*list, 0); },
         [=](clsEquipment &machine) { machine.*member = QString::number(list->id()); },
         [=] { return list->id() != 0; }});
}

void FieldBinding::add(input::IdCombo *list, QString clsEquipment::*member)
{
    m_entries.push_back(
        {list,
         [=](const clsEquipment &machine) {
             const QString text = (machine.*member).trimmed();
             if (text.isEmpty()) {
                 list->setCurrentIndex(0);
             } else if (!list->selectText(text)) {
                 list->add(QStringList{text});
                 list->selectText(text);
             }
         },
         [=] { list->setCurrentIndex(0); },
         [=](clsEquipment &machine) { machine.*member = list->currentText().trimmed(); },
         [=] { return !list->currentText().trimmed().isEmpty(); }});
}

void FieldBinding::add(QCheckBox *box, QString clsEquipment::*member)
{
    m_entries.push_back(
        {box,
         [=](const clsEquipment &machine) {
             const QString flag = (machine.*member).trimmed();
             box->setChecked(!flag.isEmpty() && flag != u"0");
         },
         [=] { box->setChecked(false); },
         [=](clsEquipment &machine) { machine.*member = flagText(box->isChecked()); },
         [=] { return box->isChecked(); }});
}

void FieldBinding::show(const clsEquipment &machine) const
{
    for (const Entry &entry : m_entries)
        entry.show(machine);
}

void FieldBinding::clear() const
{
    for (const Entry &entry : m_entries)
        entry.clear();
}

void FieldBinding::read(clsEquipment &machine) const
{
    for (const Entry &entry : m_entries)
        entry.read(machine);
}

bool FieldBinding::isAnyGiven() const
{
    return std::ranges::any_of(m_entries, [](const Entry &entry) { return entry.isGiven(); });
}

QList<QWidget *> FieldBinding::controls() const
{
    QList<QWidget *> controls;
    for (const Entry &entry : m_entries)
        controls.append(entry.control);
    return controls;
}

input::DateInput *FieldBinding::invalidDate() const
{
    for (const Entry &entry : m_entries)
        if (auto *date = qobject_cast<input::DateInput *>(entry.control);
            date && !date->isValidOrEmpty())
            return date;
    return nullptr;
}
