#pragma once

#include "exchange/CommandFile.h"
#include "exchange/IdMap.h"

#include <span>

/// What the commands of a handheld do. All work on Data within the caller's transaction and raise
/// base::Error, after which nothing of the run may stay.
namespace exchange::commands {

/// A command can't be carried out for a reason that the user is told in a sentence.
class Problem : public std::exception
{
public:
    explicit Problem(QString sentence)
        : m_sentence(std::move(sentence))
    {}
    [[nodiscard]] const QString &sentence() const { return m_sentence; }

private:
    QString m_sentence;
};

/// What lasts from one command of a run to the next.
struct Run
{
    IdMap ids;
    QString countType; ///< the last reading's known one
};

struct Kind
{
    QStringView element;
    void (*apply)(const Command &command, Run &run);
};

/// The kinds of a work file in the order in which they are carried out: each may refer to what one
/// before it has made.
[[nodiscard]] std::span<const Kind> workKinds();
/// The kind of a file of readings.
[[nodiscard]] std::span<const Kind> readingKinds();

/// The older forms, which know no ids of the handheld and reschedule nothing.
[[nodiscard]] std::span<const Kind> olderWorkKinds();
[[nodiscard]] std::span<const Kind> olderReadingKinds();

} // namespace exchange::commands
