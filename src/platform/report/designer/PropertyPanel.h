#pragma once

#include "platform/report/designer/DesignDocument.h"
#include "platform/report/designer/Property.h"
#include "platform/report/designer/ReportDesigner.h"

#include <QWidget>

class QComboBox;
class QLabel;
class QModelIndex;
class QToolButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace report {

/// All attributes of what is selected, each with its own editor; what is wrong with an expression
/// stands below. Several objects are changed at once.
class PropertyPanel final : public QWidget
{
    Q_OBJECT

public:
    PropertyPanel(DesignDocument &document, QWidget *parent = nullptr);

    void setFields(const QList<DesignField> &fields);
    void setExpressionAsker(ExpressionAsker asker);
    /// Called for "From a file...": gives the name of the stored picture, empty when cancelled.
    void setPictureChooser(std::function<void()> chooser) { m_choosePicture = std::move(chooser); }
    /// Goes to an attribute by its caption and opens it.
    void edit(const QString &caption);
    /// Ends typing; what was typed is taken.
    void finishEditing();

    // --- For the editors ------------------------------------------------------------------------

    [[nodiscard]] const Property *propertyAt(const QModelIndex &index) const;
    void give(const QModelIndex &index, const QVariant &value);
    void checkTyped(const Property &property, const QString &text);
    /// The entry of the list of pictures that asks for a file.
    [[nodiscard]] static QString fromFile();
    void fillPictures(QComboBox *box) const;
    void fillStyles(QComboBox *box) const;

private:
    void refresh();
    void rebuild();
    void showValue(QTreeWidgetItem *item, const Property &property);
    void apply(const Property &property, const QVariant &value);
    void showFault();
    void activate(QTreeWidgetItem *item);
    void askExpression();
    [[nodiscard]] const Property *current() const;
    [[nodiscard]] QString headline() const;
    bool eventFilter(QObject *watched, QEvent *event) override;

    DesignDocument &m_document;
    QList<Property> m_properties;
    QList<DesignField> m_fields;
    ExpressionAsker m_askExpression;
    std::function<void()> m_choosePicture;
    bool m_isShowing = false;
    QLabel *m_headline;
    QTreeWidget *m_tree;
    QToolButton *m_ask;
    QLabel *m_fault;
};

} // namespace report
