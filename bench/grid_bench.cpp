// What a grid costs at the sizes of a large inventory. A keystroke of a search has to fit between
// two frames of the screen, 16 ms.
#include "platform/base/Environment.h"
#include "platform/db/RowData.h"
#include "platform/grid/GridView.h"

#include <QApplication>
#include <benchmark/benchmark.h>
#include <memory>

namespace {

using namespace Qt::StringLiterals;

/// Parts as the quick find lists them.
db::Recordset parts(int count)
{
    using Fields = std::vector<db::RowLayout::Column>;
    using Storage = db::RowLayout::Storage;
    enum { Number, Name, Quantity, Price, Ordered, Inactive };
    const auto data = std::make_shared<db::RowData>(std::make_shared<db::RowLayout>(
        Fields{{u"Part Number"_s, sql::ColumnKind::Text, Storage::Text},
               {u"Description"_s, sql::ColumnKind::Text, Storage::Text},
               {u"Qty on Hand"_s, sql::ColumnKind::Real, Storage::Real},
               {u"Price"_s, sql::ColumnKind::Money, Storage::Real},
               {u"Ordered"_s, sql::ColumnKind::Date, Storage::Date},
               {u"Inactive"_s, sql::ColumnKind::YesNo, Storage::Integer}}));
    const auto addText = [&data](int column, const QByteArray &text) {
        data->addText(column, text.constData(), static_cast<std::size_t>(text.size()));
    };
    unsigned state = 1;
    for (int row = 0; row < count; ++row) {
        state = state * 1103515245U + 12345U;
        addText(Number, "P-" + QByteArray::number(row).rightJustified(6, '0'));
        addText(Name, "Blade " + QByteArray::number((state >> 8) % 100000) + " for deck");
        data->addReal(Quantity, (state >> 4) % 500);
        data->addReal(Price, ((state >> 6) % 90000) / 100.0);
        data->addInteger(Ordered, 1700000000000LL + (state % 10000) * 86400000LL);
        data->addInteger(Inactive, state % 7 == 0 ? -1 : 0);
        data->endRow();
    }
    return db::Recordset(data);
}

void openGrid(benchmark::State &state)
{
    const db::Recordset rows = parts(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        grid::GridView view;
        view.resize(900, 600);
        view.rows().setRecordset(rows);
        view.rows().addColumn(
            {.name = u"Select"_s, .editable = true, .editor = grid::Editor::Check});
        benchmark::DoNotOptimize(view.grab());
    }
}
BENCHMARK(openGrid)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

/// One more character in the search box: the row is found, selected and painted.
void searchKeystroke(benchmark::State &state)
{
    grid::GridView view;
    view.resize(900, 600);
    view.rows().setRecordset(parts(static_cast<int>(state.range(0))));
    view.show();
    static_cast<void>(view.rows().beginsWith(u"Description", u"x"));
    int typed = 0;
    for (auto _ : state) {
        const QString text = u"blade "_s + QString::number(++typed % 900 + 10);
        view.selectRow(view.rows().find(u"[Description] like '%1*'"_s.arg(text)));
        benchmark::DoNotOptimize(view.grab());
    }
}
BENCHMARK(searchKeystroke)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

/// The first character also sorts the column's texts.
void firstSearchKeystroke(benchmark::State &state)
{
    grid::GridModel rows;
    const db::Recordset recordset = parts(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        state.PauseTiming();
        rows.setRecordset(recordset);
        state.ResumeTiming();
        benchmark::DoNotOptimize(rows.beginsWith(u"Description", u"blade 5"));
    }
}
BENCHMARK(firstSearchKeystroke)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

/// A search that needs the exact value of a number goes through all rows.
void exactNumberSearch(benchmark::State &state)
{
    grid::GridModel rows;
    rows.setRecordset(parts(static_cast<int>(state.range(0))));
    for (auto _ : state)
        benchmark::DoNotOptimize(rows.find(u"[Qty on Hand] = '501'"));
}
BENCHMARK(exactNumberSearch)->Arg(10000)->Unit(benchmark::kMillisecond);

void sortGrid(benchmark::State &state, const char *column)
{
    grid::GridView view;
    view.resize(900, 600);
    view.rows().setRecordset(parts(static_cast<int>(state.range(0))));
    view.show();
    const QString name = QString::fromLatin1(column);
    bool down = false;
    for (auto _ : state) {
        view.sortBy(name, down ? grid::Sort::Descending : grid::Sort::Ascending);
        benchmark::DoNotOptimize(view.grab());
        down = !down;
    }
}
BENCHMARK_CAPTURE(sortGrid, text, "Description")->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(sortGrid, number, "Price")->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(sortGrid, date, "Ordered")
    ->Arg(10000)
    ->Arg(100000)
    ->Unit(benchmark::kMillisecond);

/// A screenful painted again, with a rule that colours every cell.
void paintWithStyleRule(benchmark::State &state)
{
    grid::GridView view;
    view.resize(1300, 700);
    view.rows().setRecordset(parts(10000));
    view.rows().styleRule = [&view](int row, const QString &) {
        return view.rows().value(row, u"Price").toDouble() > 400 ? grid::Style{Qt::white, Qt::red}
                                                                 : grid::Style{};
    };
    view.show();
    for (auto _ : state)
        benchmark::DoNotOptimize(view.grab());
}
BENCHMARK(paintWithStyleRule)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char *argv[])
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
