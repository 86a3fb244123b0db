#include "exchange/CommandFile.h"
#include "exchange/SectionFile.h"
#include "support/TestFiles.h"

#include <QRandomGenerator>

namespace {

using namespace Qt::StringLiterals;

/// Damages a file in a few places: bytes go missing, are doubled, replaced, or the end is cut off.
QByteArray mutated(QByteArray file, QRandomGenerator &random)
{
    static const QByteArrayList pieces{
        "<",   ">",        "</v>", "<v>",    "&",    "&amp;",     "\"",
        "'",   "\xff",     "\xc3", "<!--",   "-->",  "<?",        "<![CDATA[",
        "]]>", "<record ", "/>",   "&#x41;", "&#0;", "</tables>", "<!DOCTYPE a [<!ENTITY x 'y'>]>"};
    const auto bounded = [&](qsizetype limit) {
        return static_cast<qsizetype>(random.bounded(static_cast<quint32>(limit)));
    };
    for (qsizetype changes = 1 + bounded(4); changes > 0 && !file.isEmpty(); --changes) {
        const qsizetype at = bounded(file.size());
        switch (random.bounded(5)) {
        case 0:
            file.remove(at, bounded(12));
            break;
        case 1:
            file.insert(at, file.mid(at, bounded(40)));
            break;
        case 2:
            file.insert(at, pieces[bounded(pieces.size())]);
            break;
        case 3:
            file[at] = static_cast<char>(random.bounded(256));
            break;
        default:
            if (bounded(8) == 0)
                file.truncate(at);
        }
    }
    return file;
}

TEST(ExchangeFiles, AreReadOrRefusedHoweverTheyAreDamaged)
{
    const QByteArray commands =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?><day><NewWorkOrder><v>W1</v><v/><v>3/1/2024</v>"
        "<v>1</v><v>3/1/2024</v></NewWorkOrder><x><Record><v>tblPart</v><v>PartID</v><v>a</v>"
        "<v>C</v><v>Notes</v><v>T</v><v>it's &lt; that</v></Record></x></day>";
    const QByteArray sections =
        test::readFile(QStringLiteral(QUORVANTIS_TEST_DATA "/Data.xml")).replace('\n', '\r');
    const QStringList kinds{u"NewWorkOrder"_s, u"Record"_s};
    const int wanted = qEnvironmentVariableIntValue("QUORVANTIS_MUTATIONS");
    QRandomGenerator random(20240315);
    int read = 0;
    int refused = 0;
    for (int i = 0; i < (wanted > 0 ? wanted : 10'000); ++i) {
        const exchange::CommandFile file(mutated(commands, random), kinds);
        // What is refused holds nothing, however much of it could be read.
        EXPECT_TRUE(file.fault().isEmpty() || file.commandCount() == 0);
        (file.fault().isEmpty() ? read : refused)++;
        const exchange::SectionFile other(mutated(sections, random));
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
