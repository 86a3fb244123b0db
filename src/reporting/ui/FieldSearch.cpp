#include "reporting/ui/FieldSearch.h"

#include "platform/input/IdCombo.h"
#include "platform/input/KeyFilter.h"

#include <QLineEdit>
#include <QValidator>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Admits what a search text for a field of a type can hold.
class SearchTextValidator final : public QValidator
{
public:
    SearchTextValidator(const QString &fieldType, QObject *parent)
        : QValidator(parent)
        , m_type(fieldType.toUpper())
    {}

    State validate(QString &text, int &) const override
    {
        const bool admitted = std::ranges::all_of(text, [&](QChar each) { return admits(each); }) &&
                              (m_type != u"DECIMAL" || text.count(u'.') <= 1);
        return admitted ? Acceptable : Invalid;
    }

private:
    [[nodiscard]] bool admits(QChar character) const
    {
        using input::TypeCheck;
        const auto passes = [&](TypeCheck type) {
            return input::Type_Check(character.unicode(), type, input::KeyEvent::KeyPress);
        };
        if (m_type == u"INT")
            return passes(TypeCheck::Int);
        if (m_type == u"DECIMAL")
            return passes(TypeCheck::Double);
        if (m_type == u"DATETIME")
            return passes(TypeCheck::Int) || character == u'/' || character == u'-';
        if (m_type == u"BIT")
            return passes(TypeCheck::Int) || character == u'-';
        return true;
    }

    QString m_type;
};

} // namespace

FieldSearch::FieldSearch(input::IdCombo *fields, QLineEdit *box, grid::GridView *grid,
                         IncrementalSearch::WithoutMatch withoutMatch)
    : QObject(box)
    , m_fieldList(fields)
    , m_box(box)
    , m_search(new IncrementalSearch(box, grid, withoutMatch))
{
    connect(fields, &QComboBox::activated, this, [this] {
        applyField();
        search();
        // Told last, when the box and the search go by the new field already.
        Q_EMIT fieldChosen();
    });
}

void FieldSearch::setFields(const QList<quickfind::Field> &fields, const QString &startColumn)
{
    m_fields = fields;
    m_fieldList->clear();
    for (const quickfind::Field &field : fields)
        m_fieldList->add(field.description, field.rowID);
    for (const quickfind::Field &field : fields)
        if (field.name.compare(startColumn, Qt::CaseInsensitive) == 0)
            m_fieldList->select(field.rowID);
    applyField();
}

void FieldSearch::setAutomatic(const QList<QStringView> &columns)
{
    m_automatic = columns;
    applyField();
}

const quickfind::Field &FieldSearch::field() const
{
    static const quickfind::Field none;
    const auto found = std::ranges::find(m_fields, m_fieldList->id(), &quickfind::Field::rowID);
    return found == m_fields.end() ? none : *found;
}

QString FieldSearch::typeOf(QStringView description) const
{
    const auto found = std::ranges::find(m_fields, description, &quickfind::Field::description);
    return found == m_fields.end() ? u"VARCHAR"_s : found->type;
}

void FieldSearch::applyField()
{
    QList<IncrementalSearch::Column> columns;
    for (const QStringView column : std::as_const(m_automatic))
        // The first column decides what may be typed; the second one is searched for whatever that
        // is.
        columns.append({column.toString(), columns.isEmpty() ? typeOf(column) : u"VARCHAR"_s});
    if (columns.isEmpty())
        columns.append({field().description, field().type});
    m_search->setColumns(columns);

    const QString type = columns.constFirst().type;
    m_box->setMaxLength(quickfind::SetLength(type));
    // Setting another one leaves the former alive as a child of the box, one for each choice.
    delete m_box->validator();
    m_box->setValidator(new SearchTextValidator(type, m_box));
    // What was typed for another type of field would never match here.
    if (!m_box->hasAcceptableInput())
        m_box->clear();
}
