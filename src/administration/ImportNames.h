#pragma once

#include "administration/ImportColumns.h"
#include "platform/db/Connection.h"

#include <QHash>
#include <array>
#include <optional>
#include <vector>

namespace administration {

/// An entry of a list that a file names and the company lacks.
struct NewEntry
{
    QString list; ///< the heading of its column
    QString name;
    QString under; ///< the name of what it hangs under; empty for nothing

    bool operator==(const NewEntry &) const = default;
    /// "Z900, under Toro".
    [[nodiscard]] QString nameAndPlace() const;
    /// "Model: Z900, under Toro".
    [[nodiscard]] QString text() const;
};

/// The names in the company's lists, each read once, and those that a file adds to them.
class ImportNames
{
public:
    /// Whether a name that is missing is written at once, or gets a number for the time being.
    enum class Adding { Pretend, Write };

    ImportNames(db::Connection &connection, Adding adding)
        : m_connection(connection)
        , m_adding(adding)
    {}

    /// The number of a name in a column's list; a machine's is nothing when there is none, any
    /// other is added. under, underName: what it hangs under, 0 and empty for nothing. Raises
    /// base::Error with a sentence when the name can't be added, DbError.
    [[nodiscard]] std::optional<qint64> number(const ImportColumn &column, const QString &name,
                                               qint64 under, const QString &underName);
    /// What was added, in its order.
    [[nodiscard]] const std::vector<NewEntry> &added() const { return m_added; }
    /// A crew by its number: what its history is written with. Empty for none.
    [[nodiscard]] std::pair<QString, QString> crew(qint64 number) const;

private:
    struct Key
    {
        qint64 parent = 0; ///< the list, or what the entry hangs under
        QString name;      ///< in capitals
        bool operator==(const Key &) const = default;
        friend size_t qHash(const Key &key, size_t seed)
        {
            return qHashMulti(seed, key.parent, key.name);
        }
    };
    using Names = QHash<Key, qint64>;

    /// Read with the first question for the list.
    Names &namesOf(NameList list);
    void read(NameList list, Names &names);
    /// In characters, as the list's column holds them.
    [[nodiscard]] int longestName(NameList list);
    /// Makes an entry with nothing but its name; its number comes back.
    [[nodiscard]] qint64 write(NameList list, qint64 parent, const QString &name);

    db::Connection &m_connection;
    Adding m_adding;
    std::array<std::optional<Names>, 6> m_names;
    QHash<qint64, std::pair<QString, QString>> m_crews;
    std::vector<NewEntry> m_added;
    qint64 m_pretended = 0;
};

} // namespace administration
