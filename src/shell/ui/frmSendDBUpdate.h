#pragma once

#include "core/ErrorReport.h"
#include "core/ui/Screen.h"

class QLabel;
class QLineEdit;
class QPushButton;

/// Offers to send the makers the script of an update that has failed: its rows are marked, and so
/// show how far it went.
class frmSendDBUpdate final : public Screen
{
    Q_OBJECT

public:
    explicit frmSendDBUpdate(QWidget *parent = nullptr);

    /// Shows the form and waits until it is closed.
    static void ShowSendDBUpdateDetails();

private:
    /// The steps of sending, in their order.
    enum class Step { CheckData, GeneratingXml, Exporting };

    void buildForm();
    void DisplayData();
    /// Closes when the report was sent or could not be; stays when the address is wrong or the user
    /// has cancelled.
    void cmdSend_Click();
    /// Sends; False after telling why it could not be sent. Raises base::Cancelled.
    [[nodiscard]] bool send();
    /// Lights up a step and the arrow that leads to it.
    void mark(Step step);
    void clearMarks();

    QLineEdit *txtEmail = nullptr;
    QLabel *lblCheckData = nullptr;
    QLabel *Image1 = nullptr;
    QLabel *lblGenerating_XML = nullptr;
    QLabel *Image2 = nullptr;
    QLabel *lblExporting = nullptr;
    QPushButton *cmdSend = nullptr;
    QPushButton *cmdExit = nullptr;
};
