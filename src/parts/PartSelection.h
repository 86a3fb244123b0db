#pragma once

#include <QList>
#include <QString>

/// The selection text in which the part selector hands chosen parts to its callers: lines joined by
/// "@@@@", in a line part number, quantity, price and supplier joined by the character of code 134.
namespace parts {

struct Chosen
{
    QString PartID;
    double Quantity = 0;
    double Price = 0;
    qint64 SupplierID = 0;

    bool operator==(const Chosen &) const = default;
};

[[nodiscard]] QString selectionText(const QList<Chosen> &parts);
/// Reads a selection text; an empty one has no parts. Raises base::Error InvalidCall for a line
/// without its four fields and TypeMismatch for a quantity, price or supplier that is no number.
[[nodiscard]] QList<Chosen> parseSelection(const QString &text);

/// Part numbers as the selector takes those to leave out: quoted, apostrophes doubled, joined by
/// ", ".
[[nodiscard]] QString exclusionList(const QStringList &partIDs);
/// The part numbers in such a text; what stands outside quotes is none.
[[nodiscard]] QStringList excludedParts(const QString &list);

} // namespace parts
