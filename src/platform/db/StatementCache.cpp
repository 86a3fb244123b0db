#include "platform/db/StatementCache.h"

#include "platform/db/Statement.h"

#include <algorithm>

namespace db {

CachedPlan::CachedPlan() = default;
CachedPlan::~CachedPlan() = default;

CachedPlan *Shape::find(const std::vector<sql::Literal> &literals) const
{
    const auto serves = [&literals](const std::unique_ptr<CachedPlan> &candidate) {
        const std::vector<int> &fixed = candidate->plan.fixedLiterals;
        for (std::size_t i = 0; i < fixed.size(); ++i) {
            if (literals[fixed[i]].value != candidate->fixedValues[i])
                return false;
        }
        return true;
    };
    const auto found = std::find_if(plans.begin(), plans.end(), serves);
    return found == plans.end() ? nullptr : found->get();
}

Shape *StatementCache::find(const QString &key)
{
    const auto found = m_byKey.constFind(key);
    if (found == m_byKey.constEnd())
        return nullptr;
    const auto entry = *found;
    // To the front: what has not been used for longest stands at the back and goes first.
    if (entry != m_entries.begin())
        m_entries.splice(m_entries.begin(), m_entries, entry);
    return &entry->shape;
}

Shape &StatementCache::shape(const QString &key)
{
    if (Shape *found = find(key))
        return *found;
    // A shape without plans is small, but strange texts must not heap up either.
    while (m_entries.size() >= 2 * MaximumPlans) {
        m_planCount -= static_cast<int>(m_entries.back().shape.plans.size());
        m_byKey.remove(m_entries.back().key);
        m_entries.pop_back();
    }
    m_entries.push_front({key, {}});
    m_byKey.insert(key, m_entries.begin());
    return m_entries.front().shape;
}

CachedPlan &StatementCache::add(Shape &shape, std::unique_ptr<CachedPlan> plan)
{
    if (shape.plans.size() >= MaximumPlansOfShape) {
        shape.plans.erase(shape.plans.begin());
        --m_planCount;
    }
    makeRoom(shape);
    shape.plans.push_back(std::move(plan));
    ++m_planCount;
    return *shape.plans.back();
}

void StatementCache::makeRoom(const Shape &kept)
{
    // Never the shape whose plan is just being added: the caller holds it.
    while (m_planCount >= MaximumPlans && &m_entries.back().shape != &kept) {
        m_planCount -= static_cast<int>(m_entries.back().shape.plans.size());
        m_byKey.remove(m_entries.back().key);
        m_entries.pop_back();
    }
}

void StatementCache::clear()
{
    m_byKey.clear();
    m_entries.clear();
    m_planCount = 0;
}

} // namespace db
