#pragma once

#include <QStringList>
#include <QTextStream>
#include <QVariantList>
#include <optional>

/// The console for support: makes databases, runs statements against one, checks, compacts and
/// copies. Works on streams, so that a test can stand in for the terminal.
namespace console {

/// What went where: results to out, failures and hints to err.
struct Streams
{
    QTextStream &in;
    QTextStream &out;
    QTextStream &err;
};

/// Exit codes.
inline constexpr int Success = 0;
inline constexpr int Failed = 1;     ///< something could not be done; err tells what
inline constexpr int WrongUsage = 2; ///< the command line was not understood

/// Runs one command line; the first argument is the program's name.
int run(const QStringList &arguments, const Streams &streams);

/// A statement to run with the values of its "?".
struct Request
{
    QString statement;
    QVariantList parameters;
    int line = 0; ///< where it begins, from 1

    bool operator==(const Request &) const = default;
};

/// Cuts the text that comes in into requests, line by line. A statement ends with a semicolon at
/// the end of a line, with a JSON array of parameter values after a tab, with an empty line, or
/// where the next line begins with the word of a new statement.
class RequestReader
{
public:
    explicit RequestReader(QTextStream &in)
        : m_in(in)
    {}
    /// The next request, nothing at the end. Raises base::Error InvalidCall for parameter values
    /// that are no JSON array; reading can go on behind it.
    [[nodiscard]] std::optional<Request> next();

private:
    QTextStream &m_in;
    std::optional<QString> m_pending; ///< a line that was read but belongs to the next request
    int m_line = 0;
};

} // namespace console
