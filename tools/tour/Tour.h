#pragma once

#include "device/Device.h"
#include "tour/Company.h"
#include "tour/Hands.h"
#include "tour/Task.h"

#include <QDir>
#include <QTextStream>
#include <optional>

namespace report {
class DesignCanvas;
struct Layout;
} // namespace report

namespace tour {

/// The main job on the real windows: what is due becomes work orders, these are printed, recorded
/// and posted, and the machine shows what was done and when it is due again. Then the company's
/// file is lost, and comes back from a backup. Each step is a sequence of clicks and keys, is held
/// against the database, and leaves a picture.
class Tour
{
public:
    /// Pictures and printed files go into the folder, a line for each picture to out.
    Tour(const QDir &folder, QDate today, QTextStream &out);

    /// The whole tour, from the main window to its end.
    Task run();
    /// What the end of the program has to leave; raises a Fault when it didn't.
    void requireSecondCopy();
    /// The picture that was taken last.
    [[nodiscard]] const QString &lastPicture() const { return m_picture; }

    /// A service on an order, with its schedule as it stood before the posting.
    struct Ordered
    {
        qint64 line = 0; ///< NServiceUsedID
        qint64 order = 0;
        qint64 machine = 0;
        std::optional<qint64> count;
        Service schedule;
    };
    /// A part of a posted service that leaves the stock.
    struct Taken
    {
        QString part;
        double before = 0;
        double used = 0;
    };

private:
    // Due, generated, printed
    Task seeTheBoard();
    Task followTheLink();
    Task generateOrders();
    Task changeAnOrder();
    Task printByCrew();
    Task printOrders();
    // Recorded
    Task openRecording();
    Task enterTheCount();
    Task enterTheTimes();
    Task completeAService();
    Task completeTheOrders();
    Task skipAService();
    // Posted
    Task post();
    Task printPosted();
    Task postTheHeldBack();
    // What came of it
    Task seeTheHistory();
    Task seeTheSchedule();
    Task seeTheBoardAgain();
    // Reports as the company wants them
    Task openTheWorkOrder();
    Task putInTheLogo();
    Task changeAColumn();
    Task previewAndSave();
    Task printTheOwnOrder();
    Task makeAReport();
    Task addAColumn();
    Task seeTheQuery();
    Task seeAnExpression();
    Task viewTheReport();
    // Lost and brought back
    Task takeABackup();
    Task restoreIt();

    // Out to the crews and back
    Task exportToTheHandheld();
    void workInTheField();
    Task importFromTheHandheld();
    Task postTheCrewsWork();

    void see(const QString &name, const QString &what);
    /// Keeps the window in front, which has that name, as a picture for a page of the help.
    void keepForHelp(const QString &window, const QString &name);
    /// Each of these raises a Fault when what is seen, or stored, is not what must be.
    void requireBoard();
    void requireList(const QString &gridName, const QString &column, const QStringList &wanted);
    void requireGenerated(const Machine &machine);
    void requireMarked(qint64 orders);
    void requireFile(const QString &path) const;
    void requirePosted(const Ordered &service);
    void requireRescheduled(const Ordered &service);
    void requireTaken(const Taken &part);

    /// Pieces that several steps share.
    Task awaitMessage(const QString &text);
    Task postAll();
    Task tickMachines();
    Task tickOrders();
    Task selectLine(qint64 line);
    Task enterCount(const Service &service, qint64 count);
    Task enterCounts(const Machine &machine);
    Task exportReport(const QString &file);
    Task completeOrders(const Machine &machine);
    Task confirmDates();
    void requireSums(const QString &text);
    /// The designer's sheet, and the layout on it; the designer is in front.
    [[nodiscard]] report::DesignCanvas &sheet() const;
    [[nodiscard]] const report::Layout &designed() const;
    /// The middle of the object that shows this, on the sheet as it is scrolled.
    [[nodiscard]] QPoint onSheet(const QString &content) const;
    /// The row of a machine in a grid by unit numbers; raises a Fault without one.
    [[nodiscard]] int rowOfMachine(const QString &gridName, const Machine &machine);
    /// In the tour's folder.
    [[nodiscard]] QString path(const QString &file) const;
    /// The first due service of a machine that passes; raises a Fault when none does.
    [[nodiscard]] const Service &dueService(const Machine &machine, bool (*test)(const Service &));
    /// The line of an order that a service is on (NServiceUsedID), 0 for none.
    [[nodiscard]] qint64 lineOf(const Service &service);
    /// A line of an order as it is stored; raises a Fault when it has gone.
    [[nodiscard]] db::Row stored(qint64 line);
    /// The services that a posting would take: those completed or skipped on complete orders.
    [[nodiscard]] QList<Ordered> completed();
    /// The parts that these take out of the stock, but for those that several of them take.
    [[nodiscard]] QList<Taken> partsOf(const QList<Ordered> &services);

    QDir m_folder;
    QDate m_today;
    QTextStream &m_out;
    Hands m_hands;
    std::optional<Company> m_company; ///< from the moment that the program stands
    Cast m_cast;
    qint64 m_dueBefore = 0;
    QList<qint64> m_orders;
    QList<device::Deed> m_deeds; ///< of the crew in the field
    QString m_picture;
    int m_number = 0;
};

} // namespace tour
