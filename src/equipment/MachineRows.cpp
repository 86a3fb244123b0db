#include "equipment/MachineRows.h"

#include "core/Session.h"

#include <QVariant>
#include <optional>

using namespace Qt::StringLiterals;

namespace machinerows {
namespace {

/// A machine's place in the order: by unit number, those without one first, and by key among equal
/// ones.
struct Position
{
    qint64 key = 0;
    QVariant unit;
};

/// One way through the order.
struct Direction
{
    QString beyond;  ///< compares what lies that way with a value
    QString nearest; ///< gives the nearest key that way
    QString sorted;
};

const Direction Forward{u">"_s, u"min"_s, u"UnitNo"_s};
const Direction Backward{u"<"_s, u"max"_s, u"UnitNo desc"_s};

std::optional<Position> positionOf(qint64 key)
{
    const db::Recordset rows =
        dataConnection().Open(u"Select UnitNo from tblEquipment where EquipmentID = ?"_s, {key});
    if (rows.isEmpty())
        return std::nullopt;
    return Position{key, rows.current()[u"UnitNo"]};
}

/// The machine that comes nearest that way among those of one unit number. The "+ 0" keeps the
/// engine from walking the index of all keys for it.
std::optional<Position> nearest(const Direction &way, const QVariant &unit,
                                std::optional<qint64> beyond = {})
{
    QString condition = unit.isNull() ? u"UnitNo is Null"_s : u"UnitNo = ?"_s;
    QVariantList values;
    if (!unit.isNull())
        values.append(unit);
    if (beyond) {
        condition += u" and EquipmentID + 0 %1 ?"_s.arg(way.beyond);
        values.append(*beyond);
    }
    const QVariant key =
        dataConnection()
            .Open(u"Select %1(EquipmentID + 0) as Nearest from tblEquipment where %2"_s.arg(
                      way.nearest, condition),
                  values)
            .row(0)[u"Nearest"];
    if (key.isNull())
        return std::nullopt;
    return Position{key.toLongLong(), unit};
}

/// The next unit number that way, from a given one or from the end of all; Null when there is none.
QVariant nextUnit(const Direction &way, const QVariant &from)
{
    const db::Recordset rows =
        from.isNull()
            ? dataConnection().Open(u"Select top 1 UnitNo from tblEquipment where UnitNo is not "
                                    "Null order by "_s +
                                    way.sorted)
            : dataConnection().Open(
                  u"Select top 1 UnitNo from tblEquipment where UnitNo %1 ? order by %2"_s.arg(
                      way.beyond, way.sorted),
                  {from});
    return rows.isEmpty() ? QVariant() : rows.current()[u"UnitNo"];
}

std::optional<Position> after(const Position &position)
{
    if (const auto same = nearest(Forward, position.unit, position.key))
        return same;
    const QVariant unit = nextUnit(Forward, position.unit);
    return unit.isNull() ? std::nullopt : nearest(Forward, unit);
}

std::optional<Position> before(const Position &position)
{
    if (const auto same = nearest(Backward, position.unit, position.key))
        return same;
    if (position.unit.isNull())
        return std::nullopt;
    const QVariant unit = nextUnit(Backward, position.unit);
    // Without a smaller number the ones without any are left.
    return nearest(Backward, unit);
}

std::optional<Position> first()
{
    if (const auto unnumbered = nearest(Forward, {}))
        return unnumbered;
    const QVariant unit = nextUnit(Forward, {});
    return unit.isNull() ? std::nullopt : nearest(Forward, unit);
}

std::optional<Position> last()
{
    return nearest(Backward, nextUnit(Backward, {}));
}

std::optional<Position> wanted(Place place, qint64 key)
{
    if (place == Place::Last)
        return last();
    const std::optional<Position> here = place == Place::First ? std::nullopt : positionOf(key);
    if (!here)
        return first();
    std::optional<Position> found = here;
    if (place == Place::Next)
        found = after(*here);
    else if (place == Place::Previous)
        found = before(*here);
    return found ? found : here;
}

} // namespace

db::Recordset at(Place place, qint64 EquipmentID)
{
    const std::optional<Position> position = wanted(place, EquipmentID);
    const auto keyOf = [](const std::optional<Position> &machine) {
        return machine ? QVariant(machine->key) : QVariant();
    };
    const QVariant former = position ? keyOf(before(*position)) : QVariant();
    const QVariant next = position ? keyOf(after(*position)) : QVariant();
    // A sort by unit number would tell upper from lower case, which the order does not.
    db::Recordset rows =
        dataConnection().Open(u"Select * from tblEquipment where EquipmentID in (?, ?, ?) order by "
                              u"IIf(EquipmentID = ?, 1, "
                              "IIf(EquipmentID = ?, 2, 3))"_s,
                              {former, keyOf(position), next, former, keyOf(position)});
    rows.MoveTo(former.isNull() ? 0 : 1);
    return rows;
}

QString holderOf(const QString &serialNo)
{
    const db::Recordset rows = dataConnection().Open(
        u"Select UnitNo, EquipmentName from tblEquipment where EquipmentSerialNo = ? order by UnitNo"_s,
        {serialNo});
    if (rows.isEmpty())
        return {};
    return u"\"%1\" - \"%2\""_s.arg(rows.current().text(u"UnitNo"),
                                    rows.current().text(u"EquipmentName"));
}

} // namespace machinerows
