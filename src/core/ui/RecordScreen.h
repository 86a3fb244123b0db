#pragma once

#include "core/Permission.h"
#include "core/Place.h"
#include "core/ui/SavingScreen.h"
#include "platform/db/Recordset.h"

class QLineEdit;
class QPushButton;
class QToolButton;

namespace input {
class FormBuilder;
}

/// The shape of a screen that shows one record at a time: it moves through the rows of a table,
/// adds, changes and deletes, and swaps its buttons by mode. A screen of this shape says only what
/// differs: its rows, its controls, its checks and its writes.
///
///     Browse: navigation, Add, Delete, Find, Print, Return; the first edit turns it to Modify
///     Modify, Add: Save and Cancel; the close box is off
///     no rows: only Add and Return
class RecordScreen : public SavingScreen
{
    Q_OBJECT

public:
    /// Opens on the row of this key, on the first row when there is none; mode Add presses Add on
    /// the new screen. Returns the key of the record shown last, as text.
    QString showRecord(Mode mode, const QVariant &key = {});

protected:
    using SavingScreen::SavingScreen;

    // --- What a screen says ------------------------------------------------------------------

    /// All rows in their order. A screen of a table that is too long for that has rowsAt instead.
    [[nodiscard]] virtual db::Recordset loadRows() { return {}; }
    /// The rows to move through, with the cursor at a place as seen from the row of this key: the
    /// first row when there is no such row. They hold at least the row and its neighbours.
    [[nodiscard]] virtual db::Recordset rowsAt(Place place, const QVariant &key);
    /// The column of the rows by whose value a row is found again.
    [[nodiscard]] virtual QString keyColumn() const = 0;
    /// Shows a row in the controls. Runs under Displaying, so that nothing counts as an edit.
    virtual void DisplayData(const db::Row &row) = 0;
    /// Empties the controls. Runs under Displaying.
    virtual void ClearData() = 0;
    /// Makes a cleared form ready for a new record: its key, presets, where the focus begins.
    virtual void prepareNewRecord() {}
    /// The checks of a save. A failed one tells the user, sets the focus, and answers False.
    [[nodiscard]] virtual bool VailidateFields() = 0;
    /// Deletes the row of a key, which has been asked about and is used by nothing. False, or an
    /// error, when it stays.
    [[nodiscard]] virtual bool deleteRecord(const QVariant &key) = 0;
    /// The word for what uses the record, empty when it may go.
    [[nodiscard]] virtual QString usedBy(const QVariant &key) const;
    /// Asked before a deletion.
    [[nodiscard]] virtual QString deleteQuestion() const;
    /// The key of the row to show when the current one has been deleted; Null for the first row.
    [[nodiscard]] virtual QVariant keyAfterDeletion() const { return {}; }
    /// After the mode, the rows or the current row changed.
    virtual void recordShown() {}

    // --- What a screen calls while it is built -----------------------------------------------

    struct Buttons
    {
        bool find = false;
        bool print = false;
        QString addName = QStringLiteral("cmdAdd");
        QString saveName = QStringLiteral("cmdUpdate");
    };
    /// Makes the button row: First, Previous, Next, Last; Add, Delete, Find, Print; Save, Cancel;
    /// Return.
    void makeButtons(input::FormBuilder &form, const Buttons &buttons);
    /// The fields that hold the record. Their edits turn the mode; they are locked when there is
    /// nothing to edit or the user may not.
    /// Further controls are those that a screen shows and reads by itself.
    void setFields(const QList<Bindings *> &fields, const QList<QWidget *> &further = {});
    /// The rights that Add, Modify and Delete need. Without a call all are free.
    void setRights(const rights::RecordRights &needed) { m_rights = needed; }
    /// A grid that shows all rows beside the fields and moves with them. Its columns are those
    /// that were added to it; others that the rows bring stay hidden.
    void setListGrid(grid::GridView *grid);

    // --- What a screen may use ---------------------------------------------------------------

    [[nodiscard]] const db::Recordset &rows() const { return m_rows; }
    [[nodiscard]] bool hasRows() const { return !m_rows.isEmpty(); }
    /// The key of the row on show; Null without rows.
    [[nodiscard]] QVariant currentKey() const;
    /// The rows read again and the row of this key shown, the first when it isn't there.
    void RefreshRecordSet(const QVariant &key = {});
    /// Shows another row: by place, or by its number among the rows. Without such a row nothing
    /// happens.
    void goTo(Place place);
    void moveTo(int row);
    void EnableControls() override;
    /// Lets the buttons of navigation follow the place of the current row; all are off while a
    /// record is edited.
    void NavigationControls();
    bool mayClose() override { return mode() == Mode::Browse; }
    /// True when the user may change what the screen shows now.
    [[nodiscard]] virtual bool mayEdit() const;
    /// Shows the message for a field, gives it the focus, and answers False.
    static bool refuse(QWidget *field, const QString &message, bool information = true);
    /// In mode Modify, a changed name of a record in use reaches all its users and so is asked
    /// about first. No puts the stored name back and answers False.
    [[nodiscard]] bool confirmMassChange(QLineEdit *field, const QString &storedName);

    /// What the buttons do. Save does nothing while a field that is being typed into or a check
    /// refuses, and keeps the mode when the record could not be stored. Cancel shows the row as it
    /// was read, and reads it again when it is known to be another one by now. Delete asks first,
    /// and tells what uses a record that has to stay.
    virtual void cmdAdd_Click();
    virtual void cmdUpdate_Click();
    virtual void cmdCancel_Click();
    virtual void cmdDelete_Click();
    virtual void cmdFind_Click() {}
    virtual void cmdPrint_Click() {}
    virtual void cmdExit_Click() { unload(); }

    QPushButton *cmdAdd = nullptr;
    QPushButton *cmdDelete = nullptr;
    QPushButton *cmdFind = nullptr;
    QPushButton *cmdPrint = nullptr;
    QPushButton *cmdUpdate = nullptr;
    QPushButton *cmdCancel = nullptr;
    QPushButton *cmdExit = nullptr;
    QToolButton *cmdFirst = nullptr;
    QToolButton *cmdPrevious = nullptr;
    QToolButton *cmdNext = nullptr;
    QToolButton *cmdLast = nullptr;

private:
    void showCurrentRow();
    [[nodiscard]] bool removed(const QVariant &key);
    void showButtons(bool browsing);
    void lockDataControls(bool locked);

    db::Recordset m_rows;
    QList<QWidget *> m_dataControls;
    grid::GridView *m_grid = nullptr;
    bool m_gridIsAdopted = false;
    bool m_following = false; ///< the grid is being moved by the screen
    rights::RecordRights m_rights{nullptr, nullptr, nullptr};
};
