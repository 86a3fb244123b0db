#pragma once

#include "platform/report/layout/Layout.h"
#include "platform/report/paginate/Paginator.h"
#include "platform/report/render/Export.h"
#include "platform/report/viewer/PageMaker.h"
#include "platform/report/viewer/PageSearch.h"
#include "platform/report/viewer/PrintPages.h"

#include <QTimer>
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

/// Sends a PDF file by mail; the file stays until the program ends.
using Mailer = std::function<void(const QString &pdf)>;

/// Shows a report in any window: pages with zoom, small pictures of them, search, print, export and
/// mail. The first page is there while the rest is still being laid out.
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

    /// Begins to lay the report out, and comes back when it is whole or, in a long one, after a
    /// moment; the rest of the pages come by themselves. The rows are kept for exports, and are
    /// read from another thread.
    void setReport(const Layout &layout, std::shared_ptr<const DataSource> rows,
                   const Inputs &inputs);
    /// True while pages are still to come.
    [[nodiscard]] bool isLayingOut() const { return m_maker != nullptr; }
    /// Leaves it at the pages that are there.
    void cancelLayout();
    /// Waits until all pages are there.
    void finishLayout();
    /// What came of it; of a report that is being laid out nothing yet.
    [[nodiscard]] const Outcome &outcome() const { return m_outcome; }
    /// Shows nothing.
    void clear();
    [[nodiscard]] int pageCount() const { return m_pages.count(); }

    /// In percent; 100 shows the size on paper.
    void setZoom(int percent);
    /// Asks for the printer and prints; where there is none, a file may take its place. False when
    /// the user cancels or the printer refuses, which is told.
    bool print();
    /// Asks for a file and writes the report in the format of its ending. False when the user
    /// cancels or it can't be written, which is told.
    bool exportToFile();
    /// Writes a PDF file and gives it to the mailer. False when there is none, or the file can't be
    /// written, which is told.
    bool sendByMail();
    /// Who sends mail; the button for it is there only with one.
    void setMailer(Mailer mailer);
    /// Who asks for the printer; the system's print window unless set.
    void setPrinterChooser(PrinterChooser chooser) { m_choosePrinter = std::move(chooser); }

Q_SIGNALS:
    /// All pages are there, or the user wants no more.
    void layoutEnded();

private:
    /// Between two looks for new pages.
    static constexpr std::chrono::milliseconds NewsInterval{60};

    void takePages();
    void endLayout();
    void showRemarks();
    [[nodiscard]] bool writeReport(const QString &path, ExportFormat format);
    void buildStatus(QHBoxLayout *bar);
    void buildBar(QHBoxLayout *bar);
    QToolButton *addButton(QHBoxLayout *bar, const QString &name, const QString &tip,
                           const QString &icon, const QList<QKeySequence> &keys);
    void addZoom(QHBoxLayout *bar);
    void addSearch(QHBoxLayout *bar);
    [[nodiscard]] bool waitForPages();
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
    std::unique_ptr<PageMaker> m_maker; ///< while pages are still to come
    QTimer m_news;
    Outcome m_outcome;
    PrinterChooser m_choosePrinter;
    Mailer m_mailer;
    std::optional<Found> m_found;

    PageView *m_view;
    Thumbnails *m_thumbnails;
    QToolButton *m_first, *m_previous, *m_next, *m_last, *m_print, *m_export, *m_mail;
    QToolButton *m_zoomIn, *m_zoomOut, *m_remarks, *m_cancel;
    QSpinBox *m_page;
    QLabel *m_pageTotal;
    QComboBox *m_zoom;
    QLineEdit *m_search;
    QLabel *m_searchResult;
    QLabel *m_status;
};

} // namespace report
