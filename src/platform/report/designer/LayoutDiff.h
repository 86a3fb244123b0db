#pragma once

#include "platform/report/layout/Layout.h"

#include <optional>

namespace report {

/// The part of a list that a change replaces.
template<class Item>
struct ListDiff
{
    qsizetype at = 0;
    QList<Item> before;
    QList<Item> after;

    /// What is alike at the front and the back of both lists is left out.
    [[nodiscard]] static ListDiff between(const QList<Item> &from, const QList<Item> &to);
    /// Turns the list from before into the one after, and back; it must be that one.
    void redo(QList<Item> &list) const { replace(list, before.size(), after); }
    void undo(QList<Item> &list) const { replace(list, after.size(), before); }

private:
    void replace(QList<Item> &list, qsizetype count, const QList<Item> &by) const
    {
        if (count == by.size()) {
            std::copy(by.cbegin(), by.cend(), list.begin() + at);
            return;
        }
        list.remove(at, count);
        for (qsizetype item = 0; item < by.size(); ++item)
            list.insert(at + item, by[item]);
    }
};

/// What differs between two layouts, no more, so that thousands of changes can be kept.
class LayoutDiff
{
public:
    /// Compares objects band by band while the bands are the same, else the bands as a whole.
    [[nodiscard]] static LayoutDiff between(const Layout &from, const Layout &to);
    [[nodiscard]] bool isEmpty() const { return !m_head && !m_bands && m_objects.isEmpty(); }
    /// Turns the first of the two layouts into the second, and back.
    void redo(Layout &layout) const { apply(layout, true); }
    void undo(Layout &layout) const { apply(layout, false); }

private:
    /// Objects of a band that stay as many: those that changed.
    struct ObjectsDiff
    {
        int band = 0;
        ListDiff<Object> objects;
    };
    /// All but the bands, which are many and change most.
    struct HeadDiff
    {
        Layout before, after;
    };

    void apply(Layout &layout, bool forward) const;

    std::optional<HeadDiff> m_head;
    std::optional<ListDiff<Band>> m_bands; ///< when bands came or went, or their attributes changed
    QList<ObjectsDiff> m_objects;
};

template<class Item>
ListDiff<Item> ListDiff<Item>::between(const QList<Item> &from, const QList<Item> &to)
{
    const qsizetype shorter = qMin(from.size(), to.size());
    qsizetype front = 0;
    while (front < shorter && from[front] == to[front])
        ++front;
    qsizetype back = 0;
    while (back < shorter - front && from[from.size() - 1 - back] == to[to.size() - 1 - back])
        ++back;
    return {front, from.mid(front, from.size() - front - back),
            to.mid(front, to.size() - front - back)};
}

} // namespace report
