#include "platform/sql/Conversion.h"
#include "platform/sql/Types.h"
#include "platform/sql/Writer.h"

#include <algorithm>

namespace sql {

using namespace Qt::StringLiterals;
using Kind = Expression::Kind;

namespace {

/// Characters that a text parameter has room for where no column tells how many are needed.
constexpr int comparedLength = 4000;
constexpr int patternLength = 1000;

bool isNumberToken(const Token &token)
{
    return token.kind == TokenKind::Integer || token.kind == TokenKind::Real;
}

/// The engine's type as which a value of that kind is bound, where it isn't a text.
QStringView boundType(ColumnKind kind)
{
    switch (kind) {
    case ColumnKind::Integer:
        return u"BIGINT";
    case ColumnKind::Real:
        return u"DOUBLE PRECISION";
    case ColumnKind::Money:
        // As exact as the column, whose index the engine would not use otherwise.
        return u"NUMERIC(18,4)";
    case ColumnKind::YesNo:
        return u"SMALLINT";
    case ColumnKind::Date:
        return u"TIMESTAMP";
    default:
        return {};
    }
}

QString realText(double value)
{
    // 17 digits give each binary number back exactly.
    QString text = QString::number(value, 'g', 17);
    // Without an exponent the engine would take it for an exact decimal.
    if (!text.contains(u'e'))
        text += u"e0"_s;
    return text;
}

} // namespace

QVariant Writer::fixedValue(const Expression &literal)
{
    // Whoever looks at the value here makes the text depend on it.
    m_plan.fixedLiterals.push_back(literal.token.number);
    const QVariant value = literalValue(literal.token, m_statement);
    if (!literal.negated)
        return value;
    return value.typeId() == QMetaType::LongLong ? QVariant(-value.toLongLong())
                                                 : QVariant(-value.toDouble());
}

std::optional<QVariant> Writer::knownValue(const Expression &value)
{
    if (value.kind == Kind::Literal)
        return fixedValue(value);
    if (value.kind == Kind::Parameter && value.token.number < m_options.inlineParameters.size())
        return m_options.inlineParameters[value.token.number];
    return std::nullopt;
}

bool Writer::lifts(const Expression &value, const Wanted &wanted) const
{
    if (value.kind == Kind::Parameter)
        return value.token.number >= m_options.inlineParameters.size();
    // A result needs a type of its own, which a parameter in such a place doesn't bring.
    if (m_fixed > 0 || m_options.inlineLiterals || wanted.place == Place::Result)
        return false;
    // Joined text keeps the width that it has; a parameter's would have to be guessed.
    return wanted.place != Place::Operand || isNumberToken(value.token);
}

void Writer::writeAdapted(const Expression &value, const Wanted &wanted)
{
    if (value.kind == Kind::Null) {
        m_text += u"NULL"_s;
        return;
    }
    if (value.kind == Kind::Boolean) {
        const QString number = value.negated ? u"0"_s : u"-1"_s;
        m_text += wanted.kind == ColumnKind::Text ? u'\'' + number + u'\'' : number;
        return;
    }
    Wanted adapted = wanted;
    if (adapted.kind == ColumnKind::Unknown)
        adapted.kind = value.type;
    // A bare number compared with Yes/No is compared as the number that it is.
    if (adapted.kind == ColumnKind::YesNo && adapted.place != Place::Stored &&
        value.kind == Kind::Literal && isNumberToken(value.token))
        adapted.kind = ColumnKind::Integer;
    if (!lifts(value, adapted)) {
        if (const auto known = knownValue(value)) {
            // Numbers calculate and compare in full, whatever the other side is.
            const bool rounds =
                adapted.place == Place::Stored || adapted.kind != ColumnKind::Integer;
            const ColumnKind kind = rounds ? adapted.kind : ColumnKind::Real;
            const bool number = value.kind == Kind::Literal && isNumberToken(value.token) &&
                                isNumber(kind) && kind != ColumnKind::YesNo;
            // The number is written as it is, but one that no amount can be is refused.
            if (number && kind == ColumnKind::Money && adapted.place != Place::Compared)
                static_cast<void>(converted(*known, kind));
            QVariant shown = number ? *known : converted(*known, kind);
            // A text is as unequal with one character too many as with a hundred (see
            // Slot::length).
            if (adapted.place == Place::Compared && adapted.length > 0 &&
                adapted.length < MemoLength && shown.typeId() == QMetaType::QString)
                shown = shown.toString().left(adapted.length + 1);
            writeInline(shown, adapted);
            return;
        }
    }
    Slot slot;
    slot.source = value.kind == Kind::Literal ? Slot::Source::Literal : Slot::Source::Caller;
    slot.index = value.token.number;
    slot.kind = adapted.kind;
    slot.negate = value.negated;
    if (adapted.place == Place::Operand && value.kind == Kind::Literal &&
        value.token.kind == TokenKind::Integer)
        slot.kind = ColumnKind::Integer;
    writeSlot(slot, adapted, adapted.place != Place::Stored);
}

void Writer::writeSlot(Slot slot, const Wanted &wanted, bool typed)
{
    // The column into which it is stored gives the type; bytes are never compared.
    if (!typed || slot.kind == ColumnKind::Binary) {
        m_text += u'?';
        m_plan.slots.push_back(slot);
        return;
    }
    // A whole number may be compared with 2.5, but an operand keeps being whole.
    if (slot.kind == ColumnKind::Integer && wanted.place != Place::Operand)
        slot.kind = ColumnKind::Real;
    m_text += u"CAST(? AS "_s;
    if (const QStringView type = boundType(slot.kind); !type.isEmpty()) {
        m_text += type;
    } else {
        int length = wanted.place == Place::Operand ? patternLength : comparedLength;
        if (wanted.place == Place::Compared && wanted.length > 0 && wanted.length < comparedLength)
            slot.length = length = wanted.length + 1;
        m_text += u"VARCHAR("_s + QString::number(length) + u')';
    }
    m_text += u')';
    m_plan.slots.push_back(slot);
}

void Writer::writeMoment(Slot::Source source)
{
    Slot slot;
    slot.source = source;
    slot.kind = ColumnKind::Date;
    writeSlot(slot, {ColumnKind::Date, Place::Operand, 0}, true);
}

void Writer::writeInline(const QVariant &value, const Wanted &wanted)
{
    switch (value.typeId()) {
    case QMetaType::UnknownType:
        m_text += u"NULL"_s;
        return;
    case QMetaType::Double:
        m_text += realText(value.toDouble());
        return;
    case QMetaType::QDateTime:
        m_text += u"TIMESTAMP '"_s + value.toDateTime().toString(u"yyyy-MM-dd HH:mm:ss") + u'\'';
        return;
    case QMetaType::QString: {
        QString text = value.toString();
        const auto length = std::max<qsizetype>(1, text.size());
        text.replace(u'\'', u"''"_s);
        // A bare literal is of fixed width to the engine, and blanks would fill it up beside longer
        // ones.
        if (wanted.place == Place::Result)
            m_text += u"CAST('"_s + text + u"' AS VARCHAR("_s + QString::number(length) + u"))"_s;
        else
            m_text += u'\'' + text + u'\'';
        return;
    }
    case QMetaType::QByteArray:
        m_text += u"x'"_s + QString::fromLatin1(value.toByteArray().toHex()) + u'\'';
        return;
    default:
        m_text += QString::number(value.toLongLong());
    }
}

} // namespace sql
