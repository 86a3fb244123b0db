#include "platform/report/designer/ReportDesigner.h"

#include "platform/report/designer/DataTree.h"
#include "platform/report/designer/DesignCanvas.h"
#include "platform/report/designer/DesignDocument.h"
#include "platform/report/designer/DesignerWidgets.h"
#include "platform/report/designer/PreviewTab.h"
#include "platform/report/designer/PropertyPanel.h"

namespace report {

ReportDesigner::ReportDesigner(QWidget *parent)
    : QWidget(parent)
    , m_document(std::make_unique<DesignDocument>())
    , m_widgets(std::make_unique<DesignerWidgets>(*m_document, *this))
{
    connect(m_document.get(), &DesignDocument::modifiedChanged, this,
            &ReportDesigner::modifiedChanged);
    connect(m_document.get(), &DesignDocument::layoutChanged, this, &ReportDesigner::layoutChanged);
}

ReportDesigner::~ReportDesigner()
{
    // The views look at the document until they are gone.
    m_document->blockSignals(true);
    qDeleteAll(findChildren<QWidget *>(Qt::FindDirectChildrenOnly));
}

void ReportDesigner::setLayout(const Layout &layout)
{
    m_widgets->beginWith(layout);
}

const Layout &ReportDesigner::layout() const
{
    return m_document->layout();
}

bool ReportDesigner::isModified() const
{
    return m_document->isModified();
}

void ReportDesigner::markSaved()
{
    m_document->markSaved();
}

void ReportDesigner::replaceLayout(const QString &name, const Layout &layout)
{
    m_document->change(name, [&](Layout &changed, Selection &selection) {
        changed = layout;
        selection = {};
    });
}

void ReportDesigner::setFields(const QList<DesignField> &fields)
{
    m_widgets->data->setFields(fields);
    m_widgets->properties->setFields(fields);
}

void ReportDesigner::setRowsProvider(RowsProvider provider)
{
    m_widgets->previewTab->setRowsProvider(std::move(provider));
}

void ReportDesigner::setExpressionAsker(ExpressionAsker asker)
{
    m_widgets->properties->setExpressionAsker(std::move(asker));
}

void ReportDesigner::setQueryAsker(QueryAsker asker)
{
    m_widgets->setQueryAsker(std::move(asker));
}

void ReportDesigner::setFieldAdder(
    std::function<bool(Layout &layout, const DesignField &field)> adder)
{
    m_widgets->fieldAdder = std::move(adder);
}

void ReportDesigner::setPictureFolder(const QString &folder)
{
    m_widgets->canvas->setFolder(folder);
}

void ReportDesigner::setEmptyHint(const QString &words)
{
    m_widgets->canvas->setEmptyHint(words);
}

void ReportDesigner::showPreview()
{
    m_widgets->showPreview();
}

void ReportDesigner::showDesign()
{
    m_widgets->showDesign();
}

bool ReportDesigner::isPreviewShown() const
{
    return m_widgets->isPreviewShown();
}

void ReportDesigner::finishEditing()
{
    m_widgets->finishEditing();
}

ReportViewer &ReportDesigner::viewer() const
{
    return m_widgets->previewTab->viewer();
}

} // namespace report
