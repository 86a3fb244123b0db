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

    /// The columns that expressions may read; a name beyond them is told as a fault.
    void setFields(const QList<DesignField> &fields);
    /// Without one there is no button beside an expression.
    void setExpressionAsker(ExpressionAsker asker);
    /// Called for "From a file...", to ask for the file and take it into the layout. Without one
    /// the list of pictures has no such entry.
    void setPictureChooser(std::function<void()> chooser) { m_choosePicture = std::move(chooser); }
    /// Goes to an attribute by its caption and opens it.
    void edit(const QString &caption);
    /// Ends typing; what was typed is taken.
    void finishEditing();

    // --- For the editors ------------------------------------------------------------------------

    /// The attribute in a row, until the list is made anew; null on a heading.
    [[nodiscard]] const Property *propertyAt(const QModelIndex &index) const;
    /// Gives the attribute of a row a new value, for all that is selected, as one change.
    void give(const QModelIndex &index, const QVariant &value);
    /// Shows below what is wrong with an expression as it is typed.
    void checkTyped(const Property &property, const QString &text);
    /// The entry of the list of pictures that asks for a file.
    [[nodiscard]] static QString fromFile();
    /// The layout's pictures, and the entry that asks for a file where one can be chosen.
    void fillPictures(QComboBox *box) const;
    /// The layout's styles, behind an entry for none.
    void fillStyles(QComboBox *box) const;

private:
    /// Takes the attributes anew; rows are made anew only where there are others.
    void refresh();
    void rebuild();
    void showValue(QTreeWidgetItem *item, const Property &property);
    /// Changes the document by an attribute, as one step of its own.
    void apply(const Property &property, const QVariant &value);
    /// Tells below what is wrong with the attribute that is current, and offers its editor.
    void showFault();
    /// Does what a row without a value stands for.
    void activate(QTreeWidgetItem *item);
    /// Lets the current expression be edited in a window, and takes what comes back.
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
