#pragma once

#include "platform/report/paginate/Paginator.h"
#include "reporting/Preparation.h"
#include "reporting/ReportFiles.h"

#include <gtest/gtest.h>

namespace test {

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
