#include "core/ui/EmptyText.h"

#include <QLabel>
#include <QVBoxLayout>

void showWhenEmpty(grid::GridView &grid, const QString &words)
{
    auto *label = new QLabel(words, grid.viewport());
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(Qt::AlignCenter);
    label->setWordWrap(true);
    // Clicks belong to the grid.
    label->setAttribute(Qt::WA_TransparentForMouseEvents);
    label->setEnabled(false);
    auto *middle = new QVBoxLayout(grid.viewport());
    middle->addWidget(label);
    const grid::GridModel &rows = grid.rows();
    const auto look = [label, &rows] { label->setVisible(rows.rowCount() == 0); };
    QObject::connect(&rows, &QAbstractItemModel::modelReset, label, look);
    QObject::connect(&rows, &QAbstractItemModel::rowsInserted, label, look);
    QObject::connect(&rows, &QAbstractItemModel::rowsRemoved, label, look);
    look();
}
