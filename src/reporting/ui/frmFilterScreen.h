#pragma once

#include "reporting/ui/FilterScreen.h"

#include <span>

class QCheckBox;

namespace input {
class IdCombo;
}

/// The filter screen of twelve reports: ten sets of fields, of which one is shown at a time.
class frmFilterScreen final : public FilterScreen
{
    Q_OBJECT

public:
    using Build = void (frmFilterScreen::*)(input::FormBuilder &form);
    using Ask = catalogue::Request (frmFilterScreen::*)() const;
    /// A report that is filtered here, by the name that it is opened by.
    struct Entry
    {
        QStringView name;
        QStringView caption;
        QStringView heading;
        QStringView frame; ///< whose fields are shown
        Build build;       ///< makes these
        Ask ask;           ///< what they come to
    };
    /// The twelve, for the list of what can be opened.
    [[nodiscard]] static std::span<const Entry> entries();

    /// The entry must outlive the screen, as those of entries() do.
    explicit frmFilterScreen(const Entry &entry, QWidget *parent = nullptr);

protected:
    [[nodiscard]] std::optional<catalogue::Request> request() const override;
    void resetChoices() override;

private:
    void buildEquipmentServices(input::FormBuilder &form);
    void buildPart(input::FormBuilder &form);
    void buildReorder(input::FormBuilder &form);
    void buildInventoryPartUsage(input::FormBuilder &form);
    void buildEquipmentCrewHistory(input::FormBuilder &form);
    void buildInventoryPartHistory(input::FormBuilder &form);
    void buildServiceHistoryTimes(input::FormBuilder &form);
    void buildInventoryOrderUpcommingServices(input::FormBuilder &form);
    void buildInspectionDate(input::FormBuilder &form);
    void buildLicenseDate(input::FormBuilder &form);

    [[nodiscard]] filters::Machines machines() const;
    [[nodiscard]] catalogue::Request services() const;
    [[nodiscard]] catalogue::Request details() const;
    [[nodiscard]] catalogue::Request expense() const;
    [[nodiscard]] catalogue::Request inventory() const;
    [[nodiscard]] catalogue::Request reorder() const;
    [[nodiscard]] catalogue::Request partUsage() const;
    [[nodiscard]] catalogue::Request crewHistory() const;
    [[nodiscard]] catalogue::Request partHistory() const;
    [[nodiscard]] catalogue::Request historyTimes() const;
    [[nodiscard]] catalogue::Request upcomingParts() const;
    [[nodiscard]] catalogue::Request inspections() const;
    [[nodiscard]] catalogue::Request licenses() const;

    const Entry &m_entry;
    Range m_range; ///< of the set that has one

    QLineEdit *txtUnitNo = nullptr;
    QCheckBox *chkInactive = nullptr;
    QLineEdit *txtPartCategory = nullptr;
    QLineEdit *txtSupplier = nullptr;
    input::IdCombo *cboInactive = nullptr;
    QLineEdit *txtPartCategoryIn = nullptr;
    QLineEdit *txtSupplierIn = nullptr;
    QRadioButton *optPostedPartWO = nullptr;
    QLineEdit *txtPartIPU = nullptr;
    QLineEdit *txtEquipment = nullptr;
    QLineEdit *txtCrewNo = nullptr;
    QLineEdit *txtPartH = nullptr;
    QRadioButton *optSummary = nullptr;
    QRadioButton *optPDate = nullptr;
    QLineEdit *txtSHEquipment = nullptr;
    QRadioButton *optDate = nullptr;
    QLineEdit *txtInv_Supplier = nullptr;
};
