#include "platform/db/Recordset.h"

#include "platform/db/Criterion.h"
#include "platform/db/RecordsetOf.h"
#include "platform/sql/Errors.h"
#include "support/Raised.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>

namespace {

using namespace Qt::StringLiterals;
using db::Recordset;
using db::Row;

/// The number of the error that an action raises.
template<class Action>
int errorOf(Action &&action)
{
    return test::raisedBy(action).number();
}

void expectNoCurrentRow(const std::initializer_list<std::function<void()>> &actions)
{
    for (const auto &action : actions)
        EXPECT_EQ(errorOf(action), base::ErrorNumber::NoCurrentRow);
}

/// Four machines; the third has Null everywhere but in its key.
Recordset machines()
{
    using Kind = sql::ColumnKind;
    const auto at = [](QDate date) { return base::wallClock(date, QTime(8, 30)); };
    return test::recordsetOf({{u"EquipmentID"_s, Kind::Integer},
                              {u"Unit No"_s, Kind::Text},
                              {u"Price"_s, Kind::Money},
                              {u"Installed"_s, Kind::Date},
                              {u"Picture"_s, Kind::Binary},
                              {u"Used"_s, Kind::YesNo}},
                             {{1, u"Ax-1"_s, 12.5, at({2024, 3, 15}), "abc", -1},
                              {2, u"17"_s, 0, at({1999, 12, 31}), "abc", 0},
                              {3, {}, {}, {}, {}, {}},
                              {4, u"Größe's [4]"_s, -2.5, at({2024, 3, 16}), "abc", -1}});
}

/// The keys of the rows in their order.
QList<qint64> keys(const Recordset &rows)
{
    QList<qint64> list;
    for (const Row row : rows)
        list.append(row.integer(u"EquipmentID"));
    return list;
}

TEST(Recordset, AnEmptyOneIsAtBothEndsAndHasNoRow)
{
    Recordset none;
    EXPECT_TRUE(none.isEmpty() && none.IsEOF() && none.IsBOF());
    EXPECT_EQ(none.columnCount(), 0);
    EXPECT_EQ(none.columnIndex(u"EquipmentID"), -1);
    expectNoCurrentRow({[&] { (void)none.current(); }, [&] { none.MoveNext(); },
                        [&] { none.MovePrevious(); }, [&] { (void)none.row(0); }});
    EXPECT_TRUE(keys(none).isEmpty());
}

TEST(Recordset, WrongPlacesRaiseErrors)
{
    const Recordset rs = machines();
    expectNoCurrentRow({[&] { (void)rs.value(4, 0); }, [&] { (void)rs.value(-1, 0); }});
    for (const int column : {-1, 6}) {
        for (const auto &action : std::initializer_list<std::function<void()>>{
                 [&] { (void)rs.columnName(column); }, [&] { (void)rs.columnKind(column); },
                 [&] { (void)rs.value(0, column); }, [&] { (void)rs.isNull(0, column); },
                 [&] { (void)rs.row(0)[column]; }, [&] { (void)rs[u"UnitNo"]; }})
            EXPECT_EQ(errorOf(action), base::ErrorNumber::NoSuchItem) << column;
    }
}

TEST(Recordset, CursorMovesBothWaysAndStopsBeyondTheEnds)
{
    Recordset rs = machines();
    EXPECT_EQ(rs.Position(), 0);
    EXPECT_FALSE(rs.IsBOF() || rs.IsEOF());
    rs.MoveLast();
    EXPECT_EQ(rs[u"EquipmentID"], QVariant(4LL));
    rs.MoveNext();
    EXPECT_TRUE(rs.IsEOF());
    expectNoCurrentRow({[&] { rs.MoveNext(); }});
    rs.MoveFirst();
    rs.MovePrevious();
    EXPECT_TRUE(rs.IsBOF());
    expectNoCurrentRow({[&] { (void)rs.current(); }, [&] { rs.MovePrevious(); }});
}

TEST(Recordset, CopiesShareRowsAndHaveTheirOwnPosition)
{
    Recordset rs = machines();
    rs.MoveLast();
    Recordset copy = rs;
    copy.MoveFirst();
    EXPECT_EQ(std::tuple(rs.Position(), copy.Position(), rs.Clone().Position()),
              std::tuple(3, 0, 0));
    // A row outlives the recordset that it came from.
    const Row last = machines().row(3);
    EXPECT_EQ(last.text(u"Unit No"), u"Größe's [4]"_s);
}

TEST(Recordset, WhatIsLeftOutLeavesTheOtherRowsWhole)
{
    const Recordset all = machines();
    const Recordset some = all.without(u"equipmentid", {1, 4, 4711});
    ASSERT_EQ(keys(some), (QList<qint64>{2, 3}));
    for (int column = 0; column < all.columnCount(); ++column) {
        EXPECT_EQ(some.columnName(column), all.columnName(column));
        EXPECT_EQ(some.value(0, column), all.value(1, column)) << column;
        EXPECT_EQ(some.value(1, column), all.value(2, column)) << column;
    }
    EXPECT_EQ(all.without(u"EquipmentID", {}).RecordCount(), 4);
    EXPECT_TRUE(all.without(u"EquipmentID", {1, 2, 3, 4}).IsEOF());
    EXPECT_EQ(keys(all.without(u"Used", {0, -1})), QList<qint64>{3}) << "Null is no key";
    EXPECT_EQ(errorOf([&] { (void)all.without(u"none", {1}); }), base::ErrorNumber::NoSuchItem);
    EXPECT_EQ(keys(all.withoutTexts(u"unit no", {u"GRÖSSE'S [4]"_s, u"größe's [4]"_s})),
              (QList<qint64>{1, 2, 3}));
    EXPECT_EQ(all.withoutTexts(u"Unit No", {}).RecordCount(), 4);
}

TEST(Recordset, IsOrderedByWholeNumbersAndKeepsTheOrderOfEqualRows)
{
    const Recordset all = machines();
    const QList<qint64> byUse{3, 1, 4, 2};
    EXPECT_EQ(keys(all.orderedBy({u"used"})), byUse);
    EXPECT_EQ(keys(all.orderedBy({u"Used", u"EquipmentID"}).orderedBy({})), byUse);
    EXPECT_EQ(errorOf([&] { (void)all.orderedBy({u"none"}); }), base::ErrorNumber::NoSuchItem);
    EXPECT_EQ(all.utf8(0, 1), "Ax-1");
    EXPECT_EQ(all.utf8(2, 1), "") << "Null";
    EXPECT_EQ(all.utf8(0, 0), std::nullopt) << "no text";
}

TEST(Recordset, NamesAreFoundInAnyCaseAndTheFirstOfTwoEqualOnesCounts)
{
    // Many columns, so that places in the table of names collide.
    std::vector<test::Field> columns;
    for (int i = 0; i < 200; ++i)
        columns.push_back({u"Column%1"_s.arg(i), sql::ColumnKind::Integer});
    columns.push_back({u"cOLUMN7"_s, sql::ColumnKind::Integer});
    columns.push_back({u"Größe"_s, sql::ColumnKind::Integer});
    const Recordset rs = test::recordsetOf(columns, {});
    for (int i = 0; i < 200; ++i)
        ASSERT_EQ(rs.columnIndex(u"COLUMN%1"_s.arg(i)), i);
    EXPECT_EQ(rs.columnIndex(u"GRÖßE"), 201);
    EXPECT_EQ(rs.columnIndex(u"Column200"), -1);
    EXPECT_EQ(rs.columnIndex(u""), -1);
}

TEST(Row, GivesEachKindOfValue)
{
    const QDateTime installed = base::wallClock({2024, 3, 15}, {8, 30});
    const Row first = machines().row(0);
    const QVariantList values = {first[u"equipmentid"], first[1],          first[u"PRICE"],
                                 first[u"Installed"],   first[u"Picture"], first[u"Used"]};
    EXPECT_EQ(values, (QVariantList{1LL, u"Ax-1"_s, 12.5, installed, QByteArray("abc"), -1LL}));
    EXPECT_EQ(first.date(u"Installed"), installed);
    EXPECT_TRUE(first.flag(u"Used"));
    EXPECT_EQ(first.text(u"Price"), u"12.5"_s);
    EXPECT_EQ(first.text(u"Used"), u"-1"_s);
    EXPECT_EQ(first.integer(u"Price"), 12);
    EXPECT_EQ(machines().row(3).integer(u"Price"), -2);
    const Row second = machines().row(1);
    EXPECT_EQ(second.integer(u"Unit No"), 17);
    EXPECT_EQ(second.real(u"Unit No"), 17.0);
    EXPECT_FALSE(second.flag(u"Used"));
}

TEST(Row, NullIsEmptyInEveryForm)
{
    const Row row = machines().row(2);
    for (const auto name : {u"Unit No", u"Price", u"Installed", u"Picture", u"Used"}) {
        EXPECT_TRUE(row.isNull(name));
        EXPECT_FALSE(row[name].isValid());
        EXPECT_EQ(row.text(name), QString());
        EXPECT_EQ(row.integer(name), 0);
        EXPECT_EQ(row.real(name), 0);
        EXPECT_FALSE(row.date(name).isValid());
        EXPECT_FALSE(row.flag(name));
    }
    EXPECT_FALSE(row.isNull(u"EquipmentID"));
}

TEST(Row, WhatIsNoNumberOrDateRaisesAndLongKeysKeepTheirDigits)
{
    const Row row = machines().row(0);
    for (const auto name : {u"Unit No", u"Installed", u"Picture"}) {
        EXPECT_EQ(errorOf([&] { (void)row.integer(name); }), base::ErrorNumber::TypeMismatch);
        EXPECT_EQ(errorOf([&] { (void)row.real(name); }), base::ErrorNumber::TypeMismatch);
    }
    EXPECT_EQ(errorOf([&] { (void)row.date(u"Unit No"); }), base::ErrorNumber::TypeMismatch);
    EXPECT_EQ(errorOf([&] { (void)row.date(u"Price"); }), base::ErrorNumber::TypeMismatch);

    const Recordset rs = test::recordsetOf({{u"Key"_s, sql::ColumnKind::Text}},
                                           {{u" 9223372036854775807 "_s}, {u"1e30"_s}});
    EXPECT_EQ(rs.row(0).integer(u"Key"), std::numeric_limits<qint64>::max());
    EXPECT_EQ(errorOf([&] { (void)rs.row(1).integer(u"Key"); }), base::ErrorNumber::Overflow);
}

TEST(Find, VisitsTheRowsThatMeetTheCriterion)
{
    using Case = std::pair<QStringView, std::vector<int>>;
    const Case criteria[] = {
        // Numbers.
        Case{u"EquipmentID = 2", {1}}, Case{u"equipmentid='2'", {1}},
        Case{u"Price <> 12.5", {1, 3}}, Case{u"Price<0", {3}}, Case{u"Price <= 0", {1, 3}},
        Case{u"Price > 0", {0}}, Case{u"Price >= -2.5", {0, 1, 3}},
        // Texts.
        Case{u"[Unit No] = 'AX-1'", {0}}, Case{u"[unit no] = \"ax-1\"", {0}},
        Case{u"[Unit No] = 'grösse''s [4]'", {}}, Case{u"[Unit No] = 'GRÖßE''S [4]'", {3}},
        Case{u"[Unit No] < 'b'", {0, 1}}, Case{u"[Unit No] = 17", {1}},
        Case{u"[Unit No] like 'A*'", {0}}, Case{u"[Unit No] LIKE '*7'", {1}},
        Case{u"[Unit No] like '*x-*'", {0}}, Case{u"[Unit No] like '*'", {0, 1, 3}},
        Case{u"EquipmentID like '?'", {0, 1, 2, 3}},
        // Dates, Yes/No, Null.
        Case{u"Installed >= #03-15-2024#", {0, 3}}, Case{u"Installed = #3/15/2024 8:30 AM#", {0}},
        Case{u"Used = True", {0, 3}}, Case{u"Used = false", {1}}, Case{u"Price = Null", {2}},
        Case{u"Price <> null", {0, 1, 3}}, Case{u"EquipmentID = 99", {}}};
    for (const auto &[criterion, rows] : criteria) {
        Recordset rs = machines();
        std::vector<int> found;
        for (int from = 0; rs.Find(criterion, from); from = rs.Position() + 1)
            found.push_back(rs.Position());
        EXPECT_EQ(found, rows) << criterion.toString().toStdString();
        EXPECT_TRUE(rs.IsEOF());
    }
}

TEST(Find, RefusesWhatIsNoComparison)
{
    Recordset rs = machines();
    for (const auto text :
         {u"", u"EquipmentID", u"EquipmentID =", u"EquipmentID ! 3", u"[Unit No = 'x'",
          u"[Unit No] = 'x", u"Installed = #hello#", u"Installed = #03-15-2024", u"= 3",
          u"EquipmentID = abc", u"EquipmentID = 'a' or EquipmentID = 'b'"}) {
        EXPECT_EQ(errorOf([&] { rs.Find(text); }), sql::ErrorNumber::Syntax)
            << QString::fromUtf16(text).toStdString();
    }
    EXPECT_EQ(errorOf([&] { rs.Find(u"UnitNo = 3"); }), base::ErrorNumber::NoSuchItem);
    EXPECT_EQ(errorOf([&] { rs.Find(u"Price = 'abc'"); }), base::ErrorNumber::TypeMismatch);
    EXPECT_EQ(errorOf([&] { rs.Find(u"Price = #03-15-2024#"); }), base::ErrorNumber::TypeMismatch);
    EXPECT_EQ(errorOf([&] { rs.Find(u"Picture = 'abc'"); }), base::ErrorNumber::TypeMismatch);
}

TEST(FitsPattern, KnowsItsSigns)
{
    using Case = std::tuple<const char16_t *, const char16_t *, bool>;
    const Case cases[] = {
        // Any text, one character.
        Case{u"", u"", true}, Case{u"", u"*", true}, Case{u"a", u"", false},
        Case{u"abc", u"ABC", true}, Case{u"abc", u"a?c", true}, Case{u"ac", u"a?c", false},
        Case{u"abc", u"*b*", true}, Case{u"aab", u"*ab", true}, Case{u"abab", u"*ab", true},
        Case{u"abac", u"*ab", false},
        // Digits and lists.
        Case{u"a1", u"a#", true}, Case{u"ax", u"a#", false}, Case{u"a#", u"a#", false},
        Case{u"b2", u"[a-c]#", true}, Case{u"B2", u"[a-c]#", true}, Case{u"d2", u"[a-c]#", false},
        Case{u"d2", u"[!a-c]#", true}, Case{u"a*", u"a[*]", true}, Case{u"ab", u"a[*]", false},
        Case{u"a", u"[a-c]", true}, Case{u"c", u"[a-c]", true}, Case{u"-", u"[a-]", true},
        Case{u"-", u"[a-c]", false}, Case{u"x", u"[a-cx]", true}, Case{u"0", u"#", true},
        Case{u"9", u"#", true}, Case{u"/", u"#", false}, Case{u":", u"#", false},
        Case{u"a[b", u"a[b", true}, Case{u"x-y", u"x[-]y", true},
        Case{u"mississippi", u"*iss*ppi", true}, Case{u"mississippi", u"*iss*ppo", false}};
    for (const auto &[text, pattern, fits] : cases)
        EXPECT_EQ(db::fitsPattern(text, pattern), fits)
            << QString::fromUtf16(text).toStdString() << " like "
            << QString::fromUtf16(pattern).toStdString();
}

} // namespace
