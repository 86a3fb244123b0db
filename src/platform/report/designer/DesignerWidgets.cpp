#include "platform/report/designer/DesignerWidgets.h"

#include "platform/input/Theme.h"
#include "platform/report/designer/DataTree.h"
#include "platform/report/designer/DesignCanvas.h"
#include "platform/report/designer/DesignerActions.h"
#include "platform/report/designer/PreviewTab.h"
#include "platform/report/designer/PropertyPanel.h"
#include "platform/report/designer/Structure.h"
#include "platform/report/designer/StructureTree.h"
#include "platform/report/viewer/ReportViewer.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QScrollBar>
#include <QShortcut>
#include <QSplitter>
#include <QTabWidget>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

namespace report {
namespace {

using namespace Qt::StringLiterals;

constexpr int DesignTab = 0;
constexpr int PreviewIndex = 1;
constexpr int StructureSide = 0;
constexpr int DataSide = 1;
constexpr int SideWidth = 220;
constexpr int PanelWidth = 280;
/// A sheet that is smaller can't be read, and has to be scrolled.
constexpr int LeastFirstZoom = 60;
/// In a narrower window the sheet gets room from its sides.
constexpr int NarrowWidth = 1100;
constexpr int NarrowSide = 165;
constexpr int NarrowPanel = 215;

/// Menus of a bar open where they are pressed, and all its buttons can be reached by Tab.
void finishBar(QToolBar *bar)
{
    for (QToolButton *button : bar->findChildren<QToolButton *>()) {
        button->setPopupMode(QToolButton::InstantPopup);
        button->setFocusPolicy(Qt::TabFocus);
        if (const QAction *action = button->defaultAction()) {
            button->setObjectName(action->objectName());
            button->setAccessibleName(action->text());
        }
    }
}

} // namespace

DesignerWidgets::DesignerWidgets(DesignDocument &document, ReportDesigner &designer)
    : canvas(new DesignCanvas(document))
    , structure(new StructureTree(document))
    , data(new DataTree(document))
    , properties(new PropertyPanel(document))
    , previewTab(new PreviewTab)
    , actions(new DesignerActions(document, *canvas, *structure, canvas))
    , m_document(document)
    , m_designer(designer)
    , m_tabs(new QTabWidget(&designer))
    , m_panes(new QSplitter(Qt::Horizontal))
    , m_sides(new QTabWidget)
    , m_filter(new QLineEdit)
    , m_query(new QToolButton)
    , m_status(new QLabel)
    , m_zoom(new QLabel)
{
    canvas->setObjectName(u"canvas"_s);
    canvas->setAccessibleName(u"Sheet"_s);
    m_tabs->setObjectName(u"designerTabs"_s);
    m_tabs->addTab(makeDesign(), u"&Design"_s);
    m_tabs->addTab(previewTab, u"Pre&view"_s);
    auto *rows = new QVBoxLayout(&designer);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->addWidget(m_tabs);
    designer.setFocusProxy(canvas);
    canvas->installEventFilter(this);
    join();
}

QWidget *DesignerWidgets::makeDesign()
{
    auto *design = new QWidget;
    auto *rows = new QVBoxLayout(design);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    auto *menus = new QMenuBar(design);
    menus->setObjectName(u"designMenus"_s);
    menus->setNativeMenuBar(false);
    actions->fillMenuBar(menus);
    rows->addWidget(menus);
    auto *bar = new QToolBar(design);
    bar->setObjectName(u"designBar"_s);
    bar->setIconSize({18, 18});
    actions->fillBar(bar);
    finishBar(bar);
    rows->addWidget(bar);
    m_panes->addWidget(makeSide());
    m_panes->addWidget(canvas);
    m_panes->addWidget(properties);
    m_panes->setStretchFactor(1, 1);
    m_panes->setChildrenCollapsible(false);
    m_panes->setSizes({SideWidth, 860, PanelWidth});
    rows->addWidget(m_panes, 1);
    auto *foot = new QHBoxLayout;
    foot->setContentsMargins(6, 2, 6, 2);
    m_status->setObjectName(u"designStatus"_s);
    m_zoom->setObjectName(u"designZoom"_s);
    foot->addWidget(m_status, 1);
    foot->addWidget(m_zoom);
    rows->addLayout(foot);
    return design;
}

QWidget *DesignerWidgets::makeSide()
{
    m_sides->setObjectName(u"sides"_s);
    auto *dataSide = new QWidget;
    auto *rows = new QVBoxLayout(dataSide);
    rows->setContentsMargins(2, 2, 2, 2);
    rows->setSpacing(2);
    auto *line = new QHBoxLayout;
    m_filter->setObjectName(u"dataFilter"_s);
    m_filter->setAccessibleName(u"Search the data"_s);
    m_filter->setPlaceholderText(u"Search"_s);
    m_filter->setClearButtonEnabled(true);
    m_query->setObjectName(u"editQuery"_s);
    m_query->setText(u"Query..."_s);
    m_query->setToolTip(u"Tables, columns and filter of this report (Ctrl+Q)"_s);
    m_query->hide();
    line->addWidget(m_filter, 1);
    line->addWidget(m_query);
    rows->addLayout(line);
    rows->addWidget(data, 1);
    m_sides->addTab(structure, u"Struct&ure"_s);
    m_sides->addTab(dataSide, u"D&ata"_s);
    return m_sides;
}

void DesignerWidgets::join()
{
    connect(m_filter, &QLineEdit::textChanged, data, &DataTree::setFilter);
    connect(m_query, &QToolButton::clicked, this, &DesignerWidgets::askQuery);
    connect(m_tabs, &QTabWidget::currentChanged, this, &DesignerWidgets::tabChanged);
    connect(canvas, &DesignCanvas::told, m_status, &QLabel::setText);
    const auto showZoom = [this] { m_zoom->setText(u"%1%"_s.arg(canvas->zoom())); };
    connect(canvas, &DesignCanvas::zoomChanged, this, showZoom);
    showZoom();
    connect(canvas, &DesignCanvas::fieldsDropped, this, &DesignerWidgets::addFields);
    connect(data, &DataTree::fieldsChosen, this, &DesignerWidgets::chooseFields);
    const auto showMenu = [this](QPoint global) {
        QMenu menu(&m_designer);
        actions->fillMenu(&menu);
        menu.exec(global);
    };
    connect(canvas, &DesignCanvas::menuAsked, this, showMenu);
    connect(structure, &StructureTree::menuAsked, this, showMenu);
    const auto showAttributes = [this] { properties->setFocus(Qt::OtherFocusReason); };
    connect(structure, &StructureTree::attributesAsked, properties, showAttributes);
    connect(actions, &DesignerActions::attributesAsked, properties, showAttributes);
    connect(actions, &DesignerActions::previewAsked, this, &DesignerWidgets::showPreview);
    connect(actions, &DesignerActions::queryAsked, this, &DesignerWidgets::askQuery);
    connect(canvas, &DesignCanvas::editAsked, this, [this, showAttributes](ObjectKind kind) {
        if (kind == ObjectKind::Picture)
            actions->insertPicture();
        else
            showAttributes();
    });
    // What is chosen in the tree comes into view on the sheet.
    connect(&m_document, &DesignDocument::selectionChanged, this, [this] {
        m_status->clear();
        if (!canvas->hasFocus())
            canvas->showSelection();
    });
    connect(previewTab, &PreviewTab::partChosen, this, [this](const Selection &part) {
        showDesign();
        m_document.select(part);
        canvas->showSelection();
        properties->setFocus();
    });
    properties->setPictureChooser([this] { actions->insertPicture(); });
    // The keys hold on the sheet and in the tree, but not where words are typed.
    structure->addActions(canvas->actions());
    m_panes->addActions({actions->action(u"undo"_s), actions->action(u"redo"_s),
                         actions->action(u"query"_s), actions->action(u"preview"_s)});
    auto *next = new QShortcut(QKeySequence(Qt::Key_F6), &m_designer);
    auto *previous = new QShortcut(QKeySequence(Qt::SHIFT | Qt::Key_F6), &m_designer);
    for (QShortcut *shortcut : {next, previous})
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
    connect(next, &QShortcut::activated, this, [this] { goRound(true); });
    connect(previous, &QShortcut::activated, this, [this] { goRound(false); });
}

/// From pane to pane by F6.
void DesignerWidgets::goRound(bool forward)
{
    const QList<QWidget *> panes{m_sides->currentWidget() == structure
                                     ? static_cast<QWidget *>(structure)
                                     : static_cast<QWidget *>(data),
                                 canvas, properties};
    qsizetype now = 0;
    for (qsizetype pane = 0; pane < panes.size(); ++pane)
        if (QWidget *focused = QApplication::focusWidget();
            focused && (panes[pane] == focused || panes[pane]->isAncestorOf(focused)))
            now = pane;
    const qsizetype target = (now + (forward ? 1 : panes.size() - 1)) % panes.size();
    panes[target]->setFocus(Qt::OtherFocusReason);
}

void DesignerWidgets::tabChanged(int index)
{
    if (index == PreviewIndex) {
        finishEditing();
        if (!previewTab->preview(m_document.layout())) {
            showDesign();
            return;
        }
        previewTab->setFocus();
    } else {
        previewTab->leave();
        canvas->setFocus();
    }
    Q_EMIT m_designer.previewShown(index == PreviewIndex);
}

/// A sheet that has just been opened is seen in its whole width, as soon as there is a width.
bool DesignerWidgets::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == canvas && m_isFresh && event->type() == QEvent::Resize && canvas->isVisible()) {
        m_isFresh = false;
        QTimer::singleShot(0, canvas, [this] {
            if (const int width = m_panes->width(); width < NarrowWidth)
                m_panes->setSizes({NarrowSide, width - NarrowSide - NarrowPanel, NarrowPanel});
            canvas->zoomToWidth();
            canvas->setZoom(qBound(LeastFirstZoom, canvas->zoom(), 100));
            canvas->verticalScrollBar()->setValue(0);
        });
    }
    return QObject::eventFilter(watched, event);
}

void DesignerWidgets::beginWith(const Layout &layout)
{
    showDesign();
    m_document.setLayout(layout);
    // Who begins with nothing needs the data first.
    m_sides->setCurrentIndex(canvas->isEmpty() ? DataSide : StructureSide);
}

void DesignerWidgets::showDesign()
{
    m_tabs->setCurrentIndex(DesignTab);
}

void DesignerWidgets::showPreview()
{
    m_tabs->setCurrentIndex(PreviewIndex);
}

bool DesignerWidgets::isPreviewShown() const
{
    return m_tabs->currentIndex() == PreviewIndex;
}

void DesignerWidgets::finishEditing()
{
    canvas->endEditing();
    properties->finishEditing();
}

void DesignerWidgets::setQueryAsker(QueryAsker asker)
{
    m_askQuery = std::move(asker);
    m_query->setVisible(static_cast<bool>(m_askQuery));
    actions->action(u"query"_s)->setVisible(static_cast<bool>(m_askQuery));
}

void DesignerWidgets::askQuery()
{
    finishEditing();
    if (!m_askQuery)
        return;
    const auto answer = m_askQuery(m_document.layout(), &m_designer);
    if (!answer)
        return;
    m_document.change(u"Query"_s, [&](Layout &layout, Selection &) {
        layout.query = answer->query;
        layout.parameters = answer->parameters;
        layout.rowSets = answer->rowSets;
    });
}

void DesignerWidgets::addFields(const QList<DesignField> &fields, int band, QPoint at)
{
    const bool isPlaced = at.x() >= 0;
    m_document.endSeries();
    m_document.change(u"Add field"_s, [&](Layout &layout, Selection &selection) {
        QList<Place> added;
        int target = band;
        for (const DesignField &field : fields) {
            if (!field.isInQuery && fieldAdder && !fieldAdder(layout, field))
                continue;
            if (!isPlaced)
                at.setX(makeRoom(layout, target, usualWidth(field.type)));
            const QList<Place> places = addField(layout, target, field, at);
            // A page header that was made may have moved the band.
            target = places.first().band;
            const Object &object = layout.bands[target].objects[places.first().object];
            at.rx() = object.x + object.width;
            added.append(places.first());
        }
        if (!added.isEmpty())
            selection = Selection::of(added);
    });
}

/// Without a place they go to the right of what stands in the band.
void DesignerWidgets::chooseFields(const QList<DesignField> &fields)
{
    const int band = canvas->targetBand();
    if (band < 0)
        return;
    Length top = 0;
    Length right = 0;
    for (const Object &object : m_document.layout().bands[band].objects)
        if ((object.kind == ObjectKind::Field || object.kind == ObjectKind::Text) &&
            object.x + object.width > right) {
            right = object.x + object.width;
            top = object.y;
        }
    addFields(fields, band, QPoint(-1, top));
}

} // namespace report
