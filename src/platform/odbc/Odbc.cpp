#include "platform/odbc/Odbc.h"

#include "platform/base/Error.h"

#include <QDateTime>
#include <QRegularExpression>
#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>
#include <vector>

using namespace Qt::StringLiterals;

namespace odbc {
namespace {

constexpr SQLSMALLINT LongestMessage = 1000; // letters
constexpr SQLLEN LongestValue = 1000;
constexpr SQLULEN LengthOfTime = 19; // yyyy-mm-dd hh:mm:ss

SQLWCHAR *letters(QString &text)
{
    return reinterpret_cast<SQLWCHAR *>(text.data());
}

SQLHANDLE allocated(SQLSMALLINT kind, SQLHANDLE owner)
{
    SQLHANDLE handle = SQL_NULL_HANDLE;
    if (!SQL_SUCCEEDED(SQLAllocHandle(kind, owner, &handle)))
        throw base::Error(base::ErrorNumber::InvalidCall,
                          u"The manager of database drivers (ODBC) can't be used."_s);
    return handle;
}

/// A handle of the driver manager with an owner.
class Handle
{
public:
    Handle(SQLSMALLINT kind, SQLHANDLE owner)
        : m_kind(kind)
        , m_handle(allocated(kind, owner))
    {}
    ~Handle() { SQLFreeHandle(m_kind, m_handle); }
    Handle(const Handle &) = delete;
    Handle &operator=(const Handle &) = delete;

    [[nodiscard]] SQLHANDLE get() const { return m_handle; }
    [[nodiscard]] SQLSMALLINT kind() const { return m_kind; }

private:
    SQLSMALLINT m_kind;
    SQLHANDLE m_handle;
};

/// An integer attribute's value as the driver manager takes it.
SQLPOINTER number(std::uintptr_t value)
{
    return reinterpret_cast<SQLPOINTER>(value);
}

QString driversWords(const Handle &handle)
{
    QStringList texts;
    SQLWCHAR state[6] = {};
    SQLWCHAR text[LongestMessage + 1] = {};
    SQLINTEGER native = 0;
    SQLSMALLINT length = 0;
    for (SQLSMALLINT record = 1; SQL_SUCCEEDED(SQLGetDiagRecW(
             handle.kind(), handle.get(), record, state, &native, text, LongestMessage, &length));
         ++record)
        texts.append(QString::fromUtf16(reinterpret_cast<const char16_t *>(text)).simplified());
    return texts.join(u' ');
}

void require(SQLRETURN result, const Handle &handle, const QString &connectionString)
{
    // A statement that meets no row is no failure.
    if (SQL_SUCCEEDED(result) || result == SQL_NO_DATA)
        return;
    QString words = driversWords(handle);
    // Drivers repeat what they were told, and their words are shown and logged.
    words.replace(connectionString, u"***"_s);
    if (const QString password = passwordOf(connectionString); !password.isEmpty())
        words.replace(password, u"***"_s);
    throw base::Error(base::ErrorNumber::InvalidCall, words);
}

void limitTime(const Handle &statement, int seconds)
{
    SQLSetStmtAttr(statement.get(), SQL_ATTR_QUERY_TIMEOUT,
                   number(static_cast<std::uintptr_t>(seconds)), SQL_IS_UINTEGER);
}

/// A value in the shape in which the driver reads it, for as long as the statement runs.
struct Parameter
{
    QString text;
    SQLINTEGER integer = 0;
    SQL_TIMESTAMP_STRUCT time{};
    SQLLEN length = 0;

    SQLRETURN bind(SQLHANDLE statement, SQLUSMALLINT place, const QVariant &value)
    {
        if (value.typeId() == QMetaType::Int) {
            integer = value.toInt();
            return SQLBindParameter(statement, place, SQL_PARAM_INPUT, SQL_C_SLONG, SQL_INTEGER, 0,
                                    0, &integer, 0, nullptr);
        }
        if (value.typeId() == QMetaType::QDateTime) {
            setTime(value.toDateTime());
            return SQLBindParameter(statement, place, SQL_PARAM_INPUT, SQL_C_TYPE_TIMESTAMP,
                                    SQL_TYPE_TIMESTAMP, LengthOfTime, 0, &time, 0, nullptr);
        }
        text = value.toString();
        // In bytes here, in letters below.
        length = static_cast<SQLLEN>(text.size() * qsizetype{sizeof(SQLWCHAR)});
        const auto room = static_cast<SQLULEN>(std::max<qsizetype>(1, text.size()));
        return SQLBindParameter(statement, place, SQL_PARAM_INPUT, SQL_C_WCHAR, SQL_WVARCHAR, room,
                                0, letters(text), length, &length);
    }

private:
    void setTime(const QDateTime &value)
    {
        const QDate date = value.date();
        const QTime clock = value.time();
        time.year = static_cast<SQLSMALLINT>(date.year());
        time.month = static_cast<SQLUSMALLINT>(date.month());
        time.day = static_cast<SQLUSMALLINT>(date.day());
        time.hour = static_cast<SQLUSMALLINT>(clock.hour());
        time.minute = static_cast<SQLUSMALLINT>(clock.minute());
        time.second = static_cast<SQLUSMALLINT>(clock.second());
    }
};

} // namespace

struct Connection::Handles
{
    // In this order: the connection goes before its environment.
    Handle environment{SQL_HANDLE_ENV, SQL_NULL_HANDLE};
    std::unique_ptr<Handle> connection;
    bool isOpen = false;

    Handles()
    {
        SQLSetEnvAttr(environment.get(), SQL_ATTR_ODBC_VERSION, number(SQL_OV_ODBC3), 0);
        connection = std::make_unique<Handle>(SQL_HANDLE_DBC, environment.get());
    }
    ~Handles()
    {
        if (isOpen)
            SQLDisconnect(connection->get());
    }
    Handles(const Handles &) = delete;
    Handles &operator=(const Handles &) = delete;
};

Connection::Connection(const QString &connectionString, int seconds)
    : m_handles(std::make_unique<Handles>())
    , m_connectionString(connectionString)
    , m_seconds(seconds)
{
    const Handle &connection = *m_handles->connection;
    const SQLPOINTER limit = number(static_cast<std::uintptr_t>(seconds));
    SQLSetConnectAttr(connection.get(), SQL_ATTR_LOGIN_TIMEOUT, limit, SQL_IS_UINTEGER);
    SQLSetConnectAttr(connection.get(), SQL_ATTR_CONNECTION_TIMEOUT, limit, SQL_IS_UINTEGER);
    QString text = connectionString;
    require(SQLDriverConnectW(connection.get(), nullptr, letters(text),
                              static_cast<SQLSMALLINT>(text.size()), nullptr, 0, nullptr,
                              SQL_DRIVER_NOPROMPT),
            connection, m_connectionString);
    m_handles->isOpen = true;
}

Connection::~Connection() = default;

void Connection::execute(const QString &statement, const QVariantList &values)
{
    const Handle handle(SQL_HANDLE_STMT, m_handles->connection->get());
    limitTime(handle, m_seconds);
    // Of their final number at once: the driver keeps the places of the values.
    std::vector<Parameter> parameters(static_cast<std::size_t>(values.size()));
    SQLUSMALLINT place = 0;
    for (Parameter &parameter : parameters) {
        const QVariant &value = values[place++];
        require(parameter.bind(handle.get(), place, value), handle, m_connectionString);
    }
    QString text = statement;
    require(SQLExecDirectW(handle.get(), letters(text), static_cast<SQLINTEGER>(text.size())),
            handle, m_connectionString);
}

QString Connection::firstValue(const QString &query)
{
    const Handle handle(SQL_HANDLE_STMT, m_handles->connection->get());
    limitTime(handle, m_seconds);
    QString text = query;
    require(SQLExecDirectW(handle.get(), letters(text), static_cast<SQLINTEGER>(text.size())),
            handle, m_connectionString);
    const SQLRETURN fetched = SQLFetch(handle.get());
    require(fetched, handle, m_connectionString);
    if (fetched == SQL_NO_DATA)
        return {};
    SQLWCHAR value[LongestValue + 1] = {};
    SQLLEN length = 0;
    require(SQLGetData(handle.get(), 1, SQL_C_WCHAR, value, sizeof value, &length), handle,
            m_connectionString);
    return length == SQL_NULL_DATA ? QString()
                                   : QString::fromUtf16(reinterpret_cast<const char16_t *>(value));
}

QString passwordOf(const QString &connectionString)
{
    static const QRegularExpression pattern(
        u"(?:^|;)\\s*(?:pwd|password)\\s*=\\s*(\\{[^}]*\\}|[^;]*)"_s,
        QRegularExpression::CaseInsensitiveOption);
    QString value = pattern.match(connectionString).captured(1).trimmed();
    if (value.startsWith(u'{') && value.endsWith(u'}'))
        value = value.sliced(1, value.size() - 2);
    return value;
}

} // namespace odbc
