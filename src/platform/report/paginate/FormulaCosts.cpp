#include "platform/report/paginate/FormulaCosts.h"

namespace report {
namespace {

using namespace Qt::StringLiterals;

constexpr int MostOfFormula = 1000;
constexpr int MostOfExpression = 100'000;
/// Formulas that stand within each other go down the stack.
constexpr int DeepestFormula = 20;

} // namespace

FormulaCosts::FormulaCosts(const Layout &layout, const Inputs &inputs)
{
    QHash<QString, QString> replaced;
    for (auto text = inputs.formulas.cbegin(); text != inputs.formulas.cend(); ++text)
        // Names are the same in any case, and those that replace come from callers.
        replaced.insert(text.key().toLower(), text.value());
    for (const Formula &formula : layout.formulas) {
        const QString name = formula.name.toLower();
        m_formulas[name].expression = Expression::parse(replaced.value(name, formula.expression));
    }
    for (auto &[name, formula] : m_formulas)
        count(formula);
}

void FormulaCosts::count(Known &formula)
{
    if (formula.cost > 0)
        return;
    formula.isOpen = true;
    formula.cost = 1;
    for (const QString &name : formula.expression.names()) {
        const auto named = m_formulas.find(name);
        // Fields and the page's values: reading one is one step.
        if (named == m_formulas.end()) {
            ++formula.cost;
            continue;
        }
        if (named->second.isOpen) {
            named->second.fault = u"it leads back to itself"_s;
            continue;
        }
        count(named->second);
        // Cut off there, or the costs of formulas that use each other twice would overflow.
        formula.cost = qMin(formula.cost + named->second.cost, MostOfExpression);
        formula.depth = qMax(formula.depth, named->second.depth + 1);
    }
    formula.isOpen = false;
    if (formula.fault.isEmpty() && (formula.cost > MostOfFormula || formula.depth > DeepestFormula))
        formula.fault = u"it is made of too many other formulas"_s;
    // What can't be used is Null, which costs nothing.
    if (!formula.fault.isEmpty()) {
        formula.cost = 1;
        formula.depth = 0;
    }
}

QString FormulaCosts::fault(const QString &name) const
{
    const auto found = m_formulas.find(name);
    return found == m_formulas.end() ? QString() : found->second.fault;
}

bool FormulaCosts::isTooMuch(const Expression &expression) const
{
    int cost = 0;
    for (const QString &name : expression.names()) {
        const auto named = m_formulas.find(name);
        cost += named == m_formulas.end() ? 1 : named->second.cost;
        if (cost > MostOfExpression)
            return true;
    }
    return false;
}

std::map<QString, Expression> FormulaCosts::usable() const
{
    std::map<QString, Expression> result;
    for (const auto &[name, formula] : m_formulas)
        result.emplace(name, formula.fault.isEmpty() ? formula.expression : Expression());
    return result;
}

} // namespace report
