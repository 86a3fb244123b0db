#include "platform/db/DbError.h"

namespace db {

DbError::DbError(int number, QString description, QString statement)
    : Error(number, std::move(description))
    , m_statement(std::move(statement))
{}

} // namespace db
