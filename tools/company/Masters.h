#pragma once

#include "company/Content.h"
#include "company/Plan.h"
#include "company/Random.h"
#include "core/database/RowWriter.h"

#include <QHash>
#include <map>

namespace company::sample {

struct Crew
{
    int id = 0;
    int number = 0;
    QString description;
    double rate = 0; ///< mean hourly labour cost
};

struct Site
{
    int id = 0;
    std::vector<int> locations;
};

struct Part
{
    QString id;
    QString description;
    QString category;
    double price = 0;
    int supplier = 0;
    QString supplierName;
};

struct Supplier
{
    int id = 0;
    QString name;
};

/// The rows that all others refer to: written first, then read by everything.
class Masters
{
public:
    /// Writes sites, crews, cost centers, employees, suppliers, parts and the services of the
    /// catalogue, and keeps what others refer to.
    Masters(Batch &batch, const Content &content, const Plan &plan, QDate today, quint64 seed);

    /// By its number, which must be among those of the table.
    [[nodiscard]] const Crew &crew(int number) const { return m_crews.at(number); }
    [[nodiscard]] const std::vector<Site> &sites() const { return m_sites; }
    [[nodiscard]] const std::vector<Supplier> &suppliers() const { return m_suppliers; }
    /// By the name; raises base::Error NoSuchItem for an unknown one.
    [[nodiscard]] const Supplier &supplier(const QString &name) const;
    /// By the description; 0 for an unknown one.
    [[nodiscard]] int costCenter(const QString &description) const;
    /// The item of that name below a list or item, 0 for an empty name. Raises base::Error
    /// NoSuchItem for an unknown one.
    [[nodiscard]] int item(int parent, const QString &name) const;
    /// Some item directly below a list.
    [[nodiscard]] int anyItem(int list, Random &random) const;
    /// A state by its letters.
    [[nodiscard]] int state(const QString &letters) const;
    /// The part of a family that a kind of machine takes.
    [[nodiscard]] const Part &part(const QString &family, int machineKind) const;
    [[nodiscard]] const std::vector<Part> &parts() const { return m_parts; }

private:
    /// The lookup lists are those of every new database.
    void readItems(db::Connection &connection);
    void writeSites(Batch &batch);
    void writeCrews(Batch &batch);
    void writeCostCenters(Batch &batch);
    void writeEmployees(Batch &batch, QDate today);
    void writeSuppliers(Batch &batch);
    /// Each variant of each family, so many series of them.
    void writeParts(Batch &batch, const Content &content, int series, quint64 seed);
    void writeServices(Batch &batch, const Content &content);

    QHash<QString, int> m_items; ///< key: the parent's number, a slash, the name
    QHash<int, QList<int>> m_children;
    QHash<QString, int> m_siteIds;
    std::vector<Site> m_sites;
    std::map<int, Crew> m_crews; ///< by number
    QHash<QString, int> m_costCenters;
    std::vector<Supplier> m_suppliers;
    std::vector<Part> m_parts;
    QHash<QString, std::vector<int>> m_families; ///< positions in m_parts
};

/// The columns of a service's schedule and their values, as both service tables have them.
[[nodiscard]] QStringList scheduleColumns();
[[nodiscard]] QVariantList scheduleValues(const CatalogueService &service);

/// Two decimals, ties away from zero.
[[nodiscard]] double cents(double amount);

} // namespace company::sample
