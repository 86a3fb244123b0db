#pragma once

#include <QRegularExpression>
#include <QString>
#include <gtest/gtest.h>

namespace test {

/// Checks what becomes of lines of text: each begins at the margin, and indented below it stands
/// what is written for it, in as many lines as the function gives.
template<class Function>
void expectWritten(const char *cases, const Function &written)
{
    static const QRegularExpression nextCase(QStringLiteral("\n(?=\\S)"));
    for (const QString &each : QString::fromLatin1(cases).split(nextCase, Qt::SkipEmptyParts)) {
        const QString given = each.section(u'\n', 0, 0);
        QStringList expected;
        for (const QString &line : each.split(u'\n', Qt::SkipEmptyParts).sliced(1))
            expected += line.trimmed();
        EXPECT_EQ(written(given).toStdString(), expected.join(u'\n').toStdString())
            << qPrintable(given);
    }
}

} // namespace test
