#include "platform/report/paginate/PageDocument.h"

#include <QStringList>

namespace report {
namespace {

using namespace Qt::StringLiterals;

QString rectText(const QRect &frame)
{
    return u"%1,%2 %3x%4"_s.arg(frame.x()).arg(frame.y()).arg(frame.width()).arg(frame.height());
}

QString itemText(const TextItem &item)
{
    QStringList lines;
    for (const TextLine &line : item.lines)
        lines.append(line.text);
    return u"%1 %2 \"%3\""_s.arg(item.turned ? u"turned"_s : u"text"_s, rectText(item.frame),
                                 lines.join(u"|"_s));
}

QString itemText(const LineItem &item)
{
    return u"line %1,%2 %3,%4"_s.arg(item.from.x())
        .arg(item.from.y())
        .arg(item.to.x())
        .arg(item.to.y());
}

QString itemText(const BoxItem &item)
{
    return u"box %1%2"_s.arg(rectText(item.frame),
                             item.fill.isValid() ? u" "_s + item.fill.name() : QString());
}

QString itemText(const PictureItem &item)
{
    return u"picture %1 %2 bytes"_s.arg(rectText(item.frame)).arg(item.data.size());
}

QString itemText(const BarCodeItem &item)
{
    return u"barcode %1 %2 bars"_s.arg(rectText(item.frame)).arg(item.bars.size());
}

QString itemText(const ShapeItem &item)
{
    return u"shape %1 %2 points%3"_s.arg(rectText(item.frame))
        .arg(item.points.size())
        .arg(item.fill.isValid() ? u" "_s + item.fill.name() : QString());
}

} // namespace

void movePageItem(PageItem &item, QPoint by)
{
    std::visit(
        [by](auto &one) {
            using Item = std::decay_t<decltype(one)>;
            if constexpr (std::is_same_v<Item, LineItem>) {
                one.from += by;
                one.to += by;
            } else {
                one.frame.translate(by);
            }
            // Lines, bars and points have places on the page, not within their frame.
            if constexpr (std::is_same_v<Item, TextItem>)
                for (TextLine &line : one.lines) {
                    line.x += by.x();
                    line.baseline += by.y();
                }
            if constexpr (std::is_same_v<Item, BarCodeItem>)
                for (QRect &bar : one.bars)
                    bar.translate(by);
            if constexpr (std::is_same_v<Item, ShapeItem>)
                for (QPoint &point : one.points)
                    point += by;
        },
        item);
}

QString pageText(const Page &page)
{
    QStringList lines{u"page %1"_s.arg(page.number)};
    for (const PageItem &item : page.items)
        lines.append(
            u"  "_s +
            std::visit([](const auto &alternative) { return itemText(alternative); }, item));
    return lines.join(u'\n') + u'\n';
}

} // namespace report
