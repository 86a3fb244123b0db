#pragma once

#include "equipment/ui/RecordPage.h"

/// The engine of a machine.
class EnginePage final : public RecordPage
{
    Q_OBJECT

public:
    explicit EnginePage(MachineFrame &frame, QWidget *parent = nullptr);

    void RefreshCombo(const QString &listName) override;

private:
    void buildPage();
    /// The models hang on a make, which has to be chosen first.
    void editModels();

    QLineEdit *txtEngineSize = nullptr;
    input::IdCombo *cboEngineMake = nullptr;
    input::IdCombo *cboEngineModel = nullptr;
    QLineEdit *txtEngineSerialNo = nullptr;
    input::IdCombo *cboCycle = nullptr;
    input::IdCombo *cboEngineFuelType = nullptr;
};
