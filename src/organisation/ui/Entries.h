#pragma once

#include "core/Mode.h"

#include <QString>

/// How other screens open those of this folder. Each waits until its screen is closed.

/// mode Add presses Add on the new screen, any other shows the row of id first.
void ShowCrewDetail(Mode mode, qint64 id);
void showSiteDetail(Mode mode, qint64 id);
void ShowLocationDetail(Mode mode, qint64 id);
void ShowCostCenterDetail(Mode mode, qint64 id);
void ShowSupplierDetail(Mode mode, qint64 id);
/// The number of the employee shown last comes back.
QString ShowEmployeeDetail(Mode mode, const QString &employeeID);

/// The editor of a lookup list. itemID: the item to select, 0 for none. parentValue: for lists with
/// a parent, its name or number to preselect, may be empty. typeID: for models, the equipment type
/// whose makes are the parents. engine: the models of engine makes.
void ShowIndicatorDetail(qint64 listNumber, qint64 itemID, const QString &parentValue = {},
                         qint64 typeID = 0, bool engine = false);
