#pragma once

#include <QString>

/// One row of tblUser without its rights.
struct clsUser
{
    QString UserName;
    QString Password; ///< as typed when it is to be changed, as stored when not
    QString EmployeeID;

    bool operator==(const clsUser &) const = default;
};
