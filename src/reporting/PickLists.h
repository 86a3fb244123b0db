#pragma once

#include <QString>

/// The lists that values of a filter are picked from.
namespace picklists {

struct PickList
{
    QString query;   ///< up to its condition
    QString title;   ///< stands above the list
    QString column;  ///< what is picked, as the query names it in a condition
    QString keyword; ///< that begins a condition: the query may have one already
    QString key;     ///< the picked column's heading
    QString keyType;
    QString second; ///< the heading of what it means
    QString order;  ///< by what the rows are sorted
};

[[nodiscard]] const PickList &units();          ///< unit numbers of machines
[[nodiscard]] const PickList &equipmentNames(); ///< names of machines
[[nodiscard]] const PickList &equipmentTypes();
[[nodiscard]] const PickList &crews();
[[nodiscard]] const PickList &sites();
[[nodiscard]] const PickList &suppliers();
[[nodiscard]] const PickList &partCategories();
[[nodiscard]] const PickList &parts();

/// What follows the list's query: the values that a field holds already are left out.
[[nodiscard]] QString condition(const PickList &list, const QString &values);
/// The field's values with those that were picked behind them.
[[nodiscard]] QString withPicked(const QString &values, const QString &picked);

} // namespace picklists
