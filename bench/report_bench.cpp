#include "platform/report/layout/LayoutFile.h"
#include "platform/report/render/Export.h"

#include <QElapsedTimer>
#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>
#include <vector>

/// What reports cost, each beside its limit: a thousand one-page work orders to PDF, a list of
/// 100,000 details in two levels of groups, and a history of 200,000 rows with a chart, its first
/// page alone and all to PDF. Prints the median of some rounds and by how much the memory in use
/// grows.
namespace {

using namespace Qt::StringLiterals;
using namespace report;

constexpr int rounds = 3;

constexpr auto ordersLayout = R"x(<report version="1" title="Work orders"><page paper="Letter"/>
  <group name="order" by="WorkorderNo" newPage="yes" resetPageNumber="yes"/>
  <band kind="pageHeader" height="14mm">
    <text name="lblCompanyName" width="120mm" height="8mm" content="Green Acres" size="16" bold="yes"/>
    <text x="130mm" width="60mm" content="Page {PageNumber} of {TotalPages}" align="right"/></band>
  <band kind="groupHeader" group="order" height="40mm">
    <box width="190mm" height="36mm" fill="#f1efe2"/>
    <text x="2mm" y="2mm" width="80mm" content="Work order {WorkorderNo}" size="12" bold="yes"/>
    <barCode x="130mm" y="3mm" width="55mm" height="12mm" content="WorkorderNo"/>
    <text x="2mm" y="12mm" width="80mm" content="Unit {UnitNo}"/>
    <text x="2mm" y="18mm" width="80mm" content="{EquipmentName}"/>
    <text x="2mm" y="24mm" width="80mm" content="{SiteName}"/></band>
  <band kind="detail" height="8mm">
    <field width="30mm" content="PartID"/><field x="32mm" width="80mm" content="Description" canGrow="yes"/>
    <field x="120mm" width="20mm" content="Quantity" align="right"/>
    <field x="145mm" width="40mm" content="Quantity * Price" format="$#,##0.00" align="right"/>
    <line y="7mm" width="190mm" height="0mm"/></band>
  <band kind="groupFooter" group="order" height="20mm">
    <field x="145mm" width="40mm" content="sum(Quantity * Price)" format="$#,##0.00" align="right" bold="yes"/>
    <text y="10mm" width="80mm" content="Done by ______________________"/></band></report>)x";

constexpr auto listLayout = R"x(<report version="1" title="Parts"><page paper="Letter"/>
  <group name="site" by="SiteName"/><group name="order" by="WorkorderNo"/>
  <band kind="pageHeader" height="7mm"><text width="30mm" content="Part" bold="yes"/><text x="32mm" width="80mm" content="Description" bold="yes"/></band>
  <band kind="groupHeader" group="site" height="7mm"><field content="SiteName" bold="yes"/></band>
  <band kind="groupHeader" group="order" height="6mm"><text width="80mm" content="Order {WorkorderNo}"/></band>
  <band kind="detail" height="5mm"><field width="30mm" content="PartID"/><field x="32mm" width="80mm" content="Description"/>
    <field x="120mm" width="20mm" content="Quantity" align="right"/><field x="145mm" width="40mm" content="Price" format="$0.00" align="right"/></band>
  <band kind="groupFooter" group="order" height="6mm"><field x="145mm" width="40mm" content="sum(Price)" format="$0.00" align="right"/></band>
  <band kind="groupFooter" group="site" height="6mm"><field x="145mm" width="40mm" content="sum(Price)" format="$0.00" align="right" bold="yes"/></band>
  <band kind="reportFooter" height="6mm"><field x="145mm" width="40mm" content="sum(Price)" format="$0.00" align="right" bold="yes"/></band>
  <band kind="pageFooter" height="6mm"><text width="190mm" align="right" content="Page {PageNumber} of {TotalPages}"/></band></report>)x";

constexpr auto historyLayout =
    R"x(<report version="2" title="Service history"><page paper="Letter"/>
  <group name="unit" by="UnitNo" repeatHeader="yes"/>
  <band kind="pageHeader" height="14mm"><text name="lblCompanyName" width="120mm" height="8mm" content="Green Acres" size="16" bold="yes"/>
    <text y="9mm" width="30mm" content="Order" bold="yes"/><text x="32mm" y="9mm" width="80mm" content="Description" bold="yes"/></band>
  <band kind="groupHeader" group="unit" height="7mm"><text width="120mm" content="{UnitNo}, {EquipmentName}" bold="yes"/></band>
  <band kind="detail" height="5mm"><field width="30mm" content="WorkorderNo"/><field x="32mm" width="80mm" content="Description" canGrow="yes"/>
    <field x="120mm" width="20mm" content="Quantity" align="right"/><field x="145mm" width="40mm" content="Quantity * Price" format="$#,##0.00" align="right"/></band>
  <band kind="groupFooter" group="unit" height="6mm"><field x="145mm" width="40mm" content="sum(Quantity * Price)" format="$#,##0.00" align="right" border="top"/></band>
  <band kind="reportFooter" height="80mm"><field x="145mm" width="40mm" content="sum(Quantity * Price)" format="$#,##0.00" align="right" bold="yes"/>
    <chart y="8mm" width="190mm" height="70mm" category="SiteName" order="value" most="20" others="yes" format="$#,##0"><series name="Parts" value="Quantity * Price"/></chart></band>
  <band kind="pageFooter" height="6mm"><text width="190mm" align="right" content="Page {PageNumber} of {TotalPages}"/></band></report>)x";

/// Rows that are worked out when they are asked for, so that they take no memory of their own.
class Rows final : public DataSource
{
public:
    Rows(int orders, int ofOrder)
        : m_orders(orders)
        , m_ofOrder(ofOrder)
    {}
    [[nodiscard]] int rowCount() const override { return m_orders * m_ofOrder; }
    [[nodiscard]] int fieldIndex(const QString &name) const override
    {
        return static_cast<int>(QStringList{u"workorderno"_s, u"unitno"_s, u"equipmentname"_s,
                                            u"sitename"_s, u"partid"_s, u"description"_s,
                                            u"quantity"_s, u"price"_s}
                                    .indexOf(name.toLower()));
    }
    [[nodiscard]] QVariant value(int row, int field) const override
    {
        const int order = row / m_ofOrder;
        switch (field) {
        case 0:
            return u"WO-%1"_s.arg(100000 + order);
        case 1:
            return u"M-%1"_s.arg(order % 400);
        case 2:
            return u"Riding mower %1 of the south crew"_s.arg(order % 400);
        case 3:
            return u"Site %1"_s.arg(order / 100, 4, 10, QChar(u'0'));
        case 4:
            return u"P-%1"_s.arg(row % 977);
        case 5:
            return u"Oil filter, size %1, with seal"_s.arg(row % 50);
        case 6:
            return qint64(row % 5 + 1);
        default:
            return (row % 9000) / 100.0;
        }
    }

private:
    int m_orders;
    int m_ofOrder;
};

double megabytesInUse()
{
    QFile status(u"/proc/self/statm"_s);
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    return status.readAll().split(' ').value(1).toDouble() * 4096 / 1e6;
}

struct Seconds
{
    double processor = 0;
    double clock = 0;
};

Seconds medianSeconds(const std::function<void()> &job)
{
    std::vector<double> processor;
    std::vector<double> clock;
    for (int round = 0; round < rounds; ++round) {
        const std::clock_t begin = std::clock();
        QElapsedTimer timer;
        timer.start();
        job();
        processor.push_back(static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC);
        clock.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e9);
    }
    std::ranges::sort(processor);
    std::ranges::sort(clock);
    return {processor[rounds / 2], clock[rounds / 2]};
}

void print(const char *what, const Seconds &seconds, double limit, const QString &more)
{
    std::printf("%-30s %7.3f s (limit %.1f), by clock %7.3f s, %s\n", what, seconds.processor,
                limit, seconds.clock, qPrintable(more));
    std::fflush(stdout);
}

} // namespace

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const QTemporaryDir folder;
    const QString pdf = folder.filePath(u"orders.pdf"_s);
    const Layout orders = readLayout(ordersLayout).layout.value();
    const Layout list = readLayout(listLayout).layout.value();

    (void)exportReport(orders, Rows(100, 6), {}, pdf, ExportFormat::Pdf);
    const double before = megabytesInUse();
    const Seconds pdfTime = medianSeconds(
        [&] { (void)exportReport(orders, Rows(1000, 6), {}, pdf, ExportFormat::Pdf); });
    print("1,000 work orders to PDF", pdfTime, 3,
          u"memory %1 MB over 100 orders"_s.arg(megabytesInUse() - before, 0, 'f', 1));

    int pages = 0;
    const Seconds listTime = medianSeconds(
        [&] { pages = paginate(list, Rows(10'000, 10), {}, [](Page &&) { return true; }).pages; });
    print("100,000 details, two groups", listTime, 5, u"%1 pages counted and made"_s.arg(pages));

    const Layout history = readLayout(historyLayout).layout.value();
    const Rows many(20'000, 10);
    qsizetype items = 0;
    const Seconds firstTime =
        medianSeconds([&] { items = firstPage(history, many, {}).items.size(); });
    print("200,000 rows, first page", firstTime, 0.3, u"%1 items"_s.arg(items));
    const double start = megabytesInUse();
    const Seconds historyTime =
        medianSeconds([&] { (void)exportReport(history, many, {}, pdf, ExportFormat::Pdf); });
    print("200,000 rows to PDF", historyTime, 6,
          u"memory %1 MB (limit 200)"_s.arg(megabytesInUse() - start, 0, 'f', 1));
    return 0;
}
