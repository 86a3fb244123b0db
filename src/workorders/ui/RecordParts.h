#pragma once

#include "platform/grid/GridTypes.h"

#include <QWidget>

class QPlainTextEdit;
class QPushButton;
class RecordFrame;
class RecordServices;
class ServiceNote;

namespace grid {
class GridView;
}

/// The parts and the note of the service on whose row the recording page stands. Every cell is
/// written at once, the note when it is left.
class RecordParts final : public QWidget
{
    Q_OBJECT

public:
    RecordParts(RecordFrame &frame, const RecordServices &services, QWidget *parent = nullptr);

    /// Lets the buttons follow what is in the lists.
    void EnableControls();
    /// Gives the suppliers that the cells offer.
    void setSuppliers(const QList<grid::Choice> &suppliers);
    /// Shows the parts, and both parts and note, of the current service.
    void RefreshRecordPartGrid();
    void showPartsAndNote();
    /// Stores the note; False when it is refused.
    [[nodiscard]] bool leaveNote();
    /// The grid, grdRecordPart.
    [[nodiscard]] grid::GridView *grid() const { return grdRecordPart; }

private:
    void buildBox();
    void connectControls();
    [[nodiscard]] QList<grid::Column> columns();
    /// Writes a cell over what is shown in it; the user is asked when another workstation changed
    /// it.
    [[nodiscard]] bool write(int row, const QString &column, const QString &field,
                             const QVariant &value);
    [[nodiscard]] bool usedChanged(int row, bool used);
    void cmdRecordAddPart_Click();
    void cmdRecordRemovePart_Click();

    RecordFrame &m_frame;
    const RecordServices &m_services;

    grid::GridView *grdRecordPart = nullptr;
    QPushButton *cmdRecordAddPart = nullptr;
    QPushButton *cmdRecordRemovePart = nullptr;
    QPlainTextEdit *txtRecordNote = nullptr;
    ServiceNote *m_note = nullptr;
};
