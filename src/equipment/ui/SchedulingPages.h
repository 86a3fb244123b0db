#pragma once

#include "equipment/ui/EquipmentPage.h"

class CountPage;
class ServicePage;

/// The services of a machine on a page of its screen.
class EquipmentServicePage final : public EquipmentPage
{
    Q_OBJECT

public:
    explicit EquipmentServicePage(EquipmentFrame &frame, QWidget *parent = nullptr);

    void showMachine(qint64 EquipmentID) override;
    [[nodiscard]] bool hasContent() const override;
    void setEditable(bool editable) override;
    [[nodiscard]] bool finishEditing() override;
    void pageShown() override;

Q_SIGNALS:
    /// Services came, went or changed: the targets of readings may have, too.
    void servicesChanged();

private:
    ServicePage *m_page;
};

/// The meter readings of a machine on a page of its screen.
class EquipmentCountPage final : public EquipmentPage
{
    Q_OBJECT

public:
    explicit EquipmentCountPage(EquipmentFrame &frame, QWidget *parent = nullptr);

    void showMachine(qint64 EquipmentID) override;
    [[nodiscard]] bool hasContent() const override;
    void setEditable(bool editable) override;
    void pageShown() override;

Q_SIGNALS:
    /// Readings came or went: services may have fallen due.
    void readingsChanged();

private:
    CountPage *m_page;
};
