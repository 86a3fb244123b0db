#pragma once

#include "reporting/ui/FilterScreen.h"

class QCheckBox;

/// The filter screen of the services that were done and what they cost.
class frmServiceHistory final : public FilterScreen
{
    Q_OBJECT

public:
    explicit frmServiceHistory(QWidget *parent = nullptr);

protected:
    [[nodiscard]] std::optional<catalogue::Request> request() const override;

private:
    [[nodiscard]] filters::HistoryGroup group() const;
    void enableFields();

    Range m_range;
    QLineEdit *txtSite = nullptr;
    QLineEdit *txtSHUnitNo = nullptr;
    QCheckBox *chkgrouponsite = nullptr;
    QCheckBox *chkgrouponCrew = nullptr;
};
