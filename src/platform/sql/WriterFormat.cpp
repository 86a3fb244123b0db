#include "platform/sql/Picture.h"
#include "platform/sql/Types.h"
#include "platform/sql/Writer.h"

/// Numbers as text: CStr of one with a fraction, and the pictures of Format.
namespace sql {

using namespace Qt::StringLiterals;

void Writer::writeQuoted(QStringView text)
{
    m_text += u'\'' + text.toString().replace(u'\'', u"''"_s) + u'\'';
}

void Writer::writeExact(const Expression &value, QStringView factor)
{
    // The decimal of 15 digits that the number stands for. The engine rounds in whole numbers of
    // 64 bits, so the places have to follow the size.
    const Wanted number{ColumnKind::Real, Place::Result, 0};
    const auto write = [&] {
        m_text += factor.isEmpty() ? u""_s : u"("_s;
        writeValue(value, number);
        m_text += factor.isEmpty() ? u""_s : u" * "_s + factor.toString() + u')';
    };
    if (!value.isValue() && value.type != ColumnKind::Real && isNumber(value.type)) {
        write(); // exact as it is
        return;
    }
    m_text += u"ROUND("_s;
    write();
    m_text += u", COALESCE(MINVALUE(18, MAXVALUE(1, 14 - CAST(FLOOR(LOG10(NULLIF(ABS("_s;
    write();
    m_text += u"), 0))) AS INTEGER))), 1))"_s;
}

void Writer::writeRealText(const Expression &value)
{
    const Repetition repetition(*this, value);
    const auto magnitude = [&](QStringView after) {
        m_text += u"ABS("_s;
        writeNatural(value);
        m_text += u')' + after.toString();
    };
    const auto exponent = [&] {
        m_text += u"CAST(FLOOR(LOG10("_s;
        magnitude(u")) AS INTEGER)");
    };
    // 0; what is neither very large nor very small; the rest as its digits and an exponent.
    m_text += u"CASE WHEN "_s;
    writeNatural(value);
    m_text += u" = 0 THEN '0' WHEN "_s;
    magnitude(u" >= 1e-9 AND ");
    magnitude(u" < 1e15 THEN TRIM(TRAILING '.' FROM TRIM(TRAILING '0' FROM CAST(");
    writeExact(value);
    m_text +=
        u" AS VARCHAR(32)))) ELSE TRIM(TRAILING '.' FROM TRIM(TRAILING '0' FROM CAST(ROUND("_s;
    writeNatural(value);
    m_text += u" / POWER(1e1, "_s;
    exponent();
    m_text += u"), 14) AS VARCHAR(32)))) || IIF("_s;
    magnitude(u" < 1, 'E-', 'E+') || ABS(");
    exponent();
    m_text += u") END"_s;
}

void Writer::writeFormat(const Expression &call)
{
    const Expression &value = *call.operands[0];
    const QString name = fixedText(*call.operands[1], u"the format");
    if (name.isEmpty() || name.compare(u"general number", Qt::CaseInsensitive) == 0) {
        writeCStr(value);
        return;
    }
    if (const NamedChoice *named = findChoice(name)) {
        // Cut, for the engine fills the shorter word up to the longer one.
        m_text += u"TRIM(CASE ("_s;
        writeValue(value, {ColumnKind::Real, Place::Result, 0});
        m_text +=
            u" <> 0) WHEN TRUE THEN '%1' WHEN FALSE THEN '%2' END)"_s.arg(named->yes, named->no);
        return;
    }
    const QString picture = pictureBehind(name);
    // Of a parameter the picture alone tells what it is.
    const bool typed = !value.isValue() && value.type != ColumnKind::Unknown;
    if (namesDigits(picture)) {
        if (value.type == ColumnKind::Date)
            raise(u"this format is one of numbers, and the value a date."_s, call);
        writeNumberSections(value, picture);
    } else {
        if (typed && isNumber(value.type))
            raise(u"this format is one of dates, and the value a number."_s, call);
        writeFormattedDate(value, picture);
    }
}

/// Of two sections the second is that of negative numbers, of three the last that of zero. A
/// section shows its sign itself, in parentheses or how it likes.
void Writer::writeNumberSections(const Expression &value, const QString &picture)
{
    const Repetition repetition(*this, value);
    const auto found = numberSections(picture);
    if (!found)
        raise(u"this format is not known."_s, value);
    const std::vector<NumberPicture> &sections = *found;
    if (sections.size() == 1) {
        writeNumberSection(value, sections.front(), true);
        return;
    }
    // Of negative numbers, and of zero.
    const Wanted number{ColumnKind::Real, Place::Result, 0};
    m_text += u"CASE WHEN "_s;
    writeValue(value, number);
    m_text += u" < 0 THEN "_s;
    writeNumberSection(value, sections[1], false);
    if (sections.size() > 2) {
        m_text += u" WHEN "_s;
        writeValue(value, number);
        m_text += u" = 0 THEN "_s;
        writeNumberSection(value, sections[2], false);
    }
    m_text += u" ELSE "_s;
    writeNumberSection(value, sections.front(), false);
    m_text += u" END"_s;
}

/// As an exact number, whose text has all the decimals of the picture.
void Writer::writeRounded(const Expression &value, const NumberPicture &picture)
{
    m_text += u"CAST("_s;
    writeExact(value, picture.percent ? u"100" : QStringView());
    m_text += u" AS NUMERIC(18,"_s + QString::number(picture.decimals) + u"))"_s;
}

void Writer::writeNumberSection(const Expression &value, const NumberPicture &picture, bool signs)
{
    // Words alone, such as "none" for zero.
    if (!picture.digits) {
        writeQuoted(picture.before);
        return;
    }
    // The usual case, in which the engine's own text is the right one.
    const bool plain = signs && !picture.grouped && picture.wholeDigits == 1 &&
                       picture.fixedDecimals == picture.decimals &&
                       picture.point == (picture.decimals > 0) && picture.before.isEmpty() &&
                       picture.after.isEmpty();
    if (plain) {
        m_text += u"TRIM(CAST("_s;
        writeRounded(value, picture);
        m_text += u" AS VARCHAR(24)))"_s;
        return;
    }
    m_text += u'(';
    // Of the number as it is rounded, so that no 0 gets a minus.
    if (signs) {
        m_text += u"TRIM(IIF("_s;
        writeRounded(value, picture);
        m_text += u" < 0, '-', '')) || "_s;
    }
    if (!picture.before.isEmpty()) {
        writeQuoted(picture.before);
        m_text += u" || "_s;
    }
    writeWhole(value, picture);
    if (picture.point)
        m_text += u" || '.'"_s;
    // All decimals that the number may have; those at the end that are 0 go unless they are fixed.
    const auto fraction = [&] {
        m_text += u"RIGHT(CAST("_s;
        writeRounded(value, picture);
        m_text += u" AS VARCHAR(24)), "_s + QString::number(picture.decimals) + u')';
    };
    if (picture.fixedDecimals > 0) {
        m_text += u" || LEFT("_s;
        fraction();
        m_text += u", "_s + QString::number(picture.fixedDecimals) + u')';
    }
    if (picture.decimals > picture.fixedDecimals) {
        m_text += u" || TRIM(TRAILING '0' FROM SUBSTRING("_s;
        fraction();
        m_text += u" FROM "_s + QString::number(picture.fixedDecimals + 1) + u"))"_s;
    }
    if (!picture.after.isEmpty()) {
        m_text += u" || "_s;
        writeQuoted(picture.after);
    }
    m_text += u')';
}

void Writer::writeWhole(const Expression &value, const NumberPicture &picture)
{
    const auto whole = [&] {
        m_text += u"CAST(TRUNC(ABS("_s;
        writeRounded(value, picture);
        m_text += u")) AS BIGINT)"_s;
    };
    const auto text = [&] {
        m_text += u"CAST("_s;
        whole();
        m_text += u" AS VARCHAR(20))"_s;
    };
    // All 18 digits in groups of three, from which the leading zeros are cut then.
    if (picture.grouped) {
        m_text += u"IIF("_s;
        whole();
        m_text += picture.wholeDigits > 0 ? u" = 0, '0', "_s : u" = 0, '', "_s;
        m_text += u"TRIM(LEADING '0' FROM TRIM(LEADING '000,' FROM "_s;
        for (int group = 0; group < 6; ++group) {
            m_text += group == 0 ? u"SUBSTRING(RIGHT('00000000000000000' || "_s
                                 : u" || ',' || SUBSTRING(RIGHT('00000000000000000' || "_s;
            text();
            m_text += u", 18) FROM "_s + QString::number(3 * group + 1) + u" FOR 3)"_s;
        }
        m_text += u")))"_s;
        return;
    }
    if (picture.wholeDigits == 1)
        return text();
    // "#.00" shows no zero before the point.
    if (picture.wholeDigits == 0) {
        m_text += u"TRIM(LEADING '0' FROM "_s;
        text();
        m_text += u')';
        return;
    }
    // Filled up with zeros, but never cut to the picture's digits.
    const QString digits = QString::number(picture.wholeDigits);
    m_text += u"IIF(CHAR_LENGTH("_s;
    text();
    m_text += u") < "_s + digits + u", RIGHT('00000000000000000' || "_s;
    text();
    m_text += u", "_s + digits + u"), "_s;
    text();
    m_text += u')';
}

} // namespace sql
