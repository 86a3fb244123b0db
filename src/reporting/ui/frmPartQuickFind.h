#pragma once

#include "core/ui/Screen.h"

class FieldSearch;
class GradualRows;
class QCheckBox;
class QLineEdit;
class QPushButton;

namespace input {
class IdCombo;
}

/// Picks one part, of all or of one category.
class frmPartQuickFind final : public Screen
{
    Q_OBJECT

public:
    /// partID: the part to begin on, may be empty.
    explicit frmPartQuickFind(const QString &partID, QWidget *parent = nullptr);

    /// Shows the dialog; the number of the part chosen, empty on Cancel.
    [[nodiscard]] QString ShowQuickFind();

private:
    void buildForm();
    void loadFields();
    /// Shows the list, standing on this part where it is there.
    void ShowGrid(const QString &partID);
    [[nodiscard]] QString QueryString() const;
    [[nodiscard]] QString currentPart() const;
    void chkInactive_Click();
    void cmdSelect_Click();
    void cmdAdd_Click();

    QString m_startPart;
    QString m_result;

    input::IdCombo *cboFieldNames = nullptr;
    QLineEdit *txtSearchText = nullptr;
    input::IdCombo *cboPartCategory = nullptr;
    QCheckBox *chkInactive = nullptr;
    grid::GridView *grdParts = nullptr;
    QPushButton *cmdAdd = nullptr;
    QPushButton *cmdSelect = nullptr;
    QPushButton *cmdCancel = nullptr;
    FieldSearch *m_search = nullptr;
    GradualRows *m_rows = nullptr;
    bool m_searchWaits = false; ///< for the rows that are still to be read
};
