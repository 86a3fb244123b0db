#pragma once

#include "platform/report/designer/ReportDesigner.h"

#include <QObject>

class QLabel;
class QLineEdit;
class QSplitter;
class QTabWidget;
class QToolButton;

namespace report {

class DataTree;
class DesignCanvas;
class DesignerActions;
class PreviewTab;
class PropertyPanel;
class StructureTree;

/// The parts of a designer's window, and how they hang together.
class DesignerWidgets final : public QObject
{
    Q_OBJECT

public:
    DesignerWidgets(DesignDocument &document, ReportDesigner &designer);

    /// Begins with a layout, nothing to undo, the design in front. Beside an empty sheet stand the
    /// data, else the structure.
    void beginWith(const Layout &layout);
    /// Bring a tab to the front. The preview asks for rows, and gives way to the design when there
    /// are none.
    void showDesign();
    void showPreview();
    [[nodiscard]] bool isPreviewShown() const;
    /// Takes what is being typed, on the sheet and among the attributes.
    void finishEditing();
    /// Lets the user change the query; what comes back is one change.
    void askQuery();
    /// Without one the query's button and action are hidden.
    void setQueryAsker(QueryAsker asker);

    DesignCanvas *canvas;
    StructureTree *structure;
    DataTree *data;
    PropertyPanel *properties;
    PreviewTab *previewTab;
    DesignerActions *actions;
    /// See ReportDesigner::setFieldAdder; none takes every field as it is.
    std::function<bool(Layout &layout, const DesignField &field)> fieldAdder;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    [[nodiscard]] QWidget *makeDesign();
    [[nodiscard]] QWidget *makeSide();
    /// Connects the parts: none of them knows the others.
    void join();
    void tabChanged(int index);
    /// Puts fields beside each other into a band; a place with x below 0 lets them make room at the
    /// right.
    void addFields(const QList<DesignField> &fields, int band, QPoint at);
    void chooseFields(const QList<DesignField> &fields);
    void goRound(bool forward);

    DesignDocument &m_document;
    ReportDesigner &m_designer;
    QueryAsker m_askQuery;
    QTabWidget *m_tabs;
    QSplitter *m_panes;
    QTabWidget *m_sides;
    QLineEdit *m_filter;
    QToolButton *m_query;
    QLabel *m_status;
    QLabel *m_zoom;
    bool m_isFresh = true; ///< no width has been seen yet
};

} // namespace report
