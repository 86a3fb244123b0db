#include "Replay.h"

#include "platform/base/Environment.h"
#include "platform/sql/Conversion.h"
#include "platform/sql/Translator.h"

using db::engine::Ref;

Recording::Recording(db::Connection &connection)
    : m_connection(connection)
{
    connection.setObserver([this](const db::Sent &sent) {
        m_calls.push_back({sent.statement, sent.parameters, sent.returning});
    });
}

Replay::Replay(const Recording &recording, db::engine::Attachment &attachment)
    : m_attachment(attachment)
    , m_transaction(attachment, db::engine::Transaction::Mode::Write)
{
    for (const Recording::Call &call : recording.m_calls)
        add(call, recording.m_connection.schema());
}

Replay::Prepared &Replay::prepared(const QString &text)
{
    const std::string key = text.toStdString();
    Prepared &result = m_prepared[key];
    if (result.statement)
        return result;
    result.statement.reset(m_attachment.get()->prepare(
        &m_status, m_transaction.get(), static_cast<unsigned>(key.size()), key.data(), 3,
        Firebird::IStatement::PREPARE_PREFETCH_METADATA));
    result.output.reset(result.statement->getOutputMetadata(&m_status));
    result.input = std::make_unique<db::engine::InputMessage>(
        Ref(result.statement->getInputMetadata(&m_status)));
    result.row.resize(result.output->getMessageLength(&m_status));
    result.hasRows =
        (result.statement->getFlags(&m_status) & Firebird::IStatement::FLAG_HAS_CURSOR) != 0;
    return result;
}

void Replay::add(const Recording::Call &call, const sql::Schema &schema)
{
    const sql::Lifted lifted = sql::lift(call.statement);
    const sql::Plan plan = sql::translate(call.statement, schema, {call.returning, false, {}});
    std::vector<QVariant> values;
    for (const sql::Slot &slot : plan.slots) {
        switch (slot.source) {
        case sql::Slot::Source::Now:
            values.emplace_back(base::now());
            break;
        case sql::Slot::Source::Today:
            values.emplace_back(base::wallClock(base::today()));
            break;
        case sql::Slot::Source::Caller:
            values.push_back(sql::slotValue(call.parameters[slot.index], slot));
            break;
        case sql::Slot::Source::Literal:
            values.push_back(sql::slotValue(lifted.literals[slot.index].value, slot));
            break;
        }
    }
    std::vector<const QVariant *> places;
    for (const QVariant &value : values)
        places.push_back(&value);
    Prepared &statement = prepared(plan.text);
    if (!statement.input->bind(places, {m_attachment.get(), m_transaction.get()}))
        throw db::DbError(db::ErrorNumber::TypeMismatch,
                          QStringLiteral("A value can't be bound: ") + call.statement);
    Step step{&statement, {}, {}};
    statement.input->metadata()->addRef();
    step.input.reset(statement.input->metadata());
    const auto *const bytes = static_cast<const unsigned char *>(statement.input->buffer());
    step.values.assign(bytes, bytes + step.input->getMessageLength(&m_status));
    m_steps.push_back(std::move(step));
}

void Replay::run()
{
    for (Step &step : m_steps) {
        Prepared &prepared = *step.prepared;
        if (!prepared.hasRows) {
            prepared.statement->execute(&m_status, m_transaction.get(), step.input.get(),
                                        step.values.data(), prepared.output.get(),
                                        prepared.row.data());
            continue;
        }
        Ref<Firebird::IResultSet> cursor(
            prepared.statement->openCursor(&m_status, m_transaction.get(), step.input.get(),
                                           step.values.data(), prepared.output.get(), 0));
        while (cursor->fetchNext(&m_status, prepared.row.data()) == Firebird::IStatus::RESULT_OK) {
        }
        cursor->close(&m_status);
        cursor.take();
    }
}
