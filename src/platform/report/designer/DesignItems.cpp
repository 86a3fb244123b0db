#include "platform/report/designer/DesignItems.h"

#include "platform/report/paginate/BandMaker.h"
#include "platform/report/paginate/ChartCollector.h"
#include "platform/report/paginate/Compiled.h"

namespace report {
namespace {

using namespace Qt::StringLiterals;

/// Nothing has a value while a report is designed: expressions are shown as they are written.
class NoNames final : public EvaluationContext
{
public:
    [[nodiscard]] std::optional<QVariant> value(const QString &) const override { return {}; }
    [[nodiscard]] QVariant aggregate(int) const override { return {}; }
};

/// Charts and cross-tabs show the same made-up values everywhere.
class Samples final : public BandContext
{
public:
    [[nodiscard]] QVariant evaluate(const compiled::Value &value) const override
    {
        return value.expression.evaluate(NoNames());
    }
    [[nodiscard]] std::optional<QVariant> lastShown(int) const override { return {}; }
    [[nodiscard]] ChartData chartData(const compiled::Chart &chart) const override
    {
        constexpr int Categories = 4;
        ChartData data;
        for (int category = 0; category < Categories; ++category) {
            const QString label(QChar(static_cast<char16_t>(u'A' + category)));
            data.categories.append({label, label});
        }
        for (const Series &series : chart.layout->series) {
            const int count = series.by.isEmpty() ? 1 : 2;
            for (int number = 1; number <= count; ++number) {
                const auto row = static_cast<int>(data.series.size());
                const QString name =
                    series.name.isEmpty() ? u"Series %1"_s.arg(row + 1) : series.name;
                const bool isOwn = count == 1 && series.color.isValid();
                ChartSeries sample{count > 1 ? QString::number(number) : name,
                                   isOwn ? series.color
                                         : usualSeriesColor(static_cast<std::size_t>(row)),
                                   {}};
                for (int category = 0; category < Categories; ++category)
                    sample.values.append(40 + 25 * ((category * 7 + row * 3) % 5));
                data.series.append(sample);
            }
        }
        return data;
    }
};

class NoRows final : public DataSource
{
public:
    [[nodiscard]] int rowCount() const override { return 0; }
    [[nodiscard]] int fieldIndex(const QString &) const override { return -1; }
    [[nodiscard]] QVariant value(int, int) const override { return {}; }
};

/// Words with their braces doubled, so that the expressions between them are shown and not worked
/// out.
QString literal(QString text)
{
    return text.replace(u'{', u"{{"_s);
}

/// An object that shows itself and not a row's value.
Object shownInDesign(Object object)
{
    object.visibleIf.clear();
    object.conditionalStyles.clear();
    object.hideRepeated = false;
    object.canGrow = false;
    object.name.clear();
    switch (object.kind) {
    case ObjectKind::Field:
        object.kind = ObjectKind::Text;
        object.content = literal(object.content);
        break;
    case ObjectKind::Text:
        object.content = literal(object.content);
        break;
    case ObjectKind::BarCode:
        object.content = u"'1234567890'"_s;
        break;
    case ObjectKind::Picture:
        // A value of the rows has no sample; the canvas shows a frame for it.
        if (object.content.startsWith(u'='))
            object.content = u"=null"_s;
        break;
    case ObjectKind::Chart:
        for (QString *words :
             {&object.chart.title, &object.chart.categoryTitle, &object.chart.valueTitle})
            *words = literal(*words);
        break;
    case ObjectKind::CrossTab:
        object.crossTab.title = literal(object.crossTab.title);
        object.crossTab.rowsTitle = literal(object.crossTab.rowsTitle);
        break;
    case ObjectKind::Line:
    case ObjectKind::Box:
        break;
    }
    return object;
}

} // namespace

const QList<PageItem> &DesignItems::itemsOf(const Layout &layout, int band, int object)
{
    // An object says only the name of its picture; a changed picture shows in nothing else of it.
    if (layout.pictures != m_pictures) {
        m_made.clear();
        m_pictures = layout.pictures;
    }
    const auto bandIndex = static_cast<std::size_t>(band);
    const auto objectIndex = static_cast<std::size_t>(object);
    if (m_made.size() <= bandIndex)
        m_made.resize(bandIndex + 1);
    if (m_made[bandIndex].size() <= objectIndex)
        m_made[bandIndex].resize(objectIndex + 1);
    Made &made = m_made[bandIndex][objectIndex];
    Object atCorner = layout.bands[band].objects[object];
    // Made at the corner and moved when drawn: a drag makes nothing anew.
    atCorner.x = atCorner.y = 0;
    if (!made.isMade || made.object != atCorner) {
        made.items = make(layout, atCorner);
        made.object = std::move(atCorner);
        made.isMade = true;
    }
    return made.items;
}

QList<PageItem> DesignItems::make(const Layout &layout, const Object &object) const
{
    Layout single;
    single.page = layout.page;
    single.pictures = layout.pictures;
    Band band;
    band.height = 0;
    band.objects.append(shownInDesign(object));
    single.bands.append(band);
    Inputs inputs;
    inputs.folder = m_folder;
    const compiled::Report report = compiled::compile(single, NoRows(), inputs);
    QStringList problems;
    const Samples samples;
    return BandMaker(single, samples, inputs, problems).make(report.detail.front()).items;
}

} // namespace report
