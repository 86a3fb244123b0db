#include "platform/db/Connection.h"

#include "platform/base/Environment.h"
#include "platform/db/Attachment.h"
#include "platform/db/Catalogue.h"
#include "platform/db/GradualSource.h"
#include "platform/db/Peers.h"
#include "platform/db/Statement.h"
#include "platform/db/StatementCache.h"
#include "platform/sql/Conversion.h"

#include <optional>

namespace db {

using namespace Qt::StringLiterals;

namespace {

/// What comes back; which of it counts depends on the statement.
struct Result
{
    std::shared_ptr<const RowData> rows;
    qint64 changed{};
    qint64 key{};
};

/// An unknown name may be one that another program has just added.
bool isUnknownName(int number)
{
    return number == ErrorNumber::TableUnknown || number == ErrorNumber::ValueMissing;
}

/// The engine holds a parameter to the width of the column that it is compared with, where a
/// literal may be longer or larger and just isn't found.
bool mayComeFromParameters(int number)
{
    return number == ErrorNumber::TextTooLong || number == ErrorNumber::Overflow;
}

/// True for the values that need no conversion, most of them: saves copying them.
bool goesAsItIs(const QVariant &value, const sql::Slot &slot)
{
    if (slot.likePattern || slot.negate || slot.length != 0)
        return false;
    const int type = value.typeId();
    switch (slot.kind) {
    case sql::ColumnKind::Integer:
        return type == QMetaType::LongLong || type == QMetaType::Int;
    case sql::ColumnKind::Real:
    case sql::ColumnKind::Money:
        return type == QMetaType::Double;
    case sql::ColumnKind::Text:
        return type == QMetaType::QString;
    default:
        return false;
    }
}

} // namespace

class Connection::Implementation
{
public:
    explicit Implementation(const Target &target)
        : m_target(target)
        , m_attachment(target)
        , m_peer(engine::identityOf(target), [this] { letGoOfTables(); })
    {}

    template<class Action>
    auto withTables(const Sent &request, Action &&action);
    Result run(const Sent &request);
    Gradual runGradually(const QString &statement);

    void begin();
    void commit();
    void rollback();
    [[nodiscard]] bool inTransaction() const { return static_cast<bool>(m_transaction); }

    const sql::Schema &schema();
    [[nodiscard]] const Target &target() const { return m_target; }
    [[nodiscard]] int preparations() const { return m_preparations; }
    void setObserver(Observer observer) { m_observer = std::move(observer); }

private:
    Result runOnce(const Sent &request);
    Shape &shapeOf(const Sent &request, sql::Lifted &lifted);
    Result runInlined(const Sent &request, const sql::Lifted &lifted, Shape &shape,
                      const std::optional<DbError> &firstError);
    Result runDdl(const sql::Plan &plan);
    std::unique_ptr<CachedPlan> prepared(sql::Plan plan, const sql::Lifted &lifted);
    CachedPlan *prepareLifted(Shape &shape, sql::Plan plan, const sql::Lifted &lifted);
    std::optional<Result> execute(CachedPlan &plan, const sql::Lifted &lifted, const Sent &request);
    bool collectValues(const sql::Plan &plan, const sql::Lifted &lifted,
                       const QVariantList &parameters);
    engine::Context readingContext();
    void letGoOfTables();
    void forgetTables();

    // In this order: statements go before the transactions, and those before the attachment.
    Target m_target;
    engine::Attachment m_attachment;
    engine::Transaction m_reading;     ///< open for as long as the connection
    engine::Transaction m_transaction; ///< the caller's
    std::optional<sql::Schema> m_schema;
    bool m_schemaIsFresh = false; ///< read during the call that is running
    StatementCache m_cache;
    std::vector<const QVariant *> m_values; ///< of the parameters; kept for its memory
    std::vector<QVariant> m_made;           ///< those that differ from what was given
    int m_preparations = 0;
    Observer m_observer;
    Peer m_peer;
};

/// Does something with a statement, once more when the tables were not known as they are.
template<class Action>
auto Connection::Implementation::withTables(const Sent &request, Action &&action)
{
    if (m_peer.tablesHaveChanged())
        forgetTables();
    m_schemaIsFresh = false;
    try {
        if (m_observer)
            m_observer(request);
        try {
            return action();
        } catch (const base::Error &error) {
            if (!isUnknownName(error.number()) || m_schemaIsFresh)
                throw;
        }
        forgetTables();
        return action();
    } catch (const base::Error &error) {
        throw DbError(error.number(), error.description(), request.statement);
    }
}

Result Connection::Implementation::run(const Sent &request)
{
    return withTables(request, [&] { return runOnce(request); });
}

Gradual Connection::Implementation::runGradually(const QString &statement)
{
    const sql::Lifted lifted = sql::lift(statement);
    const std::unique_ptr<CachedPlan> plan =
        prepared(sql::translate(statement, schema(), {{}, true, {}}), lifted);
    const engine::Context context = readingContext();
    if (!plan->statement->hasRows() || !collectValues(plan->plan, lifted, {}) ||
        !plan->statement->bind(m_values, context))
        throw DbError(ErrorNumber::Syntax, u"The statement can't be read bit by bit."_s);
    return Gradual(std::make_unique<Gradual::Source>(std::move(plan->statement), context));
}

/// The shape of a statement, and its literals.
Shape &Connection::Implementation::shapeOf(const Sent &request, sql::Lifted &lifted)
{
    const auto keyOf = [&request](const QString &text) {
        return request.returning.isEmpty() ? text : text + QChar(u'\x1f') + request.returning;
    };
    // Most statements in loops have only parameters: they are known by their text as it is.
    if (Shape *known = m_cache.find(keyOf(request.statement));
        known && known->parametersOfPlainText >= 0) {
        lifted.callerParameters = known->parametersOfPlainText;
        return *known;
    }
    lifted = sql::lift(request.statement);
    Shape &shape = m_cache.shape(keyOf(lifted.key));
    if (lifted.literals.empty())
        shape.parametersOfPlainText = lifted.callerParameters;
    return shape;
}

Result Connection::Implementation::runOnce(const Sent &request)
{
    sql::Lifted lifted;
    Shape &shape = shapeOf(request, lifted);
    if (lifted.callerParameters != request.parameters.size())
        throw DbError(ErrorNumber::ValueMissing,
                      u"No value given for one or more required parameters: the statement has %1, "
                      "%2 were given."_s.arg(lifted.callerParameters)
                          .arg(request.parameters.size()));
    std::optional<DbError> firstError;
    if (!shape.inlineOnly) {
        CachedPlan *plan = shape.find(lifted.literals);
        if (!plan) {
            sql::Plan translated =
                sql::translate(request.statement, schema(), {request.returning, false, {}});
            if (translated.kind == sql::StatementKind::Ddl)
                return runDdl(translated);
            plan = prepareLifted(shape, std::move(translated), lifted);
        }
        try {
            if (plan) {
                if (const auto result = execute(*plan, lifted, request))
                    return *result;
            }
        } catch (const DbError &error) {
            if (!mayComeFromParameters(error.number()) || plan->plan.slots.empty() ||
                plan->plan.kind == sql::StatementKind::Insert)
                throw;
            firstError = error;
        }
    }
    return runInlined(request, lifted, shape, firstError);
}

std::unique_ptr<CachedPlan> Connection::Implementation::prepared(sql::Plan plan,
                                                                 const sql::Lifted &lifted)
{
    auto result = std::make_unique<CachedPlan>();
    result->statement = std::make_unique<engine::Statement>(readingContext(), plan.text, &schema());
    ++m_preparations;
    if (result->statement->parameterCount() != plan.slots.size())
        throw DbError(ErrorNumber::Syntax,
                      u"The statement's parameters could not be told apart."_s);
    for (const auto &[column, name] : plan.longNames)
        result->statement->renameColumn(column, name);
    for (const int literal : plan.fixedLiterals)
        result->fixedValues.push_back(lifted.literals[literal].value);
    result->plan = std::move(plan);
    return result;
}

/// Null when the engine refuses the statement with parameters.
CachedPlan *Connection::Implementation::prepareLifted(Shape &shape, sql::Plan plan,
                                                      const sql::Lifted &lifted)
{
    const bool hasParameters = !plan.slots.empty();
    try {
        return &m_cache.add(shape, prepared(std::move(plan), lifted));
    } catch (const DbError &error) {
        if (!hasParameters || isUnknownName(error.number()))
            throw;
        return nullptr;
    }
}

/// Runs a statement with its literals, and if need be the caller's values, written into its text.
Result Connection::Implementation::runInlined(const Sent &request, const sql::Lifted &lifted,
                                              Shape &shape,
                                              const std::optional<DbError> &firstError)
{
    sql::TranslateOptions options{request.returning, true, {}};
    try {
        Shape &literal =
            m_cache.shape(QChar(u'\x1e') + request.statement + QChar(u'\x1f') + request.returning);
        CachedPlan *plan = literal.find(lifted.literals);
        if (!plan) {
            plan = &m_cache.add(
                literal, prepared(sql::translate(request.statement, schema(), options), lifted));
            // Refused with parameters and accepted without: no need to try again.
            shape.inlineOnly = shape.inlineOnly || shape.plans.empty();
        }
        if (const auto result = execute(*plan, lifted, request))
            return *result;
    } catch (const base::Error &error) {
        if (request.parameters.isEmpty() || isUnknownName(error.number()))
            throw firstError ? *firstError : DbError(error.number(), error.description());
    }
    try {
        options.inlineParameters = request.parameters;
        const auto plan = prepared(sql::translate(request.statement, schema(), options), lifted);
        if (const auto result = execute(*plan, lifted, request))
            return *result;
    } catch (const base::Error &error) {
        throw firstError ? *firstError : DbError(error.number(), error.description());
    }
    throw firstError
        ? *firstError
        : DbError(ErrorNumber::TypeMismatch, u"Data type mismatch in the statement."_s);
}

/// Puts the values of the plan's parameters into m_values. False when one is a pattern that can't
/// be a parameter.
bool Connection::Implementation::collectValues(const sql::Plan &plan, const sql::Lifted &lifted,
                                               const QVariantList &parameters)
{
    m_values.clear();
    m_made.clear();
    // m_values points into it.
    m_made.reserve(plan.slots.size());
    const auto add = [this](QVariant value) {
        m_made.push_back(std::move(value));
        m_values.push_back(&m_made.back());
    };
    for (const sql::Slot &slot : plan.slots) {
        const QVariant *given = nullptr;
        switch (slot.source) {
        case sql::Slot::Source::Now:
            add(base::now());
            continue;
        case sql::Slot::Source::Today:
            add(base::wallClock(base::today()));
            continue;
        case sql::Slot::Source::Caller:
            given = &parameters[slot.index];
            break;
        case sql::Slot::Source::Literal:
            given = &lifted.literals[slot.index].value;
            break;
        }
        if (slot.likePattern) {
            const QString pattern = given->toString();
            if (pattern.contains(u'#') || pattern.contains(u'['))
                return false;
        }
        if (goesAsItIs(*given, slot))
            m_values.push_back(given);
        else
            add(sql::slotValue(*given, slot));
    }
    return true;
}

/// Nothing when the values can't be bound to the plan's parameters.
std::optional<Result> Connection::Implementation::execute(CachedPlan &plan,
                                                          const sql::Lifted &lifted,
                                                          const Sent &request)
{
    if (!collectValues(plan.plan, lifted, request.parameters))
        return std::nullopt;
    engine::Statement &statement = *plan.statement;
    Result result;
    if (statement.hasRows()) {
        const engine::Context context = readingContext();
        if (!statement.bind(m_values, context))
            return std::nullopt;
        result.rows = statement.fetch(context);
        return result;
    }
    engine::Transaction own;
    if (!m_transaction)
        own = engine::Transaction(m_attachment, engine::Transaction::Mode::Write);
    const engine::Context context{m_attachment.get(),
                                  m_transaction ? m_transaction.get() : own.get()};
    if (!statement.bind(m_values, context))
        return std::nullopt;
    result.changed = statement.execute(context);
    if (!request.returning.isEmpty())
        result.key = statement.returned();
    if (own)
        own.commit();
    return result;
}

/// A change of tables commits by itself, also within a transaction: the engine shows it to no
/// statement before.
Result Connection::Implementation::runDdl(const sql::Plan &plan)
{
    letGoOfTables();
    m_peer.askOthersToRelease();
    try {
        for (const QString &statement : plan.ddl)
            m_attachment.executeAlone(statement);
    } catch (const DbError &) {
        // The first of several may have succeeded.
        forgetTables();
        m_peer.tellOthers();
        throw;
    }
    forgetTables();
    m_peer.tellOthers();
    return {};
}

engine::Context Connection::Implementation::readingContext()
{
    if (m_transaction)
        return {m_attachment.get(), m_transaction.get()};
    if (!m_reading)
        m_reading = engine::Transaction(m_attachment, engine::Transaction::Mode::Read);
    return {m_attachment.get(), m_reading.get()};
}

/// The engine counts a table as in use while a statement on it is kept or a transaction that has
/// read it is open.
void Connection::Implementation::letGoOfTables()
{
    m_cache.clear();
    m_reading = {};
}

void Connection::Implementation::forgetTables()
{
    m_cache.clear();
    m_schema.reset();
}

const sql::Schema &Connection::Implementation::schema()
{
    if (!m_schema) {
        m_schema = engine::readCatalogue(readingContext());
        m_schemaIsFresh = true;
    }
    return *m_schema;
}

void Connection::Implementation::begin()
{
    if (m_transaction)
        throw DbError(ErrorNumber::WrongTransactionState,
                      u"A transaction has been started already on this connection."_s);
    m_transaction = engine::Transaction(m_attachment, engine::Transaction::Mode::Write);
}

void Connection::Implementation::commit()
{
    if (!m_transaction)
        throw DbError(ErrorNumber::WrongTransactionState,
                      u"There is no transaction to commit on this connection."_s);
    m_transaction.commit();
}

void Connection::Implementation::rollback()
{
    if (!m_transaction)
        throw DbError(ErrorNumber::WrongTransactionState,
                      u"There is no transaction to roll back on this connection."_s);
    m_transaction.rollback();
}

Connection::Connection(const Target &target)
    : m_implementation(std::make_unique<Implementation>(target))
{}

Connection::~Connection() = default;

Recordset Connection::Open(const QString &statement, const QVariantList &parameters)
{
    Result result = m_implementation->run({statement, parameters, {}});
    return result.rows ? Recordset(std::move(result.rows)) : Recordset();
}

Gradual Connection::OpenGradually(const QString &statement)
{
    const QVariantList none;
    return m_implementation->withTables({statement, none, {}},
                                        [&] { return m_implementation->runGradually(statement); });
}

qint64 Connection::Execute(const QString &statement, const QVariantList &parameters)
{
    return m_implementation->run({statement, parameters, {}}).changed;
}

qint64 Connection::Insert(const QString &statement, const QVariantList &parameters,
                          const QString &keyColumn)
{
    return m_implementation->run({statement, parameters, keyColumn}).key;
}

void Connection::BeginTrans()
{
    m_implementation->begin();
}

void Connection::CommitTrans()
{
    m_implementation->commit();
}

void Connection::RollbackTrans()
{
    m_implementation->rollback();
}

bool Connection::InTransaction() const
{
    return m_implementation->inTransaction();
}

const sql::Schema &Connection::schema()
{
    return m_implementation->schema();
}

int Connection::preparations() const
{
    return m_implementation->preparations();
}

const Target &Connection::target() const
{
    return m_implementation->target();
}

void Connection::setObserver(Observer observer)
{
    m_implementation->setObserver(std::move(observer));
}

} // namespace db
