#pragma once

#include "core/ui/RecordScreen.h"
#include "equipment/clsEquipment.h"
#include "scheduling/ui/MachinePage.h"

class CountPage;
class DepreciationPage;
class EquipmentTabs;
class IdentityPage;
class QLabel;
class QStackedWidget;
class RecordPage;
class ServicePage;

/// The machines: one record at a time on thirteen pages. From the first edit, or from Add, the
/// screen holds one transaction until Save or Cancel, in which all that its pages write lies too.
class frmEquipment final : public RecordScreen, public MachineFrame
{
    Q_OBJECT

public:
    explicit frmEquipment(QWidget *parent = nullptr);

    // --- For the pages -----------------------------------------------------------------------

    [[nodiscard]] Mode frameMode() const override { return mode(); }
    void beginEdit() override;
    bool save() override;
    void cancelEdit() override { cmdCancel_Click(); }
    void RefreshCombo(const QString &listName) override;
    void contentChanged() override { CheckUserDefinedfields(); }
    void keepLayout(grid::GridView *grid, const QString &gridName) override;

protected:
    db::Recordset rowsAt(Place place, const QVariant &key) override;
    QString keyColumn() const override { return QStringLiteral("EquipmentID"); }
    void DisplayData(const db::Row &row) override;
    void ClearData() override;
    void prepareNewRecord() override;
    bool takeFreshKey() override;
    QString recordName() const override;
    bool VailidateFields() override;
    std::optional<QVariant> saveRecord() override;
    bool deleteRecord(const QVariant &key) override;
    QString usedBy(const QVariant &key) const override;
    QString deleteQuestion() const override;
    QVariant keyAfterDeletion() const override;
    void EnableControls() override;
    void recordShown() override;
    void unloading() override;
    void cmdCancel_Click() override;
    void cmdFind_Click() override;
    void cmdPrint_Click() override;
    bool event(QEvent *event) override;

private:
    void buildForm();
    void makePages();
    /// A page behind the others; its place is that of its tab.
    void addPage(const QString &name, MachinePage *page);
    /// Joins the pages' fields to the record, and pages to each other where one changes what
    /// another shows.
    void connectPages();

    /// The user asked for a page by its button or key.
    void chooseTab(int index);
    /// True when the page is on show already.
    [[nodiscard]] bool ChkFrameVisible(int index) const;
    /// A new machine has to be saved before another page than the first is shown. True when the
    /// page may be shown.
    [[nodiscard]] bool ChkEquipmentNameAndNo();
    /// Shows a page without asking.
    void FrameVisible(int index);
    /// Marks the tabs of the pages that have something in them.
    void CheckUserDefinedfields();
    /// Brings the page to the front whose control refuses to be saved; answers False.
    bool refusedBy(MachinePage *page);
    /// The machine's number and name above all pages.
    void showHeading();
    /// The machine as the pages show it.
    [[nodiscard]] clsEquipment SetObjectValues() const;
    /// The next click shows the help about what it hits.
    static void cmdHelp_Click();
    /// The topic about a control: that of its page or tab, else that of the screen.
    [[nodiscard]] static QString FindHelpContextId(const QWidget *control);

    qint64 m_equipmentID = 0;
    QList<MachinePage *> m_pages;
    QList<RecordPage *> m_recordPages;
    IdentityPage *m_identity = nullptr;
    ServicePage *m_services = nullptr;
    CountPage *m_counts = nullptr;
    DepreciationPage *m_depreciation = nullptr;

    EquipmentTabs *m_tabs = nullptr;
    QStackedWidget *m_stack = nullptr;
    QLabel *lblHeading = nullptr;
};
