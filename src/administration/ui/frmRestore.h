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
    /// The table with what the backup and the database hold, side by side.
    QWidget *makeComparison();
    /// Fills the column of the database that is there; of a damaged one it says so.
    void showNow();
    void show(const administration::Summary &summary, Column &column);
    void clearChosen();
    /// That it is restored, where the former database is kept, and whether a new start has to
    /// follow.
    void tell(const administration::Restored &restored) const;
    /// What was shown of another file goes, and its passphrase with it.
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
    /// A fingerprint of the chosen file, copied to where it is checked; nothing when it can't be
    /// unsealed, which has been told.
    [[nodiscard]] std::optional<QByteArray> fetched();
    /// Asks, with both in one line each.
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
