#pragma once

#include <QDialog>

class QLabel;
class QMovie;

/// A small notice beside work that takes a while; not modal.
class frmMessages : public QDialog
{
    Q_OBJECT

public:
    explicit frmMessages(QWidget *parent = nullptr);

    /// Shows the notice and paints it before the work begins.
    void ShowMessages();

private:
    QLabel *imgMan = nullptr;
    QLabel *lblMessage = nullptr;
};
