#pragma once

#include "platform/report/expr/Functions.h"

#include <QString>
#include <QVarLengthArray>
#include <QVariant>
#include <vector>

namespace report {

class EvaluationContext;

/// A node of the tree: how its children's values make its own.
class ExpressionNode
{
public:
    enum class Kind { Constant, Name, Aggregate, Function, Negate, Not, Binary };
    enum class Operator {
        Or,
        And,
        Equal,
        Unequal,
        LessOrEqual,
        GreaterOrEqual,
        Less,
        Greater,
        Join,
        Plus,
        Minus,
        Times,
        Over,
        Modulo,
    };

    Kind kind = Kind::Constant;
    QVariant constant;          ///< Constant
    QString text;               ///< Name
    Operator op = Operator::Or; ///< Binary
    int number = 0;             ///< Aggregate
    FunctionPointer function = nullptr;
    int depth = 1; ///< of the tree below, itself included
    std::vector<ExpressionNode> children;

    /// Null where a side of arithmetic or of a comparison is Null, and for a name that is not
    /// known.
    [[nodiscard]] QVariant evaluate(const EvaluationContext &context) const;

private:
    /// Operators in a row, the last one first.
    using Chain = QVarLengthArray<const ExpressionNode *, 8>;
    [[nodiscard]] QVariant evaluateChain(const EvaluationContext &context) const;
    [[nodiscard]] static QVariant joined(Chain &chain, QVariant left,
                                         const EvaluationContext &context);
    [[nodiscard]] QVariant applied(const QVariant &left, const QVariant &right) const;
    [[nodiscard]] QVariant calculated(const QVariant &left, const QVariant &right) const;
};

} // namespace report
