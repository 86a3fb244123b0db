#pragma once

#include "core/ui/Screen.h"
#include "exchange/ImportXml.h"

class QPushButton;

namespace grid {
class GridView;
}

/// Lists the exchange files beside the program and imports the chosen one.
class frmImportXml : public Screen
{
    Q_OBJECT

public:
    explicit frmImportXml(QWidget *parent = nullptr);

protected:
    void EnableControls() override;

private:
    void buildForm();
    void ShowGrid();
    [[nodiscard]] bool Importdata() const;
    void cmdImport_Click();
    void cmdImportData_Click();
    void cmdViewLog_Click();
    void cmdExit_Click();

    grid::GridView *grdFiles = nullptr;
    QPushButton *cmdImport = nullptr;
    QPushButton *cmdImportData = nullptr;
    QPushButton *cmdViewLog = nullptr;
    QPushButton *cmdExit = nullptr;
    exchange::ImportXml m_import;
};
