#include "platform/report/designer/DesignerActions.h"

#include <QMenuBar>
#include <QToolBar>

namespace report {
namespace {

using namespace Qt::StringLiterals;

/// Stands for the line between two groups.
const QString Gap = u"-"_s;

const QStringList &editing()
{
    static const QStringList names{u"cut"_s, u"copy"_s, u"paste"_s, u"duplicate"_s, u"delete"_s};
    return names;
}

const QStringList &objects()
{
    static const QStringList names{u"insert-text"_s,  u"insert-field"_s,    u"insert-line"_s,
                                   u"insert-box"_s,   u"insert-picture"_s,  u"insert-bar-code"_s,
                                   u"insert-chart"_s, u"insert-cross-tab"_s};
    return names;
}

const QStringList &edges()
{
    static const QStringList names{u"align-left"_s, u"align-center"_s, u"align-right"_s,
                                   u"align-top"_s,  u"align-middle"_s, u"align-bottom"_s};
    return names;
}

const QStringList &gaps()
{
    static const QStringList names{u"distribute-across"_s, u"distribute-down"_s};
    return names;
}

const QStringList &sizes()
{
    static const QStringList names{u"same-width"_s, u"same-height"_s, u"same-size"_s};
    return names;
}

const QStringList &layers()
{
    static const QStringList names{u"to-front"_s, u"to-back"_s};
    return names;
}

const QStringList &order()
{
    static const QStringList names{u"move-up"_s, u"move-down"_s, u"band-above"_s, u"band-below"_s};
    return names;
}

const QStringList &parts()
{
    static const QStringList names{u"add-band"_s, u"add-group"_s, u"add-totals"_s};
    return names;
}

const QStringList &furtherParts()
{
    static const QStringList names{u"add-sort"_s, u"add-formula"_s, u"add-parameter"_s,
                                   u"add-style"_s};
    return names;
}

const QStringList &aids()
{
    static const QStringList names{u"grid"_s, u"line-up"_s, u"inches"_s};
    return names;
}

const QStringList &zooms()
{
    static const QStringList names{u"zoom-out"_s, u"zoom-in"_s, u"zoom-width"_s, u"zoom-100"_s};
    return names;
}

/// Two groups with a line between them, as menus and bars show them.
QStringList operator/(const QStringList &above, const QStringList &below)
{
    return above + QStringList{Gap} + below;
}

} // namespace

void DesignerActions::fill(QWidget *place, const QStringList &names) const
{
    for (const QString &name : names) {
        if (name != Gap) {
            place->addAction(action(name));
            continue;
        }
        auto *gap = new QAction(place);
        gap->setSeparator(true);
        place->addAction(gap);
    }
}

void DesignerActions::fillBar(QToolBar *bar) const
{
    fill(bar, QStringList{u"undo"_s, u"redo"_s} / editing() / objects() /
                  (parts() + QStringList{u"looks"_s}) / edges() / (gaps() + sizes().first(2)) /
                  layers() / aids() / zooms());
}

void DesignerActions::fillMenuBar(QMenuBar *bar) const
{
    const auto add = [&](const QString &title, const QStringList &names) {
        fill(bar->addMenu(title), names);
    };
    add(u"&Edit"_s, QStringList{u"undo"_s, u"redo"_s} / editing() /
                        QStringList{u"selectAll"_s, u"select-column"_s} /
                        QStringList{u"attributes"_s});
    add(u"&Insert"_s, objects() / parts() / furtherParts());
    add(u"Arran&ge"_s,
        edges() / gaps() / sizes() / layers() / order() / QStringList{u"fit-band"_s});
    add(u"Rep&ort"_s, QStringList{u"query"_s, u"looks"_s} / QStringList{u"preview"_s});
    add(u"S&how"_s, zooms() / aids());
}

void DesignerActions::fillMenu(QMenu *menu) const
{
    fill(menu,
         QStringList{u"attributes"_s} / editing() / (QStringList{u"select-column"_s} + layers()) +
             QStringList{Gap});
    fill(menu->addMenu(u"Ali&gn"_s), edges() / gaps() / sizes());
    fill(menu->addMenu(u"Mo&ve"_s), order());
    fill(menu->addMenu(u"&Insert"_s), objects());
    fill(menu->addMenu(u"Add &part"_s), parts() / furtherParts());
    fill(menu, QStringList{u"fit-band"_s});
}

} // namespace report
