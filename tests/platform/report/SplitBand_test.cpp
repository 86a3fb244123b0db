#include "platform/report/paginate/SplitBand.h"

#include "platform/report/paginate/TextFlow.h"

#include <gtest/gtest.h>

namespace report {
namespace {

using namespace Qt::StringLiterals;

TextItem fourLines(QPoint at)
{
    TextItem item;
    item.frame = QRect(at, QSize(2000, 1421));
    item.lines = flowText(u"1\n2\n3\n4"_s, item.style, 2000);
    PageItem moved = item;
    movePageItem(moved, at);
    item.lines = std::get<TextItem>(moved).lines;
    return item;
}

TEST(SplitBand, CutsBetweenLinesAndContinuesFrames)
{
    MadeBand band;
    band.height = 2000;
    band.items = {BoxItem{QRect(0, 50, 6000, 1850), 20, Qt::black, QColor()}, fourLines({0, 0}),
                  LineItem{{0, 1950}, {6000, 1950}, 20, Qt::black}};
    const auto rest = splitBand(band, 1000);
    ASSERT_TRUE(rest);
    // Lines are 355.3 high: two fit, and the cut is at the top of the third.
    EXPECT_EQ(band.height, 710);
    EXPECT_EQ(rest->height, 2000 - 710);
    ASSERT_EQ(band.items.size(), 2);
    EXPECT_EQ(std::get<BoxItem>(band.items[0]).frame, QRect(0, 50, 6000, 660));
    EXPECT_EQ(std::get<TextItem>(band.items[1]).lines.size(), 2);
    ASSERT_EQ(rest->items.size(), 3);
    EXPECT_EQ(std::get<BoxItem>(rest->items[0]).frame, QRect(0, 0, 6000, 1900 - 710));
    const auto &text = std::get<TextItem>(rest->items[1]);
    EXPECT_EQ(text.lines[0].text, u"3");
    EXPECT_EQ(lineTop(text.lines[0], text.style), 0);
    EXPECT_EQ(std::get<LineItem>(rest->items[2]).from, QPoint(0, 1950 - 710));
}

TEST(SplitBand, LeavesPicturesWhole)
{
    MadeBand band;
    band.height = 3000;
    band.items = {fourLines({0, 0}), PictureItem{QRect(0, 1500, 2000, 1500), "x", Align::Left}};
    const auto rest = splitBand(band, 2000);
    ASSERT_TRUE(rest);
    EXPECT_EQ(band.height, 1500);
    EXPECT_EQ(std::get<PictureItem>(rest->items[0]).frame, QRect(0, 0, 2000, 1500));
    MadeBand picture;
    picture.height = 3000;
    picture.items = {PictureItem{QRect(0, 0, 2000, 3000), "x", Align::Left}};
    EXPECT_FALSE(splitBand(picture, 2000)) << "a picture higher than the page can't be cut";
}

} // namespace
} // namespace report
