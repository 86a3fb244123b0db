#pragma once

#include "platform/report/designer/DesignDocument.h"
#include "platform/report/designer/Fields.h"

#include <QTreeWidget>

namespace report {

/// What a report can show: the columns of its query and of the tables, its formulas and parameters,
/// the page's number. Dragged onto the sheet, or put there by Enter.
class DataTree final : public QTreeWidget
{
    Q_OBJECT

public:
    DataTree(DesignDocument &document, QWidget *parent = nullptr);
    /// Columns that the query doesn't give yet stand below their tables.
    void setFields(const QList<DesignField> &fields);
    /// Shows only what has this in its name or caption.
    void setFilter(const QString &words);

Q_SIGNALS:
    /// Enter or a double click on fields.
    void fieldsChosen(const QList<DesignField> &fields);

protected:
    [[nodiscard]] QMimeData *mimeData(const QList<QTreeWidgetItem *> &items) const override;
    [[nodiscard]] QStringList mimeTypes() const override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    /// Fills the tree anew where names or the filter are others than before.
    void refresh();
    /// A heading with those of the fields that the filter lets through; none without any.
    void addAll(const QString &title, const QList<DesignField> &fields, bool isOpen);
    [[nodiscard]] QList<DesignField> fieldsOf(const QList<QTreeWidgetItem *> &items) const;

    DesignDocument &m_document;
    QList<DesignField> m_given;
    QList<DesignField> m_fields; ///< all that are shown, by their number
    QStringList m_names;         ///< of the layout, when they were shown last
    QString m_filter;
};

} // namespace report
