#pragma once

#include "platform/report/designer/Selection.h"
#include "platform/report/layout/Layout.h"

#include <QPoint>

/// Changes of a report's parts: bands, groups and objects. Each works on a layout and says where
/// what it made stands.
namespace report {

/// A band as the user reads it: "Detail", "Header of Site".
[[nodiscard]] QString bandName(const Band &band);
/// An object: its name, else its kind with what it shows.
[[nodiscard]] QString objectTitle(const Object &object);
[[nodiscard]] QString kindName(ObjectKind kind);

/// A sheet with the bands that a report usually has, and nothing in them.
[[nodiscard]] Layout emptyLayout();

/// Adds a band where those of its kind stand, behind the last of them. Its number comes back.
int addBand(Layout &layout, Band band);
/// True when a band has a neighbour of its own kind and place in this direction (-1 up, 1 down).
[[nodiscard]] bool canMoveBand(const Layout &layout, int band, int direction);
/// Exchanges it with that neighbour.
void moveBand(Layout &layout, int band, int direction);

/// Makes a band as high as its objects need.
void fitBand(Layout &layout, int band);

/// Adds a group as the innermost with a header, which shows its value, and a footer.
int addGroup(Layout &layout, const QString &by);
/// Removes a group with its bands. Aggregates that name it are left to be told.
void removeGroup(Layout &layout, int group);
/// Moves a group outwards (-1) or inwards (1); its bands move along.
void moveGroup(Layout &layout, int group, int direction);
/// Gives a group another name, in its bands and in the aggregates that name it too.
void renameGroup(Layout &layout, int group, const QString &name);

/// Gives further rows another name, in their bands too.
void renameRows(Layout &layout, int set, const QString &name);
/// Removes further rows with their bands.
void removeRows(Layout &layout, int set);

/// An object of a kind with a usual size and content, at a place of a band.
[[nodiscard]] Object newObject(ObjectKind kind, QPoint at);
/// Adds objects to a band and makes it as high as they need. Their places come back.
QList<Place> addObjects(Layout &layout, int band, const QList<Object> &objects);
/// Places of others in the same bands are not theirs any more.
void removeObjects(Layout &layout, const QList<Place> &places);
/// Copies of the objects, in the order of the places; all must be there.
[[nodiscard]] QList<Object> objectsAt(const Layout &layout, const QList<Place> &places);
/// Moves objects into another band, each by so much. Their new places come back in the same order.
QList<Place> moveToBand(Layout &layout, const QList<Place> &places, int band, QPoint by);

/// Which objects lie over others: to the front, to the back, one step.
enum class Order { Front, Forward, Backward, Back };
/// Objects are painted in the order of their band. Those that move keep their order among each
/// other; their new places come back.
QList<Place> reorder(Layout &layout, const QList<Place> &places, Order order);

} // namespace report
