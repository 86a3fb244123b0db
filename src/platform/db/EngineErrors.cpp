#include "platform/db/EngineErrors.h"

#include "platform/db/Engine.h"

#include <QStringList>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <optional>
#include <vector>

namespace db::engine {
namespace {

using namespace Qt::StringLiterals;

/// The engine's headers have no name for this one.
constexpr ISC_STATUS indexKeyTooBig = 336068726;

/// One message of a status vector.
struct Message
{
    ISC_STATUS code = 0;
    QStringList arguments;
    int systemError = 0;
};

using Messages = std::vector<Message>;

QString fromEngine(const char *text, qsizetype length = -1)
{
    return QString::fromUtf8(text, length < 0 ? static_cast<qsizetype>(std::strlen(text)) : length);
}

Messages messagesOf(const intptr_t *status)
{
    Messages result;
    const auto textAt = [](intptr_t value) { return reinterpret_cast<const char *>(value); };
    for (const intptr_t *item = status; *item != isc_arg_end;) {
        const intptr_t kind = *item++;
        if (kind == isc_arg_gds) {
            if (*item != 0)
                result.push_back({*item, {}, 0});
            ++item;
            continue;
        }
        const bool counted = kind == isc_arg_cstring;
        const intptr_t length = counted ? *item++ : -1;
        const intptr_t value = *item++;
        // An argument without a message before it says nothing.
        if (result.empty())
            continue;
        Message &message = result.back();
        switch (kind) {
        case isc_arg_string:
        case isc_arg_interpreted:
        case isc_arg_cstring:
            message.arguments << fromEngine(textAt(value), length);
            break;
        case isc_arg_number:
            message.arguments << QString::number(value);
            break;
        case isc_arg_unix:
        case isc_arg_win32:
            message.systemError = static_cast<int>(value);
            break;
        default:
            break;
        }
    }
    return result;
}

/// The engine's own words, the fallback for what nobody foresaw.
QString engineText(const intptr_t *status)
{
    std::array<char, 2048> buffer{};
    // Formatting must not raise, so the raw status is used rather than ours.
    Status copy;
    copy.setErrors(status);
    const unsigned length =
        master()->getUtilInterface()->formatStatus(buffer.data(), buffer.size(), &copy);
    return fromEngine(buffer.data(), static_cast<qsizetype>(length)).replace(u"\n-"_s, u"; "_s);
}

/// `"TBLPART"."PRICE"` as the user writes it.
QString plainName(QString name)
{
    return name.remove(u'"').trimmed();
}

class Interpreter
{
public:
    explicit Interpreter(const intptr_t *status)
        : m_status(status)
        , m_messages(messagesOf(status))
    {}

    [[nodiscard]] DbError error() const
    {
        using Reading = std::optional<DbError> (Interpreter::*)() const;
        // A failure of a file or a lock explains the statement's failure that it may have caused.
        static constexpr std::array<Reading, 6> readings = {
            &Interpreter::lockError, &Interpreter::ioError,    &Interpreter::changeOfTableError,
            &Interpreter::nameError, &Interpreter::valueError, &Interpreter::otherError};
        for (const Reading reading : readings) {
            if (auto result = (this->*reading)())
                return *std::move(result);
        }
        return {ErrorNumber::Unspecified, engineText(m_status)};
    }

private:
    [[nodiscard]] const Message *find(std::initializer_list<ISC_STATUS> codes) const
    {
        const auto found =
            std::find_if(m_messages.begin(), m_messages.end(), [&](const Message &m) {
                return std::find(codes.begin(), codes.end(), m.code) != codes.end();
            });
        return found == m_messages.end() ? nullptr : &*found;
    }
    [[nodiscard]] bool has(std::initializer_list<ISC_STATUS> codes) const
    {
        return find(codes) != nullptr;
    }
    /// Names follow the message they belong to, as a message of their own.
    [[nodiscard]] QString nameAfter(const Message *message) const
    {
        const auto *next = message + 1;
        if (!message->arguments.isEmpty())
            return plainName(message->arguments.first());
        if (next == m_messages.data() + m_messages.size() || next->arguments.isEmpty())
            return {};
        return plainName(next->arguments.first());
    }

    /// The operating system's reason for a failure, 0 when there is none. A server sends it as
    /// text.
    [[nodiscard]] int systemError() const
    {
        for (const Message &message : m_messages) {
            if (message.systemError != 0)
                return message.systemError;
            for (const int reason :
                 {ENOENT, ENOTDIR, EACCES, EPERM, EROFS, EISDIR, ENOSPC, EDQUOT, EFBIG}) {
                if (message.arguments.contains(fromEngine(std::strerror(reason))))
                    return reason;
            }
        }
        return 0;
    }

    [[nodiscard]] std::optional<DbError> lockError() const
    {
        if (has({isc_obj_in_use}))
            return DbError(ErrorNumber::LockConflict,
                           u"Another workstation is using this table. Please try again in a "
                           "moment."_s);
        if (has({isc_deadlock, isc_lock_conflict, isc_update_conflict}))
            return DbError(ErrorNumber::LockConflict,
                           u"Another workstation is changing this record. Please try again in a "
                           "moment."_s);
        return std::nullopt;
    }

    [[nodiscard]] std::optional<DbError> ioError() const
    {
        if (const Message *io = find({isc_io_error})) {
            const QString file = io->arguments.value(1);
            if (has({isc_already_opened, isc_file_in_use}))
                return DbError(ErrorNumber::FileInUse,
                               u"The database is in use by another program: %1"_s.arg(file));
            if (const int reason = systemError())
                return fileError(reason, file);
            // An empty or cut file: the engine finds its end where a page should be.
            if (io->arguments.value(0) == u"read"_s)
                return notADatabase();
            return DbError(ErrorNumber::Unspecified,
                           u"The file can't be read or written: %1"_s.arg(file));
        }
        if (const Message *refused = find({isc_no_priv}); refused && isDatabase(*refused))
            return fileError(EACCES, refused->arguments.value(2));
        if (has({isc_transliteration_failed}) && !has({isc_arith_except, isc_dsql_error}))
            return DbError(ErrorNumber::FileAccess,
                           u"The name of the database's file can't be written in the language "
                           "that is set for this session (LC_ALL, LANG)."_s);
        if (has({isc_bad_db_format, isc_wrong_ods, isc_badblk}))
            return notADatabase();
        if (has({isc_db_corrupt, isc_bad_checksum}))
            return DbError(ErrorNumber::NotADatabase, u"The database file is damaged."_s);
        if (has({isc_login}))
            return DbError(ErrorNumber::LoginRefused,
                           u"The database server refused the user name or the password."_s);
        if (const Message *network = find({isc_network_error, isc_net_connect_err}))
            return DbError(
                ErrorNumber::ServerUnreachable,
                u"The database server can't be reached: %1"_s.arg(network->arguments.value(0)));
        if (has({isc_lost_db_connection, isc_net_read_err, isc_net_write_err, isc_att_shutdown,
                 isc_shutdown}))
            return DbError(ErrorNumber::ServerUnreachable,
                           u"The connection to the database server was lost."_s);
        if (has({isc_read_only_database, isc_read_only_trans}))
            return DbError(ErrorNumber::ReadOnly, u"The database can only be read."_s);
        return std::nullopt;
    }

    /// Tells the refusal of a whole file from that of a table.
    [[nodiscard]] static bool isDatabase(const Message &refusal)
    {
        return refusal.arguments.value(1).compare(u"database"_s, Qt::CaseInsensitive) == 0;
    }

    [[nodiscard]] static DbError notADatabase()
    {
        return {ErrorNumber::NotADatabase,
                u"The file is not a database that this program can read."_s};
    }

    [[nodiscard]] std::optional<DbError> changeOfTableError() const
    {
        if (const Message *exists = find({isc_dyn_dup_table}))
            return DbError(ErrorNumber::TableExists,
                           u"Table '%1' already exists."_s.arg(nameAfter(exists)));
        if (const Message *exists = find({isc_dyn_dup_index}))
            return DbError(ErrorNumber::Syntax,
                           u"Table already has an index '%1'."_s.arg(nameAfter(exists)));
        if (has({isc_dyn_index_not_found}))
            return DbError(ErrorNumber::Syntax, u"There is no index of that name."_s);
        if (has({isc_keytoobig, isc_key_too_big, indexKeyTooBig}))
            return DbError(ErrorNumber::Syntax, u"The texts of the index are too long."_s);
        if (const Message *column = find({isc_cannot_make_not_null}))
            return DbError(ErrorNumber::NullNotAllowed,
                           u"The field %1 is empty in some records."_s.arg(nameAfter(column)));
        // A column's name is a key in the engine's own catalogue.
        const Message *key = find({isc_unique_key_violation, isc_no_dup});
        if (key && plainName(key->arguments.value(1)) == u"RDB$RELATION_FIELDS"_s)
            return DbError(ErrorNumber::Syntax, u"A column of that name already exists."_s);
        return std::nullopt;
    }

    [[nodiscard]] std::optional<DbError> nameError() const
    {
        if (const Message *table = find({isc_dsql_relation_err, isc_relnotdef,
                                         isc_dsql_table_not_found, isc_dyn_table_not_found}))
            return DbError(ErrorNumber::TableUnknown,
                           u"The table '%1' can't be found. Make sure that it exists and that its "
                           "name is spelled correctly."_s.arg(nameAfter(table)));
        if (const Message *column = find(
                {isc_dsql_field_err, isc_fldnotdef, isc_fldnotdef2, isc_dyn_column_does_not_exist}))
            return DbError(ErrorNumber::ValueMissing,
                           u"No value given for '%1': it is not the name of a column."_s.arg(
                               nameAfter(column)));
        if (const Message *name = find({isc_dsql_ambiguous_field_name}))
            return DbError(ErrorNumber::Syntax,
                           u"The name '%1' could belong to more than one table."_s.arg(
                               (name + 1)->arguments.value(0)));
        if (const Message *token = find({isc_dsql_token_unk_err, isc_token_err}))
            return DbError(
                ErrorNumber::Syntax,
                u"Syntax error at '%1'."_s.arg((token + 1 == m_messages.data() + m_messages.size())
                                                   ? QString()
                                                   : (token + 1)->arguments.value(0)));
        if (has({isc_command_end_err, isc_command_end_err2}))
            return DbError(ErrorNumber::Syntax, u"Syntax error: the statement ends too early."_s);
        return std::nullopt;
    }

    [[nodiscard]] std::optional<DbError> valueError() const
    {
        if (const Message *key = find({isc_unique_key_violation, isc_no_dup})) {
            const Message *value = find({isc_idx_key_value});
            const QString table = key->code == isc_unique_key_violation
                                      ? u" of table "_s + plainName(key->arguments.value(1))
                                      : QString();
            return DbError(
                ErrorNumber::DuplicateKey,
                u"The change would create a duplicate value in the key%1%2."_s.arg(
                    table,
                    value ? u": "_s + plainName(value->arguments.value(0).remove(u'(').remove(u')'))
                          : QString()));
        }
        if (const Message *null = find({isc_not_valid, isc_not_valid_for_var}))
            return DbError(ErrorNumber::NullNotAllowed, u"The field %1 can't be left empty."_s.arg(
                                                            plainName(null->arguments.value(0))));
        if (has({isc_string_truncation}))
            return DbError(ErrorNumber::TextTooLong,
                           u"The text is too long for the field."_s + lengths());
        if (has({isc_exception_integer_divide_by_zero, isc_exception_float_divide_by_zero}))
            return DbError(ErrorNumber::DivisionByZero, u"Division by zero"_s);
        if (has({isc_numeric_out_of_range, isc_exception_integer_overflow,
                 isc_exception_float_overflow, isc_date_range_exceeded, isc_datetime_range_exceeded,
                 isc_time_range_exceeded}))
            return DbError(ErrorNumber::Overflow, u"Overflow"_s);
        if (const Message *text = find({isc_convert_error}))
            return DbError(
                ErrorNumber::TypeMismatch,
                u"Data type mismatch: '%1' is not a value of the kind that is needed."_s.arg(
                    text->arguments.value(0).remove(u'"')));
        if (has({isc_dsql_datatype_err, isc_datype_notsup, isc_invalid_date_val,
                 isc_invalid_time_val, isc_invalid_timestamp_val}))
            return DbError(ErrorNumber::TypeMismatch, u"Data type mismatch in the statement."_s);
        return std::nullopt;
    }

    [[nodiscard]] std::optional<DbError> otherError() const
    {
        if (has({isc_arith_except}))
            return DbError(ErrorNumber::Overflow, u"Overflow"_s);
        if (has({isc_sing_select_err}))
            return DbError(ErrorNumber::Syntax,
                           u"A query in place of a single value gave more than one row."_s);
        if (has({isc_dsql_agg_ref_err, isc_dsql_agg_where_err, isc_dsql_agg_group_err,
                 isc_dsql_agg_column_err, isc_dsql_agg_having_err, isc_dsql_agg_nested_err}))
            return DbError(ErrorNumber::Syntax,
                           u"The statement mixes totals and single values in a way that has no "
                           "meaning."_s);
        if (has({isc_expression_eval_err}))
            return DbError(ErrorNumber::TypeMismatch, u"Data type mismatch in the statement."_s);
        if (has({isc_dsql_error, isc_imp_exc}))
            return DbError(ErrorNumber::Syntax,
                           u"The statement can't be carried out: "_s + engineText(m_status));
        return std::nullopt;
    }

    [[nodiscard]] QString lengths() const
    {
        const Message *limits = find({isc_trunc_limits});
        if (!limits)
            return {};
        return u" It holds %1 characters; the text has %2."_s.arg(limits->arguments.value(0),
                                                                  limits->arguments.value(1));
    }

    const intptr_t *m_status;
    Messages m_messages;
};

} // namespace

DbError errorFrom(const intptr_t *status)
{
    return Interpreter(status).error();
}

DbError fileError(int systemError, const QString &file)
{
    switch (systemError) {
    case ENOENT:
    case ENOTDIR:
        return {ErrorNumber::FileMissing, u"The file can't be found: %1"_s.arg(file)};
    case EEXIST:
        return {ErrorNumber::FileExists, u"The file exists already: %1"_s.arg(file)};
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
        return {ErrorNumber::FileAccess, u"The file may not be opened or written: %1"_s.arg(file)};
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return {ErrorNumber::DiskFull, u"The disk is full: %1"_s.arg(file)};
    case EWOULDBLOCK:
    case EBUSY:
    case ETXTBSY:
        return {ErrorNumber::FileInUse, u"The file is in use by another program: %1"_s.arg(file)};
    default:
        break;
    }
    return {ErrorNumber::Unspecified,
            u"%1: %2"_s.arg(QString::fromLocal8Bit(std::strerror(systemError)), file)};
}

} // namespace db::engine
