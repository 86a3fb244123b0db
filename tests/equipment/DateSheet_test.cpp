#include "equipment/DateSheet.h"

#include "equipment/Workshop.h"

using namespace Qt::StringLiterals;

namespace {

struct DateSheets : test::Workshop
{
    static void addDated(qint64 id, const QString &column, QDate date)
    {
        addMachine(id, QString::number(id));
        run(u"update tblEquipment set %1 = ? where EquipmentID = ?"_s.arg(column),
            {base::wallClock(date), id});
    }
    static QList<qint64> listed(const datesheet::Sheet &sheet, QDate from, QDate to)
    {
        QList<qint64> ids;
        for (const db::Row row : datesheet::machines(sheet, from, to))
            ids.append(row.integer(u"EquipmentID"));
        return ids;
    }
};

} // namespace

TEST_F(DateSheets, ListTheDatesInTheRangeWithBothEnds)
{
    for (const datesheet::Sheet *sheet : {&datesheet::inspection(), &datesheet::license()}) {
        run(u"delete from tblEquipment"_s);
        addDated(1, sheet->column, {2024, 1, 1});
        addDated(2, sheet->column, {2024, 2, 1});
        addDated(3, sheet->column, {2024, 2, 2});
        addMachine(4, u"without date"_s);
        run(u"update tblEquipment set Inactive = '1' where EquipmentID = 2"_s);
        EXPECT_EQ(listed(*sheet, {2024, 1, 1}, {2024, 2, 1}), (QList<qint64>{1, 2}));
        EXPECT_EQ(listed(*sheet, {2024, 2, 3}, {2024, 12, 31}), QList<qint64>());
        const db::Recordset rows = datesheet::machines(*sheet, {2024, 2, 2}, {2024, 2, 2});
        EXPECT_EQ(rows.row(0).text(u"Select"), u"Add one year");
        // The report takes the same machines.
        EXPECT_EQ(gcnData
                      ->Open(u"Select EquipmentID from tblEquipment"_s +
                             datesheet::filterText(*sheet, {2024, 1, 1}, {2024, 2, 1}))
                      .RecordCount(),
                  2);
    }
}

TEST_F(DateSheets, OnlyALaterDateIsTaken)
{
    const QDateTime old = base::wallClock({2024, 2, 29});
    const QString inspection =
        u"New Inspection date should be greater than old Inspection Date(2/29/2024)."_s;
    const QString license =
        u"New License Renewal Date should be greater than Old License Renewal Date(2/29/2024)."_s;
    EXPECT_EQ(datesheet::refusalOf(datesheet::inspection(), old, old), inspection);
    EXPECT_EQ(datesheet::refusalOf(datesheet::license(), old, old.addDays(-1)), license);
    EXPECT_EQ(datesheet::refusalOf(datesheet::license(), old, old.addDays(1)), QString());
    EXPECT_EQ(datesheet::oneYearLater(old), base::wallClock({2025, 2, 28}));
    EXPECT_EQ(datesheet::oneYearLater(base::wallClock({2023, 2, 28})),
              base::wallClock({2024, 2, 28}));
}
