#include "platform/odbc/Odbc.h"

#include "support/Raised.h"

#include <QDateTime>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

struct Odbc : testing::Test
{
    [[nodiscard]] QString connection(const QString &file = u"store.db"_s) const
    {
        return u"Driver=SQLite3;Database=%1;Uid=reports;Pwd={s3cret word}"_s.arg(
            folder.filePath(file));
    }
    QTemporaryDir folder;
};

} // namespace

TEST_F(Odbc, WritesValuesOfEachKindAsTheyAre)
{
    const QString text = u"It's \u00fc \u6f22 \U0001F33F; drop table t"_s;
    {
        odbc::Connection store(connection());
        store.execute(u"create table t (a integer, b varchar(100), c timestamp, d varchar(9))"_s);
        store.execute(
            u"insert into t (a, b, c, d) values (?, ?, ?, ?)"_s,
            {-7, text, QDateTime(QDate(2024, 3, 15), QTime(9, 30, 5), Qt::UTC), QString()});
    }
    odbc::Connection again(connection());
    EXPECT_EQ(again.firstValue(u"select b from t where a = -7"_s), text);
    EXPECT_TRUE(again.firstValue(u"select cast(c as varchar) from t"_s)
                    .startsWith(u"2024-03-15 09:30:05"_s));
    EXPECT_EQ(again.firstValue(u"select length(d) from t"_s), u"0"_s);
    EXPECT_EQ(again.firstValue(u"select b from t where a = 8"_s), QString());
    EXPECT_EQ(again.firstValue(u"select null from t"_s), QString());
}

TEST_F(Odbc, TellsTheDriversWordsWithoutThePassword)
{
    EXPECT_EQ(odbc::passwordOf(connection()), u"s3cret word"_s);
    EXPECT_EQ(odbc::passwordOf(u"DSN=x; PASSWORD = abc;Port=1"_s), u"abc"_s);
    EXPECT_EQ(odbc::passwordOf(u"DSN=x;OldPwd=abc"_s), QString());
    const auto refused = test::raisedBy(
        [&] { odbc::Connection(connection()).execute(u"insert into [s3cret word] values (1)"_s); });
    EXPECT_TRUE(refused.description().contains(u"no such table: ***"_s)) << refused.what();
    const auto driver =
        test::raisedBy([] { odbc::Connection(u"Driver=NoSuchDriver;Pwd=NoSuchDriver"_s); });
    EXPECT_FALSE(driver.description().isEmpty());
    EXPECT_FALSE(driver.description().contains(u"NoSuchDriver"_s)) << driver.what();
}
