#pragma once

#include "core/ui/Binding.h"
#include "core/ui/RecordScreen.h"
#include "organisation/clsIndicator.h"

namespace input {
class IdCombo;
}

class QLabel;

/// The one editor of all lookup lists. Lists whose items hang under a parent show the parents
/// twice: to choose whose items are listed, and to choose the parent of the item being edited.
class frmIndicator final : public RecordScreen
{
    Q_OBJECT

public:
    struct Opening
    {
        qint64 listNumber = 0;
        qint64 itemID = 0;     ///< to begin on, 0 for none
        QString parentValue{}; ///< name or number of the parent to begin with, may be empty
        qint64 typeID = 0;     ///< of models: the equipment type whose makes are the parents
        bool engine = false;   ///< models of engine makes
    };

    explicit frmIndicator(const Opening &opening, QWidget *parent = nullptr);

protected:
    db::Recordset loadRows() override;
    QString keyColumn() const override { return QStringLiteral("ItemID"); }
    void DisplayData(const db::Row &row) override;
    void ClearData() override;
    void prepareNewRecord() override;
    QString recordName() const override;
    bool VailidateFields() override;
    std::optional<QVariant> saveRecord() override;
    bool deleteRecord(const QVariant &key) override;
    QString usedBy(const QVariant &key) const override;
    void recordShown() override;

private:
    void buildForm();
    /// Arranges the form for the list whose name was chosen: who its parents are, what they are
    /// called, how long a name may be.
    void lstIndicatorP_Click();
    /// Fills a list with the parents that the items may hang under.
    void loadParents(input::IdCombo &combo) const;
    /// Chooses the parent that the opening names, else that of the item to begin on.
    void presetParent();
    /// True when another item below the parent has that name.
    bool NameDupl(qint64 parent, const QString &name) const;
    [[nodiscard]] bool hasParents() const { return !m_parentLabel.isEmpty(); }
    /// What the edited item hangs under: the list itself where it has no other parents.
    [[nodiscard]] qint64 parentOfItem() const;

    Opening m_opening;
    QString m_parentLabel; ///< empty for a list without parents
    Binding<clsIndicator> m_fields{clsIndicator::fields()};

    input::IdCombo *lstIndicatorP = nullptr; ///< the list's name
    input::IdCombo *cboIndicator = nullptr;  ///< filter
    grid::GridView *lstIndicator = nullptr;
    QLineEdit *txtItemID = nullptr;
    QLineEdit *txtName = nullptr;
    input::IdCombo *cboParentType = nullptr;
    QLabel *lblFilter = nullptr;
    QLabel *lblParent = nullptr;
};
