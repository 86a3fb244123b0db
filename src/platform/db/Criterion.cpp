#include "platform/db/Criterion.h"

#include "platform/base/Error.h"
#include "platform/base/Format.h"
#include "platform/sql/Errors.h"

#include <array>
#include <optional>

namespace db {
namespace {

using namespace Qt::StringLiterals;

[[noreturn]] void syntaxError(QStringView near)
{
    throw base::Error(sql::ErrorNumber::Syntax,
                      u"Syntax error in the search criterion at '%1'."_s.arg(near));
}

bool isNameCharacter(QChar c)
{
    return c.isLetterOrNumber() || c == u'_' || c == u'.';
}

/// Takes a quoted text off the front; quotes inside it are doubled.
QString takeQuoted(QStringView &rest)
{
    const QChar quote = rest.front();
    QString result;
    for (qsizetype i = 1; i < rest.size(); ++i) {
        if (rest[i] != quote) {
            result += rest[i];
        } else if (i + 1 < rest.size() && rest[i + 1] == quote) {
            result += quote;
            ++i;
        } else {
            rest = rest.sliced(i + 1).trimmed();
            return result;
        }
    }
    syntaxError(rest);
}

char16_t folded(QChar c)
{
    return c.toCaseFolded().unicode();
}

/// Reads a list such as [a-cx] or [!0-9] at the front of a pattern; tells whether the character
/// belongs to it and moves past it. Nothing when the bracket isn't closed: it stands for itself.
std::optional<bool> takeList(QStringView &pattern, QChar c)
{
    const qsizetype end = pattern.indexOf(u']');
    if (end < 0)
        return std::nullopt;
    QStringView list = pattern.sliced(1, end - 1);
    pattern = pattern.sliced(end + 1);
    const bool negated = list.startsWith(u'!');
    if (negated)
        list = list.sliced(1);
    const char16_t wanted = folded(c);
    bool inside = false;
    for (qsizetype i = 0; i < list.size(); ++i) {
        if (i + 2 < list.size() && list[i + 1] == u'-') {
            inside = inside || (folded(list[i]) <= wanted && wanted <= folded(list[i + 2]));
            i += 2;
        } else {
            inside = inside || folded(list[i]) == wanted;
        }
    }
    return inside != negated;
}

/// Tries the pattern's front on one character; moves past the front when it fits.
bool takeOne(QStringView &pattern, QChar c)
{
    const QChar first = pattern.front();
    if (first == u'[') {
        QStringView after = pattern;
        if (const auto inside = takeList(after, c)) {
            if (*inside)
                pattern = after;
            return *inside;
        }
    }
    const bool fits = first == u'?' || (first == u'#' && c >= u'0' && c <= u'9') ||
                      (first != u'#' && folded(first) == folded(c));
    if (fits)
        pattern = pattern.sliced(1);
    return fits;
}

int sign(int value)
{
    return value < 0 ? -1 : (value > 0 ? 1 : 0);
}

} // namespace

bool fitsPattern(QStringView text, QStringView pattern)
{
    // Where to go on when the try after the latest asterisk fails.
    QStringView retryPattern;
    QStringView retryText;
    bool canRetry = false;
    while (!text.isEmpty()) {
        if (pattern.startsWith(u'*')) {
            pattern = pattern.sliced(1);
            retryPattern = pattern;
            retryText = text;
            canRetry = true;
        } else if (!pattern.isEmpty() && takeOne(pattern, text.front())) {
            text = text.sliced(1);
        } else if (canRetry) {
            // The asterisk takes one character more. An earlier one needn't be tried again:
            // whatever it could take, the latest can.
            retryText = retryText.sliced(1);
            text = retryText;
            pattern = retryPattern;
        } else {
            return false;
        }
    }
    while (pattern.startsWith(u'*'))
        pattern = pattern.sliced(1);
    return pattern.isEmpty();
}

Criterion::Criterion(QStringView text, const RowData &rows)
    : m_rows(rows)
{
    QStringView rest = text.trimmed();
    readColumn(rest);
    readOperator(rest);
    readValue(rest);
    adaptValue();
}

void Criterion::readColumn(QStringView &rest)
{
    QStringView name;
    if (rest.startsWith(u'[')) {
        const qsizetype end = rest.indexOf(u']');
        if (end < 0)
            syntaxError(rest);
        name = rest.sliced(1, end - 1);
        rest = rest.sliced(end + 1).trimmed();
    } else {
        qsizetype end = 0;
        while (end < rest.size() && isNameCharacter(rest[end]))
            ++end;
        name = rest.first(end);
        rest = rest.sliced(end).trimmed();
    }
    if (name.isEmpty())
        syntaxError(rest);
    m_column = m_rows.columnIndex(name);
    if (m_column < 0)
        throw base::Error(base::ErrorNumber::NoSuchItem,
                          u"Item cannot be found in the collection corresponding to the requested "
                          "name or ordinal: %1"_s.arg(name));
}

void Criterion::readOperator(QStringView &rest)
{
    static constexpr std::array<std::pair<QStringView, Operator>, 7> operators = {{
        {u"<>", Operator::NotEqual},
        {u"<=", Operator::LessOrEqual},
        {u">=", Operator::GreaterOrEqual},
        {u"=", Operator::Equal},
        {u"<", Operator::Less},
        {u">", Operator::Greater},
        {u"like", Operator::Like},
    }};
    for (const auto &[symbol, meaning] : operators) {
        // Longer signs stand before those that they begin with.
        if (rest.startsWith(symbol, Qt::CaseInsensitive)) {
            m_operator = meaning;
            rest = rest.sliced(symbol.size()).trimmed();
            return;
        }
    }
    syntaxError(rest);
}

void Criterion::readValue(QStringView rest)
{
    if (rest.isEmpty())
        syntaxError(rest);
    if (rest.front() == u'\'' || rest.front() == u'"') {
        m_value = takeQuoted(rest);
        if (!rest.isEmpty())
            syntaxError(rest);
        return;
    }
    if (rest.front() == u'#') {
        const qsizetype end = rest.indexOf(u'#', 1);
        const auto date =
            end == rest.size() - 1 ? base::parseMonthFirst(rest.sliced(1, end - 1)) : std::nullopt;
        if (!date)
            syntaxError(rest);
        m_value = *date;
        return;
    }
    bool isNumber = false;
    const double number = rest.toString().toDouble(&isNumber);
    if (isNumber)
        m_value = number;
    else if (rest.compare(u"true"_s, Qt::CaseInsensitive) == 0)
        m_value = -1.0;
    else if (rest.compare(u"false"_s, Qt::CaseInsensitive) == 0)
        m_value = 0.0;
    else if (rest.compare(u"null"_s, Qt::CaseInsensitive) != 0)
        syntaxError(rest);
}

/// Turns the value into the kind of the column: quoted numbers and dates count as what they show.
void Criterion::adaptValue()
{
    m_text =
        m_value.metaType().id() == QMetaType::QString ? m_value.toString() : base::toText(m_value);
    if (!m_value.isValid() || m_operator == Operator::Like)
        return;
    bool fits = true;
    switch (m_rows.storage(m_column)) {
    case RowData::Storage::Integer:
    case RowData::Storage::Real:
        fits = m_value.metaType().id() != QMetaType::QDateTime;
        if (fits)
            m_number = m_value.toString().trimmed().toDouble(&fits);
        break;
    case RowData::Storage::Date: {
        const auto date = m_value.metaType().id() == QMetaType::QDateTime
                              ? std::optional(m_value.toDateTime())
                              : base::parseMonthFirst(m_text);
        fits = date.has_value();
        if (fits)
            m_number = static_cast<double>(date->toMSecsSinceEpoch());
        break;
    }
    case RowData::Storage::Text:
        break;
    case RowData::Storage::Bytes:
        fits = false;
        break;
    }
    if (!fits)
        throw base::Error(base::ErrorNumber::TypeMismatch, u"Type mismatch: "_s + m_text);
}

QString Criterion::rowText(int row) const
{
    if (m_rows.storage(m_column) != RowData::Storage::Text)
        return base::toText(m_rows.value(row, m_column));
    const std::string_view text = m_rows.text(row, m_column);
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

int Criterion::compare(int row) const
{
    double number = 0;
    switch (m_rows.storage(m_column)) {
    case RowData::Storage::Text:
        return sign(rowText(row).compare(m_text, Qt::CaseInsensitive));
    case RowData::Storage::Real:
        number = m_rows.real(row, m_column);
        break;
    default:
        number = static_cast<double>(m_rows.integer(row, m_column));
        break;
    }
    return number < m_number ? -1 : (number > m_number ? 1 : 0);
}

bool Criterion::matches(int row) const
{
    const bool null = m_rows.isNull(row, m_column);
    if (!m_value.isValid())
        return (m_operator == Operator::Equal && null) ||
               (m_operator == Operator::NotEqual && !null);
    // Null is neither equal nor unequal to a value.
    if (null)
        return false;
    switch (m_operator) {
    case Operator::Equal:
        return compare(row) == 0;
    case Operator::NotEqual:
        return compare(row) != 0;
    case Operator::Less:
        return compare(row) < 0;
    case Operator::LessOrEqual:
        return compare(row) <= 0;
    case Operator::Greater:
        return compare(row) > 0;
    case Operator::GreaterOrEqual:
        return compare(row) >= 0;
    case Operator::Like:
        break;
    }
    return fitsPattern(rowText(row), m_text);
}

int Criterion::firstMatch(int from) const
{
    for (int row = from; row < m_rows.rowCount(); ++row) {
        if (matches(row))
            return row;
    }
    return -1;
}

} // namespace db
