#pragma once

#include "core/ui/IncrementalSearch.h"
#include "reporting/QuickFind.h"

#include <QObject>

class QLineEdit;

namespace input {
class IdCombo;
}

/// A search that goes by a field which the user chooses: the list of fields, the box for the text,
/// which takes only what the field's type can hold, and the rows that are searched.
class FieldSearch : public QObject
{
    Q_OBJECT

public:
    /// Joins the three; they must outlive it. withoutMatch: what becomes of the current row when
    /// nothing matches.
    FieldSearch(input::IdCombo *fields, QLineEdit *box, grid::GridView *grid,
                IncrementalSearch::WithoutMatch withoutMatch);

    /// Offers these fields and begins with the one of this column of the table.
    void setFields(const QList<quickfind::Field> &fields, const QString &startColumn);
    /// Searches these columns of the list in place of the chosen field, the first match counts; an
    /// empty list goes back to the field.
    void setAutomatic(const QList<QStringView> &columns);
    /// The field that is chosen.
    [[nodiscard]] const quickfind::Field &field() const;
    /// Searches for what is typed now.
    void search() { m_search->search(); }
    /// Asked before a search; false puts it off, until search is called again.
    void setMayBegin(std::function<bool()> mayBegin) { m_search->mayBegin = std::move(mayBegin); }

Q_SIGNALS:
    /// The user chose another field.
    void fieldChosen();

private:
    void applyField();
    [[nodiscard]] QString typeOf(QStringView description) const;

    input::IdCombo *m_fieldList;
    QLineEdit *m_box;
    IncrementalSearch *m_search;
    QList<quickfind::Field> m_fields;
    QList<QStringView> m_automatic;
};
