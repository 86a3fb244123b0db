#include "shell/Setup.h"

#include "core/Options.h"

#include <array>

namespace shell {

using namespace Qt::StringLiterals;

namespace {

/// In twips; a place of None is left as it is stored.
struct FormSize
{
    static constexpr int None = -1;

    QStringView form;
    int height;
    int left;
    int top;
    int width;
};

// Most forms stand beside the main window's side bar.
constexpr int Left = 2180;
constexpr int Top = 1450;
constexpr int None = FormSize::None;

constexpr std::array deliveredSizes{
    FormSize{u"frmCostCenter", 3825, 4200, 3840, 6945},
    FormSize{u"frmCountReading", 3345, Left, Top, 3825},
    FormSize{u"frmCrew", 3810, 3960, 3855, 7425},
    FormSize{u"frmEmployee", 6840, Left, Top, 9900},
    FormSize{u"frmEquipment", 7425, Left, Top, 11430},
    FormSize{u"frmEquipmentReading", 6720, Left, Top, 8055},
    FormSize{u"frmEquipmentImage", 4875, Left, Top, 5265},
    FormSize{u"frmFilterScreen", 4590, None, None, 5940},
    FormSize{u"frmIndicator", 3720, Left, Top, 9090},
    FormSize{u"frmInventryCheckIn", 5460, Left, Top, 8280},
    FormSize{u"frmItemList", 5010, None, None, 8775},
    FormSize{u"frmLocation", 4275, 4005, 3615, 7335},
    FormSize{u"frmMainScreen", 11190, None, None, 15480},
    FormSize{u"frmPartManager", 4965, Left, Top, 9270},
    FormSize{u"frmQuickFind", 7050, Left, Top, 9060},
    FormSize{u"frmServicesManager", 5055, Left, Top, 9720},
    FormSize{u"frmSite", 4830, 4080, 3345, 7185},
    FormSize{u"frmSupplier", 6270, Left, Top, 9990},
    FormSize{u"frmPart", 6735, 4275, 3060, 6810},
    FormSize{u"frmSendEmail", 8805, None, None, 6975},
    FormSize{u"frmServices", 8175, Left, Top, 10680},
    FormSize{u"frmWorkorder", 8400, Left, Top, 9735},
    FormSize{u"frmServiceTime", 2940, Left, Top, 3015},
    FormSize{u"frmServiceDateConfirmation", 3450, Left, Top, 4035},
    FormSize{u"frmSetup", 6150, None, None, 7965},
};

constexpr std::array<QStringView, 19> options{
    u"UserDefinedField1",    u"UserDefinedField2",   u"UserDefinedField3", u"UserDefinedField4",
    u"UserDefinedField5",    u"UserDefinedField6",   u"UserDefinedField7", u"UserDefinedField8",
    u"UserDefinedField9",    u"UserDefinedField10",  u"GEN_COMPANY_NAME",  u"GEN_COMPANY_ADDRESS1",
    u"GEN_COMPANY_ADDRESS2", u"GEN_COMPANY_PHONE",   u"GEN_COMPANY_EMAIL", u"GEN_COMPANY_WEBSITE",
    u"COUNT_READING_DELAY",  u"SERVICE_LATE_YELLOW", u"SERVICE_LATE_RED",
};

void store(QStringView measure, const FormSize &size, int twips)
{
    if (twips != None)
        SetOption(measure.toString() + size.form.toString(), twips, true);
}

} // namespace

std::span<const QStringView> companyOptions()
{
    return options;
}

QString usualFieldCaption(int number)
{
    return u"User Field%1"_s.arg(number);
}

QString fieldCaptionOption(int number)
{
    return u"UserDefinedField%1"_s.arg(number);
}

void setDefaultFormSize()
{
    for (const FormSize &size : deliveredSizes) {
        store(u"HEIGHT", size, size.height);
        store(u"LEFT", size, size.left);
        store(u"TOP", size, size.top);
        store(u"WIDTH", size, size.width);
    }
}

} // namespace shell
