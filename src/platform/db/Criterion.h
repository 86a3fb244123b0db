#pragma once

#include "platform/db/RowData.h"

#include <QString>
#include <QVariant>

namespace db {

/// One comparison of a column with a value, such as "[Unit No] like 'a*'", ready to be tried on
/// rows. Texts are compared without regard to case; "like" knows * (any text), ? (one character),
/// # (one digit) and [a-z] or [!a-z] (one of, none of). Null meets only "= Null", and "<> Null" any
/// value.
class Criterion
{
public:
    /// Reads the criterion. Raises base::Error: NoSuchItem for an unknown column, a syntax or type
    /// mismatch error otherwise. The rows must outlive this object.
    Criterion(QStringView text, const RowData &rows);

    /// The first row from the given one on that meets the criterion, -1 when none does.
    [[nodiscard]] int firstMatch(int from) const;

private:
    enum class Operator { Equal, NotEqual, Less, LessOrEqual, Greater, GreaterOrEqual, Like };

    void readColumn(QStringView &rest);
    void readOperator(QStringView &rest);
    void readValue(QStringView rest);
    void adaptValue();
    [[nodiscard]] bool matches(int row) const;
    [[nodiscard]] int compare(int row) const;
    [[nodiscard]] QString rowText(int row) const;

    const RowData &m_rows;
    int m_column = -1;
    Operator m_operator = Operator::Equal;
    QVariant m_value;
    QString m_text;      ///< the value in a comparison of texts
    double m_number = 0; ///< the value in a comparison of numbers or dates
};

/// True when a text fits a pattern of "like", without regard to case.
[[nodiscard]] bool fitsPattern(QStringView text, QStringView pattern);

} // namespace db
