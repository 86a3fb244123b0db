#include "platform/report/designer/Remarks.h"

#include "platform/report/designer/Normalised.h"
#include "platform/report/designer/Structure.h"
#include "platform/report/paginate/Compiled.h"

#include <algorithm>

namespace report {
namespace {

using namespace Qt::StringLiterals;

/// The fields of a query, without rows.
class FieldNames final : public DataSource
{
public:
    explicit FieldNames(const QList<DesignField> &fields)
    {
        for (const DesignField &field : fields)
            if (field.isInQuery)
                m_names.append(field.name);
    }
    [[nodiscard]] int rowCount() const override { return 0; }
    [[nodiscard]] int fieldIndex(const QString &name) const override
    {
        // Before the query has run nothing is known of its fields, so each name is taken.
        return m_names.isEmpty() || m_names.contains(name, Qt::CaseInsensitive) ? 0 : -1;
    }
    [[nodiscard]] QVariant value(int, int) const override { return {}; }

private:
    QStringList m_names;
};

/// The part whose text holds what a remark has between quotes.
std::optional<Selection> partWith(const QList<std::pair<QString, Selection>> &texts,
                                  const QString &remark)
{
    // From the first to the last quote: an expression between them may hold quotes itself.
    const QString quoted = remark.section(u'"', 1, -2);
    for (const auto &[text, part] : texts)
        if (!quoted.isEmpty() && text.contains(quoted, Qt::CaseInsensitive))
            return part;
    return std::nullopt;
}

/// The band whose scope an expression has, without its objects.
Band bandOf(const Layout &layout, const Selection &place)
{
    Band band;
    if (const int index = place.band(); index >= 0 && index < layout.bands.size()) {
        band = layout.bands[index];
        band.objects.clear();
        // Faults of the band itself are told at the band.
        band.printIf.clear();
    }
    return band;
}

} // namespace

Labelled labelled(const Layout &layout)
{
    Labelled result;
    result.layout = layout;
    QStringList taken;
    for (const Band &band : layout.bands)
        for (const Object &object : band.objects)
            if (!object.name.isEmpty())
                taken.append(object.name);
    for (int band = 0; band < layout.bands.size(); ++band)
        for (int object = 0; object < layout.bands[band].objects.size(); ++object) {
            Object &named = result.layout.bands[band].objects[object];
            // Remarks name an object; one without a name gets one for the preview alone, by which
            // it is found again.
            if (named.name.isEmpty()) {
                named.name = freeName(
                    u"%1 in %2"_s.arg(objectTitle(named), bandName(layout.bands[band])), taken);
                taken.append(named.name);
            }
            const Selection place = Selection::of({Place{band, object}});
            result.parts.insert(named.name, place);
            if (named.kind == ObjectKind::Picture)
                result.pictures.append({named.content, place});
        }
    for (int band = 0; band < layout.bands.size(); ++band)
        if (const QString &condition = layout.bands[band].printIf; !condition.isEmpty())
            result.conditions.append({condition, Selection::of(Selection::Part::Band, band)});
    const auto add = [&](const auto &list, const QString &word, Selection::Part part) {
        for (int index = 0; index < list.size(); ++index)
            result.parts.insert(word + list[index].name, Selection::of(part, index));
    };
    add(layout.groups, u"group "_s, Selection::Part::Group);
    add(layout.formulas, u"formula "_s, Selection::Part::Formula);
    add(layout.rowSets, u"rows "_s, Selection::Part::Rows);
    return result;
}

std::optional<Selection> partOf(const Labelled &layout, const QString &remark)
{
    QString longest;
    for (auto part = layout.parts.cbegin(); part != layout.parts.cend(); ++part) {
        const QString &label = part.key();
        // One label may begin another one: the longest that fits is meant.
        if (label.size() > longest.size() && remark.contains(label) &&
            (remark.startsWith(label + u": "_s) || remark.startsWith(label + u" ("_s) ||
             remark.startsWith(u"The text of %1 "_s.arg(label))))
            longest = label;
    }
    if (!longest.isEmpty())
        return layout.parts[longest];
    if (remark.startsWith(u"a band's condition: "_s))
        return partWith(layout.conditions, remark);
    if (remark.startsWith(u"The picture "_s))
        return partWith(layout.pictures, remark);
    return std::nullopt;
}

QString faultOf(const QString &text, bool isWords, const Layout &layout, const Selection &place,
                const QList<DesignField> &fields)
{
    if (text.trimmed().isEmpty())
        return {};
    const QString label = u"This"_s;
    Layout single = layout;
    single.bands.clear();
    Object object;
    object.kind = isWords ? ObjectKind::Text : ObjectKind::Field;
    object.name = label;
    object.content = text;
    Band band = bandOf(layout, place);
    band.objects.append(object);
    single.bands.append(band);
    // Names of further rows can't be told before they are read.
    const bool isSub = !band.rows.isEmpty();
    const FieldNames names(isSub ? QList<DesignField>() : fields);
    const compiled::Report report = compiled::compile(single, names, {});
    const QString start = label + u": "_s;
    for (const QString &problem : report.problems) {
        if (problem.startsWith(start))
            return problem.sliced(start.size());
        if (problem.contains(u" of %1 "_s.arg(label)))
            return problem;
    }
    return {};
}

} // namespace report
