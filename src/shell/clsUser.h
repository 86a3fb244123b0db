#pragma once

#include <QString>
#include <utility>

/// One row of tblUser without its rights.
class clsUser final
{
public:
    [[nodiscard]] const QString &UserName() const { return m_UserName; }
    void setUserName(QString value) { m_UserName = std::move(value); }
    /// As typed when it is to be changed, as stored when not.
    [[nodiscard]] const QString &Password() const { return m_Password; }
    void setPassword(QString value) { m_Password = std::move(value); }
    [[nodiscard]] const QString &EmployeeID() const { return m_EmployeeID; }
    void setEmployeeID(QString value) { m_EmployeeID = std::move(value); }

    bool operator==(const clsUser &) const = default;

private:
    QString m_UserName;
    QString m_Password;
    QString m_EmployeeID;
};
