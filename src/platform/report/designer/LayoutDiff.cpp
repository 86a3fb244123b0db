#include "platform/report/designer/LayoutDiff.h"

namespace report {
namespace {

/// All but the bands: page, groups, formulas, styles. It is small beside them and kept whole.
Layout headOf(const Layout &layout)
{
    Layout head = layout;
    head.bands.clear();
    return head;
}

bool isSameBandButObjects(const Band &a, const Band &b)
{
    Band own = a;
    own.objects = b.objects;
    return own == b;
}

/// Bands that stand for each other, so that only their objects need to be compared.
bool haveSameBands(const QList<Band> &from, const QList<Band> &to)
{
    return std::equal(from.cbegin(), from.cend(), to.cbegin(), to.cend(), isSameBandButObjects);
}

} // namespace

LayoutDiff LayoutDiff::between(const Layout &from, const Layout &to)
{
    LayoutDiff diff;
    HeadDiff head{headOf(from), headOf(to)};
    if (head.before != head.after)
        diff.m_head = std::move(head);
    // A band that is added, moved or changed itself: the bands are kept with all their objects,
    // since numbers no longer stand for each other.
    if (!haveSameBands(from.bands, to.bands)) {
        diff.m_bands = ListDiff<Band>::between(from.bands, to.bands);
        return diff;
    }
    for (int band = 0; band < from.bands.size(); ++band)
        if (from.bands[band].objects != to.bands[band].objects)
            diff.m_objects.append({band, ListDiff<Object>::between(from.bands[band].objects,
                                                                   to.bands[band].objects)});
    return diff;
}

void LayoutDiff::apply(Layout &layout, bool forward) const
{
    if (m_head) {
        // Bands are put aside, so that taking the head over doesn't copy them.
        QList<Band> bands = std::move(layout.bands);
        layout = forward ? m_head->after : m_head->before;
        layout.bands = std::move(bands);
    }
    if (m_bands)
        forward ? m_bands->redo(layout.bands) : m_bands->undo(layout.bands);
    for (const ObjectsDiff &diff : m_objects)
        forward ? diff.objects.redo(layout.bands[diff.band].objects)
                : diff.objects.undo(layout.bands[diff.band].objects);
}

} // namespace report
