#pragma once

#include "platform/report/designer/Property.h"

#include <QStyledItemDelegate>

namespace report {

class PropertyPanel;

/// Edits attributes in their rows: lists of colours, fonts and formats with samples, lengths with
/// units, expressions.
class PropertyDelegate final : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit PropertyDelegate(PropertyPanel &panel);

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model,
                      const QModelIndex &index) const override;
    void updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                              const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    [[nodiscard]] QWidget *makeEditor(const Property &property, QWidget *parent) const;

    PropertyPanel &m_panel;
};

/// A small picture of a colour; crossed for none.
[[nodiscard]] QIcon colorIcon(const QColor &color);

} // namespace report
