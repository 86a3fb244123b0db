#include "platform/sql/Picture.h"

#include <algorithm>
#include <array>

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

constexpr std::array namedChoices = {
    NamedChoice{u"yes/no", u"Yes", u"No"},
    NamedChoice{u"true/false", u"True", u"False"},
    NamedChoice{u"on/off", u"On", u"Off"},
};

/// Decimals that leave room for the digits before the point.
constexpr int mostDecimals = 8;

auto byName(QStringView name)
{
    return [name](const auto &named) { return named.name.compare(name, Qt::CaseInsensitive) == 0; };
}

/// The characters of a picture without the quotes and backslashes that say which stand for
/// themselves. A quote that is never closed reaches to the end.
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

/// How many signs from here on make a mark for the half of the day; 0 for none.
std::size_t halfDayMark(std::span<const Sign> signs)
{
    QString text;
    for (const Sign &sign : signs.first(std::min<std::size_t>(signs.size(), 5))) {
        if (sign.quoted)
            break;
        text += sign.character;
    }
    for (const QStringView mark : {u"AM/PM", u"A/P", u"AMPM"}) {
        if (text.startsWith(mark, Qt::CaseInsensitive))
            return static_cast<std::size_t>(mark.size());
    }
    return 0;
}

/// How many signs from here on are the first one's letter.
std::size_t run(std::span<const Sign> signs)
{
    const QChar letter = signs.front().character.toLower();
    const auto end = std::ranges::find_if(
        signs, [&](const Sign &sign) { return sign.quoted || sign.character.toLower() != letter; });
    return static_cast<std::size_t>(end - signs.begin());
}

bool isText(const QString &piece)
{
    return piece.startsWith(u'\'');
}

/// The letter of the piece before or behind one, texts left out.
QChar neighbour(const QStringList &pieces, qsizetype from, qsizetype step)
{
    qsizetype at = from + step;
    while (at >= 0 && at < pieces.size() && isText(pieces[at]))
        at += step;
    return at >= 0 && at < pieces.size() ? pieces[at].front().toLower() : QChar();
}

} // namespace

QString pictureBehind(const QString &name)
{
    const auto *named = std::ranges::find_if(namedPictures, byName(name));
    return named == namedPictures.end() ? name : named->picture.toString();
}

const NamedChoice *findChoice(QStringView name)
{
    const auto *named = std::ranges::find_if(namedChoices, byName(name));
    return named == namedChoices.end() ? nullptr : named;
}

bool namesDigits(QStringView picture)
{
    return std::ranges::any_of(signsOf(picture), [](const Sign &sign) { return sign.is(u"0#"); });
}

bool NumberPicture::read(std::span<const Sign> signs)
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
        // ".00" begins with its point, and shows no digit before it where there is none.
        if (sign.is(u".") && !digits && !point) {
            digits = point = true;
            continue;
        }
        ended = digits;
        // Letters outside of quotes are signs of pictures that are not known here, such as
        // exponents, and not text.
        if (!sign.quoted && !QStringView(u"$+-() /:%").contains(sign.character))
            return false;
        if (sign.is(u"%")) {
            // Each "%" would multiply by 100.
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

bool NumberPicture::readDigit(const Sign &sign)
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

std::optional<std::vector<NumberPicture>> numberSections(QStringView picture)
{
    const std::vector<Sign> signs = signsOf(picture);
    std::vector<NumberPicture> sections;
    for (std::size_t begin = 0; begin <= signs.size();) {
        std::size_t end = begin;
        while (end < signs.size() && !signs[end].is(u";"))
            ++end;
        NumberPicture &section = sections.emplace_back();
        if (begin == end || !section.read(std::span(signs).subspan(begin, end - begin)))
            return std::nullopt;
        begin = end + 1;
    }
    if (sections.size() > 3 || !sections.front().digits)
        return std::nullopt;
    return sections;
}

QStringList datePieces(QStringView picture)
{
    const std::vector<Sign> signs = signsOf(picture);
    QStringList pieces;
    for (std::span<const Sign> rest = signs; !rest.empty();) {
        const Sign &sign = rest.front();
        std::size_t length = 1;
        if (sign.quoted || !sign.character.isLetter()) {
            if (pieces.isEmpty() || !isText(pieces.back()))
                pieces += u"'"_s;
            pieces.back() += sign.character;
        } else if (const std::size_t mark = halfDayMark(rest); mark > 0) {
            // Before the runs of letters, since "AM/PM" begins with one.
            length = mark;
            QString &piece = pieces.emplace_back();
            for (const Sign &part : rest.first(length))
                piece += part.character;
        } else {
            length = run(rest);
            pieces += QString(static_cast<qsizetype>(length), sign.character.toLower());
        }
        rest = rest.subspan(length);
    }
    // "mm" behind the hour or before the second means minutes.
    for (qsizetype i = 0; i < pieces.size(); ++i) {
        if (pieces[i].startsWith(u'm') && pieces[i].size() <= 2 &&
            (neighbour(pieces, i, -1) == u'h' || neighbour(pieces, i, 1) == u's'))
            pieces[i].replace(u'm', u'n');
    }
    return pieces;
}

} // namespace sql
