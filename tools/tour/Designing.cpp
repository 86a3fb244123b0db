// A report that came with the program is changed to the company's taste, and a new one is made.
#include "platform/base/Environment.h"
#include "platform/base/Error.h"
#include "platform/report/designer/DesignCanvas.h"
#include "platform/report/designer/ReportDesigner.h"
#include "platform/system/Process.h"
#include "tour/Tour.h"

#include <QFile>
#include <QFileInfo>
#include <QPainter>
#include <QRegularExpression>
#include <map>

namespace tour {
namespace {

using namespace Qt::StringLiterals;
using report::Place;

const QString Designer = u"CRDesignerCtrl1"_s;
const QString Tabs = u"designerTabs"_s;
constexpr int PreviewTab = 1;
const QString Sides = u"sides"_s;
constexpr int StructureSide = 0;
constexpr int DataSide = 1;
constexpr QSize LogoSize(480, 160);
const QString NewHeading = u"Needed"_s;
const QString OwnReport = u"Parts by supplier"_s;

/// Drawn here, so that the tour needs no file that somebody has to bring along.
void drawLogo(const QString &file)
{
    QImage logo(LogoSize, QImage::Format_RGB32);
    logo.fill(Qt::white);
    QPainter painter(&logo);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0x2e, 0x7d, 0x32));
    painter.drawEllipse(10, 10, 140, 140);
    painter.setBrush(Qt::white);
    painter.drawPie(30, 30, 100, 100, 30 * 16, 120 * 16);
    painter.setPen(QColor(0x24, 0x47, 0x6d));
    QFont font(u"Liberation Sans"_s);
    font.setPixelSize(60);
    font.setBold(true);
    painter.setFont(font);
    painter.drawText(QRect(170, 0, 310, 160), Qt::AlignVCenter, u"GREENS"_s);
    painter.end();
    require(logo.save(file), u"%1 can't be written."_s.arg(file));
}

QByteArray bytesOf(const QString &path)
{
    QFile file(path);
    require(file.open(QIODevice::ReadOnly), u"%1 must be there."_s.arg(path));
    return file.readAll();
}

/// What a PDF file says, its columns parted by blanks.
QString printedText(const QString &pdf)
{
    const QString text = pdf + u".txt"_s;
    require(sys::runAndWait(u"pdftotext -layout \"%1\" \"%2\""_s.arg(pdf, text)) == 0,
            u"%1 can't be read."_s.arg(pdf));
    const QString said = QString::fromUtf8(bytesOf(text));
    QFile::remove(text);
    return said;
}

/// Where the object stands that shows this.
Place placeOf(const report::Layout &layout, const QString &content)
{
    for (int band = 0; band < layout.bands.size(); ++band)
        for (int object = 0; object < layout.bands[band].objects.size(); ++object)
            if (layout.bands[band].objects[object].content == content)
                return {band, object};
    throw Fault(u"The report must show \"%1\"."_s.arg(content));
}

QRect frameAt(const report::Layout &layout, Place place)
{
    return report::frameOf(layout.bands[place.band].objects[place.object]);
}

} // namespace

report::DesignCanvas &Tour::sheet() const
{
    return m_hands.control<report::DesignCanvas>(u"canvas"_s);
}

const report::Layout &Tour::designed() const
{
    return m_hands.control<report::ReportDesigner>(Designer).layout();
}

QPoint Tour::onSheet(const QString &content) const
{
    const Place place = placeOf(designed(), content);
    return sheet().toViewport(place.band, frameAt(designed(), place).center());
}

Task Tour::openTheWorkOrder()
{
    co_await m_hands.chooseEntry(u"mnuModifyReport"_s);
    m_hands.requireWindow(u"frmUserDefinedReports"_s);
    const int row = m_hands.grid(u"grdReports"_s).rows().findRow(u"Reports Name", u"Workorder"_s);
    co_await m_hands.click(u"grdReports"_s, row, u"Reports Name"_s);
    see(u"reports"_s, u"The reports that came with the program; each can be changed."_s);
    co_await m_hands.press(u"cmdViewReport"_s);
    m_hands.requireWindow(u"frmReportModify"_s);
    see(u"designer"_s, u"The work order in the designer."_s);
}

Task Tour::putInTheLogo()
{
    const QString file = path(u"logo.png"_s);
    drawLogo(file);
    QWidget &ground = *sheet().viewport();
    co_await m_hands.clickAt(ground, sheet().toViewport(0, {10000, 1200}));
    co_await m_hands.press(u"insert-picture"_s);
    co_await m_hands.type(u"fileNameEdit"_s, file);
    see(u"choose-logo"_s, u"The page header gets a picture from a file."_s);
    co_await m_hands.key(Qt::Key_Return);
    m_hands.requireWindow(u"frmReportModify"_s);

    const QString name = QFileInfo(file).fileName();
    require(designed().pictureIndex(name) >= 0, u"The layout must hold the picture itself."_s);
    const Place logo = placeOf(designed(), name);
    const auto corner = [&](QPoint share) {
        const QRect frame = frameAt(designed(), logo);
        return sheet().toViewport(logo.band, frame.topLeft() + QPoint(frame.width() * share.x(),
                                                                      frame.height() * share.y()));
    };
    // It fits above the line, in the middle of what is free.
    const QPoint smaller(0, -14);
    co_await m_hands.drag(ground, corner({1, 1}), corner({1, 1}) + smaller);
    const QPoint right(sheet().toViewport(0, {8800, 0}) - sheet().toViewport(0, {0, 0}));
    co_await m_hands.drag(ground, onSheet(name), onSheet(name) + right);
    const QRect frame = frameAt(designed(), logo);
    require(frame.x() > 7000 && frame.bottom() < 1050,
            u"The logo must stand where it was dragged, and not at %1, %2."_s.arg(frame.x()).arg(
                frame.bottom()));
    see(u"logo"_s, u"The logo is drawn smaller and to its place."_s);
}

Task Tour::changeAColumn()
{
    QWidget &ground = *sheet().viewport();
    // The tree leads to what lies beyond the edge.
    co_await m_hands.clickLine(u"structure"_s, u"Text \"Take\""_s);
    co_await m_hands.doubleClickAt(ground, onSheet(u"Take"_s));
    co_await m_hands.type(NewHeading);
    co_await m_hands.key(Qt::Key_Return);
    (void)placeOf(designed(), NewHeading);
    // A heading and the field below it, to be drawn by the edge of one.
    const QString heading = u"Description"_s;
    const Place place = placeOf(designed(), heading);
    const QRect before = frameAt(designed(), place);
    co_await m_hands.clickLine(u"structure"_s, u"Text \"Description\""_s);
    co_await m_hands.clickAt(ground, onSheet(heading), Qt::RightButton);
    see(u"column-menu"_s,
        u"The heading \"Take\" reads \"%1\"; the menu selects a whole column."_s.arg(NewHeading));
    co_await m_hands.chooseFromMenu(u"Select the column"_s);
    const QPoint edge =
        sheet().toViewport(place.band, QPoint(before.x() + before.width(), before.center().y()));
    const QPoint left(sheet().toViewport(0, {2000, 0}) - sheet().toViewport(0, {0, 0}));
    co_await m_hands.drag(ground, edge, edge - QPoint(left.x(), 0));
    const QRect after = frameAt(designed(), place);
    const report::Band &below = designed().bands[place.band + 1];
    require(after.width() < before.width() - 1500, u"The column must be narrower."_s);
    require(std::ranges::any_of(below.objects,
                                [&](const report::Object &object) {
                                    return object.content == heading &&
                                           object.width == after.width();
                                }),
            u"The field below must be as wide as its heading."_s);
    see(u"column"_s, u"The column \"Description\" is drawn narrower, heading and field at once."_s);
    keepForHelp(u"frmReportModify"_s, u"designer"_s);
}

Task Tour::previewAndSave()
{
    co_await m_hands.chooseTab(Tabs, PreviewTab);
    see(u"own-preview"_s, u"The preview shows the changed work order on open orders."_s);
    const QString delivered = base::applicationPath(u"\\Reports\\rptWorkorder.rpt"_s);
    const QByteArray before = QFile::exists(delivered) ? bytesOf(delivered) : QByteArray();
    co_await m_hands.press(u"cmdUpdate"_s);
    co_await m_hands.press(u"cmdExit"_s); // saved, so nothing is asked
    m_hands.requireWindow(u"frmMainScreen"_s);
    require(QFile::exists(base::applicationPath(u"\\Custom Reports\\rptWorkorder.rpt"_s)),
            u"The changed report must be among the company's own."_s);
    require((QFile::exists(delivered) ? bytesOf(delivered) : QByteArray()) == before,
            u"The delivered report must stay as it was."_s);
    require(QFile::remove(path(u"logo.png"_s)), u"The logo's file must be free again."_s);
}

/// The work order prints with the company's own layout from now on, without the logo's file.
Task Tour::printTheOwnOrder()
{
    const db::Recordset orders = m_company->rows(
        u"Select WorkorderNo from tblWoServiceUsed inner join tblWoPartUsed on "
        "tblWoServiceUsed.NServiceUsedID = tblWoPartUsed.ServiceUsedID order by WorkorderNo"_s);
    require(!orders.isEmpty(), u"An open order must need parts."_s);
    const qint64 order = orders.current().integer(u"WorkorderNo");
    co_await m_hands.chooseEntry(u"mnuPrintWO"_s);
    m_hands.requireWindow(u"frmWorkorder"_s);
    const int row = m_hands.grid(u"grdPrintWO"_s).rows().findRow(u"WorkOrderNo", order);
    co_await m_hands.click(u"grdPrintWO"_s, row, u"Select"_s);
    co_await m_hands.press(u"cmdPrint"_s);
    m_hands.requireWindow(u"frmReportPreview"_s);
    see(u"own-order"_s, u"Order %1 with the company's own layout."_s.arg(order));
    co_await exportReport(u"own-work-order.pdf"_s);
    const QString text = printedText(path(u"own-work-order.pdf"_s));
    require(text.contains(u"Work Order %1"_s.arg(order)), u"The paper must be of the order."_s);
    require(text.contains(NewHeading) && !text.contains(u"Take"_s),
            u"The paper must show the new heading in place of the old one."_s);
    const QByteArray pdf = bytesOf(path(u"own-work-order.pdf"_s));
    require(pdf.contains("/Subtype /Image") &&
                pdf.contains("/Width " + QByteArray::number(LogoSize.width())),
            u"The paper must show the logo."_s);
    co_await m_hands.press(u"cmdExit"_s);
    co_await m_hands.answer(u"Mark Work Orders as Printed"_s, u"No"_s);
    co_await m_hands.press(u"cmdExit"_s);
    m_hands.requireWindow(u"frmMainScreen"_s);
}

Task Tour::makeAReport()
{
    co_await m_hands.chooseEntry(u"mnuNewReport"_s);
    m_hands.requireWindow(u"frmReportModify"_s);
    see(u"empty-report"_s, u"A new report begins empty; the wizard fills it."_s);
    co_await m_hands.press(u"cmdWizard"_s);
    m_hands.requireWindow(u"frmNewReportWizard"_s);
    co_await m_hands.clickLine(u"lstTables"_s, u"Parts"_s);
    co_await m_hands.type(u"txtTitle"_s, OwnReport);
    see(u"wizard-table"_s, u"What it is about, and its title."_s);
    co_await m_hands.press(u"cmdNext"_s);
    co_await m_hands.tickLine(u"lstColumns"_s, u"Part Category"_s);
    co_await m_hands.tickLine(u"lstColumns"_s, u"Bin"_s);
    see(u"wizard-columns"_s, u"Which columns it shows."_s);
    keepForHelp(u"frmNewReportWizard"_s, u"wizard-columns"_s);
    co_await m_hands.press(u"cmdNext"_s);
    co_await m_hands.choose(u"cboGroup1"_s, u"Supplier"_s);
    co_await m_hands.tickLine(u"lstTotals"_s, u"Qty on Hand"_s);
    see(u"wizard-groups"_s, u"A group for each supplier, and what is added up."_s);
    co_await m_hands.press(u"cmdNext"_s);
    co_await m_hands.choose(u"cboChart"_s, u"Bars"_s);
    see(u"wizard-looks"_s, u"With a chart; the first page stands beside it."_s);
    keepForHelp(u"frmNewReportWizard"_s, u"wizard-looks"_s);
    co_await m_hands.press(u"cmdFinish"_s);
    m_hands.requireWindow(u"frmReportModify"_s);
    see(u"made-report"_s, u"The whole report, to be changed like any other."_s);
    co_await addAColumn();
    co_await seeTheQuery();
    co_await seeAnExpression();
    co_await m_hands.chooseTab(Tabs, PreviewTab);
    see(u"made-preview"_s, u"Its preview, on the company's parts."_s);
    keepForHelp(u"frmReportModify"_s, u"preview"_s);
    co_await m_hands.press(u"cmdUpdate"_s);
    m_hands.requireWindow(u"inputBox"_s);
    co_await m_hands.type(OwnReport);
    see(u"name"_s, u"The first save asks for a name."_s);
    co_await m_hands.key(Qt::Key_Return);
    co_await m_hands.press(u"cmdExit"_s);
    m_hands.requireWindow(u"frmMainScreen"_s);
}

/// A field that is put into the detail gets its heading.
Task Tour::addAColumn()
{
    const Place heading = placeOf(designed(), u"Bin"_s);
    const Place detail = placeOf(designed(), u"PartID"_s);
    co_await m_hands.chooseTab(Sides, StructureSide);
    co_await m_hands.clickLine(u"structure"_s, u"Field \"PartID\""_s);
    co_await m_hands.chooseTab(Sides, DataSide);
    co_await m_hands.type(u"dataFilter"_s, u"Qty Min"_s);
    auto &fields = m_hands.control<QAbstractItemView>(u"data"_s);
    co_await m_hands.doubleClickAt(*fields.viewport(),
                                   Hands::lineOf(fields, u"Qty Min (QtyMin)"_s).center());
    const Place added = placeOf(designed(), u"Qty Min"_s);
    const Place field = placeOf(designed(), u"QtyMin"_s);
    require(added.band == heading.band && field.band == detail.band &&
                frameAt(designed(), added).x() == frameAt(designed(), field).x(),
            u"The field must stand in the detail, and its heading above it."_s);
    see(u"added-column"_s, u"A field is added by a double click: the others make room."_s);
}

Task Tour::seeTheQuery()
{
    co_await m_hands.press(u"editQuery"_s);
    m_hands.requireWindow(u"frmReportQuery"_s);
    co_await m_hands.press(u"cmdShowRows"_s);
    see(u"query"_s, u"The query behind it: tables, joins, columns, filter, sort, first rows."_s);
    keepForHelp(u"frmReportQuery"_s, u"query"_s);
    co_await m_hands.press(u"cmdCancel"_s);
    m_hands.requireWindow(u"frmReportModify"_s);
}

Task Tour::seeAnExpression()
{
    co_await m_hands.clickLine(u"attributes"_s, u"Expression"_s);
    co_await m_hands.press(u"askExpression"_s);
    m_hands.requireWindow(u"frmExpression"_s);
    co_await m_hands.key(Qt::Key_End, Qt::ControlModifier);
    co_await m_hands.type(u" - Quant"_s);
    see(u"expression"_s, u"An expression is written with the offer of names."_s);
    co_await m_hands.type(u"ity"_s);
    keepForHelp(u"frmExpression"_s, u"expression"_s);
    co_await m_hands.press(u"cmdCancel"_s);
    m_hands.requireWindow(u"frmReportModify"_s);
}

/// The totals of each supplier, added up over the tables row by row.
void Tour::requireSums(const QString &text)
{
    std::map<QString, std::pair<qint64, double>> sums; // parts and quantity
    std::map<qint64, QString> names;
    for (const db::Row row : m_company->rows(u"Select SupplierID, Name from tblSupplier"_s))
        names[row.integer(u"SupplierID")] = row.text(u"Name");
    const auto count = [](std::pair<qint64, double> &sum, double more) {
        ++sum.first;
        sum.second += more;
    };
    std::pair<qint64, double> all;
    for (const db::Row row : m_company->rows(u"Select SupplierID, Quantity from tblPart"_s)) {
        const auto name = names.find(row.integer(u"SupplierID"));
        count(sums[name == names.end() ? u"None"_s : name->second], row.real(u"Quantity"));
        count(all, row.real(u"Quantity"));
    }
    const auto requireLine = [&](const QString &label, const std::pair<qint64, double> &sum) {
        const QRegularExpression line(
            u"%1 \\(%2 rows?\\) +%3 *(\\n|$)"_s.arg(QRegularExpression::escape(label))
                .arg(sum.first)
                .arg(QLocale::c().toString(sum.second, 'f', QLocale::FloatingPointShortest)));
        require(
            line.match(text).hasMatch(),
            u"The report must tell: %1, %2 rows, %3."_s.arg(label).arg(sum.first).arg(sum.second));
    };
    for (const auto &[name, sum] : sums)
        requireLine(u"Total of "_s + name, sum);
    requireLine(u"Total"_s, all);
}

Task Tour::viewTheReport()
{
    co_await m_hands.chooseEntry(u"mnuViewUserReport"_s);
    m_hands.requireWindow(u"frmUserDefinedReports"_s);
    co_await m_hands.press(u"cmdViewReport"_s);
    m_hands.requireWindow(u"frmReportPreview"_s);
    see(u"own-report"_s, u"From now on it stands under \"View Custom Report\"."_s);
    co_await exportReport(u"parts-by-supplier.pdf"_s);
    const QString text = printedText(path(u"parts-by-supplier.pdf"_s));
    requireSums(QString(text).remove(u','));
    require(text.contains(u"Qty on Hand by Supplier"_s), u"The chart must be on the paper."_s);
    co_await m_hands.press(u"cmdExit"_s);
    m_hands.requireWindow(u"frmMainScreen"_s);
}

} // namespace tour
