#pragma once

#include "core/Mode.h"
#include "core/Session.h"

#include <QList>
#include <QStringView>
#include <span>

/// The one list of what can be opened, screens and reports: where it stands in the menus and in the
/// board's tree of reports, the right that it needs, and the name under which its owner joins the
/// function that opens it (core/ui/Openings.h).

enum class OpeningKind {
    Menu,      ///< a menu, which holds entries
    Entry,     ///< a menu's entry
    Separator, ///< a line between entries
    Inner,     ///< stands in no menu: a screen of ours offers it by a button
};

struct Opening
{
    OpeningKind kind;
    const char *object;       ///< the menu object's name, "" for what stands in no menu
    const char *caption;      ///< in the menu, with "&" before a letter that is its key
    const char *parent;       ///< the menu that holds it, "" for the menu bar; it stands before it
    const char *purpose;      ///< one line for the status bar, what it opens
    const char *name;         ///< the form or procedure: what joins, and what is opened
    Mode mode = Mode::Browse; ///< in which the screen of a record opens
    bool Rights::*right = nullptr; ///< the right it needs, null when it is open to all
    const char *boardParent = "";  ///< the heading among the board's reports, "" without one
    const char *boardCaption = ""; ///< its link there, unlike all others
    int boardPlace = 0;            ///< its place there, from 1

    // How a row says the rest: the functions give the row with what they add.
    [[nodiscard]] constexpr Opening opens(const char *procedure, bool Rights::*needed = nullptr,
                                          Mode shown = Mode::Browse) const
    {
        Opening row = *this;
        row.name = procedure;
        row.right = needed;
        row.mode = shown;
        return row;
    }
    [[nodiscard]] constexpr Opening onBoard(const char *heading, int place, const char *link) const
    {
        Opening row = *this;
        row.boardParent = heading;
        row.boardPlace = place;
        row.boardCaption = link;
        return row;
    }
};

/// All rows, the menus' in the order of display.
[[nodiscard]] std::span<const Opening> openingTable();
/// The row of a menu object, null when there is none.
[[nodiscard]] const Opening *menuOpening(QStringView object);
/// The row that opens this form or procedure, the first of several; null when there is none.
[[nodiscard]] const Opening *openingOf(QStringView name);
/// The rows of the board's reports in the board's order, those of one heading together.
[[nodiscard]] QList<const Opening *> boardOpenings();
/// The row of a link on the board, null when there is none.
[[nodiscard]] const Opening *boardOpening(QStringView caption);
