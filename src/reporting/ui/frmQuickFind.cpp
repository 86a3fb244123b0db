#include "reporting/ui/frmQuickFind.h"

#include "core/Flag.h"
#include "core/Options.h"
#include "core/ui/EmptyText.h"
#include "core/ui/ListGrid.h"
#include "core/ui/MayDo.h"
#include "core/ui/Openings.h"
#include "core/ui/SearchKeys.h"
#include "platform/base/Format.h"
#include "platform/base/Prompts.h"
#include "platform/base/Trapped.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/IdCombo.h"
#include "platform/input/KeyFilter.h"
#include "platform/input/Theme.h"
#include "reporting/ui/FieldSearch.h"

#include <QCheckBox>
#include <QElapsedTimer>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr const char *Module = "frmQuickFind";
constexpr QStringView Ticked = u"Select";

// A list is shown with its first rows; the others are read while the user looks at them.
constexpr int FirstRows = 200;
constexpr int RowsAtOnce = 100;
constexpr int MillisecondsAtOnce = 8; ///< half of the time between two frames

/// Widths of columns whose texts are long or short by nature; others have the usual one.
int widthOf(QStringView column)
{
    static const QHash<QStringView, int> widths{
        {u"Name", 180},       {u"Description", 220}, {u"LocationName", 180}, {u"Site", 140},
        {u"Location", 140},   {u"Assigned to", 150}, {u"Address", 160},      {u"Email", 180},
        {u"WebSite", 180},    {u"Skills", 180},      {u"Inactive", 70},      {u"State", 60},
        {u"Initial Name", 80}};
    return widths.value(column, 110);
}

/// A field may bear a name of the customer's, in which "&" is a character and not the mark of a
/// key.
void showWhatToEnter(QLabel &label, QString field)
{
    label.setText(u"Enter "_s + field.replace(u'&', u"&&"_s));
}

} // namespace

frmQuickFind::frmQuickFind(const ScreenCalls::QuickFind &request, QWidget *parent)
    : Screen(u"frmQuickFind"_s, quickfind::SetCaption(request.table), parent,
             StoreWhat::SizeAtUsualPlace)
    , m_request(request)
    , m_table(quickfind::tableOf(request.table))
{
    if (m_table == nullptr)
        throw base::Error(base::ErrorNumber::InvalidCall,
                          u"There is no quick find of \"%1\"."_s.arg(request.table));
    buildForm();
}

void frmQuickFind::buildForm()
{
    input::FormBuilder form(this);
    addSearch(form);
    grdQuickFind = new grid::GridView(this);
    showWhenEmpty(*grdQuickFind, u"Nothing to find."_s);
    grdQuickFind->setObjectName(u"grdQuickFind"_s);
    grdQuickFind->setAccessibleName(m_table->caption.toString());
    form.widget(grdQuickFind, true);
    cmdAdd = form.leftButton(u"cmdAdd"_s, u"&Add New"_s, theme::icon(u"add"_s));
    cmdSelect = form.button(u"cmdSelect"_s, u"&Select"_s, theme::icon(u"find"_s));
    cmdCancel = form.button(u"cmdCancel"_s, u"&Cancel"_s, theme::icon(u"cancel"_s));
    form.finish();
    resize(860, 540);

    // Where no screen has joined for the table there is nowhere to add a record.
    cmdAdd->setEnabled(openings().isJoined(m_request.form));
    cmdSelect->setDefault(true);
    m_search = new FieldSearch(cboFieldNames, txtSearchText, grdQuickFind,
                               IncrementalSearch::WithoutMatch::ClearRow);
    m_search->setMayBegin([this] { return maySearch(); });
    moveRowsFrom(txtSearchText2, grdQuickFind);
    // Begins as "Manual", which also puts caption and focus right.
    setAutomatic(false);
    m_reading.setSingleShot(true);
    connect(&m_reading, &QTimer::timeout, this, &frmQuickFind::readOn);

    connect(m_search, &FieldSearch::fieldChosen, this,
            [this] { showWhatToEnter(*lblMainField, m_search->field().description); });
    // One box searches; the other one only stands in for it and hands its letters on.
    connect(txtSearchText2, &QLineEdit::textChanged, txtSearchText, &QLineEdit::setText);
    connect(optAuto, &QRadioButton::toggled, this, &frmQuickFind::setAutomatic);
    connect(chkInactive, &QCheckBox::clicked, this, &frmQuickFind::chkInactive_Click);
    connect(grdQuickFind, &grid::GridView::rowActivated, this,
            &frmQuickFind::grdQuickFind_Activated);
    connect(cmdSelect, &QPushButton::clicked, this, &frmQuickFind::cmdSelect_Click);
    connect(cmdAdd, &QPushButton::clicked, this, &frmQuickFind::cmdAdd_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmQuickFind::reject);
}

void frmQuickFind::addSearch(input::FormBuilder &form)
{
    form.beginColumns();
    cboFieldNames = form.comboField(u"cboFieldNames"_s, u"Search &by:"_s);
    lblFieldNames = form.lastLabel();
    auto *searchBoxes = new QWidget(this);
    searchBoxes->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    form.field(u"Enter "_s + m_request.label, searchBoxes);
    lblMainField = form.lastLabel();
    lblMainField->setObjectName(u"lblMainField"_s);
    auto *layout = new QHBoxLayout(searchBoxes);
    layout->setContentsMargins({});
    const auto searchBox = [&](const QString &name) {
        auto *box = new QLineEdit(searchBoxes);
        input::keepOnOneLine(box);
        box->setObjectName(name);
        box->setAccessibleName(lblMainField->text());
        layout->addWidget(box);
        return box;
    };
    txtSearchText = searchBox(u"txtSearchText"_s);
    // Stands in the place of the other box in the mode "Auto" and hands its text on to it.
    txtSearchText2 = searchBox(u"txtSearchText2"_s);
    form.nextColumn();
    form.beginRow();
    optManual = form.optionButton(u"optOption0"_s, u"&Manual"_s);
    optAuto = form.optionButton(u"optOption1"_s, u"A&uto"_s);
    form.endRow();
    chkInactive = form.checkBox(u"chkInactive"_s, u"Show &Inactive"_s);
    form.endColumns();
    optManual->setChecked(true);
    chkInactive->setVisible(!m_table->inactiveOption.isEmpty());
}

QString frmQuickFind::ShowQuickFind()
{
    if (!m_table->inactiveOption.isEmpty()) {
        const QString option = m_table->inactiveOption.toString();
        chkInactive->setChecked(base::toText(GetOption(option, true)) == u"1");
    }
    if (!ShowQuickFindMain())
        return {};
    // Each table has columns, and so a layout, of its own.
    adoptGrid(grdQuickFind,
              m_table->name.toString() + (m_request.several ? u"Several"_s : QString()));
    showModal();
    m_reading.stop();
    m_list.reset();
    // The new record's screen opens only once this one is gone, which is modal.
    if (m_addNew)
        openings().open(m_request.form, {.mode = Mode::Add});
    return m_result;
}

bool frmQuickFind::ShowQuickFindMain()
{
    return base::trapped(Module, "ShowQuickFindMain - ", false, [&] {
        const QList<quickfind::Field> fields = quickfind::fieldsOf(m_table->name);
        if (fields.isEmpty()) {
            base::showMessage(u"One of lookup item has been deleted\nmanually from database"_s);
            return false;
        }
        // The list is shown anew when the box for inactive ones is clicked: the field that is
        // searched stays.
        const QString chosen = m_search->field().name;
        m_search->setFields(fields, chosen.isEmpty() ? m_request.field : chosen);
        // What is ticked stays so when the list is shown anew, with or without inactive ones.
        const QStringList ticked = tickedKeys();
        m_list = std::make_unique<quickfind::List>(*m_table, m_request.field,
                                                   chkInactive->isChecked(), m_request.leftOut);
        // A row to stand on or to tick may be the last one; then all are read at once.
        if (ticked.isEmpty() && m_request.selected.isEmpty())
            m_list->read(FirstRows);
        else
            m_list->readAll();
        grdQuickFind->rows().setRecordset(m_list->rows());
        if (!m_list->isComplete())
            m_reading.start();
        if (!std::exchange(m_columnsAreSet, true))
            setColumns();
        tick(ticked);
        const int row = m_request.selected.isEmpty()
                            ? -1
                            : grdQuickFind->rows().findRow(m_table->key, m_request.selected);
        grdQuickFind->selectRow(row >= 0 ? row : grdQuickFind->displayedOrder().value(0, -1));
        return true;
    });
}

void frmQuickFind::readOn()
{
    base::trapped(Module, "readOn", [this] {
        // Between two parts the screen answers keys and paints.
        m_reading.stop();
        QElapsedTimer timer;
        timer.start();
        while (m_list->read(RowsAtOnce)) {
            if (timer.elapsed() >= MillisecondsAtOnce) {
                m_reading.start();
                return;
            }
        }
        showAll();
    });
}

void frmQuickFind::readAll()
{
    if (!m_list || m_list->isComplete())
        return;
    m_reading.stop();
    m_list->readAll();
    showAll();
}

void frmQuickFind::showAll()
{
    grdQuickFind->rows().extendRecordset(m_list->rows());
    if (std::exchange(m_searchWaits, false))
        m_search->search();
}

bool frmQuickFind::maySearch()
{
    m_searchWaits = m_list && !m_list->isComplete();
    return !m_searchWaits;
}

void frmQuickFind::setColumns()
{
    grid::GridModel &rows = grdQuickFind->rows();
    if (m_request.several)
        rows.addColumn({.name = Ticked.toString(),
                        .width = 60,
                        .editable = true,
                        .editor = grid::Editor::Check,
                        .position = 0});
    for (int index = 0; index < rows.columnCount(); ++index) {
        const QString name = rows.columnAt(index).name;
        if (name != Ticked)
            rows.column(name).width = widthOf(name);
    }
    rows.column(m_table->key).visible = m_table->keyIsShown;
    if (rows.hasColumn(u"Inactive"))
        rows.column(u"Inactive").editor = grid::Editor::Check;
    for (const quickfind::NumberColumn &number : m_table->numbers) {
        rows.column(number.name).align = grid::Align::Right;
        rows.column(number.name).format = number.format.toString();
    }
    rows.columnsChanged();
}

QStringList frmQuickFind::tickedKeys() const
{
    const grid::GridModel &rows = grdQuickFind->rows();
    QStringList keys;
    if (rows.hasColumn(Ticked))
        for (int row = 0; row < rows.rowCount(); ++row)
            if (rows.value(row, Ticked).toBool())
                keys.append(base::toText(rows.value(row, m_table->key)));
    return keys;
}

void frmQuickFind::tick(const QStringList &keys)
{
    if (!m_request.several)
        return;
    grid::GridModel &rows = grdQuickFind->rows();
    // A box without a value would be neither ticked nor empty.
    rows.setAll(Ticked, false);
    for (const QString &key : keys)
        if (const int row = rows.findRow(m_table->key, key); row >= 0)
            rows.setValue(row, Ticked, true);
}

void frmQuickFind::setAutomatic(bool automatic)
{
    cboFieldNames->setVisible(!automatic);
    lblFieldNames->setVisible(!automatic);
    txtSearchText->setVisible(!automatic);
    lblMainField->setBuddy(automatic ? txtSearchText2 : txtSearchText);
    txtSearchText2->setVisible(automatic);
    QLineEdit *box = automatic ? txtSearchText2 : txtSearchText;
    // In automatic mode the table says which columns are searched, the main one first.
    m_search->setAutomatic(
        automatic ? QList<QStringView>(m_table->automatic.begin(), m_table->automatic.end())
                  : QList<QStringView>());
    showWhatToEnter(*lblMainField, automatic || m_search->field().description.isEmpty()
                                       ? m_request.label
                                       : m_search->field().description);
    // What was typed goes on in the box that is shown now.
    if (automatic)
        txtSearchText2->setText(txtSearchText->text());
    m_search->search();
    box->setFocus();
}

QString frmQuickFind::currentKey() const
{
    const int row = grdQuickFind->currentRow();
    return row < 0 ? QString() : base::toText(grdQuickFind->rows().value(row, m_table->key));
}

void frmQuickFind::grdQuickFind_Activated(int row)
{
    // Among several, the row that was double-clicked is one of the chosen.
    if (m_request.several)
        grdQuickFind->rows().setValue(row, Ticked, true);
    cmdSelect_Click();
}

void frmQuickFind::cmdSelect_Click()
{
    // A box that was just ticked may still be in its editor.
    if (!grdQuickFind->finishEditing())
        return;
    base::trapped(Module, "cmdSelect_Click", [this] {
        // What was typed means a row that may not have been read yet.
        if (m_searchWaits)
            readAll();
        // Who ticked nothing means the row under the cursor.
        m_result = tickedKeys().join(u',');
        if (m_result.isEmpty())
            m_result = currentKey();
    });
    if (!m_result.isEmpty())
        unload();
}

void frmQuickFind::cmdAdd_Click()
{
    if (!mayDo(m_table->addRight))
        return;
    // Only noted: the new record's screen can't come up over this modal one.
    m_addNew = true;
    unload();
}

void frmQuickFind::chkInactive_Click()
{
    SetOption(m_table->inactiveOption.toString(), flagText(chkInactive->isChecked()), true);
    if (const QString current = currentKey(); !current.isEmpty())
        // The row under the cursor is looked for again in the other list.
        m_request.selected = current;
    if (!ShowQuickFindMain())
        unload();
}
