#pragma once

#include "core/ui/Screen.h"

class QLabel;
class QTimer;

/// The progress of an export. It has no buttons: it works by itself, on a timer, and closes itself.
/// With nothing to export it tries again at each tick, until the user closes it.
class frmExportXml : public Screen
{
    Q_OBJECT

public:
    explicit frmExportXml(QWidget *parent = nullptr);
    ~frmExportXml() override;

private:
    void buildForm();
    void tmrExport_Timer();

    QTimer *tmrExport = nullptr;
    QLabel *imgQuery = nullptr;
    QLabel *imgExport = nullptr;
    QLabel *imgGenerate = nullptr;
    QLabel *lblDone = nullptr;
    int m_step = 1;
    bool m_done = false;
    bool m_failed = false;
};
