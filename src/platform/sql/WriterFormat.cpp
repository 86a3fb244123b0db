#include "platform/sql/Types.h"
#include "platform/sql/Writer.h"

#include <algorithm>
#include <array>
#include <span>
#include <vector>

/// Numbers and dates as text: CStr of a number with a fraction, and the pictures of Format.
namespace sql {

using namespace Qt::StringLiterals;

namespace {

/// What a name stands for instead of a picture.
struct NamedPicture
{
    QStringView name;
    QStringView picture;
};

constexpr std::array namedPictures = {
    NamedPicture{u"general date", u"c"},
    NamedPicture{u"long date", u"dddd, mmmm dd, yyyy"},
    NamedPicture{u"medium date", u"dd-mmm-yy"},
    NamedPicture{u"short date", u"m/d/yyyy"},
    NamedPicture{u"long time", u"h:nn:ss AM/PM"},
    NamedPicture{u"medium time", u"hh:nn AM/PM"},
    NamedPicture{u"short time", u"hh:nn"},
    NamedPicture{u"currency", u"$#,##0.00;($#,##0.00)"},
    NamedPicture{u"fixed", u"0.00"},
    NamedPicture{u"standard", u"#,##0.00"},
    NamedPicture{u"percent", u"0.00%"},
};

/// Two words for a number that is not 0 and one that is.
struct NamedChoice
{
    QStringView name;
    QStringView yes;
    QStringView no;
};

constexpr std::array namedChoices = {
    NamedChoice{u"yes/no", u"Yes", u"No"},
    NamedChoice{u"true/false", u"True", u"False"},
    NamedChoice{u"on/off", u"On", u"Off"},
};

constexpr std::array months = {u"January",   u"February", u"March",    u"April",
                               u"May",       u"June",     u"July",     u"August",
                               u"September", u"October",  u"November", u"December"};
constexpr std::array weekdays = {u"Sunday",   u"Monday", u"Tuesday", u"Wednesday",
                                 u"Thursday", u"Friday", u"Saturday"};

/// A character of a picture; quoted ones, and those behind a backslash, stand for themselves.
struct Sign
{
    QChar character;
    bool quoted = false;

    [[nodiscard]] bool is(QStringView any) const { return !quoted && any.contains(character); }
};

std::vector<Sign> signsOf(QStringView picture)
{
    std::vector<Sign> signs;
    bool quoted = false;
    for (qsizetype i = 0; i < picture.size(); ++i) {
        if (picture[i] == u'"')
            quoted = !quoted;
        else if (!quoted && picture[i] == u'\\' && i + 1 < picture.size())
            signs.push_back({picture[++i], true});
        else
            signs.push_back({picture[i], quoted});
    }
    return signs;
}

/// Decimals that leave room for the digits before the point.
constexpr int mostDecimals = 8;

bool namesDigits(const std::vector<Sign> &signs)
{
    return std::ranges::any_of(signs, [](const Sign &sign) { return sign.is(u"0#"); });
}

template<class Names>
QString choicesOf(const Names &names, int first, qsizetype length)
{
    QString text;
    for (const QStringView name : names)
        text += u", %1, '%2'"_s.arg(QString::number(first++), name.left(length));
    return text;
}

} // namespace

/// A section of a number's picture.
struct NumberPicture
{
    QString before;
    QString after;
    int wholeDigits = 0;   ///< at least so many before the point
    int decimals = 0;      ///< at most so many behind it
    int fixedDecimals = 0; ///< at least so many
    bool point = false;
    bool grouped = false;
    bool percent = false;
    bool digits = false;

    /// False for a picture that is none.
    bool read(std::span<const Sign> signs)
    {
        bool ended = false;
        bool separated = false;
        for (const Sign &sign : signs) {
            const bool place = sign.is(u"0#");
            if (place || (digits && !ended && sign.is(u".,"))) {
                if (ended || (separated && sign.is(u".")))
                    return false;
                digits = true;
                if (!readDigit(sign))
                    return false;
                separated = sign.is(u",");
                continue;
            }
            if (sign.is(u".") && !digits && !point) {
                digits = point = true;
                continue;
            }
            ended = digits;
            if (!sign.quoted && !QStringView(u"$+-() /:%").contains(sign.character))
                return false;
            if (sign.is(u"%")) {
                if (percent)
                    return false;
                percent = true;
            }
            (digits ? after : before) += sign.character;
        }
        // A comma at the end would divide by a thousand.
        return !separated && decimals <= mostDecimals && !(grouped && wholeDigits > 1) &&
               wholeDigits <= 18;
    }

private:
    bool readDigit(const Sign &sign)
    {
        if (sign.is(u".")) {
            const bool second = point;
            point = true;
            return !second;
        }
        if (sign.is(u","))
            return !point && (grouped = true);
        if (point) {
            ++decimals;
            // "#" before "0" counts as one that is always shown.
            if (sign.is(u"0"))
                fixedDecimals = decimals;
        } else if (sign.is(u"0") || wholeDigits > 0) {
            ++wholeDigits;
        }
        return true;
    }
};

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
    QString picture = fixedText(*call.operands[1], u"the format");
    const auto isNamed = [&](const auto &named) {
        return named.name.compare(picture, Qt::CaseInsensitive) == 0;
    };
    if (picture.isEmpty() || picture.compare(u"general number", Qt::CaseInsensitive) == 0) {
        writeCStr(value);
        return;
    }
    if (const auto *named = std::ranges::find_if(namedChoices, isNamed);
        named != namedChoices.end()) {
        m_text += u"TRIM(CASE ("_s;
        writeValue(value, {ColumnKind::Real, Place::Result, 0});
        m_text +=
            u" <> 0) WHEN TRUE THEN '%1' WHEN FALSE THEN '%2' END)"_s.arg(named->yes, named->no);
        return;
    }
    if (const auto *named = std::ranges::find_if(namedPictures, isNamed);
        named != namedPictures.end())
        picture = named->picture.toString();
    const bool typed = !value.isValue() && value.type != ColumnKind::Unknown;
    if (namesDigits(signsOf(picture))) {
        if (value.type == ColumnKind::Date)
            raise(u"this format is one of numbers, and the value a date."_s, call);
        writeNumberSections(value, picture);
    } else {
        if (typed && isNumber(value.type))
            raise(u"this format is one of dates, and the value a number."_s, call);
        writeFormattedDate(value, picture);
    }
}

void Writer::writeNumberSections(const Expression &value, const QString &picture)
{
    const Repetition repetition(*this, value);
    const std::vector<Sign> signs = signsOf(picture);
    std::vector<NumberPicture> sections;
    for (std::size_t begin = 0; begin <= signs.size();) {
        std::size_t end = begin;
        while (end < signs.size() && !signs[end].is(u";"))
            ++end;
        NumberPicture &section = sections.emplace_back();
        if (begin == end || !section.read(std::span(signs).subspan(begin, end - begin)))
            raise(u"this format is not known."_s, value);
        begin = end + 1;
    }
    if (sections.size() > 3 || !sections.front().digits)
        raise(u"this format is not known."_s, value);
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

void Writer::writeRounded(const Expression &value, const NumberPicture &picture)
{
    m_text += u"CAST("_s;
    writeExact(value, picture.percent ? u"100" : QStringView());
    m_text += u" AS NUMERIC(18,"_s + QString::number(picture.decimals) + u"))"_s;
}

void Writer::writeNumberSection(const Expression &value, const NumberPicture &picture, bool signs)
{
    if (!picture.digits) {
        writeQuoted(picture.before);
        return;
    }
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
    if (picture.wholeDigits == 0) {
        m_text += u"TRIM(LEADING '0' FROM "_s;
        text();
        m_text += u')';
        return;
    }
    const QString digits = QString::number(picture.wholeDigits);
    m_text += u"IIF(CHAR_LENGTH("_s;
    text();
    m_text += u") < "_s + digits + u", RIGHT('00000000000000000' || "_s;
    text();
    m_text += u", "_s + digits + u"), "_s;
    text();
    m_text += u')';
}

void Writer::writeFormattedDate(const Expression &date, const QString &picture)
{
    const Repetition repetition(*this, date);
    const std::vector<Sign> signs = signsOf(picture);
    QStringList pieces; // runs of one letter, AM/PM, and texts behind a quote
    for (std::size_t i = 0; i < signs.size();) {
        const Sign &sign = signs[i];
        if (sign.quoted || !sign.character.isLetter()) {
            if (pieces.isEmpty() || !pieces.back().startsWith(u'\''))
                pieces += u"'"_s;
            pieces.back() += sign.character;
            ++i;
            continue;
        }
        QString rest;
        for (std::size_t at = i; at < signs.size() && !signs[at].quoted && rest.size() < 5; ++at)
            rest += signs[at].character;
        qsizetype length = 0;
        for (const QStringView half : {u"AM/PM", u"A/P", u"AMPM"}) {
            if (length == 0 && rest.startsWith(half, Qt::CaseInsensitive))
                length = half.size();
        }
        if (length == 0) {
            const QChar letter = sign.character.toLower();
            while (i + static_cast<std::size_t>(length) < signs.size() &&
                   !signs[i + static_cast<std::size_t>(length)].quoted &&
                   signs[i + static_cast<std::size_t>(length)].character.toLower() == letter)
                ++length;
            pieces += QString(length, letter);
        } else {
            pieces += rest.left(length);
        }
        i += static_cast<std::size_t>(length);
    }
    const bool twelveHours = std::ranges::any_of(
        pieces, [](const QString &piece) { return piece.startsWith(u'a', Qt::CaseInsensitive); });
    if (std::ranges::all_of(pieces, [](const QString &piece) { return piece.startsWith(u'\''); }))
        raise(u"this format is not known."_s, date);
    const auto neighbour = [&](qsizetype from, qsizetype step) {
        qsizetype at = from + step;
        while (at >= 0 && at < pieces.size() && pieces[at].startsWith(u'\''))
            at += step;
        return at >= 0 && at < pieces.size() ? pieces[at].front().toLower() : QChar();
    };
    m_text += u'(';
    for (qsizetype i = 0; i < pieces.size(); ++i) {
        if (i > 0)
            m_text += u" || "_s;
        QString piece = pieces[i];
        if (piece.startsWith(u'\'')) {
            writeQuoted(QStringView(piece).sliced(1));
            continue;
        }
        // "mm" behind the hour or before the second means minutes.
        if (piece.startsWith(u'm') && piece.size() <= 2 &&
            (neighbour(i, -1) == u'h' || neighbour(i, 1) == u's'))
            piece.replace(u'm', u'n');
        writeDateSign(date, piece, twelveHours);
    }
    m_text += u')';
}

void Writer::writeDateSign(const Expression &date, const QString &sign, bool twelveHours)
{
    static constexpr std::array<std::pair<QStringView, QStringView>, 10> parts = {{
        {u"yyyy", u"YEAR"},
        {u"yy", u"YEAR"},
        {u"mm", u"MONTH"},
        {u"m", u"MONTH"},
        {u"dd", u"DAY"},
        {u"d", u"DAY"},
        {u"nn", u"MINUTE"},
        {u"n", u"MINUTE"},
        {u"ss", u"SECOND"},
        {u"s", u"SECOND"},
    }};
    const auto part = [&](QStringView before, QStringView unit, QStringView after) {
        m_text += before;
        writeDatePart(date, unit);
        m_text += after;
    };
    if (const auto *found = std::ranges::find(parts, QStringView(sign),
                                              [](const auto &entry) { return entry.first; });
        found != parts.end()) {
        const bool padded = sign.size() == 2;
        part(padded ? u"RIGHT('0' || " : u"", found->second, padded ? u", 2)" : u"");
    } else if (sign == u"h" || sign == u"hh") {
        m_text += sign.size() == 2 ? u"RIGHT('0' || "_s : QString();
        part(twelveHours ? u"(MOD(" : u"", u"HOUR", twelveHours ? u" + 11, 12) + 1)" : u"");
        m_text += sign.size() == 2 ? u", 2)"_s : QString();
    } else if (sign.startsWith(u'a', Qt::CaseInsensitive)) {
        const bool lower = sign.front() == u'a';
        const bool one = sign.size() == 3;
        part(u"IIF(", u"HOUR",
             lower ? (one ? u" < 12, 'a', 'p')" : u" < 12, 'am', 'pm')")
                   : (one ? u" < 12, 'A', 'P')" : u" < 12, 'AM', 'PM')"));
    } else if (sign == u"mmm" || sign == u"mmmm") {
        part(u"TRIM(DECODE(", u"MONTH", choicesOf(months, 1, sign.size() == 3 ? 3 : 20) + u"))"_s);
    } else if (sign == u"ddd" || sign == u"dddd") {
        part(u"TRIM(DECODE(", u"WEEKDAY",
             choicesOf(weekdays, 0, sign.size() == 3 ? 3 : 20) + u"))"_s);
    } else if (sign == u"y") {
        part(u"(", u"YEARDAY", u" + 1)");
    } else if (sign == u"q") {
        part(u"((", u"MONTH", u" + 2) / 3)");
    } else if (sign == u"w") {
        part(u"(", u"WEEKDAY", u" + 1)");
    } else if (sign == u"ww") {
        // Weeks begin on Sundays; the first is that of 1 January.
        part(u"((", u"YEARDAY", u" + MOD(");
        part(u"", u"WEEKDAY", u" - ");
        part(u"", u"YEARDAY", u" + 371, 7)) / 7 + 1)");
    } else if (sign == u"c") {
        writeDateText(date);
    } else if (sign == u"ddddd") {
        writeFormattedDate(date, u"m/d/yyyy"_s);
    } else if (sign == u"dddddd") {
        writeFormattedDate(date, u"dddd, mmmm dd, yyyy"_s);
    } else if (sign == u"ttttt") {
        writeFormattedDate(date, u"h:nn:ss AM/PM"_s);
    } else {
        raise(u"this format is not known."_s, date);
    }
}

} // namespace sql
