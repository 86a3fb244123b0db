#include "administration/Workbook.h"

#include "administration/XmlPart.h"
#include "platform/base/Error.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QRegularExpression>

namespace administration {
namespace {

using namespace Qt::StringLiterals;

constexpr XmlPart::Limits smallPart{};
/// A text for each cell of a large table.
constexpr XmlPart::Limits sharedTexts{.whole = qint64(128) << 20};
constexpr std::size_t mostTexts = 3'000'000;
constexpr std::size_t mostLooks = 100'000;

/// Files of the archive that another one of it names.
struct Relation
{
    QString kind;
    QString file;
};

[[noreturn]] void refuseAsNone(const ZipReader &archive)
{
    throw base::Error(
        base::ErrorNumber::InvalidCall,
        u"The file \"%1\" is an archive, but no spreadsheet (.xlsx)."_s.arg(archive.path()));
}

QHash<QString, Relation> relationsOf(const ZipReader &archive, const QString &file)
{
    const QFileInfo info(file);
    const QString folder = file.isEmpty() ? QString() : info.path() + u'/';
    XmlPart part(archive, folder + u"_rels/"_s + info.fileName() + u".rels"_s, smallPart);
    QHash<QString, Relation> relations;
    while (part.nextElement()) {
        if (part.name() != u"Relationship")
            continue;
        const QString target = part.attribute(u"Target");
        relations.insert(
            part.attribute(u"Id"),
            {part.attribute(u"Type").section(u'/', -1),
             target.startsWith(u'/') ? target.sliced(1) : QDir::cleanPath(folder + target)});
    }
    return relations;
}

QString fileOfKind(const QHash<QString, Relation> &relations, QStringView kind)
{
    for (const Relation &relation : relations) {
        if (relation.kind == kind)
            return relation.file;
    }
    return {};
}

/// Fills in what stands in the book itself; the first table's relation comes back.
QString readBook(const ZipReader &archive, const QString &file, Workbook &book)
{
    XmlPart part(archive, file, smallPart);
    QString first;
    while (part.nextElement()) {
        if (part.name() == u"workbookPr")
            book.countsFrom1904 =
                part.attribute(u"date1904") == u"1" || part.attribute(u"date1904") == u"true";
        else if (part.name() == u"sheet" && first.isEmpty() &&
                 !part.attribute(u"state").contains(u"hidden", Qt::CaseInsensitive))
            first = part.attribute(u"id");
    }
    return first;
}

void readTexts(const ZipReader &archive, const QString &file, Workbook &book)
{
    XmlPart part(archive, file, sharedTexts);
    while (part.nextElement()) {
        if (part.name() != u"si")
            continue;
        if (book.texts.size() == mostTexts)
            part.refuse(u"holds more than a table of records can, and was not read"_s);
        book.texts.push_back(cellText(part));
        part.breathe();
    }
    part.finish();
}

/// What the numbers stand for that need no pattern in the file.
NumberLook standardLook(int number)
{
    const bool isDate = (number >= 14 && number <= 22) || (number >= 27 && number <= 36) ||
                        (number >= 45 && number <= 47) || (number >= 50 && number <= 58);
    return {.isDate = isDate};
}

void readLooks(const ZipReader &archive, const QString &file, Workbook &book)
{
    XmlPart part(archive, file, smallPart);
    QHash<int, NumberLook> own;
    while (part.nextElement()) {
        part.breathe();
        if (part.name() == u"numFmt") {
            own.insert(part.attribute(u"numFmtId").toInt(), lookOf(part.attribute(u"formatCode")));
        } else if (part.name() == u"cellXfs") {
            while (part.nextChild() && book.looks.size() < mostLooks) {
                const int number = part.attribute(u"numFmtId").toInt();
                book.looks.push_back(own.value(number, standardLook(number)));
                part.skip();
                part.breathe();
            }
        }
    }
}

/// Signs that XML can't hold stand there as their numbers: "_x000D_".
QString withSigns(QString text)
{
    static const QRegularExpression coded(u"_x([0-9A-Fa-f]{4})_"_s);
    qsizetype from = 0;
    for (auto match = coded.match(text); match.hasMatch(); match = coded.match(text, from)) {
        text.replace(match.capturedStart(), match.capturedLength(),
                     QChar(match.captured(1).toUShort(nullptr, 16)));
        from = match.capturedStart() + 1;
    }
    return text;
}

} // namespace

bool looksLikeWorkbook(const QByteArray &beginning)
{
    return beginning.startsWith("PK\x03\x04") || beginning.startsWith("PK\x05\x06");
}

QString refusalOfSpreadsheet(const QByteArray &beginning)
{
    if (beginning.startsWith("\xD0\xCF\x11\xE0"))
        return u"The file is an old spreadsheet (.xls), or needs a password. Please open it, and save it as .xlsx without one."_s;
    return {};
}

QString cellText(XmlPart &part)
{
    QString text;
    for (int depth = 1; depth > 0;) {
        const QXmlStreamReader::TokenType token = part.read();
        if (token == QXmlStreamReader::EndElement)
            --depth;
        if (token != QXmlStreamReader::StartElement)
            continue;
        if (part.name() == u"t")
            text += part.text();
        else if (part.name() == u"rPh")
            part.skip();
        else
            ++depth;
    }
    return withSigns(text);
}

NumberLook lookOf(const QString &pattern)
{
    // What is shown as it stands: between quotes, behind a sign that says so, in brackets.
    static const QRegularExpression asItStands(u"\"[^\"]*\"|[\\\\_*].|\\[[^\\]]*\\]"_s);
    static const QRegularExpression partsOfDates(u"[dmyhs]"_s,
                                                 QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression noughts(u"^0+$"_s);
    QString bare = pattern.section(u';', 0, 0);
    bare.remove(asItStands);
    if (noughts.match(bare).hasMatch())
        return {.digits = static_cast<int>(qMin<qsizetype>(bare.size(), 30))};
    return {.isDate = partsOfDates.match(bare).hasMatch()};
}

Workbook readWorkbook(const ZipReader &archive)
{
    const QStringList names = archive.names();
    if (!names.contains(u"_rels/.rels"_s))
        refuseAsNone(archive);
    const QString bookFile = fileOfKind(relationsOf(archive, {}), u"officeDocument");
    if (!bookFile.endsWith(u".xml") || !names.contains(bookFile))
        refuseAsNone(archive);
    Workbook book;
    const QString first = readBook(archive, bookFile, book);
    const QHash<QString, Relation> relations = relationsOf(archive, bookFile);
    book.sheet = relations.value(first).file;
    if (book.sheet.isEmpty())
        refuseAsNone(archive);
    if (const QString texts = fileOfKind(relations, u"sharedStrings"); names.contains(texts))
        readTexts(archive, texts, book);
    if (const QString styles = fileOfKind(relations, u"styles"); names.contains(styles))
        readLooks(archive, styles, book);
    return book;
}

} // namespace administration
