#pragma once

#include <QString>
#include <QStringList>

namespace report {

/// A query of a layout as a connection takes it: "?" for each parameter, and their names in that
/// order.
struct QueryText
{
    QString statement;
    QStringList parameters;

    bool operator==(const QueryText &) const = default;
};

/// Takes the names off the parameters of a query, "?From" or "?[First day]"; what stands in texts
/// and in brackets is left alone. A "?" without a name has an empty one. Raises a syntax error
/// (base::Error) for a text that is no statement.
[[nodiscard]] QueryText withoutNames(const QString &query);

} // namespace report
