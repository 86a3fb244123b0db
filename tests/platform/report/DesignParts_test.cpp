#include "platform/report/designer/Arrange.h"
#include "platform/report/designer/CanvasGeometry.h"
#include "platform/report/designer/Fields.h"
#include "platform/report/designer/HouseStyles.h"
#include "platform/report/designer/Property.h"
#include "platform/report/designer/Remarks.h"
#include "platform/report/designer/Snap.h"
#include "platform/report/designer/Structure.h"
#include "platform/report/paginate/Paginator.h"

#include "ReportRows.h"

#include <gmock/gmock.h>

namespace report {
namespace {

using namespace Qt::StringLiterals;

/// Three boxes in the detail: 10 wide at 0, 20 wide at 50, 40 wide at 100 mm, each a bit lower.
Layout threeBoxes()
{
    Layout layout = emptyLayout();
    QList<Object> boxes;
    for (const QRect &frame :
         {QRect(0, 0, 1000, 500), QRect(5000, 100, 2000, 600), QRect(10000, 300, 4000, 700)}) {
        Object box = newObject(ObjectKind::Box, frame.topLeft());
        box.width = frame.width();
        box.height = frame.height();
        boxes.append(box);
    }
    addObjects(layout, 2, boxes);
    return layout;
}

Selection allBoxes()
{
    return Selection::of({{2, 0}, {2, 2}, {2, 1}}); // the middle one leads
}

std::string frames(const Layout &layout)
{
    QStringList texts;
    for (const Object &object : layout.bands[2].objects)
        texts.append(
            u"%1,%2 %3x%4"_s.arg(object.x).arg(object.y).arg(object.width).arg(object.height));
    return texts.join(u"  "_s).toStdString();
}

TEST(Arrange, ObjectsGoByTheLead)
{
    struct Case
    {
        std::function<void(Layout &)> run;
        const char *frames;
    };
    const auto aligned = [](AlignEdge edge) {
        return [edge](Layout &layout) { align(layout, allBoxes(), edge); };
    };
    const Case cases[] = {
        {aligned(AlignEdge::Left), "5000,0 1000x500  5000,100 2000x600  5000,300 4000x700"},
        {aligned(AlignEdge::Right), "6000,0 1000x500  5000,100 2000x600  3000,300 4000x700"},
        {aligned(AlignEdge::Center), "5500,0 1000x500  5000,100 2000x600  4000,300 4000x700"},
        {aligned(AlignEdge::Top), "0,100 1000x500  5000,100 2000x600  10000,100 4000x700"},
        {aligned(AlignEdge::Bottom), "0,200 1000x500  5000,100 2000x600  10000,0 4000x700"},
        {aligned(AlignEdge::Middle), "0,150 1000x500  5000,100 2000x600  10000,50 4000x700"},
        // 140 mm less 70 mm of boxes leaves two gaps of 35 mm.
        {[](Layout &layout) { distribute(layout, allBoxes(), Direction::Across); },
         "0,0 1000x500  4500,100 2000x600  10000,300 4000x700"},
        {[](Layout &layout) { makeSameSize(layout, allBoxes(), SameSize::Width); },
         "0,0 2000x500  5000,100 2000x600  10000,300 2000x700"},
        {[](Layout &layout) { makeSameSize(layout, allBoxes(), SameSize::Height); },
         "0,0 1000x600  5000,100 2000x600  10000,300 4000x600"},
        {[](Layout &layout) {
             growBy(layout, {{2, 0}}, {-2000, 100});
         },
         "0,0 0x600  5000,100 2000x600  10000,300 4000x700"}};
    for (const Case &one : cases) {
        Layout layout = threeBoxes();
        one.run(layout);
        EXPECT_EQ(frames(layout), one.frames);
    }
}

TEST(Arrange, AnEdgeThatIsDrawnStopsAtItsOpposite)
{
    const QRect frame(100, 100, 50, 30);
    EXPECT_EQ(dragged(frame, {}, {5, -5}), QRect(105, 95, 50, 30));
    EXPECT_EQ(dragged(frame, {true, true, false, false}, {10, 10}), QRect(110, 110, 40, 20));
    EXPECT_EQ(dragged(frame, {true, true, false, false}, {99, 99}), QRect(150, 130, 0, 0));
    EXPECT_EQ(dragged(frame, {false, false, true, true}, {-99, 5}), QRect(100, 100, 0, 35));
    // A line that rises keeps rising.
    Object line = newObject(ObjectKind::Line, {30, 150});
    line.width = 100;
    line.height = -100;
    fitInto(line, frameOf(line), QRect(0, 0, 200, 50));
    EXPECT_EQ(QRect(line.x, line.y, line.width, line.height), QRect(0, 50, 200, -50));
}

/// The edge at the middle of the right side draws a frame wider, however low it is.
TEST(HandlesOf, FindRoomOnSmallFrames)
{
    struct Case
    {
        QSize frame;
        int handles;
        Edges right; ///< that move where the right side's middle is held
    };
    const Edges width{.right = true};
    const Edges both{.right = true, .bottom = true};
    const Case cases[] = {
        {{100, 60}, 8, width}, {{100, 10}, 4, width}, {{100, 0}, 4, width}, {{6, 6}, 4, both}};
    for (const Case &each : cases) {
        const QRect frame(QPoint(50, 50), each.frame);
        const QList<Handle> handles = handlesOf(frame);
        EXPECT_EQ(handles.size(), each.handles) << each.frame.width();
        const QPoint held(50 + each.frame.width(), 50 + each.frame.height() / 2);
        const auto found = std::ranges::find_if(
            handles, [&](const Handle &handle) { return handle.place.contains(held); });
        ASSERT_NE(found, handles.end()) << each.frame.height();
        EXPECT_EQ(found->edges.right, each.right.right);
        EXPECT_EQ(found->edges.bottom, each.right.bottom);
        EXPECT_FALSE(found->edges.left || found->edges.top);
    }
}

TEST(Reorder, ChosenObjectsKeepTheirOrderAmongThemselves)
{
    struct Case
    {
        Order order;
        const char *names;
        QList<int> chosen;
    };
    const Case cases[] = {{Order::Front, "acbd", {2, 3}},
                          {Order::Back, "bdac", {0, 1}},
                          {Order::Forward, "acbd", {2, 3}},
                          {Order::Backward, "badc", {0, 2}}};
    for (const Case &one : cases) {
        Layout layout = emptyLayout();
        for (const QString &name : {u"a"_s, u"b"_s, u"c"_s, u"d"_s}) {
            Object object = newObject(ObjectKind::Text, {0, 0});
            object.name = name;
            addObjects(layout, 2, {object});
        }
        const QList<Place> moved = reorder(layout, {{2, 1}, {2, 3}}, one.order);
        QString names;
        for (const Object &object : layout.bands[2].objects)
            names += object.name;
        EXPECT_EQ(names.toStdString(), one.names);
        EXPECT_EQ(moved, (QList<Place>{{2, one.chosen[0]}, {2, one.chosen[1]}})) << one.names;
    }
}

TEST(Snap, TheNearestEdgeWithinReachWinsOverTheGrid)
{
    const SnapLines lines = snapLines({QRect(1000, 0, 500, 200)}); // x: 1000 1250 1500
    const SnapRules rules{30, 100};
    struct Case
    {
        QRect frame;
        QPoint by;
        int guides;
    };
    const Case cases[] = {
        {QRect(980, 1040, 300, 60), {20, -40}, 1}, // left edge to 1000; the grid downwards
        {QRect(1010, 1040, 470, 60), {5, -40}, 1}, // its middle is nearer than its edges
        {QRect(700, 90, 300, 20), {0, 0}, 2},      // its right edge and its middle stand already
        {QRect(540, 1040, 300, 60), {-40, -40}, 0},
        {QRect(560, 1060, 300, 60), {40, 40}, 0}};
    for (const Case &one : cases) {
        const Snapped snapped = snapMove(one.frame, lines, rules);
        EXPECT_EQ(snapped.by, one.by) << one.frame.x();
        EXPECT_EQ(snapped.guides.size(), one.guides) << one.frame.x();
    }
    EXPECT_EQ(snapMove(QRect(980, 1040, 300, 60), lines, {}).by, QPoint());
    const Snapped edge = snapEdges(1480, std::nullopt, lines, rules);
    EXPECT_EQ(edge.by, QPoint(20, 0)) << "what isn't drawn stays";
    EXPECT_EQ(edge.guides, (QList<Guide>{{true, 1500}}));
}

TEST(Bands, StandInTheirOrderAndMoveAmongTheirLike)
{
    Layout layout = emptyLayout();
    report::addGroup(layout, u"Site"_s);
    report::addGroup(layout, u"Labor Cost"_s);
    Band second;
    second.group = u"Site"_s;
    second.kind = BandKind::GroupHeader;
    const int added = addBand(layout, second);
    const auto names = [&] {
        QStringList all;
        for (const Band &band : layout.bands)
            all.append(bandName(band));
        return all.join(u'|').toStdString();
    };
    EXPECT_EQ(names(), "Report header|Page header|Header of Site|Header of Site|Header of Group|"
                       "Detail|Footer of Group|Footer of Site|Report footer|Page footer");
    EXPECT_EQ(added, 3);
    EXPECT_TRUE(canMoveBand(layout, added, -1));
    EXPECT_FALSE(canMoveBand(layout, added, 1)) << "the next one is of another group";
    moveBand(layout, added, -1);
    EXPECT_EQ(layout.bands[2].objects.size(), 0);
    moveGroup(layout, 1, -1);
    EXPECT_EQ(names(), "Report header|Page header|Header of Group|Header of Site|Header of Site|"
                       "Detail|Footer of Site|Footer of Group|Report footer|Page footer");
    renameGroup(layout, 0, u" site "_s);
    EXPECT_EQ(layout.groups[0].name, u"site2"_s) << "names are told apart without their case";
    EXPECT_EQ(bandName(layout.bands[2]).toStdString(), "Header of site2");
    removeGroup(layout, 1);
    EXPECT_EQ(names(), "Report header|Page header|Header of site2|Detail|Footer of site2|"
                       "Report footer|Page footer");
}

TEST(RenameGroup, TakesTheAggregatesThatNameItAlong)
{
    const char *const file = R"x(<report version="2">
        <rows name="parts" key="Id" of="max(Id, 'SITE')">Select 1</rows>
        <group name="Site" by="SiteName"/>
        <group name="page" by="sum(N, 'site') &amp; Crew"/>
        <formula name="Share">N / sum(N, "Site") + count(*, 'page') + min(N, 'Sites') &amp; 'site'</formula>
        <band kind="detail" printIf="count(*, 'Site') &gt; 1">
          <text content="Site {{site {sum(N, 'Site')} of {N + sum(N , 'site' ) + sum(N,'site')}, {Site Name}, {1 + sum(N, 'Site'}"/>
          <field content="avg(N, 'Site'" visibleIf="last(N, 'site')"><when condition="sum(N,'Site')"/></field>
          <barCode content="first(N, 'Site')"/><picture content="=max(Photo, 'Site')"/>
          <chart title="{sum(N, 'Site')}" category="N" categoryTitle="{sum(N, 'Site')}" valueTitle="{sum(N, 'Site')}"><series value="N"/></chart>
          <crossTab title="{sum(N, 'Site')}" rows="N" rowsTitle="{sum(N, 'Site')}" columns="N" value="N"/>
        </band></report>)x";
    Layout layout = layoutOf(file);
    renameGroup(layout, 0, u"Jim's"_s);
    QByteArray expected = file;
    expected.replace("name=\"Site\" by", "name=\"Jim's\" by")
        .replace("\"Site\") +", "\"Jim's\") +")
        .replace("avg(N, 'Site'", "avg(N, 'sitE'")
        .replace("{1 + sum(N, 'Site'}", "{1 + sum(N, 'sitE'}");
    for (const char *scope : {"'Site'", "'SITE'", "'site'"})
        for (const char *begin : {", ", " , ", ","})
            expected.replace(QByteArray(begin) + scope, QByteArray(begin) + "'Jim''s'");
    expected.replace("sitE", "Site");
    EXPECT_EQ(writeLayout(layout).toStdString(), writeLayout(layoutOf(expected)).toStdString());
    const Layout before = layout;
    renameGroup(layout, 1, u"Crew"_s);
    EXPECT_EQ(layout.formulas, before.formulas) << "of the page";
    // Once the group is gone, each part that names it is told.
    renameGroup(layout, 0, u"Place"_s);
    removeGroup(layout, 0);
    const Labelled named = labelled(layout);
    const QStringList gone =
        problemsOf(named.layout, Rows({u"N"_s}, {{1}})).filter(u"there is no group \"Place\""_s);
    EXPECT_EQ(gone.size(), 10);
    for (const QString &remark : gone)
        EXPECT_TRUE(partOf(named, remark)) << remark.toStdString();
}

TEST(AddField, GivesAHeadingInThePageHeaderWhenItGoesToTheDetail)
{
    Layout layout = emptyLayout();
    assignHouseStyles(layout);
    const DesignField cost{{}, u"Labor Cost"_s, u"Labor {net}"_s, FieldType::Number, true};
    const QList<Place> places = addField(layout, 2, cost, {3000, 0});
    ASSERT_EQ(places.size(), 2);
    const Object &field = layout.bands[2].objects[0];
    const Object &heading = layout.bands[1].objects[0];
    EXPECT_EQ(field.content, u"[Labor Cost]"_s);
    EXPECT_EQ(heading.content, u"Labor {{net}"_s);
    EXPECT_EQ(heading.x, field.x);
    EXPECT_EQ(heading.width, field.width);
    EXPECT_EQ(heading.style.align, Align::Right) << "over numbers";
    EXPECT_EQ(heading.styleName, u"Heading"_s);
    EXPECT_EQ(field.styleName, u"Detail"_s);
    EXPECT_EQ(addField(layout, 3, cost, {0, 0}).size(), 1) << "none in a footer";
    layout.bands[1].objects[0].y = 50;
    layout.bands[1].objects[0].height = 700;
    addField(layout, 2, cost, {9000, 0});
    EXPECT_EQ(layout.bands[1].objects[1].y, 50) << "in line with the others";
    EXPECT_EQ(layout.bands[1].objects[1].height, 700);

    // Without a page header there will be one, and the detail's number moves.
    layout.bands.remove(0, 2);
    const QList<Place> again = addField(layout, 0, cost, {0, 0});
    EXPECT_EQ(again, (QList<Place>{{1, 2}, {0, 0}}));
}

TEST(MakeRoom, NarrowsTheWidestColumnFromHeadingToTotals)
{
    Layout layout = layoutOf(R"x(<report version="2"><page paper="Letter"/>
        <band kind="pageHeader"><text width="90.5mm" content="Name"/><text x="90.5mm" width="100mm" content="Sum"/>
          <line width="190.5mm" height="0mm"/></band>
        <band kind="detail"><field width="90.5mm" content="Name"/><field x="90.5mm" width="100mm" content="Sum"/></band>
        <band kind="reportFooter"><text width="60mm" content="Total"/><field x="90.5mm" width="100mm" content="sum(Sum)"/></band>
        </report>)x");
    // The columns of a band: where each begins, and its width.
    const auto columns = [&](int band) {
        QStringList found;
        for (const Object &object : layout.bands[band].objects)
            found.append(u"%1+%2"_s.arg(object.x).arg(object.width));
        return found.join(u' ').toStdString();
    };
    EXPECT_EQ(makeRoom(layout, 1, 3000), 16050);
    EXPECT_EQ(columns(0), "0+9050 9050+7000 0+19050") << "lines stay";
    EXPECT_EQ(columns(1), "0+9050 9050+7000");
    EXPECT_EQ(columns(2), "0+6000 9050+7000");
    // Another column is the widest now; what stands behind it moves, words before a total give way.
    layout.bands[2].objects[0].width = 9050;
    EXPECT_EQ(makeRoom(layout, 1, 5000), 14050);
    EXPECT_EQ(columns(0), "0+7050 7050+7000 0+19050");
    EXPECT_EQ(columns(1), "0+7050 7050+7000");
    EXPECT_EQ(columns(2), "0+7050 7050+7000");
    EXPECT_EQ(makeRoom(layout, 1, 5000), 14050) << "there is room";
    EXPECT_EQ(makeRoom(layout, 1, 12000), 0) << "no column gets too narrow";
}

TEST(AddTotals, SumsBelowTheFieldInTheFootersOfGroupsAndReport)
{
    Layout layout = emptyLayout();
    layout.bands.removeAt(3); // the report's footer
    report::addGroup(layout, u"Site"_s);
    const int detail = 3;
    const QList<Place> field =
        addField(layout, detail, {{}, u"Cost"_s, {}, FieldType::Number, true}, {4000, 0});
    layout.bands[detail].objects[0].format = u"$0.00"_s;
    layout.bands[detail].objects[0].visibleIf = u"Cost > 0"_s;
    ASSERT_EQ(addTotals(layout, field).size(), 2) << "not of the heading";
    const Band &group = layout.bands[4];
    const Band &all = layout.bands[5];
    EXPECT_EQ(group.kind, BandKind::GroupFooter);
    EXPECT_EQ(all.kind, BandKind::ReportFooter) << "made";
    for (const Object &total : {group.objects.last(), all.objects.last()})
        EXPECT_EQ(std::tuple(total.content, total.x, total.format, total.style.font.bold,
                             total.visibleIf),
                  std::tuple(u"sum(Cost)"_s, 4000, u"$0.00"_s, true, QString()));
    EXPECT_TRUE(addTotals(layout, field).isEmpty()) << "they are there";
    EXPECT_EQ(columnOf(layout, field[0]), (QList<Place>{{1, 0}, {3, 0}, {4, 1}, {5, 0}}));
    layout.bands[5].objects[0].y = 300;
    fitBand(layout, 5);
    EXPECT_EQ(layout.bands[5].height, 800);
}

TEST(Clipboard, CarriesStylesAndPicturesToAnotherReport)
{
    Layout from = emptyLayout();
    assignHouseStyles(from);
    const QString name = storePicture(from, u"logo.png"_s, "one");
    Object picture = newObject(ObjectKind::Picture, {0, 0});
    picture.content = name;
    Object title = newObject(ObjectKind::Text, {0, 0});
    title.name = u"lblTitle"_s;
    followStyle(from, title, u"Title"_s);
    const QByteArray text = clipboardText(from, {picture, title});

    Layout to = emptyLayout();
    storePicture(to, u"LOGO.png"_s, "another");
    const QList<Place> places = pasteText(to, 3, text, {300, 100});
    ASSERT_EQ(places, (QList<Place>{{3, 0}, {3, 1}}));
    EXPECT_EQ(to.bands[3].objects[0].content, u"logo.png2"_s);
    EXPECT_EQ(to.pictures[1].data, "one");
    EXPECT_EQ(to.styles.size(), 1) << "only those that are needed";
    EXPECT_EQ(to.bands[3].objects[1].x, 300);
    EXPECT_GE(to.bands[3].height, to.bands[3].objects[0].y + picture.height);
    pasteText(to, 3, text, {0, 0});
    EXPECT_EQ(to.pictures.size(), 2) << "the same picture is kept once";
    EXPECT_EQ(to.bands[3].objects[3].name, QString()) << "a name is there once";
    EXPECT_TRUE(pasteText(to, 3, "no layout", {0, 0}).isEmpty());
    removeObjects(to, {{3, 0}, {3, 2}});
    dropUnusedPictures(to);
    EXPECT_TRUE(to.pictures.isEmpty());
}

TEST(HouseStyles, ObjectsFollowButForWhatIsTheirOwn)
{
    Layout layout = emptyLayout();
    addObjects(layout, 1, QList<Object>(3, newObject(ObjectKind::Text, {0, 0})));
    layout.bands[1].objects[1].style.font.points = 14;
    assignHouseStyles(layout);
    Object &heading = layout.bands[1].objects[0];
    EXPECT_EQ(heading.styleName, u"Heading"_s);
    EXPECT_EQ(layout.bands[1].objects[1].styleName, u"Title"_s) << "by its size";
    heading.style.font.italic = true;
    heading.style.font.points = 7;
    NamedStyle changed = layout.styles[layout.styleIndex(u"heading")];
    changed.style.font.points = 11;
    changed.style.fill = Qt::yellow;
    setNamedStyle(layout, changed);
    EXPECT_EQ(heading.style.fill, QColor(Qt::yellow));
    EXPECT_EQ(heading.style.font.points, 7) << "its own size stays";
    EXPECT_EQ(layout.bands[1].objects[2].style.font.points, 11);
    EXPECT_TRUE(heading.style.font.italic);
    renameStyle(layout, layout.styleIndex(u"Heading"), u"Top"_s);
    EXPECT_EQ(heading.styleName, u"Top"_s);
    for (const Look &look : looks())
        EXPECT_EQ(look.styles.size(), looks().first().styles.size()) << look.name.toStdString();
}

TEST(Properties, OfSeveralObjectsAreSharedAndChangedAtOnce)
{
    Layout layout = emptyLayout();
    addObjects(layout, 2,
               {newObject(ObjectKind::Text, {0, 0}), newObject(ObjectKind::Field, {100, 0}),
                newObject(ObjectKind::Line, {0, 0})});
    const auto find = [&](const Selection &selection, const QString &caption) {
        const QList<Property> all = propertiesOf(layout, selection);
        const auto found = std::ranges::find(all, caption, &Property::caption);
        return found == all.cend() ? std::nullopt : std::optional(*found);
    };
    Selection both = Selection::of({{2, 0}, {2, 1}});
    EXPECT_FALSE(find(both, u"Words"_s)) << "a field has none";
    EXPECT_FALSE(find(Selection::of({{2, 0}, {2, 2}}), u"Bold"_s)) << "nor a line a font";
    EXPECT_TRUE(find(Selection::of({{2, 2}}), u"Line width"_s));
    EXPECT_TRUE(find(both, u"Left"_s)->isMixed);
    EXPECT_EQ(shownValue(*find(both, u"Left"_s)).toStdString(), "(several)");
    EXPECT_FALSE(find(both, u"Top"_s)->isMixed);
    find(both, u"Bold"_s)->set(layout, both, true);
    for (int object = 0; object < 3; ++object)
        EXPECT_EQ(layout.bands[2].objects[object].style.font.bold, object < 2) << object;
    find(both, u"Add a rule"_s)->set(layout, both, {});
    find(both, u"When"_s)->set(layout, both, u"Price > 3"_s);
    EXPECT_EQ(layout.bands[2].objects[1].conditionalStyles[0].when, u"Price > 3"_s);
    layout.bands[2].objects[0].conditionalStyles.clear();
    EXPECT_FALSE(find(both, u"When"_s)) << "their rules differ";
    EXPECT_EQ(typedLength(u"12,5"_s), std::nullopt);
    EXPECT_EQ(typedLength(u" 12.5 "_s), 1250);
    EXPECT_EQ(typedLength(u"1 in"_s), 2540);
}

TEST(Remarks, LeadToTheirObjects)
{
    const Layout layout = layoutOf(R"x(<report version="2">
        <formula name="Worth">Nothing + 1</formula>
        <band kind="pageHeader"><text name="lblX" content="{Mising}"/></band>
        <band kind="detail"><field content="Name"/><field content="Nam"/><field content="Nam"/>
          <text width="5mm" content="These words are longer than their frame"/></band>
        <band kind="detail" printIf="Name &lt;&gt; 'x'"/><band kind="detail" printIf="Nome = 1"/>
        <band kind="detail"><picture content="none.png"/></band></report>)x");
    const Labelled named = labelled(layout);
    const QStringList remarks = problemsOf(named.layout, Rows({u"Name"_s}, {{u"a"_s}}));
    QStringList parts;
    for (const QString &remark : remarks) {
        const auto part = partOf(named, remark);
        ASSERT_TRUE(part) << remark.toStdString();
        parts.append(u"%1 %2 %3 %4"_s.arg(static_cast<int>(part->part))
                         .arg(part->index)
                         .arg(part->lead.band)
                         .arg(part->lead.object));
    }
    EXPECT_EQ(parts.join(u'|').toStdString(),
              "5 0 -1 -1|2 -1 0 0|2 -1 1 1|2 -1 1 2|1 3 -1 -1|2 -1 1 3|2 -1 4 0")
        << remarks.join(u'\n').toStdString();
    EXPECT_FALSE(partOf(named, u"The picture \"other.png\" is not there."_s));
    EXPECT_FALSE(partOf(named, u"Name: in no report"_s));
}

TEST(FaultOf, KnowsFieldsFormulasAndScopes)
{
    Layout layout = emptyLayout();
    layout.formulas.append({u"Worth"_s, u"Price * 2"_s});
    const QList<DesignField> fields{{{}, u"Price"_s, {}, FieldType::Number, true},
                                    {{}, u"Later"_s, {}, FieldType::Number, false}};
    const Selection detail = Selection::of(Selection::Part::Band, 2);
    const auto fault = [&](const QString &text, bool isWords = false) {
        return faultOf(text, isWords, layout, detail, fields).toStdString();
    };
    EXPECT_EQ(fault(u"worth + price"_s), "");
    EXPECT_THAT(fault(u"Later"_s), testing::HasSubstr("no field \"later\""));
    EXPECT_NE(fault(u"1 +"_s), "");
    EXPECT_EQ(fault(u"1 + is words"_s, true), "");
    EXPECT_NE(fault(u"{1 +}"_s, true), "");
    EXPECT_THAT(fault(u"open {Price"_s, true), testing::HasSubstr("closing brace"));
    EXPECT_THAT(fault(u"sum(Price, 'x')"_s), testing::HasSubstr("no group \"x\""));
    EXPECT_EQ(faultOf(u"Anything"_s, false, layout, detail, {}), QString());
}

} // namespace
} // namespace report
