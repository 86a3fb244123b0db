#pragma once

#include "core/ui/Screen.h"

#include <QList>
#include <QSet>

class QCheckBox;
class QLabel;
class QPushButton;
class QTabWidget;

/// The rights of one user, a box for each.
class frmUserRoles : public Screen
{
    Q_OBJECT

public:
    explicit frmUserRoles(const QString &UserName, QWidget *parent = nullptr);

    /// Shows the rights of a stored user, and waits until the screen is closed.
    static void ShowUserRolesDetail(const QString &UserName);

private:
    void buildForm();
    /// Reads the rights as they are stored, and turns the screen back.
    void RefreshRecordSet();
    void DisplayData(const QSet<QString> &granted);
    void EnableControls() override;
    void cmdUpdate_Click();
    void cmdCancel_Click();
    void cmdExit_Click();

    QString m_userName;
    QSet<QString> m_shown; ///< the rights that the row granted
    QTabWidget *SSTab1 = nullptr;
    QList<QCheckBox *> m_boxes; ///< in the order of the rights
    QPushButton *cmdUpdate = nullptr;
    QPushButton *cmdCancel = nullptr;
    QPushButton *cmdExit = nullptr;
};
