#pragma once

#include "platform/report/expr/Expression.h"
#include "platform/report/layout/Layout.h"
#include "platform/report/paginate/DataSource.h"

#include <map>

namespace report {

/// What the formulas of a layout cost, counted before any is worked out: a formula is worked out
/// anew wherever it is named, so that few lines can ask for more than there is time for.
class FormulaCosts
{
public:
    /// Reads the layout's formulas, those of the inputs in place of theirs, and counts them all.
    FormulaCosts(const Layout &layout, const Inputs &inputs);

    /// Why a formula can't be used; empty when it can. The name is in lower case.
    [[nodiscard]] QString fault(const QString &name) const;
    /// True when an expression names formulas that together cost too much.
    [[nodiscard]] bool isTooMuch(const Expression &expression) const;
    /// The formulas by their names in lower case; one that can't be used is Null.
    [[nodiscard]] std::map<QString, Expression> usable() const;

private:
    struct Known
    {
        Expression expression;
        int cost = 0; ///< how many names it reads, all told; 0 while that isn't known
        int depth = 0;
        QString fault;
        bool isOpen = false; ///< it is being counted
    };
    void count(Known &formula);

    std::map<QString, Known> m_formulas;
};

} // namespace report
