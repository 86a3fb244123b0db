#include "platform/report/viewer/PageStore.h"

#include <QDataStream>
#include <QIODevice>

namespace report {
namespace {

/// More than a window shows at the smallest zoom a user reads at; all of a year's history would
/// fill the memory.
constexpr int UnpackedPages = 16;

/// The index of a value in a list, where it is added when it is new. The last ones come first,
/// since what was used a moment ago is used again.
template<class Value>
qint32 indexOf(QList<Value> &list, const Value &value)
{
    const qsizetype found = list.lastIndexOf(value);
    if (found >= 0)
        return static_cast<qint32>(found);
    list.append(value);
    return static_cast<qint32>(list.size() - 1);
}

/// Writes an item; styles and pictures by their numbers, since pages share them.
class Packer
{
public:
    Packer(QDataStream &out, QList<Style> &styles, QList<QByteArray> &pictures)
        : m_out(out)
        , m_styles(styles)
        , m_pictures(pictures)
    {}

    void operator()(const TextItem &item)
    {
        m_out << item.frame << item.turned << indexOf(m_styles, item.style)
              << qint32(item.lines.size());
        for (const TextLine &line : item.lines)
            m_out << line.text << line.x << line.baseline << line.width;
    }
    void operator()(const LineItem &item)
    {
        m_out << item.from << item.to << item.width << item.color;
    }
    void operator()(const BoxItem &item)
    {
        m_out << item.frame << item.lineWidth << item.color << item.fill;
    }
    void operator()(const PictureItem &item)
    {
        m_out << item.frame << indexOf(m_pictures, item.data) << qint32(item.align);
    }
    void operator()(const BarCodeItem &item) { m_out << item.frame << item.bars; }
    void operator()(const ShapeItem &item)
    {
        m_out << item.frame << item.points << item.closed << item.lineWidth << item.color
              << item.fill;
    }

private:
    QDataStream &m_out;
    QList<Style> &m_styles;
    QList<QByteArray> &m_pictures;
};

/// Reads what the packer has written, in the same order.
class Unpacker
{
public:
    Unpacker(QDataStream &in, const QList<Style> &styles, const QList<QByteArray> &pictures)
        : m_in(in)
        , m_styles(styles)
        , m_pictures(pictures)
    {}

    void operator()(TextItem &item)
    {
        qint32 style = 0;
        qint32 lines = 0;
        m_in >> item.frame >> item.turned >> style >> lines;
        item.style = m_styles.at(style);
        for (qint32 count = 0; count < lines; ++count) {
            TextLine line;
            m_in >> line.text >> line.x >> line.baseline >> line.width;
            item.lines.append(std::move(line));
        }
    }
    void operator()(LineItem &item) { m_in >> item.from >> item.to >> item.width >> item.color; }
    void operator()(BoxItem &item)
    {
        m_in >> item.frame >> item.lineWidth >> item.color >> item.fill;
    }
    void operator()(PictureItem &item)
    {
        qint32 picture = 0;
        qint32 align = 0;
        m_in >> item.frame >> picture >> align;
        item.data = m_pictures.at(picture);
        item.align = static_cast<Align>(align);
    }
    void operator()(BarCodeItem &item) { m_in >> item.frame >> item.bars; }
    void operator()(ShapeItem &item)
    {
        m_in >> item.frame >> item.points >> item.closed >> item.lineWidth >> item.color >>
            item.fill;
    }

private:
    QDataStream &m_in;
    const QList<Style> &m_styles;
    const QList<QByteArray> &m_pictures;
};

/// An empty item of the alternative with this number.
template<std::size_t... Numbers>
PageItem emptyItem(std::size_t number, std::index_sequence<Numbers...>)
{
    PageItem item;
    ((number == Numbers ? void(item.emplace<Numbers>()) : void()), ...);
    return item;
}

} // namespace

PageStore::PageStore()
    : m_unpacked(UnpackedPages)
{}

QByteArray PageStore::packed(const Page &page)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    Packer packer(out, m_styles, m_pictures);
    out << page.number << qint32(page.items.size());
    for (const PageItem &item : page.items) {
        out << quint8(item.index());
        std::visit(packer, item);
    }
    // The fastest: the packing goes along with the laying out.
    return qCompress(bytes, 1);
}

void PageStore::append(const Page &page)
{
    const QMutexLocker lock(&m_mutex);
    QByteArray bytes = packed(page);
    // The real first page takes the place of the one that stood in for it.
    if (std::exchange(m_isProvisional, false)) {
        m_packed.back() = std::move(bytes);
        // Only noted: the reader's thread owns the unpacked pages, and this is another one.
        m_firstIsStale = true;
    } else {
        m_packed.push_back(std::move(bytes));
    }
}

void PageStore::appendProvisional(const Page &page)
{
    append(page);
    const QMutexLocker lock(&m_mutex);
    m_isProvisional = true;
}

void PageStore::clear()
{
    const QMutexLocker lock(&m_mutex);
    m_packed.clear();
    m_styles.clear();
    m_pictures.clear();
    m_unpacked.clear();
    m_isProvisional = false;
    m_firstIsStale = false;
}

int PageStore::count() const
{
    const QMutexLocker lock(&m_mutex);
    return static_cast<int>(m_packed.size());
}

const Page &PageStore::page(int index) const
{
    const QMutexLocker lock(&m_mutex);
    if (std::exchange(m_firstIsStale, false))
        m_unpacked.remove(0);
    if (const Page *known = m_unpacked.object(index))
        return *known;
    // The cache may drop a page at any time, so the one that goes out is looked up again.
    m_unpacked.insert(index, unpacked(m_packed.at(static_cast<std::size_t>(index))).release());
    return *m_unpacked.object(index);
}

std::unique_ptr<Page> PageStore::unpacked(const QByteArray &packed) const
{
    const QByteArray bytes = qUncompress(packed);
    QDataStream in(bytes);
    Unpacker unpacker(in, m_styles, m_pictures);
    auto page = std::make_unique<Page>();
    qint32 items = 0;
    in >> page->number >> items;
    for (qint32 count = 0; count < items; ++count) {
        quint8 kind = 0;
        in >> kind;
        PageItem item = emptyItem(kind, std::make_index_sequence<std::variant_size_v<PageItem>>());
        std::visit(unpacker, item);
        page->items.append(std::move(item));
    }
    return page;
}

} // namespace report
