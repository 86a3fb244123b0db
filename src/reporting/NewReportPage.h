#pragma once

#include "platform/report/layout/Layout.h"
#include "reporting/NewReport.h"

/// Where the parts of a new report stand on its pages.
namespace newreport {

/// A field as the report reads it.
struct PageField
{
    QString name; ///< among the query's columns
    QString caption;
    reporttables::Column column;
    bool isTotalled = false;
};

struct PageContent
{
    QString title;
    QList<PageField> columns;
    QList<PageField> groups;
    bool counts = true;
    ChartKind chart = ChartKind::None;
    QString look;
};

/// The width that columns would like to have together.
[[nodiscard]] report::Length naturalWidth(const QList<PageField> &fields);
/// Gives a layout with its page set up its styles, groups, sort and bands. What doesn't fit into
/// one line of columns goes on in further ones.
void layOut(report::Layout &layout, const PageContent &content);

} // namespace newreport
