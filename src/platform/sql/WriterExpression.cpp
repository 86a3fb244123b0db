#include "platform/sql/EngineTypes.h"
#include "platform/sql/Errors.h"
#include "platform/sql/Types.h"
#include "platform/sql/Writer.h"

#include <algorithm>

namespace sql {

using namespace Qt::StringLiterals;
using Kind = Expression::Kind;

namespace {

/// Longer lists of values are split; the engine takes 1,500.
constexpr std::size_t longestList = 1000;

QStringView comparisonSymbol(Operator operation)
{
    switch (operation) {
    case Operator::NotEqual:
        return u" <> ";
    case Operator::Less:
        return u" < ";
    case Operator::LessOrEqual:
        return u" <= ";
    case Operator::Greater:
        return u" > ";
    case Operator::GreaterOrEqual:
        return u" >= ";
    default:
        return u" = ";
    }
}

/// What stands before the left side, between the sides and behind the right one.
struct Frame
{
    QStringView before;
    QStringView between;
    QStringView after;
};

Frame frameOf(Operator operation, ColumnKind left, ColumnKind right, ColumnKind result)
{
    switch (operation) {
    case Operator::Add:
        if (result == ColumnKind::Text)
            return {u"", u" || ", u""};
        return {u"", u" + ", u""};
    case Operator::Subtract:
        return {u"", u" - ", u""};
    case Operator::Multiply:
        // See arithmeticType: the product of two amounts is a binary number.
        if (left == ColumnKind::Money && right == ColumnKind::Money)
            return {u"CAST(", u" AS DOUBLE PRECISION) * ", u""};
        return {u"", u" * ", u""};
    case Operator::Divide:
        // The engine divides whole numbers into a whole one.
        if (left == ColumnKind::Real)
            return {u"", u" / ", u""};
        return {u"CAST(", u" AS DOUBLE PRECISION) / ", u""};
    // Both work on whole numbers, to which their operands are rounded.
    case Operator::IntegerDivide:
        return {u"(CAST(", u" AS BIGINT) / CAST(", u" AS BIGINT))"};
    case Operator::Modulo:
        return {u"MOD(CAST(", u" AS BIGINT), CAST(", u" AS BIGINT))"};
    case Operator::Power:
        return {u"POWER(", u", ", u")"};
    default:
        return {u"", u" || ", u""};
    }
}

} // namespace

void Writer::writeCondition(const Expression &condition)
{
    switch (condition.kind) {
    case Kind::And:
    case Kind::Or:
        for (const ExpressionPointer &operand : condition.operands) {
            if (operand != condition.operands.front())
                m_text += condition.kind == Kind::And ? u" AND "_s : u" OR "_s;
            writeConditionOperand(*operand, condition.kind);
        }
        return;
    case Kind::Not:
        m_text += u"NOT "_s;
        writeConditionOperand(*condition.operands.front(), Kind::Not);
        return;
    case Kind::Compare:
        writeCompare(condition);
        return;
    case Kind::Between:
        writeBetween(condition);
        return;
    case Kind::In:
        writeIn(condition);
        return;
    case Kind::InQuery:
        writeInQuery(condition);
        return;
    case Kind::Like:
        writeLike(condition);
        return;
    case Kind::IsNull:
        // The engine reads "a = b is null" as a comparison with "b is null".
        if (condition.operands.front()->isCondition())
            m_text += u'(';
        writeValue(*condition.operands.front(), {});
        if (condition.operands.front()->isCondition())
            m_text += u')';
        m_text += condition.negated ? u" IS NOT NULL"_s : u" IS NULL"_s;
        return;
    case Kind::Exists:
        m_text += u"EXISTS ("_s;
        writeQuery(*condition.query);
        m_text += u')';
        return;
    case Kind::Boolean:
        m_text += condition.negated ? u"1 = 0"_s : u"1 = 1"_s;
        return;
    case Kind::Null:
        // Neither true nor false, as Null is.
        m_text += u"1 = CAST(NULL AS INTEGER)"_s;
        return;
    default:
        // A value stands for a condition: 0 is false, any other number true.
        writeValue(condition, {ColumnKind::YesNo, Place::Operand, 0});
        m_text += u" <> 0"_s;
    }
}

void Writer::writeConditionOperand(const Expression &condition, Kind around)
{
    // A list that is split is a chain by itself.
    const bool looser = condition.kind == Kind::Or || condition.kind == Kind::And ||
                        (condition.kind == Kind::In && condition.operands.size() - 1 > longestList);
    // Parentheses only where they are needed, so that long filters stay readable.
    const bool bare = around == Kind::And  ? condition.kind != Kind::Or && !looser
                      : around == Kind::Or ? condition.kind == Kind::And || !looser
                                           : condition.kind == Kind::Exists;
    if (!bare)
        m_text += u'(';
    writeCondition(condition);
    if (!bare)
        m_text += u')';
}

void Writer::writeValue(const Expression &value, const Wanted &wanted)
{
    if (value.isValue()) {
        writeAdapted(value, wanted);
        return;
    }
    // What is stored into a text column is left to the engine where it is a whole number: it writes
    // that one as the dialect does.
    const bool toText = wanted.kind == ColumnKind::Text && value.type != ColumnKind::Text &&
                        value.type != ColumnKind::Unknown &&
                        (wanted.place != Place::Stored || value.type != ColumnKind::Integer);
    const bool toNumber =
        isNumber(wanted.kind) && wanted.place != Place::Stored && value.type == ColumnKind::Text;
    const bool toMoney = wanted.kind == ColumnKind::Money && wanted.place == Place::Stored &&
                         value.type == ColumnKind::Real;
    if (toText)
        writeConverted(value, ColumnKind::Text);
    else if (toMoney)
        writeMoney(value);
    else if (toNumber)
        writeConverted(value, ColumnKind::Real);
    else
        writeNatural(value);
}

void Writer::writeConverted(const Expression &value, ColumnKind kind)
{
    if (kind == ColumnKind::Text) {
        writeCStr(value);
        return;
    }
    m_text += u"CAST("_s;
    writeNatural(value);
    m_text += u" AS DOUBLE PRECISION)"_s;
}

void Writer::writeMoney(const Expression &value)
{
    // A text is where the engine notices each number that is too large: the binary number behind
    // the last one becomes the most negative amount.
    const bool exact = !value.isValue() && value.type != ColumnKind::Real && isNumber(value.type);
    m_text += exact ? u"CAST("_s : u"CAST(CAST("_s;
    writeValue(value, {exact ? ColumnKind::Unknown : ColumnKind::Real, Place::Result, 0});
    m_text += exact ? u" AS NUMERIC(18,4))"_s : u" AS VARCHAR(32)) AS NUMERIC(18,4))"_s;
}

void Writer::writeNatural(const Expression &value)
{
    switch (value.kind) {
    case Kind::Name:
        writeName(value);
        return;
    case Kind::Call:
        writeCall(value);
        return;
    case Kind::CountRows:
        m_text += u"COUNT(*)"_s;
        return;
    case Kind::Negate:
        // The blank keeps two signs from becoming a comment.
        m_text += u"(- "_s;
        writeValue(*value.operands.front(), {ColumnKind::Real, Place::Operand, 0});
        m_text += u')';
        return;
    case Kind::Arithmetic:
        m_text += u'(';
        writeArithmetic(value);
        m_text += u')';
        return;
    case Kind::Scalar:
        m_text += u'(';
        writeQuery(*value.query);
        m_text += u')';
        return;
    default:
        // A condition as a value: Null stays Null.
        m_text += u"CASE ("_s;
        writeCondition(value);
        m_text += u") WHEN TRUE THEN -1 WHEN FALSE THEN 0 END"_s;
    }
}

void Writer::writeName(const Expression &name)
{
    writeColumn(*name.source, name.column, name.qualified);
}

void Writer::writeColumn(const Source &source, int column, bool qualified)
{
    const bool cut = m_comparing && source.isMemo(column);
    QString written = EngineTypes::quotedName(source.writtenColumn(column));
    // The bare name would be that of the output.
    if (qualified || cut)
        written.prepend(source.written + u'.');
    m_text += cut ? u"CAST(SUBSTRING(%1 FROM 1 FOR %2) AS VARCHAR(%2))"_s.arg(written).arg(
                        EngineTypes::SortedMemoLength)
                  : written;
}

void Writer::writeArithmetic(const Expression &chain)
{
    const std::vector<ColumnKind> types = chainTypes(chain);
    const std::size_t count = chain.operators.size();
    std::vector<Frame> frames;
    frames.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        frames.push_back(
            frameOf(chain.operators[i], types[i], chain.operands[i + 1]->type, types[i + 1]));
        // Text that an earlier step joined is no number for a later one.
        if (types[i] == ColumnKind::Text && i > 0 && types[i + 1] != ColumnKind::Text) {
            throw base::Error(ErrorNumber::TypeMismatch,
                              u"Data type mismatch: a joined text can't be calculated with."_s);
        }
    }
    // The last operation is the outermost.
    for (std::size_t i = count; i-- > 0;)
        m_text += frames[i].before;
    writeChainOperand(*chain.operands.front(), chain.operands[1]->type, chain.operators.front());
    for (std::size_t i = 0; i < count; ++i) {
        m_text += frames[i].between;
        writeChainOperand(*chain.operands[i + 1], types[i], chain.operators[i]);
        m_text += frames[i].after;
    }
}

void Writer::writeChainOperand(const Expression &operand, ColumnKind other, Operator operation)
{
    if (operation == Operator::Concatenate) {
        // A literal is never Null.
        if (operand.kind == Kind::Literal) {
            writeValue(operand, {ColumnKind::Text, Place::Operand, 0});
            return;
        }
        // Null joins as empty text.
        m_text += u"COALESCE("_s;
        writeValue(operand, {ColumnKind::Text, Place::Result, 0});
        m_text += u", '')"_s;
        return;
    }
    Wanted wanted{ColumnKind::Real, Place::Operand, 0};
    const bool adds = operation == Operator::Add || operation == Operator::Subtract;
    // Text on both sides, or on one with nothing known of the other, is joined; all else is
    // calculated, a date as days.
    if (operation == Operator::Add && other != ColumnKind::Date && !isNumber(other) &&
        (other == ColumnKind::Text || operand.type == ColumnKind::Text) &&
        !isNumber(operand.type) && operand.type != ColumnKind::Date) {
        wanted.kind = ColumnKind::Text;
    } else if (operand.type == ColumnKind::Date && adds) {
        wanted.kind = ColumnKind::Date;
    }
    writeValue(operand, wanted);
}

Writer::Wanted Writer::comparedWith(const Expression &other, const Expression &own) const
{
    // A value adapts to what it meets, and not the other way round.
    if (!own.isValue() && other.isValue())
        return {ColumnKind::Unknown, Place::Operand, 0};
    Wanted wanted{other.isCondition() ? ColumnKind::YesNo : other.type, Place::Compared, 0};
    if (other.isValue()) {
        // Two values: numbers decide, then dates.
        if (isNumber(own.type) || own.type == ColumnKind::Date)
            wanted.kind = own.type;
        // A constant beside a number is the number -1 or 0, and not any number that counts as yes.
        if (wanted.kind == ColumnKind::YesNo)
            wanted.kind = ColumnKind::Integer;
    }
    // A text is then cut behind the column's length (see Slot::length).
    if (other.kind == Kind::Name && other.type == ColumnKind::Text)
        wanted.length = other.source->columnLength(other.column);
    return wanted;
}

void Writer::writeCompare(const Expression &compare)
{
    writeComparison(*compare.operands.front(), comparisonSymbol(compare.operators.front()),
                    *compare.operands.back());
}

void Writer::writeComparison(const Expression &left, QStringView symbol, const Expression &right)
{
    Wanted forLeft = comparedWith(right, left);
    Wanted forRight = comparedWith(left, right);
    if (!left.isValue() && !right.isValue()) {
        // Two columns or results: only text and number need an agreement, and that is text, since
        // any number has one.
        const bool date = left.type == ColumnKind::Date || right.type == ColumnKind::Date;
        const bool mixed = left.type != right.type && left.type != ColumnKind::Unknown &&
                           right.type != ColumnKind::Unknown;
        if (date && mixed)
            throw base::Error(ErrorNumber::TypeMismatch,
                              u"Data type mismatch: a date can be compared with a date only."_s);
        const bool text = left.type == ColumnKind::Text || right.type == ColumnKind::Text;
        forLeft = forRight = {text ? ColumnKind::Text : ColumnKind::Unknown, Place::Operand, 0};
    }
    const auto write = [&](const Expression &side, const Wanted &wanted) {
        if (side.isCondition())
            m_text += u'(';
        writeValue(side, wanted);
        if (side.isCondition())
            m_text += u')';
    };
    write(left, forLeft);
    m_text += symbol;
    write(right, forRight);
}

void Writer::writeBetween(const Expression &between)
{
    const Expression &value = *between.operands[0];
    const Expression &lower = *between.operands[1];
    const Expression &upper = *between.operands[2];
    // A bound that has a type of its own says how the value is read.
    writeValue(value, comparedWith(lower.isValue() ? upper : lower, value));
    m_text += between.negated ? u" NOT BETWEEN "_s : u" BETWEEN "_s;
    writeValue(lower, comparedWith(value, lower));
    m_text += u" AND "_s;
    writeValue(upper, comparedWith(value, upper));
}

void Writer::writeIn(const Expression &in)
{
    const Expression &value = *in.operands.front();
    const std::size_t count = in.operands.size() - 1;
    const bool split = count > longestList;
    for (std::size_t begin = 0; begin < count; begin += longestList) {
        if (begin > 0)
            m_text += in.negated ? u" AND "_s : u" OR "_s;
        // The first of the list stands for all: filters hold values of one kind.
        writeValue(value, comparedWith(*in.operands[1], value));
        m_text += in.negated ? u" NOT IN ("_s : u" IN ("_s;
        const std::size_t end = std::min(count, begin + longestList);
        for (std::size_t i = begin; i < end; ++i) {
            if (i > begin)
                m_text += u", "_s;
            writeValue(*in.operands[i + 1], comparedWith(value, *in.operands[i + 1]));
        }
        m_text += u')';
        // Each repetition would bring its own parameters.
        if (split && !value.isValue() && value.kind != Kind::Name)
            raise(u"a list of more than 1,000 values needs a column before IN."_s, in);
    }
}

void Writer::writeInQuery(const Expression &in)
{
    const Expression &value = *in.operands.front();
    const OutputColumn &column = in.query->selects.front().output.front();
    Wanted wanted{column.kind, Place::Compared, column.length};
    writeValue(value, wanted);
    m_text += in.negated ? u" NOT IN ("_s : u" IN ("_s;
    writeQuery(*in.query);
    m_text += u')';
}

void Writer::writeLike(const Expression &like)
{
    const Expression &pattern = *like.operands.back();
    const Wanted text{ColumnKind::Text, Place::Operand, 0};
    const bool written = pattern.kind == Kind::Literal || pattern.kind == Kind::Parameter;
    if (!written) {
        // The pattern is worked out row by row, so that its signs have to be rewritten there too.
        writeValue(*like.operands.front(), text);
        m_text += like.negated ? u" NOT LIKE "_s : u" LIKE "_s;
        m_text += u"REPLACE(REPLACE(REPLACE(REPLACE(REPLACE("_s;
        writeValue(pattern, {ColumnKind::Text, Place::Result, 0});
        m_text += u", '\\', '\\\\'), '%', '\\%'), '_', '\\_'), '*', '%'), '?', '_')"_s +
                  u" ESCAPE '\\'"_s;
        return;
    }
    // A pattern of the statement is looked at here, one of the caller's when it is bound
    // (Connection), since the plan has to serve all of his.
    const bool special = pattern.kind == Kind::Literal &&
                         (pattern.token.text.contains(u'#') || pattern.token.text.contains(u'['));
    std::optional<QVariant> known;
    if (special || !lifts(pattern, {ColumnKind::Text, Place::Compared, 0}))
        known = knownValue(pattern);
    if (known) {
        const QString shown = known->toString();
        if (shown.contains(u'#') || shown.contains(u'[')) {
            writeSimilar(like, shown);
            return;
        }
    }
    writeValue(*like.operands.front(), text);
    m_text += like.negated ? u" NOT LIKE "_s : u" LIKE "_s;
    if (known) {
        writeInline(likePattern(known->toString()).value_or(QString()), text);
    } else {
        Slot slot;
        slot.source = pattern.kind == Kind::Literal ? Slot::Source::Literal : Slot::Source::Caller;
        slot.index = pattern.token.number;
        slot.kind = ColumnKind::Text;
        slot.likePattern = true;
        writeSlot(slot, {ColumnKind::Text, Place::Operand, 0}, true);
    }
    m_text += u" ESCAPE '\\'"_s;
}

void Writer::writeSimilar(const Expression &like, const QString &pattern)
{
    QString similar;
    for (qsizetype i = 0; i < pattern.size(); ++i) {
        const QChar character = pattern[i];
        if (character == u'*') {
            similar += u'%';
        } else if (character == u'?') {
            similar += u'_';
        } else if (character == u'#') {
            similar += u"[0-9]"_s;
        } else if (character == u'[') {
            const qsizetype close = pattern.indexOf(u']', i);
            if (close < 0)
                raise(u"the pattern has a \"[\" without a \"]\"."_s, like);
            QString list = pattern.sliced(i + 1, close - i - 1);
            i = close;
            // "[]" stands for nothing.
            if (list.isEmpty())
                continue;
            // A list of "!" alone means that character.
            const bool excludes = list.startsWith(u'!') && list.size() > 1;
            if (excludes)
                list = list.sliced(1);
            similar += excludes ? u"[^"_s : u"["_s;
            for (qsizetype at = 0; at < list.size(); ++at) {
                const QChar listed = list[at];
                // Only a hyphen between two characters makes a range.
                const bool range = listed == u'-' && at > 0 && at + 1 < list.size();
                if (!range && QStringView(u"\\[]()|^-+*%_?{}").contains(listed))
                    similar += u'\\';
                similar += listed;
            }
            similar += u']';
        } else {
            if (QStringView(u"\\[]()|^-+*%_?{}").contains(character))
                similar += u'\\';
            similar += character;
        }
    }
    writeValue(*like.operands.front(), {ColumnKind::Text, Place::Operand, 0});
    m_text += like.negated ? u" NOT SIMILAR TO "_s : u" SIMILAR TO "_s;
    writeInline(similar, {ColumnKind::Text, Place::Operand, 0});
    m_text += u" ESCAPE '\\'"_s;
}

} // namespace sql
