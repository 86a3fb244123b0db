#include "shell/ui/frmSetup.h"

#include "core/Options.h"
#include "organisation/clsIndicator.h"
#include "organisation/ui/Entries.h"
#include "platform/base/Prompts.h"
#include "platform/base/Trapped.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/IdCombo.h"
#include "platform/input/Leaving.h"
#include "platform/input/PhoneInput.h"
#include "platform/input/Theme.h"
#include "reporting/Preparation.h"
#include "shell/Setup.h"

#include <QApplication>
#include <QCheckBox>
#include <QFontMetrics>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr const char *Module = "frmSetup";
constexpr int OptionLength = 100;
constexpr int FreeFields = 10;
constexpr int DigitsOfDays = 4;

/// "Field 1" to "Field 10", each with its last digit for the keyboard.
QString fieldLabel(int number)
{
    return u"Field %1&%2"_s.arg(number < 10 ? QString() : QString::number(number / 10))
        .arg(number % 10);
}

/// A constant of the longest caption, since the buttons are made one by one.
/// All buttons of lists are as wide as the widest of them.
int widthOfLists()
{
    constexpr int Frame = 24; // pixels on both sides together
    QFont font = QApplication::font();
    font.setBold(true);
    return QFontMetrics(font).horizontalAdvance(u"Vehicle Transmission"_s) + Frame;
}

} // namespace

frmSetup::frmSetup(QWidget *parent)
    : Screen(u"frmSetup"_s, u"Options"_s, parent, StoreWhat::SizeOnly)
{
    buildForm();
    // They are stored in the order of the list of options, whatever page shows them.
    const auto options = shell::companyOptions();
    std::ranges::stable_sort(m_fields, {}, [&](const Field &field) {
        return std::ranges::find(options, field.key) - options.begin();
    });
    // The pages have connected their own controls; these are of all of them.
    connect(cmdDefaultFormSize, &QPushButton::clicked, this, &frmSetup::cmdDefaultFormSize_Click);
    connect(cmdOk, &QPushButton::clicked, this, &frmSetup::cmdOk_Click);
    connect(cmdApply, &QPushButton::clicked, this, &frmSetup::cmdApply_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmSetup::cmdCancel_Click);
    connect(cmdExit, &QPushButton::clicked, this, [this] { unload(); });
    readOptions();
}

void frmSetup::ShowSystemSettings(const QString &page)
{
    frmSetup screen(QApplication::activeWindow());
    // A page that is not there leaves the first one in front.
    if (auto *wanted = screen.tabOptions->findChild<QWidget *>(page))
        screen.tabOptions->setCurrentWidget(wanted);
    screen.showModal();
}

// --- The pages -----------------------------------------------------------------------------------

void frmSetup::buildForm()
{
    input::FormBuilder form(this);
    tabOptions = new QTabWidget(this);
    tabOptions->setObjectName(u"tabOptions"_s);
    addPage(companyPage(), u"pageCompany"_s, u"C&ompany"_s);
    addPage(fieldsPage(), u"pageFields"_s, u"&User Fields"_s);
    addPage(listsPage(), u"pageLists"_s, u"&Lists"_s);
    addPage(workstationPage(), u"pageWorkstation"_s, u"&Workstation"_s);
    addPage(mailPage(), u"pageMail"_s, u"&Mail"_s);
    addPage(errorReportsPage(), u"pageErrorReports"_s, u"&Error Reports"_s);
    addPage(updatesPage(), u"pageUpdates"_s, u"U&pdates"_s);
    addPage(backupsPage(), u"pageBackups"_s, u"&Backups"_s);
    form.widget(tabOptions, true);
    cmdOk = form.button(u"cmdOk"_s, u"O&K"_s, theme::icon(u"save"_s));
    cmdApply = form.button(u"cmdApply"_s, u"&Apply"_s, theme::icon(u"complete"_s));
    cmdCancel = form.button(u"cmdCancel"_s, u"&Cancel"_s, theme::icon(u"cancel"_s));
    cmdExit = form.button(u"cmdExit"_s, u"&Return"_s, theme::icon(u"return"_s));
    form.finish();
    // Who gives up is not held back by what is half typed.
    input::setCausesValidation(cmdCancel, false);
    input::setCausesValidation(cmdExit, false);
    resize(640, 520);
    txtCompanyName->setFocus();
}

void frmSetup::addPage(QWidget *page, const QString &name, const QString &caption)
{
    page->setObjectName(name);
    tabOptions->addTab(page, caption);
}

QWidget *frmSetup::companyPage()
{
    auto *page = new QWidget(this);
    input::FormBuilder form(page);
    txtCompanyName =
        addText(form, u"GEN_COMPANY_NAME", u"txtCompanyName"_s, u"Company &Name "_s, OptionLength);
    addText(form, u"GEN_COMPANY_ADDRESS1", u"txtCompanyAddress1"_s, u"Company A&ddress"_s,
            OptionLength);
    // Its label is that of the line above; assistive tools need one all the same.
    addText(form, u"GEN_COMPANY_ADDRESS2", u"txtCompanyAddress2"_s, {}, OptionLength)
        ->setAccessibleName(u"Second line of the address"_s);
    txtCompanyPhone = form.phoneField(u"txtCompanyPhone"_s, u"P&hone"_s);
    addField(txtCompanyPhone, u"GEN_COMPANY_PHONE");
    input::validateOnLeave(txtCompanyPhone,
                           [this] { return txtCompanyPhone->check(u"Invalid phone No."_s); });
    addText(form, u"GEN_COMPANY_EMAIL", u"txtCompanyEmail"_s, u"Ema&il"_s, OptionLength);
    addText(form, u"GEN_COMPANY_WEBSITE", u"txtCompanyWebSite"_s, u"Web Si&te"_s, OptionLength);
    form.beginGroup(u"Warnings"_s, u"fraWarnings"_s);
    addDays(form, u"COUNT_READING_DELAY", u"txtCountReadingDelay"_s,
            u"Number of da&ys between counts"_s);
    addDays(form, u"SERVICE_LATE_YELLOW", u"txtServiceLateYellow"_s,
            u"Number of days late to show ser&vice as Yellow Code"_s);
    addDays(form, u"SERVICE_LATE_RED", u"txtServiceLateRed"_s,
            u"Number o&f days late to show service as Red Code"_s);
    form.endGroup();
    chkSecurity = form.checkBox(u"chkSecurity"_s, u"&Security On/Off"_s);
    // "1" is on, and everything else is off, an option that is missing included.
    addField({.key = shell::SecurityOption.toString(),
              .text = [this] { return chkSecurity->isChecked() ? u"1"_s : u"0"_s; },
              .setText = [this](const QString &text) { chkSecurity->setChecked(text == u"1"); }});
    connect(chkSecurity, &QCheckBox::toggled, this,
            [this] { markChanged(shell::SecurityOption.toString()); });
    form.stretch();
    form.finish();
    return page;
}

QWidget *frmSetup::fieldsPage()
{
    auto *page = new QWidget(this);
    input::FormBuilder form(page);
    form.note(
        u"What the ten free fields of a machine are called on its screen and in its report."_s);
    for (int number = 1; number <= FreeFields; ++number) {
        QLineEdit *box = addText(form, shell::fieldCaptionOption(number),
                                 u"txtField%1"_s.arg(number), fieldLabel(number), OptionLength);
        // A field without a caption would be a box without a label on the machine's screen.
        connect(box, &QLineEdit::editingFinished, this, [box, number] {
            if (box->text().trimmed().isEmpty())
                box->setText(shell::usualFieldCaption(number));
        });
    }
    form.stretch();
    form.finish();
    return page;
}

QWidget *frmSetup::listsPage()
{
    using namespace LookupList;
    struct List
    {
        const char *name;
        const char *caption;
        qint64 number;
        bool engine = false;
    };
    // Engine models are models whose makes are engine makes: one list, opened in two ways.
    constexpr List lists[] = {
        {"cmdCountry", "Country", Country},
        {"cmdState", "State", State},
        {"cmdEmployeePosition", "Employee Position", EmployeePosition},
        {"cmdEquipmentType", "Equipment Type", EquipmentType},
        {"cmdEquipmentMake", "Equipment Make", Make},
        {"cmdEquipmentModel", "Equipment Model", Model},
        {"cmdEngineMake", "Engine Make", EngineMake},
        {"cmdEngineModel", "Engine Model", Model, true},
        {"cmdFuelType", "Fuel Type", FuelType},
        {"cmdLeaseCompany", "Lease Company", LeaseCompany},
        {"cmdManufactureType", "Manufacturer", Manufacturer},
        {"cmdPartCategory", "Part Category", PartCategory},
        {"cmdTireType", "Tire Type", TyreType},
        {"cmdVehicleBodyType", "Vehicle Body", VehicleBody},
        {"cmdVehicleChassisType", "Vehicle Chassis", VehicleChassis},
        {"cmdVehicleEngineType", "Vehicle Engine Type", VehicleEngineType},
        {"cmdVehicleTransType", "Vehicle Transmission", VehicleTransmission},
    };
    auto *page = new QWidget(this);
    input::FormBuilder form(page);
    form.note(u"The lists that screens choose from."_s);
    form.beginColumns();
    int row = 0;
    constexpr int RowsOfColumn = 7;
    const auto next = [&] {
        if (row++ % RowsOfColumn == 0 && row > 1)
            form.nextColumn();
    };
    for (const List &list : lists) {
        next();
        addList(form, QString::fromLatin1(list.name), QString::fromLatin1(list.caption),
                [list] { ShowIndicatorDetail(list.number, 0, {}, 0, list.engine); });
    }
    next();
    addList(form, u"cmdLocation"_s, u"Location"_s, [] { ShowLocationDetail(Mode::Browse, 0); });
    next();
    addList(form, u"cmdSite"_s, u"Site"_s, [] { showSiteDetail(Mode::Browse, 0); });
    next();
    addList(form, u"cmdCrew"_s, u"Crew"_s, [] { ShowCrewDetail(Mode::Browse, 0); });
    next();
    addList(form, u"cmdCostCenter"_s, u"Cost Center"_s,
            [] { ShowCostCenterDetail(Mode::Browse, 0); });
    form.endColumns();
    form.stretch();
    form.finish();
    return page;
}

QWidget *frmSetup::workstationPage()
{
    auto *page = new QWidget(this);
    input::FormBuilder form(page);
    form.note(u"These hold for this computer only."_s);
    auto *cboPaper = form.comboField(u"cboPaper"_s, u"Paper o&f reports"_s);
    cboPaper->add(catalogue::papers());
    addField({.key = catalogue::paperOption(),
              .perWorkstation = true,
              .text = [cboPaper] { return cboPaper->currentText(); },
              .setText =
                  [cboPaper](const QString &text) {
                      // Nothing is stored before the first choice, and a release may drop a paper.
                      if (!cboPaper->selectText(text))
                          cboPaper->setCurrentIndex(0);
                  }});
    connect(cboPaper, &QComboBox::currentIndexChanged, this,
            [this] { markChanged(catalogue::paperOption()); });
    // No option: the button acts at once, whatever Cancel does.
    form.beginRow(u"Size and place of all windows"_s);
    cmdDefaultFormSize = form.inlineButton(u"cmdDefaultFormSize"_s, u"&Set to default"_s);
    form.endRow();
    form.stretch();
    form.finish();
    return page;
}

QLineEdit *frmSetup::addText(input::FormBuilder &form, QStringView key, const QString &name,
                             const QString &label, int length)
{
    QLineEdit *box = form.textField(name, label, length);
    addField(box, key);
    return box;
}

QLineEdit *frmSetup::addDays(input::FormBuilder &form, QStringView key, const QString &name,
                             const QString &label)
{
    QLineEdit *box = form.digitsField(name, label, DigitsOfDays);
    addField(box, key);
    return box;
}

void frmSetup::addField(QLineEdit *box, QStringView key)
{
    addField({.key = key.toString(),
              .text = [box] { return box->text(); },
              .setText = [box](const QString &text) { box->setText(text); }});
    // By textChanged, which comes also for what a check or a usual caption puts there.
    connect(box, &QLineEdit::textChanged, this,
            [this, name = key.toString()] { markChanged(name); });
}

void frmSetup::addField(Field field)
{
    m_fields.append(std::move(field));
}

void frmSetup::addList(input::FormBuilder &form, const QString &name, const QString &caption,
                       std::function<void()> open)
{
    QPushButton *button = form.inlineButton(name, caption);
    button->setMinimumWidth(widthOfLists());
    connect(button, &QPushButton::clicked, this, std::move(open));
}

// --- What is stored ------------------------------------------------------------------------------

void frmSetup::readOptions()
{
    base::trapped(Module, "DisplayData", [this] {
        // Filling the boxes is no change. The mark goes also when an option can't be read.
        m_reading = true;
        for (Field &field : m_fields) {
            field.setText(field.read ? field.read() : GetOption(field.key, field.perWorkstation));
            field.changed = false;
        }
    });
    m_reading = false;
    EnableControls();
}

void frmSetup::markChanged(const QString &key)
{
    if (m_reading)
        return;
    const auto field = std::ranges::find(m_fields, key, &Field::key);
    if (field != m_fields.end())
        field->changed = true;
    EnableControls();
}

bool frmSetup::isChanged() const
{
    return std::ranges::any_of(m_fields, &Field::changed);
}

void frmSetup::EnableControls()
{
    cmdApply->setEnabled(isChanged());
    cmdCancel->setEnabled(isChanged());
}

bool frmSetup::SaveSystemChanges()
{
    // Enter and Alt+A come here while the field that was typed into still has the focus. The phone
    // number may stand on a page that is not in front.
    if (!input::focusedMayLeave(this))
        return false;
    if (!txtCompanyPhone->check(u"Invalid phone No."_s)) {
        tabOptions->setCurrentIndex(0);
        txtCompanyPhone->setFocus();
        return false;
    }
    return base::trapped(Module, "SaveSystemChanges", false, [this] {
        // The first option that can't be stored ends it: those behind it stay marked as changed,
        // and Apply tries them again.
        const base::Whole whole;
        for (Field &field : m_fields) {
            if (!field.changed)
                continue;
            if (field.store)
                // What is not an option: a secret, or a value of the registry.
                field.store(field.text());
            else
                SetOption(field.key, field.text(), field.perWorkstation);
            field.changed = false;
            if (field.key == shell::SecurityOption)
                // The login is asked at the start, and menus are made for the user who passed it.
                base::showInformation(
                    u"To enable/disable passwords please close and restart the program"_s);
        }
        return true;
    });
}

void frmSetup::cmdOk_Click()
{
    // Nothing changed needs no check: a phone number from before may lack digits.
    if (!isChanged() || SaveSystemChanges())
        unload();
}

void frmSetup::cmdApply_Click()
{
    SaveSystemChanges();
    EnableControls();
}

void frmSetup::cmdCancel_Click()
{
    readOptions();
}

void frmSetup::cmdDefaultFormSize_Click()
{
    base::trapped(Module, "setDefaultFormSize", [] { shell::setDefaultFormSize(); });
}
