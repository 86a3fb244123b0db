#include "exchange/CommandFile.h"
#include "exchange/SectionFile.h"
#include "support/Mutated.h"
#include "support/TestFiles.h"

namespace {

using namespace Qt::StringLiterals;

const QByteArrayList Pieces{
    "<",   ">",        "</v>", "<v>",    "&",    "&amp;",     "\"",
    "'",   "\xff",     "\xc3", "<!--",   "-->",  "<?",        "<![CDATA[",
    "]]>", "<record ", "/>",   "&#x41;", "&#0;", "</tables>", "<!DOCTYPE a [<!ENTITY x 'y'>]>"};

TEST(ExchangeFiles, AreReadOrRefusedHoweverTheyAreDamaged)
{
    const QByteArray commands =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?><day><NewWorkOrder><v>W1</v><v/><v>3/1/2024</v>"
        "<v>1</v><v>3/1/2024</v></NewWorkOrder><x><Record><v>tblPart</v><v>PartID</v><v>a</v>"
        "<v>C</v><v>Notes</v><v>T</v><v>it's &lt; that</v></Record></x></day>";
    const QByteArray sections =
        test::readFile(QStringLiteral(QUORVANTIS_TEST_DATA "/Data.xml")).replace('\n', '\r');
    const QStringList kinds{u"NewWorkOrder"_s, u"Record"_s};
    QRandomGenerator random(20240315);
    int read = 0;
    int refused = 0;
    for (int i = test::mutations(10'000); i > 0; --i) {
        const exchange::CommandFile file(test::mutated(commands, Pieces, random), kinds);
        // What is refused holds nothing, however much of it could be read.
        EXPECT_TRUE(file.fault().isEmpty() || file.commandCount() == 0);
        (file.fault().isEmpty() ? read : refused)++;
        const exchange::SectionFile other(test::mutated(sections, Pieces, random));
        EXPECT_TRUE(!other.fault() || other.sections().isEmpty());
        EXPECT_TRUE(!other.fault() || !other.fault()->reason.isEmpty());
        (other.fault() ? refused : read)++;
    }
    EXPECT_GT(read, 100);
    EXPECT_GT(refused, 100);
}

TEST(CommandFile, TakesTextsByTheirPositionsAlone)
{
    const exchange::CommandFile file(
        "<r><Record a='x'>\n  <one>1<b>2</b>3</one>\n<!-- none --><two/>text<three>&amp; "
        "</three></Record><x><y><Record><Record><v>inner</v></Record></Record></y></x>"
        "<record><v>no</v></record></r>",
        {u"Record"_s});
    ASSERT_TRUE(file.fault().isEmpty()) << file.fault().toStdString();
    const auto &records = file.commands(u"Record"_s);
    ASSERT_EQ(records.size(), 3);
    EXPECT_EQ(records[0].values, (QStringList{u"123"_s, {}, u"text"_s, u"& "_s}));
    EXPECT_EQ(records[1].values, QStringList{u"inner"_s});
    EXPECT_EQ(records[2].values, QStringList{u"inner"_s});
    EXPECT_EQ(records[2].number, 3);
    EXPECT_TRUE(file.commands(u"Other"_s).isEmpty());
}

} // namespace
