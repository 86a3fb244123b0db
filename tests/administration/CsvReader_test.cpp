#include "administration/CsvReader.h"

#include <QBuffer>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using administration::CsvReader;

namespace {

/// What a reader makes of a file: a line for each row, its fields parted by '|', quoted ones in
/// brackets; a fault as "!column".
QString readAs(QByteArray text, const CsvReader::Format &format = {})
{
    QBuffer file(&text);
    file.open(QIODevice::ReadOnly);
    CsvReader reader(file, format);
    QStringList lines{reader.header().join(u'|')};
    while (reader.next()) {
        QStringList fields;
        for (const CsvReader::Field &field : reader.fields())
            fields.append(field.quoted ? u'[' + field.text + u']' : field.text);
        lines.append(u"%1 "_s.arg(reader.row()) + fields.join(u'|') +
                     (reader.fault() ? u" !%1"_s.arg(reader.fault()->column) : QString()));
    }
    return lines.join(u'\n');
}

QByteArray utf16(const QString &text, bool bigEndian)
{
    QByteArray bytes = bigEndian ? "\xFE\xFF" : "\xFF\xFE";
    for (const QChar character : text) {
        const char low = static_cast<char>(character.unicode() & 0xFFU);
        const char high = static_cast<char>(character.unicode() >> 8U);
        bytes.append(bigEndian ? high : low).append(bigEndian ? low : high);
    }
    return bytes;
}

} // namespace

TEST(CsvReader, TakesFilesAsProgramsWriteThem)
{
    const QString plain = u"A|B\n2 1|2\n3 3|4"_s;
    for (const QByteArray &text :
         {QByteArray("A,B\n1,2\n3,4"), QByteArray("A,B\r\n1,2\r\n3,4\r\n"),
          QByteArray("A,B\r1,2\r3,4\r"),
          QByteArray("\xEF\xBB\xBF"
                     "A;B\n1;2\n3;4\n"),
          QByteArray("A\tB\n1\t2\n3\t4\n"), QByteArray(" A , B \n1,2\n3,4\n"),
          utf16(u"A;B\r\n1;2\r\n3;4\r\n"_s, false), utf16(u"A\tB\n1\t2\n3\t4"_s, true)})
        EXPECT_EQ(readAs(text), plain) << text.toStdString();
}

TEST(CsvReader, KeepsWhatStandsBetweenQuotes)
{
    EXPECT_EQ(readAs("\"A;x\",B\n\"1,\"\"2\"\"\r\n3\",\"\"\n5\" deck,\n"),
              u"A;x|B\n2 [1,\"2\"\r\n3]|[]\n3 5\" deck|"_s);
    EXPECT_EQ(readAs("A,B\n\n1,\xC3\xA9\n", {}), u"A|B\n2 \n3 1|é"_s) << "empty lines are counted";
    EXPECT_EQ(readAs("A;B\n1;2\n", {.delimiter = ','}), u"A;B\n2 1;2"_s);
    EXPECT_EQ(readAs(""), QString());
}

TEST(CsvReader, NamesTheColumnOfAFaultAndReadsOn)
{
    EXPECT_EQ(readAs("A,B\n1,\xE9t\xE9\n3,4\n").section(u'\n', 2), u"3 3|4"_s);
    EXPECT_TRUE(readAs("A,B\n1,\xE9t\xE9\n").endsWith(u" !1"_s)) << "no UTF-8";
    EXPECT_EQ(readAs("A,B\n\"1\"2,3\n4,5\n"), u"A|B\n2 [12]|3 !0\n3 4|5"_s);
    EXPECT_EQ(readAs("A,B\n1,\"2\n3,4\n"), u"A|B\n2 1|[2\n3,4\n] !1"_s);
    EXPECT_TRUE(readAs(QByteArray("A,B\n1,x\0y\n", 10)).endsWith(u" !1"_s));
    EXPECT_FALSE(
        readAs(QByteArray("A,B\n1,x\0y\n", 10), {.allowsAnyCharacter = true}).contains(u'!'));
    EXPECT_EQ(readAs("A,B\n1234,5\n123,5\n", {.longestField = 3}), u"A|B\n2 123|5 !0\n3 123|5"_s);
}

TEST(CsvReader, ReadsOnOverTheEndsOfItsPieces)
{
    // The quotes of each field come to lie at every place of a piece once.
    QByteArray text = "A,B\n";
    for (int row = 0; row < 30000; ++row)
        text += "\"a\"\"\xC3\xA9\r\n\",\"\"\r\n";
    QBuffer file(&text);
    file.open(QIODevice::ReadOnly);
    CsvReader reader(file, {});
    int rows = 0;
    while (reader.next()) {
        ++rows;
        ASSERT_FALSE(reader.fault()) << rows;
        ASSERT_EQ(reader.fields()[0].text, u"a\"é\r\n"_s) << rows;
    }
    EXPECT_EQ(rows, 30000);
}
