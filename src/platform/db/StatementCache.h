#pragma once

#include "platform/sql/Translator.h"

#include <QHash>
#include <QString>

#include <list>
#include <memory>
#include <vector>

namespace db {

namespace engine {
class Statement;
}

/// A translated statement and what the engine compiled from it.
struct CachedPlan
{
    CachedPlan();
    ~CachedPlan();

    sql::Plan plan;
    std::vector<QVariant> fixedValues; ///< values of the plan's fixed literals
    std::unique_ptr<engine::Statement> statement;
};

/// The plans of one shape of statement. There are several when some literals have to stand in the
/// text.
struct Shape
{
    std::vector<std::unique_ptr<CachedPlan>> plans;
    /// The engine refuses the shape with parameters.
    bool inlineOnly = false;
    /// How many "?" the statement holds, when it has no literals and so is its own key; otherwise
    /// -1.
    int parametersOfPlainText = -1;

    /// The plan that serves these literals, or null.
    [[nodiscard]] CachedPlan *find(const std::vector<sql::Literal> &literals) const;
};

/// The prepared statements of a connection by the shape of the text; the ones that have not been
/// used for longest give way.
class StatementCache
{
public:
    static constexpr int MaximumPlans = 400;
    static constexpr int MaximumPlansOfShape = 16;

    /// The shape under a key, new when there was none. Holds until the next call.
    Shape &shape(const QString &key);
    /// The shape under a key, or null.
    [[nodiscard]] Shape *find(const QString &key);
    /// Adds a plan to a shape of this cache.
    CachedPlan &add(Shape &shape, std::unique_ptr<CachedPlan> plan);
    /// Forgets all plans: they hold only as long as the tables that they were made for.
    void clear();
    [[nodiscard]] int planCount() const { return m_planCount; }

private:
    struct Entry
    {
        QString key;
        Shape shape;
    };
    /// Drops the shapes that have not been used for longest until there is room for a plan, but
    /// never the kept one.
    void makeRoom(const Shape &kept);

    std::list<Entry> m_entries; ///< the latest used first
    QHash<QString, std::list<Entry>::iterator> m_byKey;
    int m_planCount = 0;
};

} // namespace db
