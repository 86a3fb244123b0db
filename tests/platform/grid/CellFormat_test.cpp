#include "platform/grid/CellFormat.h"

#include "platform/base/Environment.h"

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;
using grid::Column;
using grid::Editor;
using sql::ColumnKind;

QVariant when(int year, int month, int day, int hour = 0, int minute = 0, int second = 0)
{
    return base::wallClock(QDate(year, month, day), QTime(hour, minute, second));
}

struct Shown
{
    QVariant value;
    const char *format;
    const char *text;
    ColumnKind kind = ColumnKind::Unknown;
};

TEST(CellFormat, ShowsValuesAsTheFormatSays)
{
    const Shown cases[] = {
        // Numbers.
        Shown{1234.5, "0.00", "1234.50"}, Shown{1234.5, "$0.00", "$1234.50"},
        Shown{-3.5, "$0.00", "-$3.50"}, Shown{-0.001, "$0.00", "$0.00"},
        Shown{"12.5", "$0.00", "$12.50"}, Shown{7, "000", "007"},
        Shown{1234567.891, "#,##0.00", "1,234,567.89"}, Shown{999, "#,##0", "999"},
        Shown{0.5, "#.##", ".5"}, Shown{5.0, "0.##", "5"}, Shown{45, "0 %", "45 %"},
        Shown{QVariant(), "$0.00", ""}, Shown{"", "$0.00", ""}, Shown{"none", "$0.00", "none"},
        Shown{0, "$0.00", "$0.00"}, Shown{2.5, "", "2.5"}, Shown{QVariant(qint64(12)), "", "12"},
        // Dates and times.
        Shown{when(2024, 3, 9), "", "03/09/2024", ColumnKind::Date},
        Shown{when(2024, 3, 9), "mm/dd/yyyy", "03/09/2024"},
        Shown{when(2024, 3, 9), "m-d-yy", "3-9-24"},
        Shown{when(2024, 3, 9), "MM/dd/yy", "03/09/24"},
        Shown{when(2024, 3, 9), "d mmm yyyy", "9 Mar 2024"},
        Shown{when(2024, 3, 9, 0, 5), "hh:mm AMPM", "12:05 AM"},
        Shown{when(2024, 3, 9, 12, 0), "hh:mm AMPM", "12:00 PM"},
        Shown{when(2024, 3, 9, 15, 7), "h:mm AM/PM", "3:07 PM"},
        Shown{when(2024, 3, 9, 15, 7, 2), "mm/dd/yyyy hh:mm:ss", "03/09/2024 15:07:02"},
        Shown{when(2024, 3, 9, 15, 7, 2), "hh:nn:ss", "15:07:02"},
        Shown{"13:05", "hh:mm AMPM", "01:05 PM"}, Shown{"8:30", "hh:mm AMPM", "08:30 AM"},
        Shown{"3/9/24", "mm/dd/yyyy", "03/09/2024"}, Shown{"soon", "mm/dd/yyyy", "soon"},
        Shown{"", "hh:mm AMPM", ""}, Shown{QVariant(QDateTime()), "mm/dd/yyyy", ""}};
    for (const Shown &c : cases) {
        EXPECT_EQ(grid::formatted(c.value, QString::fromLatin1(c.format), c.kind).toStdString(),
                  c.text)
            << c.value.toString().toStdString() << " as " << c.format;
    }
}

const Column Masked{.name = u"Qty"_s, .mask = u"{0,99999}.{0,99}"_s};
const Column Interval{.name = u"Interval"_s, .mask = u"{1,99999}"_s};
const Column Whole{.name = u"Count"_s, .kind = ColumnKind::Integer};
const Column Price{.name = u"Price"_s, .kind = ColumnKind::Money};
const Column Day{.name = u"Date"_s, .editor = Editor::Date};
const Column Note{.name = u"Note"_s, .kind = ColumnKind::Text};

TEST(CellFormat, TypedTextsBecomeValuesOfTheColumn)
{
    constexpr std::nullopt_t refused = std::nullopt;
    using Typed = std::tuple<const char *, Column, std::optional<QVariant>>;
    const Typed cases[] = {
        // Numbers.
        Typed{"12", Masked, qint64(12)}, Typed{"12.50", Masked, 12.5}, Typed{"7.", Masked, 7.0},
        Typed{"", Masked, QVariant()}, Typed{".", Masked, QVariant()},
        Typed{"100000", Masked, refused}, Typed{"0", Interval, refused},
        Typed{"30", Interval, qint64(30)}, Typed{"-4", Whole, qint64(-4)},
        Typed{"4.5", Whole, refused}, Typed{"4.25", Price, 4.25}, Typed{".", Price, QVariant()},
        Typed{"1-", Price, refused},
        // Dates and texts.
        Typed{"3/9/24", Day, when(2024, 3, 9)}, Typed{"03-09-2024", Day, when(2024, 3, 9)},
        Typed{" ", Day, QVariant()}, Typed{"03092024", Day, when(2024, 3, 9)},
        Typed{"030924", Day, when(2024, 3, 9)}, Typed{"13452024", Day, refused},
        Typed{"2/30/2024", Day, refused}, Typed{"3/9", Day, refused},
        Typed{"it's", Note, u"it's"_s}, Typed{"", Note, u""_s}};
    for (const auto &[text, column, expected] : cases) {
        const auto value = grid::typedValue(QString::fromLatin1(text), column);
        EXPECT_EQ(value, expected) << text;
        EXPECT_EQ(value.value_or(QVariant()).typeId(), expected.value_or(QVariant()).typeId())
            << text;
    }
}

TEST(CellFormat, RefusesKeystrokesThatLeadNowhere)
{
    using Keystroke = std::tuple<const Column &, const char *, bool>;
    const Keystroke cases[] = {
        Keystroke{Masked, "7.12", true}, Keystroke{Masked, "7.123", false},
        Keystroke{Masked, ".", true}, Keystroke{Price, "-", true}, Keystroke{Price, "1.2.3", false},
        Keystroke{Price, "1e5", false}, Keystroke{Price, "3-", false},
        Keystroke{Whole, "3.", false},
        // No more than what a column holds.
        Keystroke{Price, "-123456789012.55", true}, Keystroke{Price, "1234567890123", false},
        Keystroke{Whole, "-2147483647", true}, Keystroke{Whole, "2147483648", false},
        Keystroke{Day, "3/", true}, Keystroke{Day, "3a", false},
        Keystroke{Day, "03/09/20245", false}, Keystroke{Note, "x", true}};
    for (const auto &[column, text, accepted] : cases)
        EXPECT_EQ(grid::mayBecomeValue(QString::fromLatin1(text), column), accepted)
            << column.name.toStdString() << ": " << text;
}

TEST(CellFormat, TicksAreTrueInAllTheirSpellings)
{
    for (const QVariant &value : {QVariant(true), QVariant(-1), QVariant(qint64(1)),
                                  QVariant(u"1"_s), QVariant(u"-1"_s), QVariant(u"True"_s)})
        EXPECT_TRUE(grid::isTicked(value)) << value.toString().toStdString();
    for (const QVariant &value :
         {QVariant(), QVariant(false), QVariant(0), QVariant(u"0"_s), QVariant(u""_s)})
        EXPECT_FALSE(grid::isTicked(value)) << value.toString().toStdString();
}

} // namespace
