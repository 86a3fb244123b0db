#pragma once

#include "platform/report/layout/LayoutFile.h"
#include "platform/report/paginate/DataSource.h"
#include "platform/report/paginate/Paginator.h"
#include "platform/report/paginate/Tabulator.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace report {

/// Rows written out by hand.
class Rows : public DataSource
{
public:
    Rows(QStringList fields, QList<QVariantList> rows)
        : m_fields(std::move(fields))
        , m_rows(std::move(rows))
    {}

    [[nodiscard]] int rowCount() const override { return static_cast<int>(m_rows.size()); }
    [[nodiscard]] int fieldIndex(const QString &name) const override
    {
        const auto isIt = [&](const QString &field) {
            return field.compare(name, Qt::CaseInsensitive) == 0;
        };
        const auto found = std::find_if(m_fields.cbegin(), m_fields.cend(), isIt);
        return found == m_fields.cend() ? -1 : static_cast<int>(found - m_fields.cbegin());
    }
    [[nodiscard]] QVariant value(int row, int field) const override { return m_rows[row][field]; }

private:
    QStringList m_fields;
    QList<QVariantList> m_rows;
};

/// A layout written in its file's form; the test fails when it can't be read without a warning.
inline Layout layoutOf(const QByteArray &text)
{
    const LayoutReading reading = readLayout(text);
    EXPECT_TRUE(reading.layout.has_value()) << reading.error.toStdString();
    EXPECT_TRUE(reading.warnings.isEmpty()) << reading.warnings.join(u'\n').toStdString();
    return reading.layout.value_or(Layout());
}

/// What a page has of one kind, in its order.
template<class Item>
QList<Item> itemsOf(const Page &page)
{
    QList<Item> found;
    for (const PageItem &item : page.items)
        if (const auto *one = std::get_if<Item>(&item))
            found.append(*one);
    return found;
}

/// The lines of a page's texts, parted by blanks.
inline QString wordsOf(const Page &page)
{
    QStringList words;
    for (const TextItem &text : itemsOf<TextItem>(page))
        for (const TextLine &line : text.lines)
            words.append(line.text);
    return words.join(u' ');
}

/// The words of all pages, which are parted by " / ". The test fails on a problem, unless the
/// caller takes them.
inline std::string pageWords(const Layout &layout, const DataSource &rows,
                             const Inputs &inputs = {}, QStringList *problems = nullptr)
{
    QStringList pages;
    QStringList told;
    for (const Page &page : allPages(layout, rows, inputs, problems ? problems : &told))
        pages.append(wordsOf(page));
    EXPECT_EQ(told, QStringList());
    return pages.join(u" / ").toStdString();
}

/// What charts show, as they stand in tables: cells parted by blanks, lines by "|", charts by "/".
inline std::string chartTables(const Layout &layout, const DataSource &rows,
                               const Inputs &inputs = {})
{
    QStringList charts;
    const Outcome outcome = tabulate(layout, rows, inputs, [&](const TableBand &band) {
        for (const TableGrid &grid : band.grids) {
            QString chart = grid.title;
            for (const QVariantList &row : grid.rows) {
                QStringList cells;
                for (const QVariant &cell : row)
                    cells.append(cell.isNull() ? QStringLiteral("-") : cell.toString());
                chart += u'|' + cells.join(u' ');
            }
            charts.append(chart);
        }
        return true;
    });
    EXPECT_EQ(outcome.problems, QStringList());
    return charts.join(u" / ").toStdString();
}

/// What is told while a report is laid out, which has a page nevertheless.
inline QStringList problemsOf(const Layout &layout, const DataSource &rows,
                              const Inputs &inputs = {})
{
    QStringList problems;
    EXPECT_FALSE(allPages(layout, rows, inputs, &problems).isEmpty());
    return problems;
}

/// Each of these parts is told by one of the problems.
inline void expectTold(const QStringList &problems, const QStringList &parts)
{
    for (const QString &part : parts)
        EXPECT_EQ(problems.filter(part).size(), 1) << qPrintable(part) << " in\n"
                                                   << qPrintable(problems.join(u'\n'));
}

} // namespace report
