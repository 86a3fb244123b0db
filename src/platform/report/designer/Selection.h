#pragma once

#include <QList>

namespace report {

/// Where an object stands in a layout.
struct Place
{
    int band = -1;
    int object = -1;

    bool operator==(const Place &) const = default;
    bool operator<(Place other) const
    {
        return band != other.band ? band < other.band : object < other.object;
    }
};

/// What is worked on: objects, or one other part of the report.
struct Selection
{
    enum class Part {
        Report,
        Band,
        Objects,
        Group,
        Sort,
        Formula,
        Parameter,
        Query,
        Rows,
        Style,
    };

    Part part = Part::Report;
    int index = -1;         ///< of a part that there are several of
    QList<Place> objects{}; ///< in their order, each once; the last one chosen is in lead
    Place lead{};           ///< the object that others are aligned with

    [[nodiscard]] static Selection of(Part part, int index = -1) { return {part, index, {}, {}}; }
    /// Objects, the last one of them as lead; the whole report when there are none.
    [[nodiscard]] static Selection of(QList<Place> places);
    [[nodiscard]] bool contains(Place place) const { return objects.contains(place); }
    /// The band that is selected, or that of the first object; -1 for none.
    [[nodiscard]] int band() const;
    bool operator==(const Selection &) const = default;
};

} // namespace report
