#pragma once

#include "platform/report/designer/Fields.h"
#include "platform/report/layout/Layout.h"
#include "platform/report/paginate/DataSource.h"

#include <QWidget>
#include <functional>
#include <memory>
#include <optional>

class QUndoStack;

namespace report {

class DesignDocument;
class DesignerWidgets;
class ReportViewer;

/// What a report is previewed on.
struct PreviewRows
{
    std::shared_ptr<const DataSource> rows;
    Inputs inputs;
};

/// Gives the rows for a preview of a layout; nothing when the user has given up, as at the question
/// for parameters. Raises base::Error, which is told.
using RowsProvider = std::function<std::optional<PreviewRows>(const Layout &layout)>;

/// Where an expression is used, for an editor of expressions.
struct ExpressionQuestion
{
    QString caption;           ///< "Shown when", "Group by"
    QString text;              ///< as it stands
    QList<DesignField> fields; ///< that it may read
    QStringList formulas;      ///< names of the layout's formulas
    QStringList parameters;    ///< the same of its parameters
    QStringList groups;        ///< names that an aggregate may take as its scope
    bool isWords = false;      ///< words with expressions in braces
};

/// Lets the user edit an expression in a window of its own; nothing when it stays as it was.
using ExpressionAsker =
    std::function<std::optional<QString>(const ExpressionQuestion &question, QWidget *parent)>;

/// Lets the user change a layout's query, parameters and further rows in a window of its own;
/// nothing when they stay. The designer takes these three from what comes back.
using QueryAsker = std::function<std::optional<Layout>(const Layout &layout, QWidget *parent)>;

/// A designer of reports: the sheet with its bands, the trees of the report's parts and of the
/// data, the attributes of what is selected, and a preview. It holds one layout and knows no files:
/// who uses it gives the layout, listens for changes and saves.
///
///     auto *designer = new ReportDesigner(this);
///     designer->setFields(fields);
///     designer->setRowsProvider([=](const Layout &layout) { return rowsFor(layout); });
///     designer->setLayout(*reading.layout);
///     connect(designer, &ReportDesigner::modifiedChanged, save, &QAction::setEnabled);
///     ...
///     writeLayoutFile(designer->layout(), path);
///     designer->markSaved();
class ReportDesigner final : public QWidget
{
    Q_OBJECT

public:
    explicit ReportDesigner(QWidget *parent = nullptr);
    ~ReportDesigner() override;

    /// Begins anew: nothing to undo, not modified, the design in front.
    void setLayout(const Layout &layout);
    [[nodiscard]] const Layout &layout() const;
    /// True while the layout differs from the one that was set or saved last.
    [[nodiscard]] bool isModified() const;
    /// The layout as it is now has been saved.
    void markSaved();
    /// Takes another layout as one change that can be undone, as a wizard or an imported file
    /// gives it. The name is what the undo button tells ("New query").
    void replaceLayout(const QString &name, const Layout &layout);

    /// The columns that can be shown: those of the query first, then, by table, those that it
    /// could give.
    void setFields(const QList<DesignField> &fields);
    /// Whom it asks for the rows of a preview, for an expression, and for the query. Without one
    /// there is no preview, or no button for the others.
    void setRowsProvider(RowsProvider provider);
    void setExpressionAsker(ExpressionAsker asker);
    void setQueryAsker(QueryAsker asker);
    /// Called with a field that the query doesn't give yet, before it is put on the sheet; may
    /// change the query in the layout. False when the user leaves it.
    void setFieldAdder(std::function<bool(Layout &layout, const DesignField &field)> adder);
    /// Where picture files beside the layout are looked for.
    void setPictureFolder(const QString &folder);
    /// What stands below a sheet on which there is nothing yet.
    void setEmptyHint(const QString &words);

    /// Shows the preview, which asks the provider for rows; the design again.
    void showPreview();
    void showDesign();
    [[nodiscard]] bool isPreviewShown() const;
    /// What is typed at present becomes part of the layout. Before saving.
    void finishEditing();

    /// For the window's menus and tests.
    [[nodiscard]] DesignDocument &document() const { return *m_document; }
    [[nodiscard]] ReportViewer &viewer() const;

Q_SIGNALS:
    /// isModified() has changed.
    void modifiedChanged(bool isModified);
    /// Anything of the layout has changed, also by undoing.
    void layoutChanged();
    /// The preview came to the front, or left it.
    void previewShown(bool isShown);

private:
    std::unique_ptr<DesignDocument> m_document;
    std::unique_ptr<DesignerWidgets> m_widgets;
};

} // namespace report
