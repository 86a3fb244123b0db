#include "platform/report/designer/Arrange.h"
#include "platform/report/designer/DesignDocument.h"
#include "platform/report/designer/Fields.h"
#include "platform/report/designer/HouseStyles.h"
#include "platform/report/designer/Normalised.h"
#include "platform/report/designer/Property.h"
#include "platform/report/designer/Structure.h"
#include "platform/report/layout/LayoutFile.h"
#include "support/TestFiles.h"

#include <QDir>
#include <QSignalSpy>
#include <gmock/gmock.h>
#include <random>

namespace report {
namespace {

using namespace Qt::StringLiterals;

/// Commands at random, with values that nobody would type.
class Hand
{
public:
    Hand(DesignDocument &document, unsigned seed)
        : m_document(document)
        , m_random(seed)
    {}

    void step()
    {
        m_document.select(anySelection());
        m_document.change(
            u"Step"_s, [&](Layout &layout, Selection &selection) { act(layout, selection); },
            below(2) == 0 ? 7 : 0);
    }

private:
    int below(int count) { return std::uniform_int_distribution(0, count - 1)(m_random); }
    Length length() { return below(3) == 0 ? below(2147483647) - 1073741823 : below(20000) - 500; }
    QString words()
    {
        static const QStringList all =
            u"| |Price|a\nb\tc|{Bin} <&>\"'|\u0001x|\xd800|  two words |=Photo|Ünü \u4e2d|bin|]]>|\r\n"_s
                .split(u'|');
        return all[below(static_cast<int>(all.size()))];
    }
    QColor color() { return below(4) == 0 ? QColor() : QColor::fromHsvF(0.3f, 0.7f, 0.9f, 0.4f); }
    QVariant valueFor(const Property &property)
    {
        switch (property.kind) {
        case PropertyKind::Distance:
        case PropertyKind::Count:
            return length();
        case PropertyKind::Points:
            return below(3) == 0 ? std::numeric_limits<double>::quiet_NaN() : below(9999) / 77.0;
        case PropertyKind::Flag:
            return below(2) == 0;
        case PropertyKind::Choice:
            return below(static_cast<int>(property.choices.size()));
        case PropertyKind::Color:
            return color();
        default:
            return words();
        }
    }
    Selection anySelection()
    {
        const Layout &layout = m_document.layout();
        QList<Place> places;
        for (int band = 0; band < layout.bands.size(); ++band)
            for (int object = 0; object < layout.bands[band].objects.size(); ++object)
                if (below(4) == 0)
                    places.append({band, object});
        if (!places.isEmpty() && below(3) > 0)
            return Selection::of(places);
        return Selection::of(static_cast<Selection::Part>(below(10)), below(5));
    }
    void act(Layout &layout, Selection &selection)
    {
        if (layout.bands.isEmpty())
            layout.bands.append(Band());
        const int bands = static_cast<int>(layout.bands.size());
        const int band = below(bands);
        switch (below(12)) {
        case 0:
            report::addGroup(layout, words());
            break;
        case 1:
            if (!layout.groups.isEmpty())
                removeGroup(layout, below(static_cast<int>(layout.groups.size())));
            break;
        case 2:
            if (!layout.groups.isEmpty())
                renameGroup(layout, 0, words());
            break;
        case 3: {
            Band added;
            added.kind = static_cast<BandKind>(below(10));
            added.height = length();
            added.group = added.rows = words();
            layout.bands.insert(below(bands + 1), added);
            break;
        }
        case 4:
            layout.bands.remove(band, below(3) == 0 ? 1 : 0);
            break;
        case 5:
            selection = Selection::of(
                addObjects(layout, band,
                           {newObject(static_cast<ObjectKind>(below(8)), {length(), length()})}));
            break;
        case 6:
            addField(layout, band, {{}, words(), words(), FieldType::Number, true}, {0, 0});
            break;
        case 7:
            pasteText(layout, band, clipboardText(layout, objectsAt(layout, selection.objects)),
                      {10, 10});
            break;
        case 8:
            removeObjects(layout, selection.objects);
            break;
        case 9:
            moveToBand(layout, selection.objects, band, {length() / 4, length() / 4});
            break;
        case 10:
            storePicture(layout, words(), words().toUtf8());
            applyLook(layout, looks()[below(static_cast<int>(looks().size()))]);
            assignHouseStyles(layout);
            break;
        default: {
            const QList<Property> properties = propertiesOf(layout, selection);
            const Property &property = properties[below(static_cast<int>(properties.size()))];
            property.set(layout, selection, valueFor(property));
        }
        }
    }

    DesignDocument &m_document;
    std::mt19937 m_random;
};

void expectReadsBack(const Layout &layout)
{
    const LayoutReading reading = readLayout(writeLayout(layout));
    ASSERT_TRUE(reading.layout) << reading.error.toStdString();
    EXPECT_TRUE(reading.warnings.isEmpty()) << reading.warnings.join(u'\n').toStdString();
    EXPECT_TRUE(*reading.layout == layout)
        << writeLayout(layout).toStdString() << writeLayout(*reading.layout).toStdString();
}

TEST(DesignDocument, AnyCommandsAreUndoneAndRedoneAndWrittenWithoutLoss)
{
    for (unsigned seed = 1; seed <= 12; ++seed) {
        SCOPED_TRACE(seed);
        DesignDocument document;
        const Layout first = normalised(emptyLayout());
        document.setLayout(first);
        Hand hand(document, seed);
        QList<Layout> states{document.layout()};
        for (int step = 0; step < 120; ++step) {
            hand.step();
            expectReadsBack(document.layout());
            if (testing::Test::HasFailure())
                return;
            // What was merged has no state of its own; going back in between is part of the work.
            if (step % 17 == 0 && document.undoStack().canUndo()) {
                const Layout before = document.layout();
                document.undoStack().undo();
                document.undoStack().redo();
                EXPECT_TRUE(document.layout() == before);
            }
        }
        const Layout last = document.layout();
        const int count = document.undoStack().count();
        EXPECT_GT(count, 40);
        while (document.undoStack().canUndo())
            document.undoStack().undo();
        EXPECT_TRUE(document.layout() == first);
        EXPECT_FALSE(document.isModified());
        while (document.undoStack().canRedo())
            document.undoStack().redo();
        EXPECT_TRUE(document.layout() == last);
        EXPECT_TRUE(document.isModified());
    }
}

Layout twoTexts()
{
    Layout layout = emptyLayout();
    addObjects(layout, 2,
               {newObject(ObjectKind::Text, {0, 0}), newObject(ObjectKind::Text, {5000, 0})});
    return layout;
}

void nudge(DesignDocument &document, Length by)
{
    document.change(
        u"Move"_s,
        [&](Layout &layout, Selection &moved) {
            moveBy(layout, moved.objects, {by, 0});
        },
        1);
}

TEST(DesignDocument, StepsOfOneKindAreOneChangeUntilTheSelectionChanges)
{
    DesignDocument document;
    document.setLayout(twoTexts());
    document.select(Selection::of({{2, 0}}));
    nudge(document, 100);
    nudge(document, 100);
    EXPECT_EQ(document.undoStack().count(), 1);
    document.select(Selection::of({{2, 1}}));
    nudge(document, 100);
    EXPECT_EQ(document.undoStack().count(), 2);
    document.undoStack().undo();
    document.undoStack().undo();
    EXPECT_EQ(document.layout(), twoTexts());
    EXPECT_EQ(document.selection(), Selection::of({{2, 0}})) << "as it was selected then";
    document.undoStack().redo();
    EXPECT_EQ(document.object({2, 0}).x, 200);
    // There and back again is nothing to undo.
    document.endSeries();
    nudge(document, 100);
    nudge(document, -100);
    EXPECT_EQ(document.undoStack().count(), 1);
}

TEST(DesignDocument, TellsWhetherThereIsSomethingToSave)
{
    DesignDocument document;
    document.setLayout(twoTexts());
    QSignalSpy told(&document, &DesignDocument::modifiedChanged);
    EXPECT_FALSE(document.change(u"Nothing"_s, [](Layout &, Selection &) {}));
    EXPECT_FALSE(document.isModified());
    document.select(Selection::of({{2, 0}}));
    nudge(document, 100);
    EXPECT_TRUE(document.isModified());
    document.markSaved();
    EXPECT_FALSE(document.isModified());
    document.undoStack().undo();
    EXPECT_TRUE(document.isModified()) << "the file holds the later one";
    document.undoStack().redo();
    EXPECT_FALSE(document.isModified());
    EXPECT_EQ(told.count(), 4);
}

TEST(DesignDocument, SelectsOnlyWhatIsThere)
{
    DesignDocument document;
    document.setLayout(twoTexts());
    document.select(Selection::of({{2, 1}, {9, 0}, {2, 7}, {2, 0}}));
    EXPECT_EQ(document.selection().objects, (QList<Place>{{2, 0}, {2, 1}}));
    EXPECT_EQ(document.selection().lead, (Place{2, 0})) << "the last one chosen leads";
    document.select(Selection::of(Selection::Part::Group, 0));
    EXPECT_EQ(document.selection().part, Selection::Part::Report);
    document.select(Selection::of({{2, 1}}));
    document.change(u"Delete"_s,
                    [](Layout &layout, Selection &) { layout.bands[2].objects.removeLast(); });
    EXPECT_TRUE(document.selection().objects.isEmpty());
}

/// What is delivered can be compared with what a user has made of it, line by line.
TEST(DesignDocument, EveryDeliveredLayoutIsSavedAsItWasOpened)
{
    const QDir folder(QStringLiteral(DELIVERED_LAYOUTS));
    const QStringList names = folder.entryList({u"*.rpt"_s});
    ASSERT_GT(names.size(), 20);
    for (const QString &name : names) {
        const LayoutReading reading = readLayoutFile(folder.filePath(name));
        ASSERT_TRUE(reading.layout) << reading.error.toStdString();
        DesignDocument document;
        document.setLayout(*reading.layout);
        document.change(u"Title"_s, [](Layout &layout, Selection &) { layout.title += u"x"; });
        document.undoStack().undo();
        EXPECT_EQ(writeLayout(document.layout()).toStdString(),
                  test::readFile(folder.filePath(name)).toStdString())
            << name.toStdString() << ": quorvantis-report --rewrite puts it into this form";
    }
}

/// Of a thousand steps over many objects only what changed is kept: the lists of untouched bands
/// stay the ones of the layout that was set.
TEST(DesignDocument, LeavesWhatDoesNotChangeShared)
{
    Layout layout = twoTexts();
    addObjects(layout, 0, {newObject(ObjectKind::Box, {0, 0})});
    DesignDocument document;
    document.setLayout(normalised(layout));
    const auto *untouched = document.layout().bands[0].objects.constData();
    document.select(Selection::of({{2, 0}}));
    nudge(document, 100);
    EXPECT_EQ(document.layout().bands[0].objects.constData(), untouched);
}

} // namespace
} // namespace report
