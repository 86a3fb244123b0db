#pragma once

#include <QString>
#include <QStringView>
#include <vector>

namespace grid {

/// What may be typed into a cell. "{0,99999}" is a whole number in that range, "#" a digit that
/// may be missing, any other character stands for itself; parts at the end may be missing.
/// So "{0,99999}.{0,99}" admits "7", "7.", "7.5" and ".25", and neither "100000" nor "7.125".
class CellMask
{
public:
    enum class State {
        Invalid,    ///< nothing typed behind it would make it fit
        Unfinished, ///< fits so far, but is no value yet ("." or a number below its range)
        Complete,
    };

    /// An empty mask admits everything.
    explicit CellMask(QStringView mask = {});

    [[nodiscard]] bool isEmpty() const { return m_parts.empty(); }
    /// How the text stands to the mask. An empty text is Complete: an emptied cell.
    [[nodiscard]] State check(QStringView text) const;

private:
    struct Part
    {
        enum class Kind { Number, Digit, Literal } kind;
        qint64 low = 0;
        qint64 high = 0;
        int digits = 0; ///< most digits of a number
        QChar literal{};
    };

    std::vector<Part> m_parts;
};

} // namespace grid
