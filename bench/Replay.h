#pragma once

#include "platform/db/Attachment.h"
#include "platform/db/InputMessage.h"

#include <memory>
#include <unordered_map>
#include <vector>

/// The statements that a connection has sent, to be run once more by the engine alone: what they
/// take there is what the program's own part of the work is measured against. Translated, prepared
/// and bound ahead, so that nothing but the engine's work is in the time.
class Recording
{
public:
    /// Notes what the connection sends, until stop() or the end.
    explicit Recording(db::Connection &connection);
    ~Recording() { stop(); }
    Recording(const Recording &) = delete;
    Recording &operator=(const Recording &) = delete;

    void stop() { m_connection.setObserver({}); }
    [[nodiscard]] std::size_t size() const { return m_calls.size(); }

private:
    friend class Replay;
    struct Call
    {
        QString statement;
        QVariantList parameters;
        QString returning;
    };

    db::Connection &m_connection;
    std::vector<Call> m_calls;
};

/// A recording made ready for the engine. Statements that write are meant for a copy of the file
/// as it was before the recording, so that they meet the same rows and get the same keys.
class Replay
{
public:
    /// Raises DbError. Both must outlive the replay.
    Replay(const Recording &recording, db::engine::Attachment &attachment);

    /// Runs it; rows are fetched and dropped. May run again as long as commit() wasn't called.
    void run();
    void commit() { m_transaction.commit(); }

private:
    struct Prepared
    {
        db::engine::Ref<Firebird::IStatement> statement;
        db::engine::Ref<Firebird::IMessageMetadata> output;
        std::unique_ptr<db::engine::InputMessage> input;
        std::vector<unsigned char> row;
        bool hasRows = false;
    };
    /// One run of a statement, with a copy of its bound parameters.
    struct Step
    {
        Prepared *prepared;
        db::engine::Ref<Firebird::IMessageMetadata> input;
        std::vector<unsigned char> values;
    };

    Prepared &prepared(const QString &text);
    void add(const Recording::Call &call, const sql::Schema &schema);

    db::engine::Status m_status;
    db::engine::Attachment &m_attachment;
    db::engine::Transaction m_transaction;
    std::unordered_map<std::string, Prepared> m_prepared;
    std::vector<Step> m_steps;
};
