#include "platform/report/designer/DesignCanvas.h"
#include "platform/report/designer/DesignDocument.h"
#include "platform/report/designer/ReportDesigner.h"

#include <QApplication>
#include <QMouseEvent>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <malloc.h>
#include <vector>

/// What it costs to drag one object, and half of all, over a sheet of 200, painted at each step, in
/// the whole designer; and how much memory a thousand changes take that can be undone. Each beside
/// its limit.
namespace {

using namespace Qt::StringLiterals;
using namespace report;

constexpr int Objects = 200;
constexpr int Steps = 200;
constexpr int Changes = 1000;

Layout fullSheet()
{
    Band band;
    band.height = 24000;
    for (int number = 0; number < Objects; ++number) {
        Object object;
        object.kind = ObjectKind::Field;
        object.content = u"FieldNumber%1"_s.arg(number);
        object.x = number % 8 * 2400;
        object.y = number / 8 * 900;
        object.width = 2300;
        band.objects.append(object);
    }
    Layout layout;
    layout.bands.append(band);
    return layout;
}

/// The longest and the median step of a drag, in milliseconds of processor time: what else the
/// computer does is left out.
std::pair<double, double> drag(ReportDesigner &designer, int every)
{
    auto *canvas = designer.findChild<DesignCanvas *>(u"canvas"_s);
    designer.setLayout(fullSheet());
    QList<Place> places;
    for (int number = 0; number < Objects; number += every)
        places.append({0, number});
    designer.document().select(Selection::of(places));
    QApplication::processEvents();
    QWidget *sheet = canvas->viewport();
    const QPoint from = canvas->toViewport(0, {500, 200});
    const auto send = [&](QEvent::Type type, QPoint at) {
        const bool isMove = type == QEvent::MouseMove;
        QMouseEvent event(type, at, sheet->mapToGlobal(at), isMove ? Qt::NoButton : Qt::LeftButton,
                          type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, {});
        QApplication::sendEvent(sheet, &event);
    };
    send(QEvent::MouseButtonPress, from);
    std::vector<double> steps;
    for (int step = 1; step <= Steps; ++step) {
        const std::clock_t begin = std::clock();
        send(QEvent::MouseMove, from + QPoint(step, step / 2));
        sheet->repaint();
        steps.push_back(static_cast<double>(std::clock() - begin) * 1000 / CLOCKS_PER_SEC);
    }
    send(QEvent::MouseButtonRelease, from + QPoint(Steps, Steps / 2));
    if (designer.layout() == fullSheet()) {
        std::fprintf(stderr, "Nothing was dragged.\n");
        std::exit(1);
    }
    std::sort(steps.begin(), steps.end());
    return {steps.back(), steps[steps.size() / 2]};
}

double megabytes()
{
    return static_cast<double>(mallinfo2().uordblks) / (1024 * 1024);
}

double memoryOfChanges()
{
    DesignDocument document;
    document.setLayout(fullSheet());
    const double before = megabytes();
    for (int change = 0; change < Changes; ++change)
        document.change(u"Move"_s, [&](Layout &layout, Selection &) {
            layout.bands[0].objects[change % Objects].x += 10;
        });
    return megabytes() - before;
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    ReportDesigner designer;
    designer.resize(1366, 728);
    designer.show();
    QApplication::processEvents();
    const auto [oneWorst, oneMedian] = drag(designer, Objects);
    std::printf("drag 1 of %d objects     median %6.2f ms  longest %6.2f ms  (limit 16)\n", Objects,
                oneMedian, oneWorst);
    const auto [manyWorst, manyMedian] = drag(designer, 2);
    std::printf("drag %d of %d objects   median %6.2f ms  longest %6.2f ms  (limit 16)\n",
                Objects / 2, Objects, manyMedian, manyWorst);
    std::printf("%d changes to undo     %6.1f MB                          (limit 10)\n", Changes,
                memoryOfChanges());
    return 0;
}
