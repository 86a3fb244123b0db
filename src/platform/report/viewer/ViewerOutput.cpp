#include "platform/base/Error.h"
#include "platform/base/Prompts.h"
#include "platform/input/ProgressBox.h"
#include "platform/report/render/Export.h"
#include "platform/report/viewer/ReportViewer.h"
#include "platform/report/viewer/WaitCursor.h"

#include <QDir>
#include <QPrinter>
#include <QPrinterInfo>
#include <QTemporaryDir>

/// What a report goes out to: printer, files and mail. Each of them can be cancelled.
namespace report {

using namespace Qt::StringLiterals;

/// False when the user doesn't want to wait for the rest of them.
bool ReportViewer::waitForPages()
{
    constexpr int Whole = 1000;
    const WaitCursor wait;
    input::ProgressBox box(u"Laying out the pages..."_s, this);
    box.offerCancel();
    while (m_maker && !box.wasCancelled() && !m_maker->wait(NewsInterval))
        box.tell(static_cast<int>(Whole * m_maker->share()), Whole);
    takePages();
    return !m_maker;
}

Inputs ReportViewer::inputsTelling(input::ProgressBox &box) const
{
    box.offerCancel();
    Inputs inputs = m_inputs;
    inputs.progress = box.progress();
    inputs.isCancelled = [&box] { return box.wasCancelled(); };
    return inputs;
}

bool ReportViewer::print()
{
    if ((m_maker && !waitForPages()) || m_pages.count() == 0)
        return false;
    // Without one the system's window has nothing to choose from.
    if (!m_choosePrinter && QPrinterInfo::availablePrinterNames().isEmpty())
        return base::askYesNo(
                   u"There is no printer on this computer. Write the report to a file instead?"_s) &&
               exportToFile();
    QPrinter printer(QPrinter::HighResolution);
    setUpPrinter(printer, m_layout.page, m_layout.title);
    if (!(m_choosePrinter ? m_choosePrinter : choosePrinter)(printer, m_pages.count(), this))
        return false;
    const Printed printed = [&] {
        const WaitCursor wait;
        input::ProgressBox box(u"Printing..."_s, this);
        box.offerCancel();
        return printPages(printer, m_pages, box.progress(), [&box] { return box.wasCancelled(); });
    }();
    if (printed == Printed::Refused)
        base::showCritical(u"The report could not be printed."_s);
    return printed == Printed::Whole;
}

bool ReportViewer::exportToFile()
{
    if (!m_rows)
        return false;
    const QString name = m_layout.title.isEmpty() ? u"Report"_s : m_layout.title;
    const QString path =
        base::prompts().chooseSaveFile(u"Export"_s, exportFilters(), name + u".pdf"_s);
    if (path.isEmpty())
        return false;
    const auto format = exportFormat(path);
    if (!format) {
        base::showMessage(
            u"The file's name has to end in .pdf, .xlsx, .csv or .html, which tells its form."_s);
        return false;
    }
    return writeReport(path, *format);
}

bool ReportViewer::writeReport(const QString &path, ExportFormat format)
{
    Outcome outcome;
    try {
        const WaitCursor wait;
        input::ProgressBox box(u"Writing the file..."_s, this);
        outcome = exportReport(m_layout, *m_rows, inputsTelling(box), path, format);
    } catch (const base::Error &error) {
        base::showCritical(error.description());
        return false;
    }
    // What the pages have shown as well is among the remarks already.
    for (const QString &known : std::as_const(m_outcome.problems))
        outcome.problems.removeAll(known);
    if (!outcome.problems.isEmpty())
        base::showInformation(outcome.problems.join(u'\n'));
    return !outcome.stopped;
}

void ReportViewer::setMailer(Mailer mailer)
{
    m_mailer = std::move(mailer);
    m_mail->setVisible(static_cast<bool>(m_mailer));
}

bool ReportViewer::sendByMail()
{
    if (!m_rows || !m_mailer)
        return false;
    // The mail program reads the file when it likes, maybe after this window is closed.
    static const QTemporaryDir folder(QDir::temp().filePath(u"report-XXXXXX"_s));
    static int number = 0;
    QString name = m_layout.title.isEmpty() ? u"Report"_s : m_layout.title;
    // The title becomes a file's name that any mail program and system takes.
    for (QChar &letter : name)
        if (!letter.isLetterOrNumber() && letter != u' ' && letter != u'-')
            letter = u'_';
    // A folder for each mail: two reports of one title must not overwrite each other while a mail
    // is still being written.
    const QDir own(folder.filePath(QString::number(++number)));
    const QString path = own.filePath(name + u".pdf"_s);
    if (!own.mkpath(u"."_s)) {
        base::showCritical(u"\"%1\" can't be written."_s.arg(QDir::toNativeSeparators(path)));
        return false;
    }
    if (!writeReport(path, ExportFormat::Pdf))
        return false;
    m_mailer(path);
    return true;
}

} // namespace report
