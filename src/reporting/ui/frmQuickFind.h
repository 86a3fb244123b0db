#pragma once

#include "core/ui/Screen.h"
#include "core/ui/ScreenCalls.h"
#include "reporting/QuickFind.h"

#include <QTimer>
#include <memory>

class FieldSearch;
class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace input {
class FormBuilder;
class IdCombo;
} // namespace input

/// Picks one record out of a large table. The list keeps all its rows; what is typed moves to the
/// first one that begins so.
class frmQuickFind final : public Screen
{
    Q_OBJECT

public:
    /// Raises base::Error for a table that has no quick find.
    explicit frmQuickFind(const ScreenCalls::QuickFind &request, QWidget *parent = nullptr);

    /// Shows the dialog; the key that was chosen, several joined by commas where they may be
    /// chosen, empty on Cancel. A list that can't be read doesn't open it.
    [[nodiscard]] QString ShowQuickFind();

private:
    void buildForm();
    /// The boxes and options above the list.
    void addSearch(input::FormBuilder &form);
    /// Widths, formats and what is hidden, once the first rows have brought the columns.
    void setColumns();
    /// Reads search fields and rows. False when there is nothing to show, which the user was told.
    bool ShowQuickFindMain();
    /// Reads some more rows; when all are there they join the list.
    void readOn();
    void readAll();
    void showAll();
    /// False while rows are still being read: then the search follows them.
    bool maySearch();
    /// Searches by the table's own fields, or by the one that is chosen.
    void setAutomatic(bool automatic);
    [[nodiscard]] QString currentKey() const;
    [[nodiscard]] QStringList tickedKeys() const;
    /// Ticks the rows of these keys alone.
    void tick(const QStringList &keys);
    void grdQuickFind_Activated(int row);
    void cmdSelect_Click();
    void cmdAdd_Click();
    void chkInactive_Click();

    ScreenCalls::QuickFind m_request;
    const quickfind::Table *m_table;
    QString m_result;
    bool m_addNew = false;
    bool m_columnsAreSet = false;
    std::unique_ptr<quickfind::List> m_list; ///< while it is shown
    QTimer m_reading;
    bool m_searchWaits = false;

    QRadioButton *optManual = nullptr;
    QRadioButton *optAuto = nullptr;
    QLabel *lblFieldNames = nullptr;
    input::IdCombo *cboFieldNames = nullptr;
    QLabel *lblMainField = nullptr;
    QLineEdit *txtSearchText = nullptr;
    QLineEdit *txtSearchText2 = nullptr;
    QCheckBox *chkInactive = nullptr;
    grid::GridView *grdQuickFind = nullptr;
    QPushButton *cmdAdd = nullptr;
    QPushButton *cmdSelect = nullptr;
    QPushButton *cmdCancel = nullptr;
    FieldSearch *m_search = nullptr;
};
