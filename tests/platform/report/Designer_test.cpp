#include "platform/report/viewer/ReportViewer.h"
#include "support/TestFiles.h"

#include "DesignerFixture.h"
#include "Drawn.h"

#include <QClipboard>
#include <QDropEvent>
#include <QKeyEvent>
#include <QListWidget>
#include <QMenu>
#include <QMimeData>
#include <QScrollBar>
#include <QTabWidget>
#include <QTemporaryDir>

namespace report {
namespace {

TEST_F(Designer, KeysMoveAndResizeByMillimetresAndTenths)
{
    click(1, {2500, 250});
    ASSERT_EQ(selection(), Selection::of({{1, 0}}));
    key(Qt::Key_Right);
    key(Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(frame(1, 0), QRect(2100, 10, 3000, 500));
    key(Qt::Key_Right, Qt::ShiftModifier);
    key(Qt::Key_Down, Qt::ShiftModifier | Qt::ControlModifier);
    EXPECT_EQ(frame(1, 0), QRect(2100, 10, 3100, 510));
    key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(frame(1, 0), QRect(2100, 10, 3000, 500)) << "steps of one kind go back together";
    key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_FALSE(m_designer.isModified());
    key(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(object(1, 0).x, 2100);
    key(Qt::Key_Tab);
    EXPECT_EQ(selection(), Selection::of({{1, 1}}));
    key(Qt::Key_Escape);
    EXPECT_EQ(selection(), Selection::of(Selection::Part::Band, 1));
    QKeyEvent again(QEvent::KeyPress, Qt::Key_Escape, {});
    QGuiApplication::sendEvent(m_canvas, &again);
    EXPECT_TRUE(again.isAccepted()) << "the window stays";
    key(Qt::Key_PageUp);
    EXPECT_EQ(selection(), Selection::of(Selection::Part::Band, 0));
    key(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(layout().bands[0].height, 1600);
}

TEST_F(Designer, TheMouseMovesResizesAndSelects)
{
    const CanvasGeometry &geometry = m_canvas->geometry();
    drag(at(1, 2500, 250), at(1, 2500, 250) + QPoint(40, 8));
    EXPECT_EQ(object(1, 0).x, 2000 + geometry.toUnits(40));
    EXPECT_EQ(object(1, 0).y, geometry.toUnits(8));
    EXPECT_EQ(m_document.undoStack().count(), 1) << "a drag is one change";
    run(u"undo"_s);
    // The right lower corner.
    drag(at(1, 5000, 500), at(1, 5000, 500) + QPoint(20, 10));
    EXPECT_NEAR(object(1, 0).width, 3000 + geometry.toUnits(20), 1);
    EXPECT_NEAR(object(1, 0).height, 500 + geometry.toUnits(10), 1);
    run(u"undo"_s);
    // A frame around both, from empty ground.
    drag(at(1, 1500, 700), at(1, 9000, 100));
    EXPECT_EQ(selection().objects, (QList<Place>{{1, 0}, {1, 1}}));
    click(1, {2500, 250}, Qt::ControlModifier);
    EXPECT_EQ(selection().objects, (QList<Place>{{1, 1}}));
    // From the detail into the page header.
    drag(at(1, 8500, 250), at(0, 8500, 1000));
    ASSERT_EQ(objectsOf(0), 2);
    EXPECT_EQ(object(0, 1).content, u"Price"_s);
    EXPECT_NEAR(object(0, 1).y, 750, 30);
    EXPECT_EQ(selection(), Selection::of({{0, 1}}));
    // Escape in the middle leaves all as it was.
    QTest::mousePress(m_canvas->viewport(), Qt::LeftButton, {}, at(0, 8500, 1000));
    move(m_canvas->viewport(), at(0, 2000, 200), {});
    key(Qt::Key_Escape);
    QTest::mouseRelease(m_canvas->viewport(), Qt::LeftButton, {}, at(0, 2000, 200));
    EXPECT_EQ(object(0, 1).x, 8000);
    const QPoint bar =
        geometry.barRect(0).center() - QPoint(0, m_canvas->verticalScrollBar()->value());
    drag(bar, bar + QPoint(0, 38));
    EXPECT_NEAR(layout().bands[0].height, 1500 + geometry.toUnits(38), 5);
    drag(at(0, 19000, 200), at(0, 19000, 200));
    EXPECT_EQ(selection(), Selection::of(Selection::Part::Band, 0));
}

TEST_F(Designer, WhatIsDraggedComesToRestOnEdgesAndTheGrid)
{
    run(u"line-up"_s);
    const CanvasGeometry &geometry = m_canvas->geometry();
    const QPoint near(at(1, 8000, 0).x() - at(1, 0, 0).x() - 4, 0);
    // The title's left edge comes to stand over that of the price, four pixels further; with Alt it
    // stays where it is dropped.
    for (const Qt::KeyboardModifiers keys : {Qt::NoModifier, Qt::AltModifier}) {
        drag(at(0, 100, 400), at(0, 100, 400) + near, keys);
        EXPECT_EQ(object(0, 0).x == 8000, keys == Qt::NoModifier);
        run(u"undo"_s);
    }
    run(u"line-up"_s);

    run(u"grid"_s);
    drag(at(1, 2500, 250), at(1, 2500, 250) + QPoint(37, 9));
    EXPECT_EQ(object(1, 0).x % 100, 0);
    EXPECT_EQ(object(1, 0).y % 100, 0);
    EXPECT_NEAR(object(1, 0).x, 2000 + geometry.toUnits(37), 50);
    // Edges of other bands count across, not downwards.
    run(u"grid"_s);
    run(u"line-up"_s);
    run(u"undo"_s);
    m_document.change(u"Low"_s,
                      [](Layout &layout, Selection &) { layout.bands[0].objects[0].y = 1260; });
    const int down = static_cast<int>(1240 * geometry.scale());
    drag(at(1, 2500, 250), at(1, 2500, 250) + QPoint(0, down));
    EXPECT_EQ(object(1, 0).y, geometry.toUnits(down));
}

TEST_F(Designer, InsertsByFrameAndByEnter)
{
    key(Qt::Key_4, Qt::ControlModifier); // a box
    EXPECT_TRUE(child<QAction>(u"insert-box"_s)->isChecked());
    drag(at(1, 12000, 100), at(1, 15000, 700));
    ASSERT_EQ(objectsOf(1), 3);
    EXPECT_EQ(object(1, 2).kind, ObjectKind::Box);
    EXPECT_NEAR(object(1, 2).width, 3000, 30);
    EXPECT_NEAR(object(1, 2).y, 100, 30);
    EXPECT_FALSE(child<QAction>(u"insert-box"_s)->isChecked());
    key(Qt::Key_1, Qt::ControlModifier);
    key(Qt::Key_Return);
    ASSERT_EQ(objectsOf(1), 4);
    EXPECT_EQ(object(1, 3).kind, ObjectKind::Text);
    EXPECT_EQ(object(1, 3).x, object(1, 2).x + object(1, 2).width) << "beside what was selected";
    // Its words are written in their place.
    key(Qt::Key_F2);
    typeThere(u"Hello"_s);
    EXPECT_EQ(object(1, 3).content, u"Hello"_s);
    EXPECT_TRUE(m_canvas->hasFocus());
}

TEST_F(Designer, CutsAndPastesAlsoIntoAnotherReport)
{
    click(1, {2500, 250});
    key(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(objectsOf(1), 1);
    ReportDesigner other;
    other.setLayout(emptyLayout());
    other.findChild<QAction *>(u"paste"_s)->trigger();
    EXPECT_EQ(other.layout().bands[2].objects[0].content, u"Name"_s);
    QGuiApplication::clipboard()->setText(u"plain {words}"_s);
    key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(object(1, 1).content, u"plain {{words}"_s);
    key(Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(objectsOf(1), 3);
    key(Qt::Key_Delete);
    EXPECT_EQ(objectsOf(1), 2);
}

TEST_F(Designer, AFieldThatIsDroppedOnTheDetailGetsItsHeading)
{
    QMimeData data;
    data.setData(fieldMimeType(),
                 fieldBytes({{{}, u"Name"_s, u"Part name"_s, FieldType::Text, true}}));
    const QPoint place = at(1, 12000, 0);
    QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QGuiApplication::sendEvent(m_canvas->viewport(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QGuiApplication::sendEvent(m_canvas->viewport(), &drop);
    ASSERT_EQ(objectsOf(1), 3);
    EXPECT_EQ(object(0, 1).content, u"Part name"_s);
    EXPECT_EQ(object(0, 1).x, object(1, 2).x);
    EXPECT_EQ(m_document.undoStack().count(), 1);
    data.setData(fieldMimeType(), "no fields");
    QGuiApplication::sendEvent(m_canvas->viewport(), &drop);
    EXPECT_EQ(m_document.undoStack().count(), 1);
    // From the tree by Enter, to the right of all.
    auto *tree = child<QTreeWidget>(u"data"_s);
    tree->setCurrentItem(tree->topLevelItem(0)->child(1));
    QTest::keyClick(tree, Qt::Key_Return);
    EXPECT_EQ(object(1, 3).content, u"Price"_s);
    EXPECT_EQ(object(1, 3).x, object(1, 2).x + object(1, 2).width);
}

TEST_F(Designer, AttributesAreTypedForAllThatIsSelected)
{
    m_document.select(Selection::of({{1, 0}, {1, 1}}));
    for (const QString &length : {u"2.5cm"_s, u"wide"_s}) {
        type(u"Width"_s, length);
        EXPECT_EQ(std::pair(object(1, 0).width, object(1, 1).width), std::pair(2500, 2500))
            << "what is no length changes nothing";
    }
    type(u"Fill"_s, u"Yellow"_s);
    EXPECT_TRUE(object(1, 1).style.fill.isValid());
    type(u"Shown when"_s, u"Prise > 1"_s);
    EXPECT_EQ(object(1, 1).visibleIf, u"Prise > 1"_s);
    expectFault("no field \"prise\"");
    auto *tree = child<QTreeWidget>(u"attributes"_s);
    tree->setCurrentItem(item(u"attributes"_s, u"Bold"_s));
    QTest::keyClick(tree, Qt::Key_Space);
    EXPECT_TRUE(object(1, 0).style.font.bold && object(1, 1).style.font.bold);
    run(u"undo"_s);
    EXPECT_FALSE(object(1, 0).style.font.bold || object(1, 1).style.font.bold);
}

TEST_F(Designer, EachKindOfAttributeHasItsEditor)
{
    m_document.change(u"Styles"_s, [](Layout &layout, Selection &) {
        layout.styles.append({u"Bright"_s, {}});
        layout.styles[0].style.color = Qt::red;
    });
    // What is typed for an attribute, and what the file says of the object then.
    const struct
    {
        QString caption, typed;
        const char *written;
    } cases[] = {{u"Size"_s, u"12.5 pt"_s, "size=\"12.5\""},
                 {u"Align"_s, u"R"_s, "align=\"right\""},
                 {u"Font"_s, u"Courier New"_s, "font=\"Courier New\""},
                 {u"Format"_s, u"$0.000"_s, "format=\"$0.000\""},
                 {u"Color"_s, u"#123456"_s, "color=\"#123456\""},
                 {u"Color"_s, u"no color"_s, "color=\"#123456\""},
                 {u"Padding"_s, u"0.1in"_s, "padding=\"2.54mm\""},
                 {u"Follows"_s, u"B"_s, "style=\"Bright\""},
                 {u"Expression"_s, u"Price * 2"_s, "content=\"Price * 2\""}};
    m_document.select(Selection::of({{1, 1}}));
    for (const auto &one : cases) {
        type(one.caption, one.typed);
        EXPECT_THAT(writeLayout(layout()).toStdString(), testing::HasSubstr(one.written));
    }
    type(u"Color"_s, QString());
    EXPECT_EQ(object(1, 1).style.color, QColor(Qt::red)) << "that of the style again";
    m_document.select(Selection::of({{0, 0}}));
    m_designer.findChild<PropertyPanel *>()->edit(u"Words"_s);
    QTest::keyClicks(QApplication::focusWidget(), u"two"_s);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return, Qt::ShiftModifier);
    QTest::keyClicks(QApplication::focusWidget(), u"lines {Price"_s);
    expectFault("closing brace"); // while it is typed
    m_designer.finishEditing();
    EXPECT_EQ(object(0, 0).content, u"two\nlines {Price"_s) << "as before a save";
}

TEST_F(Designer, WindowsOfTheHouseAreAskedForExpressionsAndQueries)
{
    QList<ExpressionQuestion> asked;
    EXPECT_FALSE(child<QWidget>(u"editQuery"_s)->isVisibleTo(&m_designer));
    m_designer.setExpressionAsker([&](const ExpressionQuestion &question, QWidget *) {
        asked.append(question);
        return asked.size() > 1 ? std::nullopt : std::optional(u"upper(Name)"_s);
    });
    m_designer.setQueryAsker([](const Layout &given, QWidget *) {
        Layout layout = given;
        layout.query = u"Select Name from tblPart"_s;
        layout.title = u"not of the query"_s;
        return std::optional(layout);
    });
    m_document.select(Selection::of({{1, 0}}));
    auto *tree = child<QTreeWidget>(u"attributes"_s);
    tree->setCurrentItem(item(u"attributes"_s, u"Expression"_s));
    tree->setFocus();
    QTest::keyClick(tree, Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(object(1, 0).content, u"upper(Name)"_s);
    QTest::mouseClick(child<QWidget>(u"askExpression"_s), Qt::LeftButton);
    EXPECT_EQ(object(1, 0).content, u"upper(Name)"_s) << "left as it was";
    ASSERT_EQ(asked.size(), 2);
    EXPECT_EQ(asked[1].text, u"upper(Name)"_s);
    EXPECT_EQ(asked[0].fields.size(), 2);
    child<QTabWidget>(u"sides"_s)->setCurrentIndex(1);
    QTest::mouseClick(child<QWidget>(u"editQuery"_s), Qt::LeftButton);
    EXPECT_EQ(layout().query, u"Select Name from tblPart"_s);
    EXPECT_EQ(layout().title, u"Parts"_s);

    // A column that the query doesn't give yet is put there first, or not taken.
    auto *data = child<QTreeWidget>(u"data"_s);
    m_designer.setFields({{u"tblBin"_s, u"Shelf"_s, {}, FieldType::Text, false}});
    for (const bool isTaken : {false, true}) {
        m_designer.setFieldAdder([&](Layout &layout, const DesignField &field) {
            layout.query += field.name;
            return isTaken;
        });
        data->setCurrentItem(data->topLevelItem(1)->child(0));
        QTest::keyClick(data, Qt::Key_Return);
        EXPECT_EQ(objectsOf(1), isTaken ? 3 : 2);
    }
    EXPECT_TRUE(layout().query.endsWith(u"Shelf"_s));
    child<QWidget>(u"dataFilter"_s)->setFocus();
    QTest::keyClicks(child<QWidget>(u"dataFilter"_s), u"page"_s);
    EXPECT_EQ(data->topLevelItemCount(), 1);
    EXPECT_EQ(data->topLevelItem(0)->childCount(), 2);
}

TEST_F(Designer, PartsAreAddedMovedAndRemoved)
{
    const auto choose = [&](const QString &action, const QString &entry) {
        QMenu *menu = child<QAction>(action)->menu();
        Q_EMIT menu->aboutToShow();
        for (QAction *one : menu->actions())
            if (one->text() == entry)
                one->trigger();
    };
    choose(u"add-band"_s, u"Detail"_s);
    EXPECT_EQ(selection(), Selection::of(Selection::Part::Band, 2));
    run(u"move-up"_s);
    EXPECT_EQ(selection(), Selection::of(Selection::Part::Band, 1));
    EXPECT_EQ(objectsOf(1), 0);
    EXPECT_FALSE(child<QAction>(u"move-up"_s)->isEnabled()) << "above it is the page header";
    run(u"delete"_s);
    EXPECT_EQ(layout().bands.size(), 2);

    m_document.select(Selection::of({{1, 1}}));
    run(u"add-sort"_s);
    run(u"add-sort"_s);
    EXPECT_EQ(layout().sort, (QStringList{u"Price"_s, u"RowNumber"_s}));
    run(u"move-up"_s);
    EXPECT_EQ(layout().sort, (QStringList{u"RowNumber"_s, u"Price"_s}));
    EXPECT_EQ(selection(), Selection::of(Selection::Part::Sort, 0));
    run(u"delete"_s);
    EXPECT_EQ(layout().sort, QStringList{u"Price"_s});
    run(u"add-formula"_s);
    run(u"add-formula"_s);
    EXPECT_EQ(layout().formulas[1].name, u"Formula2"_s);
    run(u"add-parameter"_s);
    EXPECT_EQ(selection(), Selection::of(Selection::Part::Parameter, 0));
    run(u"delete"_s);
    EXPECT_TRUE(layout().parameters.isEmpty());

    choose(u"looks"_s, u"Green"_s);
    const Style title = layout().styles[0].style;
    EXPECT_EQ(object(0, 0).style.color, title.color);
    choose(u"looks"_s, u"Slate"_s);
    EXPECT_NE(object(0, 0).style.color, title.color) << "all that follow change at once";
    const int count = m_document.undoStack().count();
    Layout other;
    other.title = u"Other"_s;
    m_designer.replaceLayout(u"New report"_s, other);
    EXPECT_EQ(m_document.undoStack().count(), count + 1);
    m_document.undoStack().undo();
    EXPECT_EQ(layout().title, u"Parts"_s);
}

TEST_F(Designer, PicturesAreCopiedIntoTheLayout)
{
    QTemporaryDir folder;
    const auto chosen = [&](const QString &name, const QByteArray &bytes) {
        test::writeFile(folder.filePath(name), bytes);
        m_prompts.expectChooser(u"Picture"_s, folder.filePath(name));
    };
    const QByteArray logo = pictureFile({40, 20}, Qt::red);
    chosen(u"logo.png"_s, logo);
    m_document.select(Selection::of(Selection::Part::Band, 0));
    run(u"insert-picture"_s);
    EXPECT_EQ(layout().pictures[0].data, logo);
    EXPECT_EQ(object(0, 1).width, 2 * object(0, 1).height) << "as it is shaped";
    // Another file for the selected picture takes the place of the first.
    chosen(u"blue.png"_s, pictureFile({40, 20}, Qt::blue));
    run(u"insert-picture"_s);
    EXPECT_EQ(objectsOf(0), 2);
    EXPECT_EQ(object(0, 1).content, u"blue.png"_s);
    EXPECT_EQ(layout().pictures.size(), 1);
    chosen(u"bad.png"_s, "no picture");
    m_prompts.say(u"\"%1\" is no picture that can be shown."_s.arg(folder.filePath(u"bad.png"_s)));
    key(Qt::Key_Return);
    EXPECT_EQ(m_document.undoStack().count(), 2);
    m_document.change(u"Line"_s, [](Layout &layout, Selection &) {
        layout.bands[0].objects[1].kind = ObjectKind::Line;
    });
    key(Qt::Key_Return);
    EXPECT_TRUE(child<QTreeWidget>(u"attributes"_s)->hasFocus()) << "what has no words";
}

TEST_F(Designer, TheTreeSelectsAndChangesTheParts)
{
    const QString tree = u"structure"_s;
    child<QTreeWidget>(tree)->setCurrentItem(item(tree, u"Field \"Price\""_s));
    EXPECT_EQ(selection(), Selection::of({{1, 1}}));
    run(u"add-group"_s);
    EXPECT_EQ(layout().groups[0].by, u"Price"_s) << "by the selected field";
    ASSERT_TRUE(item(tree, u"Header of Price"_s));
    EXPECT_TRUE(item(tree, u"Price"_s)->isSelected());
    run(u"delete"_s);
    EXPECT_TRUE(layout().groups.isEmpty());
    EXPECT_EQ(layout().bands.size(), 2);
    m_document.select(Selection::of({{0, 0}}));
    EXPECT_TRUE(item(tree, u"Text \"Parts\""_s)->isSelected());
}

TEST_F(Designer, APreviewShowsRowsAndItsRemarksLeadToTheObject)
{
    m_document.change(u"Field"_s, [](Layout &layout, Selection &) {
        layout.bands[1].objects[1].content = u"Prise"_s;
    });
    m_designer.setRowsProvider([](const Layout &) {
        return PreviewRows{
            std::make_shared<Rows>(QStringList{u"Name"_s}, QList<QVariantList>(30, {u"Belt"_s})),
            {}};
    });
    m_designer.showPreview();
    m_designer.viewer().finishLayout();
    EXPECT_EQ(m_designer.viewer().outcome().pages, 2);
    auto *remarks = child<QListWidget>(u"remarks"_s);
    ASSERT_EQ(remarks->count(), 1);
    remarks->setCurrentRow(0);
    QTest::keyClick(remarks, Qt::Key_Return);
    EXPECT_FALSE(m_designer.isPreviewShown());
    EXPECT_EQ(selection(), Selection::of({{1, 1}}));
    // Whoever gives up at the question for parameters stays in the design.
    m_designer.setRowsProvider([](const Layout &) -> std::optional<PreviewRows> { return {}; });
    m_designer.showPreview();
    EXPECT_FALSE(m_designer.isPreviewShown());
}

/// The sheet shows to the pixel what the page prints.
TEST(DesignCanvas, DrawsWhatThePagesDraw)
{
    const Layout layout = layoutOf(R"x(<report version="2"><page left="0mm" top="0mm"/>
        <band kind="detail" height="60mm">
          <text width="60mm" height="12mm" content="Words that take two lines in their frame" size="11.5" italic="yes" verticalAlign="bottom" border="all"/>
          <text x="70mm" width="30mm" content="right" align="right" padding="1mm" fill="#ffff00" underline="yes"/>
          <line x="2mm" y="20mm" width="50mm" height="5mm" lineWidth="0.4mm" color="#c8691e"/>
          <box x="60mm" y="20mm" width="20mm" height="9mm" fill="#24476d"/>
          <barCode y="35mm" width="46mm" height="10mm" content="'1234567890'"/>
        </band></report>)x");
    for (const int zoom : {100, 73, 160}) {
        DesignDocument document;
        document.setLayout(layout);
        DesignCanvas canvas(document);
        canvas.setZoom(zoom);
        const double scale = canvas.geometry().scale();
        const QSize size(static_cast<int>(11000 * scale), static_cast<int>(6000 * scale));
        const QImage design =
            drawn(size, scale, [&](QPainter &painter) { canvas.paintObjects(painter, layout, 0); });
        EXPECT_TRUE(design == drawn(allPages(layout, Rows({}, {{}}), {})[0], size, scale)) << zoom;
        EXPECT_GT(pointsOf(design, QColor(0x24, 0x47, 0x6d)), 1000) << "the box";
    }
}

} // namespace
} // namespace report
