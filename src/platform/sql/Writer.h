#pragma once

#include "platform/sql/Tree.h"

#include <QString>
#include <initializer_list>

namespace sql {

struct NumberPicture;

/// Writes a resolved statement for the engine, and notes for each of its parameters where the value
/// comes from.
class Writer
{
public:
    Writer(QStringView statement, const TranslateOptions &options, Plan &plan);

    /// Writes a query or a change, once; definitions have a writer of their own. Raises syntax and
    /// type mismatch errors for what the engine has no words for.
    void write(const Statement &statement);

private:
    /// What a literal or parameter is for; decides how it is written.
    enum class Place : quint8 {
        Compared, ///< against something of the wanted kind
        Stored,   ///< into a column of the wanted kind, which gives it its type
        Operand,  ///< of an operation
        Result,   ///< of a select list, a function, a branch: needs a type of its own
    };
    struct Wanted
    {
        ColumnKind kind = ColumnKind::Unknown;
        Place place = Place::Result;
        int length = 0; ///< characters of the column, 0 when there is none
    };

    /// Where the value of a select item stands in the text, and its parameters among the slots.
    struct WrittenItem
    {
        std::size_t output = 0;
        qsizetype begin = 0;
        qsizetype end = 0;
        std::size_t slotsBegin = 0;
        std::size_t slotsEnd = 0;
    };

    // Queries and changes (Writer.cpp).
    /// insert: the change whose rows the query gives. Its columns then say what the items are for,
    /// and those of its columns that default to today are added to the list.
    void writeQuery(const Query &query, const Change *insert = nullptr);
    void writeSelect(const Select &select, const Change *insert);
    /// The list, and where its values stand; a group that repeats one of them is then written by
    /// its number.
    std::vector<WrittenItem> writeItems(const Select &select, const Change *insert);
    void writeGroups(const Select &select, const std::vector<WrittenItem> &items);
    /// True when both read alike and take their parameters from the same places.
    [[nodiscard]] bool repeats(const WrittenItem &item, const WrittenItem &group) const;
    /// Gives the place where the value ends and its alias begins.
    qsizetype writeOutput(const Select &select, const SelectItem &item, std::size_t output,
                          const Change *insert);
    /// All columns of a table by name, where a star would not do. output: the number of the next
    /// output column, moved on.
    void writeColumns(const Source &source, const Select &select, std::size_t &output);
    void writeJoins(const JoinChain &chain);
    void writeJoinMember(const Join &member);
    void writeSource(const Source &source);
    void writeOrder(const Query &query);
    void writeInsert(const Change &change);
    void writeUpdate(const Change &change);
    void writeDelete(const Change &change);
    /// Notes the output columns whose names the engine can't carry.
    void noteLongNames(const Select &select);

    // Expressions (WriterExpression.cpp).
    /// A value in place of a condition is true while it is not 0.
    void writeCondition(const Expression &condition);
    /// The same in parentheses, unless the kind of the condition around needs none.
    void writeConditionOperand(const Expression &condition, Expression::Kind around);
    /// Writes a value of the wanted kind; operands of operators get parentheses when they need any.
    void writeValue(const Expression &value, const Wanted &wanted);
    /// A value as the kind that it is; writeConverted: as a text or a number.
    void writeNatural(const Expression &value);
    void writeConverted(const Expression &value, ColumnKind kind);
    void writeName(const Expression &name);
    /// A column; a memo is cut to a plain text where rows are compared.
    void writeColumn(const Source &source, int column, bool qualified);
    void writeArithmetic(const Expression &chain);
    /// An operand beside the kind of the other side.
    void writeChainOperand(const Expression &operand, ColumnKind other, Operator operation);
    void writeCompare(const Expression &compare);
    void writeComparison(const Expression &left, QStringView symbol, const Expression &right);
    void writeIn(const Expression &in);
    void writeInQuery(const Expression &in);
    void writeBetween(const Expression &between);
    void writeLike(const Expression &like);
    /// A pattern that LIKE can't express, as one of SIMILAR TO.
    void writeSimilar(const Expression &like, const QString &pattern);
    /// As what a side has to be written so that it compares with the other one.
    [[nodiscard]] Wanted comparedWith(const Expression &other, const Expression &own) const;

    // Literals and parameters (WriterValue.cpp).
    /// A literal, parameter, constant or Null as what is wanted: as "?" with its slot, or written
    /// out.
    void writeAdapted(const Expression &value, const Wanted &wanted);
    /// A value as text of the statement.
    void writeInline(const QVariant &value, const Wanted &wanted);
    /// A "?" and its slot. typed: the engine has to be told the type, which no column gives.
    void writeSlot(Slot slot, const Wanted &wanted, bool typed);
    /// Now or today, as the program's clock says at each run.
    void writeMoment(Slot::Source source);
    /// The literal's value with its sign; the plan is bound to it from then on.
    [[nodiscard]] QVariant fixedValue(const Expression &literal);
    /// Literal, or parameter that the options give the value of.
    [[nodiscard]] std::optional<QVariant> knownValue(const Expression &value);
    /// True when the value becomes a parameter, so that statements that differ in it share a plan.
    [[nodiscard]] bool lifts(const Expression &value, const Wanted &wanted) const;

    // Functions (WriterFunctions.cpp).
    void writeCall(const Expression &call);
    /// An argument as a kind, between two texts of the engine.
    void writeAround(QStringView before, const Expression &value, ColumnKind kind,
                     QStringView after);
    void writeText(const Expression &value) { writeAround({}, value, ColumnKind::Text, {}); }
    void writeCStr(const Expression &value);
    /// A date as CStr shows it.
    void writeDateText(const Expression &date);
    void writeRoundedToEven(const Expression &value);
    void writeDatePart(const Expression &value, QStringView part);
    void writeDateDiff(const Expression &call);
    void writeDateAdd(const Expression &call);
    void writeWeekday(const Expression &value);
    void writeMoney(const Expression &value);
    void writeConversion(const Expression &call);
    void writeList(QStringView before, const Expression &call,
                   std::initializer_list<ColumnKind> kinds);
    void writeTimeOfDay();
    void writeDateSerial(const Expression &call);
    void writeNamedPart(const Expression &call);
    void writeIIf(const Expression &call);
    void writeNz(const Expression &call);
    void writeSwitch(const Expression &call);
    void writeMid(const Expression &call);
    void writeInStr(const Expression &call);
    /// The text of an argument that decides how the call is written; raises a syntax error when it
    /// is worked out row by row. of: what it is, for the message.
    [[nodiscard]] QString fixedText(const Expression &argument, QStringView of);

    // Numbers as text (WriterFormat.cpp).
    void writeFormat(const Expression &call);
    /// A number with a fraction as CStr shows it: 15 digits, an exponent where it is very large or
    /// small.
    void writeRealText(const Expression &value);
    /// The decimal that a binary number stands for, multiplied by the factor first.
    void writeExact(const Expression &value, QStringView factor = {});
    void writeNumberSections(const Expression &value, const QString &picture);
    /// signs: a negative number gets its minus here, where no section of its own shows it.
    void writeNumberSection(const Expression &value, const NumberPicture &picture, bool signs);
    void writeRounded(const Expression &value, const NumberPicture &picture);
    /// The digits before the point.
    void writeWhole(const Expression &value, const NumberPicture &picture);
    void writeQuoted(QStringView text);

    // Dates by pictures (WriterDateFormat.cpp).
    void writeFormattedDate(const Expression &date, const QString &picture);
    /// One piece of the picture. twelveHours: another piece says AM or PM.
    void writeDateSign(const Expression &date, const QString &sign, bool twelveHours);
    void writePartIn(QStringView before, const Expression &date, QStringView part,
                     QStringView after);
    void writeHour(const Expression &date, bool padded, bool twelveHours);
    void writeHalfDay(const Expression &date, const QString &sign);
    void writeWeek(const Expression &date);

    /// Raises a syntax error at the place of an expression.
    [[noreturn]] void raise(const QString &what, const Expression &at) const;

    QStringView m_statement;
    const TranslateOptions &m_options;
    Plan &m_plan;
    QString m_text;
    int m_fixed = 0;          ///< inside of something where literals have to stand in the text
    bool m_comparing = false; ///< inside of what rows are told apart, grouped or sorted by

    friend class FixedLiterals;
    friend class Repetition;
    int m_repetitions = 0;
};

/// Literals are written out for as long as it lives.
class FixedLiterals
{
public:
    explicit FixedLiterals(Writer &writer)
        : m_writer(writer)
    {
        ++m_writer.m_fixed;
    }
    ~FixedLiterals() { --m_writer.m_fixed; }
    FixedLiterals(const FixedLiterals &) = delete;
    FixedLiterals &operator=(const FixedLiterals &) = delete;

private:
    Writer &m_writer;
};

/// Stands around the writing of an argument more than once. Refuses to be nested beyond a few
/// levels, each of which multiplies the length of the text.
class Repetition
{
public:
    Repetition(Writer &writer, const Expression &at);
    ~Repetition() { --m_writer.m_repetitions; }
    Repetition(const Repetition &) = delete;
    Repetition &operator=(const Repetition &) = delete;

private:
    Writer &m_writer;
};

} // namespace sql
