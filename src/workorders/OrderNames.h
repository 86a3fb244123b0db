#pragma once

#include "core/Gone.h"

#include <QString>

/// How messages name an order, its machine and its services. Data; as messages are often made when
/// something has just failed, these raise nothing and leave out what they can't read.
namespace ordernames {

/// "work order 12 of machine M1 - Mower".
[[nodiscard]] QString order(qint64 WorkorderNo);
/// The same of the order that a service stands on.
[[nodiscard]] QString orderOfService(qint64 NServiceUsedID);
/// "M1 - Mower".
[[nodiscard]] QString machine(qint64 EquipmentID);

/// Numbers for a message: ten at most, and how many more there are.
[[nodiscard]] QString listed(const QList<qint64> &numbers);
/// A sentence that begins with such a name.
[[nodiscard]] QString sentence(const QString &name, const QString &rest);

/// What is told while another workstation changes an order or a row of it.
[[nodiscard]] QString beingChanged(const QString &order);
/// What is told of an order, and of a service of one, that is there no more. For raising.
[[nodiscard]] Gone gone(qint64 WorkorderNo);
[[nodiscard]] Gone serviceGone();

} // namespace ordernames
