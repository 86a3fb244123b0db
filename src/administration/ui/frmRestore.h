#pragma once

#include "administration/Restore.h"
#include "core/ui/Screen.h"

#include <array>

class QLabel;
class QLineEdit;
class QPushButton;
class QToolButton;

/// Puts a backup in the place of the database, after it has shown what both hold.
class frmRestore : public Screen
{
    Q_OBJECT

public:
    /// From the menu it stays open for the next one; at the start, where there is no database, it
    /// proposes the newest copy, and closes when one was restored.
    enum class Occasion { Menu, Start };
    explicit frmRestore(QWidget *parent = nullptr, Occasion occasion = Occasion::Menu);

    [[nodiscard]] bool hasRestored() const { return m_hasRestored; }
    /// Result: True when the file opens as a whole database that holds tblEquipment.
    void IsValidBackup(const QString &Path, bool &Result) const;

private:
    /// What is compared, line by line.
    static constexpr int Lines = 6;
    struct Column
    {
        QString name;
        std::array<QLabel *, Lines> values{};
    };

    void buildForm();
    QWidget *makeComparison();
    void showNow();
    void show(const administration::Summary &summary, Column &column);
    void clearChosen();
    void tell(const administration::Restored &restored) const;
    void pathChanged();
    [[nodiscard]] administration::Chosen chosen() const;
    /// Fetches and checks what was chosen and shows what it holds; tells the user when it can't be
    /// restored, and gives nothing then.
    struct Checked
    {
        QByteArray fingerprint;
        administration::Summary summary;
    };
    [[nodiscard]] std::optional<Checked> check();
    [[nodiscard]] std::optional<QByteArray> fetched();
    [[nodiscard]] bool isWanted(const administration::Summary &summary) const;

    void cmdBrowse_Click();
    void cmdRestore_Click();

    Occasion m_occasion;
    bool m_hasRestored = false;
    QLineEdit *txtFolderPath = nullptr;
    QToolButton *cmdBrowse = nullptr;
    QLineEdit *txtPassphrase = nullptr;
    Column m_backup{QStringLiteral("Backup"), {}};
    Column m_now{QStringLiteral("Now"), {}};
    std::optional<administration::Summary> m_present; ///< nothing when it can't be read
    QPushButton *cmdRestore = nullptr;
    QPushButton *cmdExit = nullptr;
};
