#pragma once

#include "workorders/ui/LatenessStyle.h"

#include <QHash>
#include <QWidget>
#include <functional>

class QPlainTextEdit;
class QPushButton;
class ServiceNote;

namespace grid {
class GridView;
}

/// The second page of the work-order screen, where a mechanic's paper comes back: all open orders,
/// the services of the current one, the parts of the current service. Every cell is written at
/// once.
class RecordWorkPage final : public QWidget
{
    Q_OBJECT

public:
    explicit RecordWorkPage(QWidget *parent = nullptr);

    /// Reads the orders anew; the current order stays.
    void RefreshRecordWorkorder();
    void FindNSelectRecordWorkorder(qint64 WorkorderNo);
    /// The orders that are ticked as complete.
    [[nodiscard]] QList<qint64> completeOrders() const;
    /// True when work may have been completed on this date; else the user is told.
    [[nodiscard]] static bool mayComplete(QDate date);
    /// The machines of all rows, joined by commas.
    [[nodiscard]] QString machines() const;
    [[nodiscard]] bool hasOrders() const;
    /// Stores what is being edited; False when it is refused.
    [[nodiscard]] bool finishEditing();
    [[nodiscard]] QList<grid::GridView *> grids() const;

Q_SIGNALS:
    /// The orders were read anew.
    void refreshed();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void buildPage();
    QWidget *buildOrders();
    QWidget *buildServices();
    QWidget *buildParts();
    void setRules();
    void connectControls();
    void EnableControls();
    [[nodiscard]] qint64 currentOrder() const;
    [[nodiscard]] qint64 currentMachine() const;
    [[nodiscard]] qint64 currentService() const;
    [[nodiscard]] bool isOrderComplete() const;
    [[nodiscard]] bool isServiceCompleted() const;
    [[nodiscard]] QString storedNote() const;

    void showWhatIsLeft();
    void RefreshRecordServiceGrid();
    void RefreshRecordPartGrid();
    void showPartsAndNote();

    [[nodiscard]] grid::Style orderStyle(int row);
    [[nodiscard]] grid::Style serviceStyle(int row, const QString &column) const;

    bool grdRecordWo_Change(int row, const QString &column, const QVariant &value);
    bool completeChanged(int row, bool complete);
    bool completedDateChanged(int row, const QVariant &value);
    bool grdRecordService_Change(int row, const QString &column, const QVariant &value);
    bool crewChanged(int row, qint64 crew);
    bool countChanged(int row, const QVariant &count);
    bool skipChanged(int row, bool skip);
    bool completedChanged(int row, bool completed);
    void showOrderReopened();
    bool grdRecordPart_Change(int row, const QString &column, const QVariant &value);
    void openTimes(int row, const QString &column);
    void cmdSkipAll_Click();
    void cmdAddNewService_Click();
    void cmdRecordAddPart_Click();
    void cmdRecordRemovePart_Click();

    LatenessStyle m_lateness;
    QHash<qint64, bool> m_late; ///< ISWorkOrderLate of the orders painted so far
    bool m_filling = false;     ///< rows are being loaded: no row counts as chosen

    grid::GridView *grdRecordWo = nullptr;
    QPushButton *cmdSkipAll = nullptr;
    grid::GridView *grdRecordService = nullptr;
    QPushButton *cmdRecordAddService = nullptr;
    grid::GridView *grdRecordPart = nullptr;
    QPushButton *cmdRecordAddPart = nullptr;
    QPushButton *cmdRecordRemovePart = nullptr;
    QPlainTextEdit *txtRecordNote = nullptr;
    ServiceNote *m_note = nullptr;
};
