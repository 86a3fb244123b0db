#pragma once

#include "equipment/ui/RecordPage.h"

#include <array>

class QLabel;

/// How the company came by a machine: owned, leased or on loan, the warranty and the purchase.
class PurchasePage final : public RecordPage
{
    Q_OBJECT

public:
    explicit PurchasePage(MachineFrame &frame, QWidget *parent = nullptr);

    void DisplayData(const clsEquipment &machine, const db::Row &row) override;
    void RefreshCombo(const QString &listName) override;

private:
    void buildLease(input::FormBuilder &form);
    void buildWarranty(input::FormBuilder &form);
    void buildPurchase(input::FormBuilder &form);
    input::DateInput *addDate(input::FormBuilder &form, const QString &name, const QString &label,
                              QDateTime clsEquipment::*member);
    void loadSuppliers();
    /// Names the lease block after what it holds, a lease or a loan.
    void nameLease();

    struct LeaseCaption
    {
        QLabel *label = nullptr;
        QWidget *field = nullptr;
    };
    std::array<LeaseCaption, 5> m_leaseCaptions;

    input::IdCombo *cboLeaseOwnedLeased = nullptr;
    input::IdCombo *cboLeaseCompany = nullptr;
    QLineEdit *txtLeaseInterval = nullptr;
    input::IdCombo *cboLeasePeriod = nullptr;
    QLineEdit *txtWarrantyInterval = nullptr;
    input::IdCombo *cboWarrantyPeriod = nullptr;
    input::IdCombo *cboSupplier = nullptr;
    input::IdCombo *cboManufacturer = nullptr;
};
