#include "platform/report/designer/DesignDocument.h"

#include "platform/report/designer/LayoutDiff.h"
#include "platform/report/designer/Normalised.h"

#include <QUndoCommand>
#include <algorithm>

namespace report {

/// One change: what differs, and what was selected before and after.
class LayoutCommand final : public QUndoCommand
{
public:
    LayoutCommand(DesignDocument &document, const QString &name, LayoutDiff diff, Selection after,
                  int key)
        : QUndoCommand(name)
        , m_document(document)
        , m_diff(std::move(diff))
        , m_before(document.selection())
        , m_after(std::move(after))
        , m_key(key)
        , m_series(document.m_series)
    {}

    void redo() override
    {
        Layout layout = m_document.layout();
        m_diff.redo(layout);
        m_document.take(layout, m_after);
    }
    void undo() override
    {
        Layout layout = m_document.layout();
        m_diff.undo(layout);
        m_document.take(layout, m_before);
    }
    // Only steps with a key may be merged; the stack never asks those that have -1.
    [[nodiscard]] int id() const override { return m_key == 0 ? -1 : m_key; }
    bool mergeWith(const QUndoCommand *later) override
    {
        const auto *other = dynamic_cast<const LayoutCommand *>(later);
        if (!other || other->m_series != m_series)
            return false;
        // The stack has done the later step already: both are taken back from what is there now,
        // and what differs then is the whole way.
        Layout before = m_document.layout();
        other->m_diff.undo(before);
        m_diff.undo(before);
        m_diff = LayoutDiff::between(before, m_document.layout());
        m_after = other->m_after;
        // Steps that lead back to where they began leave nothing to undo.
        setObsolete(m_diff.isEmpty());
        return true;
    }

private:
    DesignDocument &m_document;
    LayoutDiff m_diff;
    Selection m_before, m_after;
    int m_key;
    int m_series;
};

DesignDocument::DesignDocument(QObject *parent)
    : QObject(parent)
{
    connect(&m_stack, &QUndoStack::cleanChanged, this,
            [this](bool isClean) { Q_EMIT modifiedChanged(!isClean); });
}

void DesignDocument::setLayout(const Layout &layout)
{
    m_stack.clear();
    take(layout, {});
}

bool DesignDocument::change(const QString &name, const Change &change, int key)
{
    // The change works on a copy, which shares all lists that it leaves alone; normalising keeps
    // them shared.
    Layout changed = m_layout;
    Selection selection = m_selection;
    change(changed, selection);
    changed = normalised(std::move(changed));
    LayoutDiff diff = LayoutDiff::between(m_layout, changed);
    // What came of nothing must not stand in the list of what can be undone.
    if (diff.isEmpty()) {
        select(selection);
        return false;
    }
    m_stack.push(new LayoutCommand(*this, name, std::move(diff), std::move(selection), key));
    return true;
}

void DesignDocument::select(const Selection &selection)
{
    Selection there = existing(selection);
    if (there == m_selection)
        return;
    // Steps by key before and after another object was chosen are not one change, even where they
    // bear the same key.
    endSeries();
    m_selection = std::move(there);
    Q_EMIT selectionChanged();
}

void DesignDocument::take(const Layout &layout, const Selection &selection)
{
    m_layout = layout;
    // The layout is told ahead of the selection: whoever hears of a selection may look its objects
    // up.
    const Selection former = m_selection;
    m_selection = existing(selection);
    Q_EMIT layoutChanged();
    if (m_selection != former)
        Q_EMIT selectionChanged();
}

Selection DesignDocument::existing(Selection selection) const
{
    const auto has = [&](qsizetype count) {
        return selection.index >= 0 && selection.index < count;
    };
    bool isThere = true;
    switch (selection.part) {
    case Selection::Part::Report:
    case Selection::Part::Query:
        break;
    case Selection::Part::Sort:
        isThere = has(m_layout.sort.size());
        break;
    case Selection::Part::Band:
        isThere = has(m_layout.bands.size());
        break;
    case Selection::Part::Group:
        isThere = has(m_layout.groups.size());
        break;
    case Selection::Part::Formula:
        isThere = has(m_layout.formulas.size());
        break;
    case Selection::Part::Parameter:
        isThere = has(m_layout.parameters.size());
        break;
    case Selection::Part::Rows:
        isThere = has(m_layout.rowSets.size());
        break;
    case Selection::Part::Style:
        isThere = has(m_layout.styles.size());
        break;
    case Selection::Part::Objects: {
        // Undo may take away what is selected, and so may another part's rename.
        const auto isGone = [&](Place place) {
            return place.band < 0 || place.band >= m_layout.bands.size() || place.object < 0 ||
                   place.object >= m_layout.bands[place.band].objects.size();
        };
        selection.objects.removeIf(isGone);
        if (!selection.objects.isEmpty() && !selection.contains(selection.lead))
            selection.lead = selection.objects.last();
        isThere = !selection.objects.isEmpty();
        break;
    }
    }
    return isThere ? selection : Selection();
}

} // namespace report
