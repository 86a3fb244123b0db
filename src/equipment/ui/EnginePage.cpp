#include "equipment/ui/EnginePage.h"

#include "core/ui/LookupCombo.h"
#include "organisation/clsIndicator.h"
#include "organisation/ui/Entries.h"
#include "platform/base/Prompts.h"
#include "platform/input/FormBuilder.h"

#include <QLineEdit>

using namespace Qt::StringLiterals;

EnginePage::EnginePage(MachineFrame &frame, QWidget *parent)
    : RecordPage(frame, parent)
{
    buildPage();
    loadLookupList(*cboEngineMake, LookupList::EngineMake);
    loadLookupList(*cboEngineFuelType, LookupList::FuelType);
    cboCycle->add({u"  "_s, u"2 Cycle"_s, u"4 Cycle"_s});
}

void EnginePage::buildPage()
{
    input::FormBuilder form(this);
    form.beginColumns();
    txtEngineSize = form.digitsField(u"txtEngineSize"_s, u"Engine Si&ze:"_s, 30);
    cboEngineMake = form.comboField(u"cboEngineMake"_s, u"Engine &Make:"_s);
    editorButton(form, u"cmdEngineMake"_s, u"Edit the engine makes"_s, u"EMAKE"_s,
                 [this] { ShowIndicatorDetail(LookupList::EngineMake, cboEngineMake->id()); });
    cboEngineModel = form.comboField(u"cboEngineModel"_s, u"Engine Mode&l:"_s);
    editorButton(form, u"cmdEngineModel"_s, u"Edit the engine models"_s, u"EMODEL"_s,
                 [this] { editModels(); });
    txtEngineSerialNo = form.textField(u"txtEngineSerialNo"_s, u"Engine Serial N&o:"_s, 50);
    cboCycle = form.comboField(u"cboCycle"_s, u"C&ycle:"_s);
    cboEngineFuelType = form.comboField(u"cboEngineFuelType"_s, u"F&uel Type:"_s);
    editorButton(form, u"cmdEngineFuelType"_s, u"Edit the fuel types"_s, u"FUELTYPE"_s,
                 [this] { ShowIndicatorDetail(LookupList::FuelType, cboEngineFuelType->id()); });
    form.nextColumn();
    form.endColumns();
    form.finish();

    fields().add(txtEngineSize, &clsEquipment::EngineSize);
    fields().add(cboEngineMake, &clsEquipment::EngineMake);
    fields().add(cboEngineModel, &clsEquipment::EngineModel);
    fields().add(txtEngineSerialNo, &clsEquipment::EngineSerialNo);
    fields().add(cboCycle, &clsEquipment::Cycle);
    fields().add(cboEngineFuelType, &clsEquipment::EngineFuelType);
    // Also when a machine is shown: its model is looked for among those of its make.
    connect(cboEngineMake, &QComboBox::currentIndexChanged, this,
            [this] { loadChildren(*cboEngineModel, cboEngineMake->id()); });
}

void EnginePage::editModels()
{
    // A model hangs on its make; without one it would be found under none.
    if (!cboEngineMake->isItemChosen()) {
        base::showMessage(u"You must first add a new Make before adding a new Model"_s);
        return;
    }
    ShowIndicatorDetail(LookupList::Model, cboEngineModel->id(),
                        QString::number(cboEngineMake->id()), 0, true);
}

void EnginePage::RefreshCombo(const QString &listName)
{
    // The models are rebuilt with their make, so the chosen one is put back.
    const qint64 model = cboEngineModel->id();
    if (listName == u"EMAKE")
        rebuildKeepingChoice(*cboEngineMake,
                             [this] { loadLookupList(*cboEngineMake, LookupList::EngineMake); });
    if (listName == u"EMAKE" || listName == u"EMODEL") {
        loadChildren(*cboEngineModel, cboEngineMake->id());
        cboEngineModel->select(model);
    }
    if (listName == u"FUELTYPE")
        rebuildKeepingChoice(*cboEngineFuelType,
                             [this] { loadLookupList(*cboEngineFuelType, LookupList::FuelType); });
}
