#pragma once

#include "administration/FileImport.h"
#include "core/ui/Screen.h"

class QLabel;
class QLineEdit;
class QPushButton;
class QToolButton;

namespace grid {
class GridView;
}
namespace input {
class IdCombo;
}

/// Brings in rows from a table, after a look at what it holds; or a whole company from an export.
class frmImport : public Screen
{
    Q_OBJECT

public:
    explicit frmImport(QWidget *parent = nullptr);

private:
    void buildForm();
    /// Takes away what was found, and enables what can be done with the file and kind now.
    void fileChanged();
    [[nodiscard]] bool isWholeCompany() const;
    [[nodiscard]] administration::ImportKind kind() const;
    /// Looks at the file and shows what was found; nothing when that was cancelled or failed.
    [[nodiscard]] std::optional<administration::ImportFindings> check();
    void show(const administration::ImportFindings &findings);
    /// Asks whether these entries may be added to the lists.
    [[nodiscard]] bool mayMake(const std::vector<administration::NewEntry> &entries) const;
    /// Checks the file, asks about new entries, and imports it; what came of it is shown and told.
    void importRows();
    /// Asks, and puts an export in the place of the company, which has to be empty.
    void importCompany();

    void cmdBrowse_Click();
    void cmdSheet_Click();
    void cmdCheck_Click();
    void cmdImport_Click();

    input::IdCombo *cboKind = nullptr;
    QLineEdit *txtFile = nullptr;
    QToolButton *cmdBrowse = nullptr;
    QLabel *lblSummary = nullptr;
    grid::GridView *grdFindings = nullptr;
    QPushButton *cmdSheet = nullptr;
    QPushButton *cmdCheck = nullptr;
    QPushButton *cmdImport = nullptr;
    QPushButton *cmdExit = nullptr;
};
