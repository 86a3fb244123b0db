#pragma once

#include "platform/db/Gradual.h"
#include "platform/grid/GridView.h"

#include <QTimer>
#include <functional>
#include <optional>

/// Fills a list that is shown with its first rows, and reads the others while the user looks at
/// them. They come from the transaction that is open when show is called, so that whoever ends it
/// meanwhile, by another screen, calls readAll before.
class GradualRows : public QObject
{
    Q_OBJECT

public:
    /// The list must outlive it.
    GradualRows(grid::GridView *list, QObject *parent);

    /// Shows the rows of a query in place of the former ones: its first ones, or all at once.
    /// Raises DbError.
    void show(db::Gradual rows, bool all);
    /// Reads whatever is missing now. Raises DbError.
    void readAll();
    [[nodiscard]] bool isComplete() const { return !m_rows || m_rows->isComplete(); }

Q_SIGNALS:
    /// All rows have come in.
    void completed();

private:
    /// Reads some more rows between two events.
    void readOn();
    void takeIn();

    grid::GridView *m_list;
    std::optional<db::Gradual> m_rows;
    QTimer m_reading;
};
