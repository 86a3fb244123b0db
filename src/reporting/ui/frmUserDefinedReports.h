#pragma once

#include "core/ui/Screen.h"
#include "reporting/OwnReports.h"

class QGroupBox;
class QLabel;
class QPushButton;
class QRadioButton;

/// The layouts of a folder, to view or to change one of them, or to begin a new one.
class frmUserDefinedReports final : public Screen
{
    Q_OBJECT

public:
    explicit frmUserDefinedReports(QWidget *parent = nullptr);

    /// The result for a report that is to be made.
    static constexpr QStringView AddNew = u"A";

    /// The user's own reports to view one: the path of the file, AddNew, or empty.
    [[nodiscard]] QString ShowUserDefinedReportDetatils();
    /// The delivered or the user's own layouts to change one; the same.
    [[nodiscard]] QString ShowReportList();

protected:
    void EnableControls() override;

private:
    void buildForm();
    /// Lists the layouts of a folder.
    void setFolder(ownreports::Folder folder);
    void ShowGrid();
    void cmdViewReport_Click();
    void cmdAdd_Click();

    ownreports::Folder m_folder = ownreports::Folder::Delivered;
    QList<QString> m_paths; ///< of the grid's rows
    QString m_result;

    QGroupBox *fraReports = nullptr;
    QRadioButton *optDefaultReport = nullptr;
    QRadioButton *optUserReport = nullptr;
    QLabel *lblFolder = nullptr;
    grid::GridView *grdReports = nullptr;
    QPushButton *cmdViewReport = nullptr;
    QPushButton *cmdAdd = nullptr;
    QPushButton *cmdExit = nullptr;
};
