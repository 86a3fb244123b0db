#include "platform/db/Counters.h"

#include "platform/db/Attachment.h"
#include "platform/db/Statement.h"
#include "platform/sql/EngineTypes.h"

namespace db {
namespace {

using namespace Qt::StringLiterals;

QString textOf(const RowData &rows, int row, int column)
{
    const std::string_view text = rows.text(row, column);
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace

std::vector<Counter> countersOf(const Target &target)
{
    std::vector<Counter> counters;
    engine::Attachment attachment(target);
    {
        engine::Transaction transaction(attachment, engine::Transaction::Mode::Read);
        const engine::Context context{attachment.get(), transaction.get()};
        const auto rows = engine::query(
            context, u"SELECT TRIM(RDB$RELATION_NAME), TRIM(RDB$FIELD_NAME), "
                     "TRIM(RDB$GENERATOR_NAME) FROM RDB$RELATION_FIELDS "
                     "WHERE RDB$IDENTITY_TYPE IS NOT NULL ORDER BY RDB$RELATION_NAME"_s);
        for (int row = 0; row < rows->rowCount(); ++row) {
            // Adding 0 reads the counter and leaves it as it is.
            const auto last =
                engine::query(context, u"SELECT GEN_ID(%1, 0) FROM RDB$DATABASE"_s.arg(
                                           sql::EngineTypes::quotedName(textOf(*rows, row, 2))));
            counters.push_back(
                {textOf(*rows, row, 0), textOf(*rows, row, 1), last->integer(0, 0) + 1});
        }
    }
    // By hand, so that a failure is told and not swallowed by the destructor.
    attachment.detach();
    return counters;
}

} // namespace db
