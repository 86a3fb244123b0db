#pragma once

#include "platform/base/Decimal.h"
#include "platform/report/paginate/Paginator.h"
#include "reporting/Preparation.h"
#include "reporting/ReportFiles.h"

#include <QLocale>
#include <gtest/gtest.h>

namespace test {

/// A number as reports print it, with commas.
inline QString grouped(double value, int decimals = 0)
{
    return QLocale(QLocale::English)
        .toString(base::roundedDecimals(value, decimals), 'f', decimals);
}

inline QString dollars(const base::Money &amount)
{
    return u'$' + grouped(amount.toDouble(), 2);
}

inline QString hours(qint64 minutes)
{
    return QStringLiteral("%1:%2").arg(minutes / 60).arg(minutes % 60, 2, 10, QChar(u'0'));
}

/// The minutes of a time such as 1:30; 0 for none.
inline qint64 minutesOf(const QString &worked)
{
    return worked.section(u':', 0, 0).toInt() * 60 + worked.section(u':', 1, 1).toInt();
}

/// What a report prints: the texts that stand on one line, joined by bars.
inline QStringList printed(const catalogue::Request &asked)
{
    const catalogue::Report &report = catalogue::reportOf(asked.layout);
    const catalogue::Prepared ready = catalogue::prepare(
        asked, reportfiles::readDelivered(asked.layout), catalogue::open(report, asked.filter));
    QStringList problems;
    QStringList lines;
    int top = -1;
    for (const report::Page &page :
         report::allPages(ready.layout, *ready.rows, ready.inputs, &problems)) {
        for (const report::PageItem &item : page.items) {
            const auto *text = std::get_if<report::TextItem>(&item);
            if (!text)
                continue;
            QStringList words;
            for (const report::TextLine &line : text->lines)
                words.append(line.text.trimmed());
            if (text->frame.y() == top)
                lines.last() += u'|' + words.join(u' ');
            else
                lines.append(words.join(u' '));
            top = text->frame.y();
        }
        top = -1;
    }
    EXPECT_EQ(problems, QStringList()) << qPrintable(asked.layout);
    return lines;
}

} // namespace test
