#pragma once

#include "core/Mode.h"

#include <QtGlobal>

/// How other screens open those of this folder. Each waits until its screen is closed.

/// mode Add presses Add on the new screen, any other shows the machine of that id first, or the
/// first one. The id of the machine shown last comes back, 0 without one.
qint64 ShowEquipmentDetail(Mode mode, qint64 equipmentID);
