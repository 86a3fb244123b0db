#pragma once

#include "core/ui/Screen.h"

class QLabel;
class QLineEdit;
class QPushButton;

/// The rows of a query to tick, or to choose one of; what filters of reports are filled from.
class frmItemList final : public Screen
{
    Q_OBJECT

public:
    struct List
    {
        QString selectText;
        QString filterText; ///< appended to it; may be empty
        QString title;
        QString keyColumn; ///< its values come back
        QString keyType;
        QString secondColumn;
        QString secondType;
    };
    enum class Choice { Several, One };

    frmItemList(List list, Choice choice, QWidget *parent = nullptr);

    /// Shows the list; what was chosen, empty when nothing was or the query failed.
    [[nodiscard]] QString choose();

private:
    void buildForm();
    /// False when the query failed, which is told.
    bool ShowGrid();
    void grdList_Activated(int row);
    void cmdSelect_Click();
    void cmdSelectForEqpUti_Click();

    List m_list;
    Choice m_choice;
    QString m_result;

    QLabel *lblTitle = nullptr;
    QLineEdit *txtSearch = nullptr;
    grid::GridView *grdList = nullptr;
    QPushButton *cmdSelect = nullptr;
    QPushButton *cmdSelectForEqpUti = nullptr;
    QPushButton *cmdExit = nullptr;
};
