#include "platform/report/designer/DesignerActions.h"

#include "platform/input/Theme.h"
#include "platform/report/designer/Arrange.h"
#include "platform/report/designer/DesignCanvas.h"
#include "platform/report/designer/HouseStyles.h"
#include "platform/report/designer/Structure.h"
#include "platform/report/designer/StructureTree.h"

#include <QMenu>

namespace report {
namespace {

using namespace Qt::StringLiterals;

QString tipOf(const QString &caption, const QList<QKeySequence> &keys)
{
    return keys.isEmpty()
               ? caption
               : u"%1 (%2)"_s.arg(caption, keys.first().toString(QKeySequence::NativeText));
}

} // namespace

DesignerActions::DesignerActions(DesignDocument &document, DesignCanvas &canvas,
                                 StructureTree &tree, QWidget *owner)
    : QObject(owner)
    , m_document(document)
    , m_canvas(canvas)
    , m_tree(tree)
    , m_owner(owner)
{
    addEditing();
    addArranging();
    addInserting();
    addParts();
    addBandMenu();
    addViewing();
    connect(&document, &DesignDocument::layoutChanged, this, &DesignerActions::enable);
    connect(&document, &DesignDocument::selectionChanged, this, &DesignerActions::enable);
    enable();
}

QAction *DesignerActions::add(const QString &name, const QString &caption, const QString &icon,
                              const QList<QKeySequence> &keys, const std::function<void()> &run)
{
    auto *action = new QAction(theme::icon(icon), caption, this);
    action->setObjectName(name);
    action->setShortcuts(keys);
    // Ctrl+C and Del mean something else to a field in which words are typed.
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    action->setToolTip(tipOf(caption, keys));
    connect(action, &QAction::triggered, this, run);
    m_owner->addAction(action);
    m_actions.insert(name, action);
    return action;
}

QAction *DesignerActions::addSwitch(const QString &name, const QString &caption,
                                    const QString &icon, bool isOn,
                                    const std::function<void(bool)> &run)
{
    // Switched by toggled, which tells a change that the program made too.
    QAction *action = add(name, caption, icon, {}, [] {});
    action->setCheckable(true);
    action->setChecked(isOn);
    connect(action, &QAction::toggled, this, run);
    return action;
}

void DesignerActions::change(const QString &name,
                             const std::function<void(Layout &, const Selection &)> &changes)
{
    m_document.endSeries();
    m_document.change(
        name, [&](Layout &layout, const Selection &selection) { changes(layout, selection); });
}

void DesignerActions::addEditing()
{
    QUndoStack &stack = m_document.undoStack();
    QAction *undo =
        add(u"undo"_s, u"Undo"_s, u"undo"_s, {QKeySequence::Undo}, [&stack] { stack.undo(); });
    QAction *redo =
        add(u"redo"_s, u"Redo"_s, u"redo"_s,
            {QKeySequence(Qt::CTRL | Qt::Key_Y), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z)},
            [&stack] { stack.redo(); });
    connect(&stack, &QUndoStack::undoTextChanged, undo, [undo](const QString &name) {
        undo->setToolTip(name.isEmpty() ? u"Undo (Ctrl+Z)"_s : u"Undo %1 (Ctrl+Z)"_s.arg(name));
    });
    connect(&stack, &QUndoStack::redoTextChanged, redo, [redo](const QString &name) {
        redo->setToolTip(name.isEmpty() ? u"Redo (Ctrl+Y)"_s : u"Redo %1 (Ctrl+Y)"_s.arg(name));
    });
    connect(&stack, &QUndoStack::canUndoChanged, undo, &QAction::setEnabled);
    connect(&stack, &QUndoStack::canRedoChanged, redo, &QAction::setEnabled);
    undo->setEnabled(false);
    redo->setEnabled(false);
    add(u"cut"_s, u"Cut"_s, u"cut"_s, {QKeySequence::Cut}, [this] {
        copy();
        m_tree.removeSelected();
    });
    add(u"copy"_s, u"Copy"_s, u"copy"_s, {QKeySequence::Copy}, [this] { copy(); });
    add(u"paste"_s, u"Paste"_s, u"paste"_s, {QKeySequence::Paste}, [this] { paste(); });
    add(u"duplicate"_s, u"Duplicate"_s, u"duplicate"_s, {QKeySequence(Qt::CTRL | Qt::Key_D)},
        [this] { duplicate(); });
    add(u"delete"_s, u"Delete"_s, u"delete"_s, {QKeySequence::Delete},
        [this] { m_tree.removeSelected(); });
    add(u"selectAll"_s, u"Select all of the band"_s, u"select-all"_s, {QKeySequence::SelectAll},
        [this] { selectAll(); });
}

void DesignerActions::addArranging()
{
    const auto aligning = [&](const QString &name, const QString &caption, AlignEdge edge) {
        add(name, caption, name, {}, [this, caption, edge] {
            change(caption, [edge](Layout &layout, const Selection &selection) {
                align(layout, selection, edge);
            });
        });
    };
    aligning(u"align-left"_s, u"Align left edges"_s, AlignEdge::Left);
    aligning(u"align-center"_s, u"Align centers"_s, AlignEdge::Center);
    aligning(u"align-right"_s, u"Align right edges"_s, AlignEdge::Right);
    aligning(u"align-top"_s, u"Align top edges"_s, AlignEdge::Top);
    aligning(u"align-middle"_s, u"Align middles"_s, AlignEdge::Middle);
    aligning(u"align-bottom"_s, u"Align bottom edges"_s, AlignEdge::Bottom);
    const auto distributing = [&](const QString &name, const QString &caption, Direction way) {
        add(name, caption, name, {}, [this, caption, way] {
            change(caption, [way](Layout &layout, const Selection &selection) {
                distribute(layout, selection, way);
            });
        });
    };
    distributing(u"distribute-across"_s, u"Equal gaps across"_s, Direction::Across);
    distributing(u"distribute-down"_s, u"Equal gaps down"_s, Direction::Down);
    const auto sizing = [&](const QString &name, const QString &caption, SameSize size) {
        add(name, caption, name, {}, [this, caption, size] {
            change(caption, [size](Layout &layout, const Selection &selection) {
                makeSameSize(layout, selection, size);
            });
        });
    };
    sizing(u"same-width"_s, u"Same width"_s, SameSize::Width);
    sizing(u"same-height"_s, u"Same height"_s, SameSize::Height);
    sizing(u"same-size"_s, u"Same size"_s, SameSize::Both);
    const auto ordering = [&](const QString &name, const QString &caption, const QKeySequence &key,
                              Order order) {
        add(name, caption, name, {key}, [this, caption, order] {
            m_document.change(caption, [order](Layout &layout, Selection &selection) {
                selection = Selection::of(reorder(layout, selection.objects, order));
            });
        });
    };
    ordering(u"to-front"_s, u"To the front"_s, QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_F),
             Order::Front);
    ordering(u"to-back"_s, u"To the back"_s, QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_B),
             Order::Back);
    add(u"band-above"_s, u"Into the band above"_s, u"previous"_s,
        {QKeySequence(Qt::CTRL | Qt::Key_PageUp)}, [this] { moveToNextBand(-1); });
    add(u"band-below"_s, u"Into the band below"_s, u"next"_s,
        {QKeySequence(Qt::CTRL | Qt::Key_PageDown)}, [this] { moveToNextBand(1); });
}

/// What stands in one band goes to the upper edge of its neighbour.
void DesignerActions::moveToNextBand(int direction)
{
    m_document.endSeries();
    m_document.change(u"Move to band"_s, [direction](Layout &layout, Selection &selection) {
        const int target = selection.band() + direction;
        const QRect frame = frameAround(layout, selection.objects);
        // Places change with the band, so the lead is kept by its number among them.
        const auto lead = selection.objects.indexOf(selection.lead);
        const QList<Place> places =
            moveToBand(layout, selection.objects, target, QPoint(0, -frame.y()));
        selection = Selection::of(places);
        selection.lead = places[lead];
    });
    m_canvas.showSelection();
}

bool DesignerActions::canMoveToNextBand(int direction) const
{
    const Selection &selection = m_document.selection();
    const int target = selection.band() + direction;
    return !selection.objects.isEmpty() && target >= 0 &&
           target < m_document.layout().bands.size() &&
           std::ranges::all_of(selection.objects, [&](const Place &place) {
               return place.band == selection.lead.band;
           });
}

void DesignerActions::addInserting()
{
    struct Kind
    {
        const char16_t *name;
        ObjectKind kind;
        Qt::Key key;
    };
    constexpr Kind Kinds[] = {
        {u"text", ObjectKind::Text, Qt::Key_1},         {u"field", ObjectKind::Field, Qt::Key_2},
        {u"line", ObjectKind::Line, Qt::Key_3},         {u"box", ObjectKind::Box, Qt::Key_4},
        {u"bar-code", ObjectKind::BarCode, Qt::Key_6},  {u"chart", ObjectKind::Chart, Qt::Key_7},
        {u"cross-tab", ObjectKind::CrossTab, Qt::Key_8}};
    for (const Kind &entry : Kinds) {
        const QString icon = QString::fromUtf16(entry.name);
        QAction *action =
            add(u"insert-"_s + icon, u"Insert %1"_s.arg(kindName(entry.kind).toLower()),
                u"report-"_s + icon, {QKeySequence(Qt::CTRL | entry.key)},
                [this, kind = entry.kind] { m_canvas.insert(kind); });
        action->setCheckable(true);
        connect(&m_canvas, &DesignCanvas::insertingChanged, action,
                [this, action, kind = entry.kind] {
                    action->setChecked(m_canvas.inserting() == kind);
                });
    }
    add(u"insert-picture"_s, u"Insert picture"_s, u"picture"_s,
        {QKeySequence(Qt::CTRL | Qt::Key_5)}, [this] { insertPicture(); });
}

void DesignerActions::addParts()
{
    add(u"add-group"_s, u"Add group"_s, u"plus"_s, {QKeySequence(Qt::CTRL | Qt::Key_G)}, [this] {
        // A selected field is what is grouped by.
        const Selection &selection = m_document.selection();
        const bool isField = selection.objects.size() == 1 &&
                             m_document.object(selection.lead).kind == ObjectKind::Field;
        m_tree.addGroup(isField ? m_document.object(selection.lead).content : QString());
    });
    add(u"add-sort"_s, u"Add sort order"_s, u"plus"_s, {}, [this] { m_tree.addSort(); });
    add(u"add-formula"_s, u"Add formula"_s, u"plus"_s, {}, [this] { m_tree.addFormula(); });
    add(u"add-parameter"_s, u"Add parameter"_s, u"plus"_s, {}, [this] { m_tree.addParameter(); });
    add(u"add-style"_s, u"Add style"_s, u"plus"_s, {}, [this] { m_tree.addStyle(); });
    add(u"move-up"_s, u"Move up"_s, u"previous"_s, {QKeySequence(Qt::ALT | Qt::Key_Up)},
        [this] { m_tree.moveSelected(-1); });
    add(u"move-down"_s, u"Move down"_s, u"next"_s, {QKeySequence(Qt::ALT | Qt::Key_Down)},
        [this] { m_tree.moveSelected(1); });
    add(u"add-totals"_s, u"Add totals"_s, u"report-total"_s, {QKeySequence(Qt::CTRL | Qt::Key_T)},
        [this] {
            m_document.endSeries();
            m_document.change(u"Add totals"_s, [](Layout &layout, Selection &selection) {
                if (const QList<Place> totals = addTotals(layout, selection.objects);
                    !totals.isEmpty())
                    selection = Selection::of(totals);
            });
        });
    add(u"select-column"_s, u"Select the column"_s, u"select-all"_s,
        {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C)}, [this] { selectColumn(); });
    add(u"fit-band"_s, u"Band as high as its objects"_s, u"report-band"_s, {}, [this] {
        const int band = m_document.selection().band();
        change(u"Height of band"_s,
               [band](Layout &layout, const Selection &) { fitBand(layout, band); });
    });
    QAction *styles = add(u"looks"_s, u"Looks"_s, u"report-style"_s, {}, [] {});
    auto *menu = new QMenu(m_owner);
    for (const Look &look : looks())
        menu->addAction(look.name, this, [this, &look] {
            change(u"Look %1"_s.arg(look.name), [&look](Layout &layout, const Selection &) {
                assignHouseStyles(layout);
                applyLook(layout, look);
            });
        });
    styles->setMenu(menu);
    styles->setToolTip(u"Looks: styles of title, headings, details and totals for the whole"
                       " report"_s);
}

/// The object that was chosen stays the one by whose edges the column is drawn.
void DesignerActions::selectColumn()
{
    const Place lead = m_document.selection().lead;
    if (m_document.selection().objects.isEmpty())
        return;
    Selection column = Selection::of(columnOf(m_document.layout(), lead));
    column.lead = lead;
    m_document.select(column);
}

void DesignerActions::addBandMenu()
{
    QAction *bands = add(u"add-band"_s, u"Add band"_s, u"report-band"_s, {}, [] {});
    auto *menu = new QMenu(m_owner);
    bands->setMenu(menu);
    // What can be added hangs on the groups and further rows that there are.
    connect(menu, &QMenu::aboutToShow, this, [this, menu] {
        menu->clear();
        const auto offer = [&](const Band &band) {
            menu->addAction(bandName(band), this, [this, band] {
                m_document.change(u"Add band"_s, [&](Layout &layout, Selection &selection) {
                    selection = Selection::of(Selection::Part::Band, addBand(layout, band));
                });
            });
        };
        for (const BandKind kind : {BandKind::ReportHeader, BandKind::PageHeader, BandKind::Detail,
                                    BandKind::ReportFooter, BandKind::PageFooter}) {
            Band band;
            band.kind = kind;
            offer(band);
        }
        for (const Group &group : m_document.layout().groups)
            for (const BandKind kind : {BandKind::GroupHeader, BandKind::GroupFooter}) {
                Band band;
                band.kind = kind;
                band.group = group.name;
                offer(band);
            }
        for (const RowSet &set : m_document.layout().rowSets)
            for (const BandKind kind :
                 {BandKind::SubHeader, BandKind::SubDetail, BandKind::SubFooter}) {
                Band band;
                band.kind = kind;
                band.rows = set.name;
                offer(band);
            }
    });
}

void DesignerActions::addViewing()
{
    add(u"query"_s, u"Query..."_s, u"find"_s, {QKeySequence(Qt::CTRL | Qt::Key_Q)},
        [this] { Q_EMIT queryAsked(); });
    action(u"query"_s)->setVisible(false);
    add(u"attributes"_s, u"Attributes"_s, u"edit"_s, {QKeySequence(Qt::Key_F4)},
        [this] { Q_EMIT attributesAsked(); });
    add(u"preview"_s, u"Preview"_s, u"preview"_s, {QKeySequence(Qt::Key_F5)},
        [this] { Q_EMIT previewAsked(); });
    add(u"zoom-out"_s, u"Smaller"_s, u"zoom-out"_s, {QKeySequence::ZoomOut},
        [this] { m_canvas.setZoom(m_canvas.zoom() - 25); });
    add(u"zoom-in"_s, u"Larger"_s, u"zoom-in"_s,
        {QKeySequence::ZoomIn, QKeySequence(Qt::CTRL | Qt::Key_Equal)},
        [this] { m_canvas.setZoom(m_canvas.zoom() + 25); });
    add(u"zoom-100"_s, u"Size on paper"_s, u"report"_s, {QKeySequence(Qt::CTRL | Qt::Key_0)},
        [this] { m_canvas.setZoom(100); });
    add(u"zoom-width"_s, u"Whole width"_s, u"report-width"_s, {QKeySequence(Qt::CTRL | Qt::Key_9)},
        [this] { m_canvas.zoomToWidth(); });
    addSwitch(u"grid"_s, u"Grid of 1 mm"_s, u"report-grid"_s, true,
              [this](bool isOn) { m_canvas.setGridShown(isOn); });
    addSwitch(u"line-up"_s, u"Line up with other edges"_s, u"report-guides"_s, true,
              [this](bool isOn) { m_canvas.setLiningUp(isOn); });
    addSwitch(u"inches"_s, u"Rulers in inches"_s, u"report-ruler"_s, false,
              [this](bool isOn) { m_canvas.setInches(isOn); });
}

/// Asked anew at each change of layout or selection, so that no action needs a message of its own.
void DesignerActions::enable()
{
    const Selection &selection = m_document.selection();
    const auto count = selection.objects.size();
    for (const QString &name : {u"cut"_s, u"copy"_s, u"duplicate"_s, u"to-front"_s, u"to-back"_s})
        action(name)->setEnabled(count > 0);
    for (const QString &name :
         {u"align-left"_s, u"align-center"_s, u"align-right"_s, u"align-top"_s, u"align-middle"_s,
          u"align-bottom"_s, u"same-width"_s, u"same-height"_s, u"same-size"_s})
        action(name)->setEnabled(count > 1);
    for (const QString &name : {u"distribute-across"_s, u"distribute-down"_s})
        action(name)->setEnabled(count > 2);
    action(u"band-above"_s)->setEnabled(canMoveToNextBand(-1));
    action(u"band-below"_s)->setEnabled(canMoveToNextBand(1));
    action(u"delete"_s)->setEnabled(m_tree.canRemoveSelected());
    action(u"fit-band"_s)->setEnabled(selection.band() >= 0);
    action(u"select-column"_s)->setEnabled(count > 0);
    action(u"add-totals"_s)
        ->setEnabled(
            std::any_of(selection.objects.cbegin(), selection.objects.cend(), [this](Place place) {
                return m_document.object(place).kind == ObjectKind::Field;
            }));
    action(u"move-up"_s)->setEnabled(m_tree.canMoveSelected(-1));
    action(u"move-down"_s)->setEnabled(m_tree.canMoveSelected(1));
    const bool hasBands = !m_document.layout().bands.isEmpty();
    for (QAction *insert : std::as_const(m_actions))
        if (insert->objectName().startsWith(u"insert-") || insert->objectName() == u"paste")
            insert->setEnabled(hasBands);
}

} // namespace report
