#pragma once

#include "platform/sql/Schema.h"

#include <QString>
#include <QVariant>
#include <optional>
#include <utility>
#include <vector>

/// The front end of the SQL dialect: lexer, parser, resolver and writer for the engine. Knows no
/// engine interface; the connection prepares and runs what it writes. docs/sql-dialect.md tells
/// the dialect.
namespace sql {

/// A literal taken out of a statement.
struct Literal
{
    /// Number: qint64 or double. Text: QString. Date: QDateTime (wall clock).
    QVariant value;
};

/// A statement with its literals lifted out, so that statements of one shape share one key.
struct Lifted
{
    QString key;                   ///< the shape: the text with each literal replaced by its kind
    std::vector<Literal> literals; ///< in the order of the text
    int callerParameters = 0;      ///< how many "?" the statement holds
};

/// Lifts the literals in one pass over the text, linear in its length.
/// Raises a syntax error (base::Error with ErrorNumber::Syntax) for text that can't be cut into
/// tokens.
[[nodiscard]] Lifted lift(QStringView statement);

/// Where the value for one "?" of the engine's statement comes from, and how it has to be
/// converted first.
struct Slot
{
    enum class Source {
        Caller,  ///< the caller's parameter number index
        Literal, ///< the lifted literal number index
        Now,     ///< the current date and time, whole seconds
        Today,   ///< today at midnight
    };
    Source source = Source::Caller;
    int index = 0;
    /// What it is compared with or stored into. Unknown: bind as it comes.
    ColumnKind kind = ColumnKind::Unknown;
    /// A pattern with * ? to be rewritten for LIKE (see likePattern); one that holds # or [ can't
    /// be bound: translate again with its value written out (TranslateOptions::inlineLiterals).
    bool likePattern = false;
    bool negate = false; ///< a unary minus stood before the number
    /// Characters to which a text is cut: one more than the column has that it is compared with, so
    /// that the outcome stays and the engine never meets a text that is too long for it. 0: as it
    /// is.
    int length = 0;
};

enum class StatementKind { Query, Insert, Update, Delete, Ddl };

/// A statement as the engine takes it.
struct Plan
{
    StatementKind kind = StatementKind::Query;
    QString text;
    std::vector<Slot> slots; ///< one for each "?" in text, in order
    /// Numbers of literals whose values stand in the text: the plan serves only statements of its
    /// shape that have equal values there.
    std::vector<int> fixedLiterals;
    /// For Ddl: the engine's statements in order (a table may need triggers and generators); text
    /// is empty then. Each has to be committed before the next one is prepared.
    std::vector<QString> ddl;
    /// Result columns whose names the engine can't carry (too long for it): position and name.
    std::vector<std::pair<int, QString>> longNames;
};

struct TranslateOptions
{
    /// For an insert: the autonumber column whose new value is to come back.
    QString returning;
    /// Writes all literals out instead of lifting them, for the rare shape that the engine refuses
    /// with parameters.
    bool inlineLiterals = false;
    /// Values of the caller's parameters to be written out as literals (needed for a pattern with
    /// # or [); empty otherwise.
    QVariantList inlineParameters;
};

/// Parses, resolves and writes one statement of the dialect.
/// Raises base::Error with the numbers of Errors.h: syntax, unknown table, a name without a
/// value (an unknown column), type mismatch; the description tells the user what is wrong where.
[[nodiscard]] Plan translate(QStringView statement, const Schema &schema,
                             const TranslateOptions &options = {});

/// A pattern of the dialect (* any text, ? one character) in the form of the engine's LIKE with
/// the escape character "\". Nothing when it holds # or a bracket list, which LIKE can't express.
[[nodiscard]] std::optional<QString> likePattern(const QString &pattern);

} // namespace sql
