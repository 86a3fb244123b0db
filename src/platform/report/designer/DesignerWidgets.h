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

    void beginWith(const Layout &layout);
    void showDesign();
    void showPreview();
    [[nodiscard]] bool isPreviewShown() const;
    void finishEditing();
    void askQuery();
    void setQueryAsker(QueryAsker asker);

    DesignCanvas *canvas;
    StructureTree *structure;
    DataTree *data;
    PropertyPanel *properties;
    PreviewTab *previewTab;
    DesignerActions *actions;
    std::function<bool(Layout &layout, const DesignField &field)> fieldAdder;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    [[nodiscard]] QWidget *makeDesign();
    [[nodiscard]] QWidget *makeSide();
    void join();
    void tabChanged(int index);
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
