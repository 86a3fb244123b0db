#include "shell/ui/frmUserRoles.h"

#include "core/InTheWay.h"
#include "core/ui/Telling.h"
#include "platform/base/Trapped.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/Theme.h"
#include "shell/RightsTable.h"

#include <QApplication>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr auto module = "frmUserRoles";

QString column(const shell::RightEntry &right)
{
    return QString::fromLatin1(right.column);
}

/// Add, modify and delete stand together, apart from reports and sheets.
bool isRecordRight(const shell::RightEntry &right)
{
    const QString name = column(right);
    return name.endsWith(u"Add") || name.endsWith(u"Mod") || name.endsWith(u"Del");
}

} // namespace

frmUserRoles::frmUserRoles(const QString &UserName, QWidget *parent)
    : Screen(u"frmUserRoles"_s, u"User Roles - "_s + UserName, parent, StoreWhat::SizeOnly)
    , m_userName(UserName)
{
    buildForm();
    watch({m_boxes.begin(), m_boxes.end()});
    connect(cmdUpdate, &QPushButton::clicked, this, &frmUserRoles::cmdUpdate_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmUserRoles::cmdCancel_Click);
    connect(cmdExit, &QPushButton::clicked, this, &frmUserRoles::cmdExit_Click);
    RefreshRecordSet();
}

void frmUserRoles::buildForm()
{
    input::FormBuilder form(this);
    form.note(u"What the user %1 may do. A change takes effect at the user's next login."_s.arg(
        m_userName));
    SSTab1 = new QTabWidget(this);
    SSTab1->setObjectName(u"SSTab1"_s);
    form.widget(SSTab1, true);

    const struct
    {
        shell::RightsTab tab;
        QString title;
    } tabs[] = {{shell::RightsTab::Equipment, u"E&quipment"_s},
                {shell::RightsTab::Services, u"Ser&vices and Work Orders"_s},
                {shell::RightsTab::Inventory, u"&Parts and Inventory"_s}};
    // The boxes stand in the order of the rights, whichever tab shows them.
    QHash<QString, QCheckBox *> boxes;
    for (const auto &[tab, title] : tabs) {
        auto *page = new QWidget(SSTab1);
        input::FormBuilder pageForm(page);
        pageForm.beginColumns();
        // Two columns on each page: what changes records, and what is only read.
        for (const bool records : {true, false}) {
            if (!records)
                pageForm.nextColumn();
            pageForm.beginGroup(records ? u"Records"_s : u"Reports and sheets"_s);
            for (const shell::RightEntry &right : shell::rightsTable()) {
                if (right.tab == tab && isRecordRight(right) == records)
                    boxes[column(right)] = pageForm.checkBox(u"chk"_s + column(right),
                                                             QString::fromLatin1(right.caption));
            }
            pageForm.stretch();
            pageForm.endGroup();
        }
        pageForm.endColumns();
        pageForm.finish();
        SSTab1->addTab(page, title);
    }
    // One order for boxes and rights from here on, by which they are matched when shown and stored.
    for (const shell::RightEntry &right : shell::rightsTable())
        m_boxes.append(boxes.value(column(right)));

    cmdUpdate = form.button(u"cmdUpdate"_s, u"&Save"_s, theme::icon(u"save"_s));
    cmdCancel = form.button(u"cmdCancel"_s, u"&Cancel"_s, theme::icon(u"cancel"_s));
    cmdExit = form.button(u"cmdExit"_s, u"&Return"_s, theme::icon(u"return"_s));
    form.finish();
}

void frmUserRoles::ShowUserRolesDetail(const QString &UserName)
{
    frmUserRoles(UserName, QApplication::activeWindow()).showModal();
}

void frmUserRoles::RefreshRecordSet()
{
    base::trapped(module, "RefreshRecordSet", [this] { DisplayData(GrantedRights(m_userName)); });
    setMode(Mode::Browse);
}

void frmUserRoles::DisplayData(const QSet<QString> &granted)
{
    const Displaying displaying(*this);
    // Kept for the save, which stores nothing when another administrator has changed them.
    m_shown = granted;
    for (qsizetype i = 0; i < m_boxes.size(); ++i)
        m_boxes[i]->setChecked(granted.contains(column(shell::rightsTable()[i])));
}

void frmUserRoles::EnableControls()
{
    // Return stays: what is not saved is left without a question, as on the options.
    const bool changed = mode() != Mode::Browse;
    cmdUpdate->setEnabled(changed);
    cmdCancel->setEnabled(changed);
}

void frmUserRoles::cmdUpdate_Click()
{
    telling(module, "cmdUpdate_Click", [this] {
        QSet<QString> granted;
        for (qsizetype i = 0; i < m_boxes.size(); ++i) {
            if (m_boxes[i]->isChecked())
                granted.insert(column(shell::rightsTable()[i]));
        }
        // All boxes are stored, changed or not: the row holds what this screen showed.
        orInTheWay([&] { StoreRights(m_userName, granted, m_shown); },
                   [this] {
                       return u"Another workstation is changing the user \"%1\". Please try "
                              "again in a moment."_s.arg(m_userName);
                   });
        // As they are stored now, which turns the screen back.
        RefreshRecordSet();
    });
}

void frmUserRoles::cmdCancel_Click()
{
    RefreshRecordSet();
}

void frmUserRoles::cmdExit_Click()
{
    unload();
}
