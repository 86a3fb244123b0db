#pragma once

#include "platform/report/paginate/ChartData.h"
#include "platform/report/paginate/Compiled.h"
#include "platform/report/paginate/PageDocument.h"

#include <QSet>
#include <utility>

namespace report {

/// A text or value of a band as a table takes it.
struct TableCell
{
    const report::Object *object = nullptr;
    QString text;   ///< as printed
    QVariant value; ///< of fields
    Style style;
};

/// What a chart shows, as a table: a line of headings, then one for each category.
struct TableGrid
{
    const report::Object *object = nullptr;
    QString title;
    QList<QVariantList> rows;
    QStringList formats; ///< of the columns
};

/// A band ready to be placed: its items from its own upper left corner, and the height it takes.
struct MadeBand
{
    QList<PageItem> items;
    Length height = 0;
    /// Values to remember once the band is placed, for objects that hide repeats.
    QList<std::pair<int, QVariant>> shown;
    QList<TableCell> cells; ///< only when they are asked for
    QList<TableGrid> grids; ///< the same
};

/// What the maker of bands reads of the run.
class BandContext
{
public:
    virtual ~BandContext() = default;
    /// For the row on hand; Null for what can't be read.
    [[nodiscard]] virtual QVariant evaluate(const compiled::Value &value) const = 0;
    /// The value that an object showed last, nothing when it has to be shown anew.
    [[nodiscard]] virtual std::optional<QVariant> lastShown(int repeatSlot) const = 0;
    /// The values of a chart, its titles left out.
    [[nodiscard]] virtual ChartData chartData(const compiled::Chart &chart) const = 0;
};

/// Makes a band's items for the row on hand: texts are flowed, objects that grow push those below
/// them down and stretch the boxes around them.
class BandMaker
{
public:
    BandMaker(const Layout &layout, const BandContext &context, const Inputs &inputs,
              QStringList &problems);

    /// True when the band's condition lets it print.
    [[nodiscard]] bool isPrinted(const compiled::Band &band) const;
    /// Texts flow in the widths of their objects, and no band gets higher than LongestFlow. What
    /// can't be shown as it is asked for is told once for each object.
    [[nodiscard]] MadeBand make(const compiled::Band &band);
    /// The height that make() gives, for less: the items are left out where nothing grows.
    [[nodiscard]] MadeBand measure(const compiled::Band &band);
    /// The same for a table: cells in place of items.
    [[nodiscard]] MadeBand makeCells(const compiled::Band &band) const;

private:
    struct Placed
    {
        const compiled::Object *object;
        QRect frame; ///< grown and moved
        Length grown = 0;
        QString text;
        QVariant value;
        Style style;
        QList<TextLine> lines;
        QList<PageItem> table; ///< of a cross-tab, from its own upper left corner
        bool repeated = false;
    };

    /// An object of which nothing is known but the layout's frame.
    [[nodiscard]] static Placed placedAsLaidOut(const compiled::Object &object);
    /// Finds an object's value and style; False when it is not shown at all.
    [[nodiscard]] bool prepare(const compiled::Object &object, Placed &placed,
                               MadeBand &band) const;
    /// Breaks the text into lines and grows the frame where it may; what is cut off is told.
    void flow(Placed &placed);
    void fillCrossTab(Placed &placed);
    void tellOnce(const report::Object &object, const QString &problem);
    /// Moves objects down by what grew above them, then stretches the frames around those that
    /// grew.
    void push(std::vector<Placed> &objects) const;
    /// Adds an object as the page draws it, where its frame has come to stand, and takes its text.
    void addItem(Placed &placed, QList<PageItem> &items);
    /// Words and values put together.
    [[nodiscard]] QString textOf(const std::vector<compiled::Piece> &pieces) const;
    [[nodiscard]] ChartData chartOf(const compiled::Object &object) const;
    [[nodiscard]] ChartData crossTabOf(const compiled::Object &object) const;
    /// An object's style with what its conditions change.
    [[nodiscard]] Style styleOf(const compiled::Object &object) const;
    [[nodiscard]] QByteArray pictureOf(const Placed &placed);
    [[nodiscard]] QByteArray storedPicture(const QString &name) const;

    const Layout &m_layout;
    const BandContext &m_context;
    const Inputs &m_inputs;
    QStringList &m_problems;
    QHash<QString, QByteArray> m_pictures; ///< by the name in the layout
    QSet<const report::Object *> m_told;   ///< of which something has been told
    qsizetype m_linesLeft = 0;             ///< that the band being made may still have
};

} // namespace report
