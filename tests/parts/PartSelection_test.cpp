#include "parts/PartSelection.h"

#include "platform/base/Error.h"

#include <gtest/gtest.h>

namespace {

using parts::Chosen;

TEST(PartSelection, KeepsPartsThroughTheTextAndRefusesADamagedOne)
{
    const QList<Chosen> chosen{{"BL-21", 2, 12.5, 3}, {"O'RING 5", 0.25, 0, 0}};
    const QString text = parts::selectionText(chosen);
    EXPECT_EQ(text, QString("BL-21|2|12.5|3@@@@O'RING 5|0.25|0|0").replace(u'|', QChar(134)));
    EXPECT_EQ(parts::parseSelection(text), chosen);
    EXPECT_EQ(parts::parseSelection(QString("BL-21|2| |").replace(u'|', QChar(134))),
              (QList<Chosen>{{"BL-21", 2, 0, 0}}))
        << "a blank is 0";
    EXPECT_TRUE(parts::parseSelection({}).isEmpty());
    EXPECT_TRUE(parts::selectionText({}).isEmpty());
    EXPECT_THROW((void)parts::parseSelection("BL-21"), base::Error);
    const QString noNumber = QStringList{"BL-21", "x", "1", "2"}.join(QChar(134));
    EXPECT_THROW((void)parts::parseSelection(noNumber), base::Error);
}

TEST(ExclusionList, QuotesAndDoublesApostrophes)
{
    EXPECT_EQ(parts::exclusionList({"A", "O'RING"}), "'A', 'O''RING'");
    EXPECT_EQ(parts::exclusionList({}), "");
    const QStringList odd{"A, 'B", "'", "", "O'RING"};
    EXPECT_EQ(parts::excludedParts(parts::exclusionList(odd)), odd);
    EXPECT_EQ(parts::excludedParts({}), QStringList());
}

} // namespace
