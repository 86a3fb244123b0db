#pragma once

#include <QFile>
#include <gtest/gtest.h>

namespace test {

/// Spoils rows in the middle of a database file, in some of its last pages of rows: it still begins
/// and ends like a database, and opens.
inline void spoilRows(const QString &path, int pages = 24)
{
    constexpr qint64 pageSize = 8192;
    constexpr char rowsPage = 5;
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    for (qint64 page = file.size() / pageSize - 1; page > 0 && pages > 0; --page) {
        file.seek(page * pageSize);
        char kind = 0;
        if (!file.getChar(&kind) || kind != rowsPage)
            continue;
        file.seek(page * pageSize + 20);
        file.write(QByteArray(100, 'Z'));
        --pages;
    }
    ASSERT_EQ(pages, 0);
}

} // namespace test
