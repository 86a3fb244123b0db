#include "administration/XlsxReader.h"

#include "administration/Workbooks.h"
#include "support/Raised.h"

#include <xlsxwriter.h>

using namespace Qt::StringLiterals;
using administration::lookOf;
using administration::RowReader;
using administration::XlsxReader;

namespace {

/// What a file holds: a line for each row, its number ahead, its fields parted by '|', a fault as
/// "!column sentence".
QString rowsOf(const QString &file)
{
    XlsxReader reader(file);
    QStringList lines{reader.header().join(u'|')};
    while (reader.next()) {
        QStringList fields;
        for (const RowReader::Field &field : reader.fields())
            fields.append(field.text);
        lines.append(u"%1 "_s.arg(reader.row()) + fields.join(u'|'));
        if (reader.fault())
            lines.last() += u" !%1 "_s.arg(reader.fault()->column) +
                            reader.fault()->sentence.section(u'.', 0, 0);
    }
    return lines.join(u'\n');
}

QString refusalOf(const QString &file)
{
    return test::raisedBy([&] { static_cast<void>(rowsOf(file)); }).description();
}

struct Xlsx : testing::Test
{
    test::Workbooks books;
};

const QByteArray Heading = "<row r='1'><c r='A1' t='inlineStr'><is><t>Name</t></is></c></row>";

} // namespace

TEST_F(Xlsx, IsReadAsProgramsWriteIt)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"rows of Smith's café.xlsx"_s);
    lxw_workbook *book = workbook_new(QFile::encodeName(path).constData());
    lxw_worksheet *sheet = workbook_add_worksheet(book, "Mine");
    workbook_add_worksheet(book, "Other");
    const auto pattern = [book](const char *text) {
        lxw_format *format = workbook_add_format(book);
        format_set_num_format(format, text);
        return format;
    };
    worksheet_write_string(sheet, 0, 0, " Name ", nullptr);
    worksheet_write_string(sheet, 0, 2, "Bought", nullptr);
    worksheet_write_string(sheet, 1, 0, "Größe, \"7\"\nand more", nullptr);
    lxw_datetime day{2024, 3, 15, 0, 0, 0};
    worksheet_write_datetime(sheet, 1, 2, &day, pattern("dd/mm/yyyy"));
    lxw_datetime moment{2024, 3, 15, 9, 30, 7};
    worksheet_write_datetime(sheet, 1, 3, &moment, pattern("d mmm yy h:mm"));
    worksheet_write_number(sheet, 4, 0, 0.1 + 0.2, nullptr);
    worksheet_write_number(sheet, 4, 1, 1234567.25, pattern("#,##0.00 \"days\""));
    worksheet_write_number(sheet, 4, 2, 1234, pattern("00000"));
    worksheet_write_boolean(sheet, 4, 3, 1, nullptr);
    worksheet_write_formula_str(sheet, 4, 4, "=A1&\"!\"", nullptr, "Name!");
    worksheet_write_formula_num(sheet, 4, 5, "=2+3", nullptr, 5);
    ASSERT_EQ(workbook_close(book), LXW_NO_ERROR);
    EXPECT_EQ(rowsOf(path), u"Name||Bought\n"
                            "2 Größe, \"7\"\nand more||2024-03-15|2024-03-15T09:30:07\n"
                            "5 0.3|1234567.25|01234|Yes|Name!|5"_s);
}

TEST_F(Xlsx, EachKindOfCellIsTheTextThatItShows)
{
    const QHash<QString, QByteArray> parts{
        {u"xl/texts.xml"_s,
         "<sst><si><t>shared</t></si><si><r><t>two </t></r><r><t>parts</t></r>"
         "<rPh><t>spoken</t></rPh></si><si><t>a_x0009_b_x005F_x0009_</t></si></sst>"},
        {u"xl/styles.xml"_s,
         "<styleSheet><numFmts><numFmt numFmtId='170' formatCode='[$-409]d\\.m\\.yyyy'/></numFmts>"
         "<cellStyleXfs><xf numFmtId='14'/></cellStyleXfs>"
         "<cellXfs><xf numFmtId='0'/><xf numFmtId='170'/><xf numFmtId='22'><alignment/></xf>"
         "</cellXfs></styleSheet>"}};
    const std::pair<const char *, QString> cells[] = {
        {"<c t='s'><v>0</v></c><c t='s'><v>1</v></c><c t='s'><v>2</v></c>",
         u"shared|two parts|a\tb_x0009_"_s},
        {"<c t='inlineStr'><is><r><t>in </t></r><r><t>line</t></r></is></c>", u"in line"_s},
        {"<c r='C2' t='str'><f>A1</f><v></v></c><c t='d'><v>2024-03-15</v></c>", u"||"
                                                                                 u"|2024-03-15"_s},
        {"<c s='1'><v>45366</v></c><c s='2'><v>45366.999999</v></c><c s='2'><v>0.5</v></c>",
         u"2024-03-15|2024-03-16|12:00:00"_s},
        {"<c s='1'><v>-1</v></c><c s='1'><v>2958466</v></c><c s='1'><v>2958465</v></c>",
         u"-1|2958466|9999-12-31"_s},
        {"<c s='7'><v>1E15</v></c><c><v>1.5e-7</v></c><c t='n'/><c t='b'><v>0</v></c>",
         u"1000000000000000|0.00000015||No"_s},
        {"<c t='e'><v>#N/A</v></c><c><v>1</v></c>", u"|1 !0 The cell shows the error #N/A"_s},
        {"<c><v>1</v></c><c><f>1+1</f></c>", u"1| !1 The formula has no result yet"_s},
    };
    for (const auto &[row, text] : cells)
        EXPECT_EQ(rowsOf(books.withRows(Heading + "<row>" + row + "</row>", parts)),
                  u"Name\n2 "_s + text)
            << row;
    EXPECT_EQ(rowsOf(books.withRows("<row r='3'/><row r='7'><c><v>1</v></c></row>")), u"\n7 1"_s)
        << "no headings";
    EXPECT_EQ(rowsOf(books.withRows(
                  Heading + "<row><c s='1'><v>0</v></c></row>",
                  {{u"xl/styles.xml"_s, parts[u"xl/styles.xml"_s]},
                   {u"xl/workbook.xml"_s,
                    "<w xmlns:q='q'><workbookPr date1904='1'/><sheet q:id='r1'/></w>"}})),
              u"Name\n2 1904-01-01"_s);
}

TEST_F(Xlsx, APatternTellsWhetherANumberIsADay)
{
    for (const char *pattern : {"yyyy-mm-dd", "D.M.YY", "[Red]mmm", "h:mm AM/PM", "[$-407]d/m"})
        EXPECT_TRUE(lookOf(QString::fromLatin1(pattern)).isDate) << pattern;
    for (const char *pattern :
         {"General", "0.00E+00", "#,##0 \"days\"", "[Red]0.00", "0\\d", "0_d", "@", "0;\"d\"d"})
        EXPECT_FALSE(lookOf(QString::fromLatin1(pattern)).isDate) << pattern;
    EXPECT_EQ(lookOf(u"00000"_s).digits, 5);
    EXPECT_EQ(lookOf(u"0.00"_s).digits, 0);
}

TEST_F(Xlsx, ATableMayBeAsLargeAsTheFormatAllows)
{
    EXPECT_EQ(rowsOf(books.withRows(Heading + "<row r='1048576'><c r='XFD1048576'/></row>")),
              u"Name\n1048576 "_s + QString(16'383, u'|'));
    // More than any piece of it may be long.
    QByteArray rows;
    QByteArray texts;
    for (int row = 0; row < 20'000; ++row) {
        const QByteArray number = QByteArray::number(row);
        rows += "<row><c t='s'><v>" + number + "</v></c><c><v>1</v></c>" + QByteArray(200, ' ') +
                "</row>";
        texts += "<si><t>text " + number + "</t>" + QByteArray(50, ' ') + "</si>";
    }
    XlsxReader reader(
        books.withRows(Heading + rows, {{u"xl/texts.xml"_s, "<sst>" + texts + "</sst>"}}));
    EXPECT_LT(reader.done(), 0.5);
    QString last;
    while (reader.next())
        last = reader.fields()[0].text;
    EXPECT_EQ(last, u"text 19999"_s);
    EXPECT_EQ(reader.row(), 20'001);
    EXPECT_EQ(reader.done(), 1);
}

TEST_F(Xlsx, WhatIsNoWholeSpreadsheetIsRefused)
{
    const QString notRead = u"holds more than a table of records can, and was not read."_s;
    const QString damaged = u"is damaged: its table can't be read to the end."_s;
    const QString none = u"is an archive, but no spreadsheet (.xlsx)."_s;
    const auto cell = [](const QByteArray &xml) { return Heading + "<row>" + xml + "</row>"; };
    const QByteArray blanks(5 << 20, ' ');
    // Each file is made in the place of the one before.
    const auto expectRefused = [](const QString &file, const QString &why) {
        const QString told = refusalOf(file);
        EXPECT_TRUE(told.endsWith(why)) << qPrintable(told) << " instead of " << qPrintable(why);
    };
    const auto expectPart = [&](const QString &name, const QByteArray &text, const QString &why) {
        expectRefused(books.withRows({}, {{name, text}}), why);
    };
    expectRefused(books.zip({{u"tblSite.csv"_s, "x"}}), none);
    expectPart(u"_rels/.rels"_s, "<Relationships/>", none);
    expectPart(u"xl/workbook.xml"_s, "<workbook/>", none);
    expectRefused(books.file({}), u"holds no \"xl/sheets/mine.xml\"."_s);
    for (const char *sheet :
         {"<worksheet><sheetData><row>", "<!DOCTYPE a [<!ENTITY b 'c'>]><a>&b;</a>"})
        expectRefused(books.file({{books.sheet(), sheet}}), damaged);
    for (const char *cells :
         {"<c t='s'><v>0</v></c>", "<c r='B2'/><c r='B2'/>", "<c r='XFE2'/>", "<c><v>many</v></c>"})
        expectRefused(books.withRows(cell(cells)), damaged);
    for (const char *row : {"<row r='1'/>", "<row r='1048577'/>"})
        expectRefused(books.withRows(Heading + row), damaged);
    expectRefused(books.withRows(cell("<c><v>" + blanks + "</v></c>")), notRead);
    expectPart(u"xl/texts.xml"_s, "<sst>" + blanks, notRead);
    expectPart(u"xl/styles.xml"_s, "<s>" + blanks, notRead);
    expectPart(u"xl/styles.xml"_s,
               "<s>" + QByteArray("<alignment horizontal='left'/>").repeated(600'000) + "</s>",
               notRead);
    expectPart(u"xl/texts.xml"_s, "<sst>" + QByteArray("<si/>").repeated(3'000'001) + "</sst>",
               notRead);
}

TEST_F(Xlsx, NoDamageOnTheWayIsTakenForTheTable)
{
    QByteArray rows;
    for (int row = 2; row < 400; ++row)
        rows += "<row><c><v>" + QByteArray::number(row * 7919 % 10'007) + "</v></c></row>";
    const QString path = books.withRows(Heading + rows);
    const QString whole = rowsOf(path);
    const QByteArray bytes = test::readFile(path);
    const qsizetype table = bytes.indexOf("xl/sheets/mine.xml");
    for (const qsizetype place : {table + 100, table + 500, table + 900}) {
        QByteArray other = bytes;
        other[place] = static_cast<char>(other[place] ^ 0x10);
        test::writeFile(path, other);
        EXPECT_NE(refusalOf(path), QString()) << place;
    }
    for (const qsizetype length :
         {qsizetype(0), qsizetype(10), bytes.size() / 2, bytes.size() - 1}) {
        test::writeFile(path, bytes.left(length));
        EXPECT_TRUE(refusalOf(path).endsWith(u"is no zip archive, or is damaged."_s)) << length;
    }
}
