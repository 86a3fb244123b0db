#include "gallery/GalleryWindow.h"

#include "gallery/SampleGrid.h"
#include "platform/base/Prompts.h"
#include "platform/grid/GridView.h"
#include "platform/input/CurrencyInput.h"
#include "platform/input/DateInput.h"
#include "platform/input/DateStamp.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/IdCombo.h"
#include "platform/input/KeyFilter.h"
#include "platform/input/Leaving.h"
#include "platform/input/LinkLabel.h"
#include "platform/input/PhoneInput.h"
#include "platform/input/QuickLink.h"
#include "platform/input/SpinInput.h"
#include "platform/input/Theme.h"
#include "platform/input/TimeInput.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QTabWidget>
#include <QToolButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace gallery {
namespace {

class Header : public QWidget
{
public:
    explicit Header(QWidget *parent)
        : QWidget(parent)
    {
        setFixedHeight(theme::headerHeight);
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        theme::paintHeader(painter, rect());
    }
};

QString answerWord(base::Prompts::Answer answer)
{
    switch (answer) {
    case base::Prompts::Answer::Ok:
        return u"Ok"_s;
    case base::Prompts::Answer::Cancel:
        return u"Cancel"_s;
    case base::Prompts::Answer::Yes:
        return u"Yes"_s;
    case base::Prompts::Answer::No:
        return u"No"_s;
    }
    return {};
}

} // namespace

GalleryWindow::GalleryWindow(QWidget *parent)
    : QDialog(parent)
    , m_pages(new QTabWidget(this))
{
    setWindowTitle(u"Gallery of controls"_s);
    setWindowIcon(theme::programIcon());
    setWindowFlag(Qt::WindowMaximizeButtonHint);

    auto *content = new QWidget(this);
    input::FormBuilder form(content);
    m_pages->addTab(makeInputs(), u"Inputs"_s);
    m_pages->addTab(makeGrid(), u"Grid"_s);
    m_pages->addTab(makeMessages(), u"Messages"_s);
    m_pages->addTab(makePictures(), u"Pictures"_s);
    form.widget(m_pages, true);
    form.note(u"What the controls report appears here."_s, u"lblEcho"_s);
    const auto navigation =
        form.navigation(u"cmdFirst"_s, u"cmdPrevious"_s, u"cmdNext"_s, u"cmdLast"_s);
    navigation.first->setEnabled(false);
    navigation.previous->setEnabled(false);
    form.button(u"cmdAdd"_s, u"&Add"_s, theme::icon(u"add"_s));
    form.button(u"cmdUpdate"_s, u"&Save"_s, theme::icon(u"save"_s))->setDefault(true);
    form.button(u"cmdDelete"_s, u"De&lete"_s, theme::icon(u"delete"_s))->setEnabled(false);
    QPushButton *leave = form.button(u"cmdExit"_s, u"&Return"_s, theme::icon(u"return"_s));
    input::setCausesValidation(leave, false);
    connect(leave, &QPushButton::clicked, this, &QDialog::close);
    form.finish();

    auto *stack = new QVBoxLayout(this);
    stack->setContentsMargins(0, 0, 0, 0);
    stack->setSpacing(0);
    stack->addWidget(new Header(this));
    stack->addWidget(content, 1);
}

void GalleryWindow::showPage(const QString &title)
{
    for (int i = 0; i < m_pages->count(); ++i) {
        if (m_pages->tabText(i) == title)
            m_pages->setCurrentIndex(i);
    }
}

void GalleryWindow::echo(const QString &text)
{
    findChild<QLabel *>(u"lblEcho"_s)->setText(text);
}

QWidget *GalleryWindow::makeInputs()
{
    auto *page = new QWidget(this);
    input::FormBuilder form(page);
    form.beginColumns();

    form.beginGroup(u"Text"_s, u"fraText"_s);
    form.textField(u"txtName"_s, u"&Name"_s, 50);
    input::upperCaseAsTyped(form.textField(u"txtUnitNo"_s, u"&Unit No"_s, 12));
    auto *letters = form.textField(u"txtCode"_s, u"Letters and digits"_s, 12);
    input::restrictTo(letters, input::TypeCheck::String, input::TypeCheck::Int);
    form.digitsField(u"txtJobNo"_s, u"&Job No"_s, 8);
    input::restrictTo(form.textField(u"txtBudgetedlabor"_s, u"Budgeted hours"_s, 9),
                      input::TypeCheck::Double);
    form.passwordField(u"txtPassword"_s, u"&Password"_s, 20);
    form.textField(u"txtDisabled"_s, u"Can't be used"_s, 20)->setEnabled(false);
    auto *locked = form.textField(u"txtLocked"_s, u"Read only"_s, 20);
    locked->setText(u"Shown, not edited"_s);
    locked->setReadOnly(true);
    form.readOnlyField(u"lblTotalCost"_s, u"Total cost"_s)->setText(u"$1234.50"_s);
    form.endGroup();

    form.beginGroup(u"Notes"_s, u"fraNotes"_s);
    QPlainTextEdit *notes = form.memoField(u"txtNotes"_s, u"N&otes"_s, 4);
    notes->setPlainText(u"Blade sharpened.\nBelt to be watched."_s);
    input::installDateStamp(notes);
    form.endGroup();

    form.nextColumn();
    form.beginGroup(u"Masks"_s, u"fraMasks"_s);
    input::DateInput *date = form.dateField(u"datInspection"_s, u"&Date"_s);
    date->checkOnLeave();
    connect(date, &input::DateInput::dateChanged, this,
            [this](QDate day) { echo(u"Date: "_s + day.toString(Qt::ISODate)); });
    form.beginRow();
    form.dateField(u"datFrom"_s, u"&From"_s)->setDate(QDate(2024, 3, 1));
    form.dateField(u"datTo"_s, u"&To"_s)->setDate(QDate(2024, 3, 31));
    form.endRow();
    auto *start = form.timeField(u"timeStart"_s, u"Start time"_s);
    input::validateOnLeave(start, [start] {
        if (!start->normalise(u"08:00A"_s))
            base::showMessage(u"Invalid Time"_s);
        return true;
    });
    auto *phone = form.phoneField(u"txtPhone"_s, u"P&hone"_s);
    input::validateOnLeave(phone, [phone] {
        if (!phone->isValidOrEmpty())
            base::showMessage(u"Invalid phone No"_s);
        return phone->isValidOrEmpty();
    });
    form.currencyField(u"curBudget"_s, u"&Budget"_s)->setValue(1250);
    input::SpinInput *spin = form.spinField(u"RRSpin1"_s, u"Every"_s);
    connect(spin, &QSpinBox::valueChanged, this,
            [this](int value) { echo(u"Interval: %1"_s.arg(value)); });
    form.endGroup();

    form.beginGroup(u"Choices"_s, u"fraChoices"_s);
    input::IdCombo *state = form.comboField(u"cboState"_s, u"&State"_s);
    state->add(u"  "_s, 0);
    qint64 id = 100;
    for (const QString &name : {u"Maine"_s, u"Maryland"_s, u"Massachusetts"_s, u"Michigan"_s,
                                u"Minnesota"_s, u"Mississippi"_s, u"Missouri"_s, u"Montana"_s})
        state->add(name, ++id);
    connect(state, &QComboBox::currentIndexChanged, this,
            [this, state] { echo(u"State id: %1"_s.arg(state->id())); });
    form.sideButton(u"cmdState"_s, u"Edit the states"_s);
    form.checkBox(u"chkInactive"_s, u"Inacti&ve"_s);
    form.beginRow();
    form.optionButton(u"optCompletion"_s, u"Work Order Completion"_s)->setChecked(true);
    form.optionButton(u"OptDSA"_s, u"Don't Schedule Again"_s);
    form.endRow();
    form.endGroup();

    form.nextColumn();
    form.beginGroup(u"Lists"_s, u"fraLists"_s);
    QListWidget *list = form.listField(u"lstSkills"_s, u"S&kills"_s, 4);
    list->addItems({u"Welding"_s, u"Small engines"_s, u"Hydraulics"_s, u"Irrigation"_s});
    list->setCurrentRow(1);
    form.endGroup();
    form.beginGroup(u"Links"_s, u"fraLinks"_s);
    auto *link = form.linkField(u"lnkSite"_s, u"Web site"_s, u"www.example.com"_s);
    connect(link, &input::LinkLabel::clicked, this, [this] { echo(u"Link clicked"_s); });
    const std::pair<QString, QString> quick[] = {{u"Work Orders"_s, u"work-order"_s},
                                                 {u"Equipment"_s, u"equipment"_s},
                                                 {u"Suppliers"_s, u"supplier"_s},
                                                 {u"Part Inventory"_s, u"part"_s},
                                                 {u"Help && Support"_s, u"help"_s}};
    for (int index = 0; const auto &[label, picture] : quick) {
        auto *quickLink = new input::QuickLink(label, theme::icon(picture), page);
        quickLink->setObjectName(u"lblQuickMenu%1"_s.arg(index++));
        quickLink->setEnabled(picture != u"supplier"_s);
        connect(quickLink, &QAbstractButton::clicked, this,
                [this, label = label] { echo(u"Quick link: "_s + label); });
        form.widget(quickLink);
    }
    form.endGroup();
    form.endColumns();
    form.finish();
    return page;
}

QWidget *GalleryWindow::makeGrid()
{
    auto *page = new QWidget(this);
    input::FormBuilder form(page);
    grid::GridView *view = makeSampleGrid(page);
    connect(view, &grid::GridView::changed, this, [this, view](int row, const QString &column) {
        echo(u"%1 of row %2: %3"_s.arg(column).arg(row).arg(view->rows().text(row, column)));
    });
    connect(view, &grid::GridView::buttonClicked, this, [this](int row, const QString &column) {
        echo(u"Button %1 of row %2"_s.arg(column).arg(row));
    });
    connect(view, &grid::GridView::linkClicked, this, [this](int row, const QString &column) {
        echo(u"Link %1 of row %2"_s.arg(column).arg(row));
    });
    form.widget(view, true);
    form.finish();
    return page;
}

QWidget *GalleryWindow::makeMessages()
{
    using base::Prompts;
    auto *page = new QWidget(this);
    input::FormBuilder form(page);
    const auto add = [&](const QString &name, const QString &caption, const QString &picture,
                         const Prompts::Message &message) {
        QPushButton *made = form.inlineButton(name, caption, theme::icon(picture));
        connect(made, &QPushButton::clicked, this,
                [this, message] { echo(answerWord(base::prompts().show(message))); });
    };
    add(u"cmdInformation"_s, u"&Information"_s, u"information"_s,
        {u"Name should not be blank"_s, Prompts::Icon::Information, Prompts::Buttons::Ok, {}});
    add(u"cmdQuestion"_s, u"&Question"_s, u"question"_s,
        {u"Are you sure you want to Delete this record?"_s,
         Prompts::Icon::Question,
         Prompts::Buttons::YesNo,
         {}});
    add(u"cmdChanges"_s, u"Save &changes"_s, u"save"_s,
        {u"Do you want to save changes?"_s,
         Prompts::Icon::Question,
         Prompts::Buttons::YesNoCancel,
         {}});
    add(u"cmdWarning"_s, u"&Warning"_s, u"warning"_s,
        {u"This service is already assigned to a work order. Changing this date will not remove "
         u"it from the work order."_s,
         Prompts::Icon::Warning,
         Prompts::Buttons::OkCancel,
         {}});
    add(u"cmdCritical"_s, u"&Error"_s, u"error"_s,
        {u"Database is in use. System cannot perform this task now."_s,
         Prompts::Icon::Critical,
         Prompts::Buttons::Ok,
         {}});
    QPushButton *ask = form.inlineButton(u"cmdInput"_s, u"Input &box"_s, theme::icon(u"note"_s));
    connect(ask, &QPushButton::clicked, this, [this] {
        const auto text = base::prompts().input(
            u"Please mention the reason for Skiping the Service"_s, {}, u"Rain"_s);
        echo(text.value_or(u"Cancelled"_s));
    });
    form.finish();
    return page;
}

QWidget *GalleryWindow::makePictures()
{
    auto *scroll = new QScrollArea(this);
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    auto *page = new QWidget(scroll);
    auto *cells = new QGridLayout(page);
    constexpr int columns = 7;
    constexpr int side = 32;
    for (int index = 0; const QString &name : theme::iconNames()) {
        auto *cell = new QWidget(page);
        auto *row = new QHBoxLayout(cell);
        row->setContentsMargins(2, 2, 2, 2);
        for (const QIcon::Mode mode : {QIcon::Normal, QIcon::Disabled}) {
            auto *picture = new QLabel(cell);
            picture->setPixmap(
                theme::icon(name).pixmap(QSize(side, side), devicePixelRatio(), mode));
            row->addWidget(picture);
        }
        auto *label = new QLabel(name, cell);
        row->addWidget(label, 1);
        cells->addWidget(cell, index / columns, index % columns);
        ++index;
    }
    scroll->setWidget(page);
    return scroll;
}

} // namespace gallery
