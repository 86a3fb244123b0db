#pragma once

#include "platform/report/layout/Layout.h"
#include "platform/report/paginate/Paginator.h"
#include "platform/report/viewer/PageSearch.h"
#include "platform/report/viewer/PrintPages.h"

#include <QWidget>

class QComboBox;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QSpinBox;
class QToolButton;

namespace input {
class ProgressBox;
}

namespace report {

class PageView;
class Thumbnails;

/// Shows a report in any window: pages with zoom, small pictures of them, search, print and export.
///
///     auto *viewer = new ReportViewer(this);
///     viewer->setReport(layout, std::make_shared<RecordsetSource>(rows), inputs);
///     viewer->setZoom(100);
class ReportViewer final : public QWidget
{
    Q_OBJECT

public:
    explicit ReportViewer(QWidget *parent = nullptr);
    ~ReportViewer() override;

    /// Lays the report out and shows its first page. The rows are kept for exports.
    Outcome setReport(const Layout &layout, std::shared_ptr<const DataSource> rows,
                      const Inputs &inputs);
    /// Shows nothing.
    void clear();
    [[nodiscard]] int pageCount() const { return m_pages.count(); }

    /// In percent; 100 shows the size on paper.
    void setZoom(int percent);
    /// Asks for the printer and prints. False when the user cancels or the printer refuses, which
    /// is told.
    bool print();
    /// Asks for a file and writes the report in the format of its ending. False when the user
    /// cancels or it can't be written, which is told.
    bool exportToFile();
    /// Who asks for the printer; the system's print window unless set.
    void setPrinterChooser(PrinterChooser chooser) { m_choosePrinter = std::move(chooser); }

private:
    void buildBar(QHBoxLayout *bar);
    QToolButton *addButton(QHBoxLayout *bar, const QString &name, const QString &tip,
                           const QString &icon, const QList<QKeySequence> &keys);
    void addZoom(QHBoxLayout *bar);
    void addSearch(QHBoxLayout *bar);
    [[nodiscard]] Inputs inputsTelling(input::ProgressBox &box) const;
    void search(bool backward);
    void applyZoomText();
    void showZoom();
    void showPageNumber(int index);
    void enableButtons();

    Layout m_layout;
    std::shared_ptr<const DataSource> m_rows;
    Inputs m_inputs;
    PageStore m_pages;
    PrinterChooser m_choosePrinter;
    std::optional<Found> m_found;

    PageView *m_view;
    Thumbnails *m_thumbnails;
    QToolButton *m_first, *m_previous, *m_next, *m_last, *m_print, *m_export, *m_zoomIn, *m_zoomOut;
    QSpinBox *m_page;
    QLabel *m_pageTotal;
    QComboBox *m_zoom;
    QLineEdit *m_search;
    QLabel *m_searchResult;
};

} // namespace report
