#pragma once

#include "core/RecordFields.h"

/// One row of tblUser without its rights.
struct clsUser
{
    QString UserName;
    QString Password; ///< as typed when it is to be changed, as stored when not
    QString EmployeeID;

    [[nodiscard]] static std::span<const record::Field<clsUser>> fields();
    bool operator==(const clsUser &) const = default;
};
