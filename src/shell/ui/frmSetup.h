#pragma once

#include "core/ui/Screen.h"

#include <QList>
#include <functional>

class QCheckBox;
class QLineEdit;
class QPushButton;
class QTabWidget;

namespace input {
class FormBuilder;
class PhoneInput;
class SpinInput;
} // namespace input

namespace copies {
struct KeepRule;
}

/// The options: the company's name and address, the days of warnings, the captions of free fields,
/// the lookup lists, what this workstation keeps for itself, the services that the program uses
/// (the mail account, the makers' error store, updates), and the copies that it makes by itself.
class frmSetup final : public Screen
{
    Q_OBJECT

public:
    explicit frmSetup(QWidget *parent = nullptr);

    /// Opens the options, at the page of that name if there is one, and waits until they are
    /// closed.
    static void ShowSystemSettings(const QString &page = {});

protected:
    void EnableControls() override;

private:
    /// A control that edits an option, or what has functions of its own to be read and stored by.
    struct Field
    {
        QString key;
        bool perWorkstation = false;
        std::function<QString()> text;
        std::function<void(const QString &)> setText;
        std::function<QString()> read = {};              ///< empty for an option
        std::function<void(const QString &)> store = {}; ///< empty for an option
        bool changed = false;
    };

    void buildForm();
    [[nodiscard]] QWidget *companyPage();
    [[nodiscard]] QWidget *fieldsPage();
    [[nodiscard]] QWidget *listsPage();
    [[nodiscard]] QWidget *workstationPage();
    [[nodiscard]] QWidget *mailPage();
    [[nodiscard]] QWidget *errorReportsPage();
    [[nodiscard]] QWidget *updatesPage();
    [[nodiscard]] QWidget *backupsPage();
    void addPage(QWidget *page, const QString &name, const QString &caption);
    /// A box for an option of the company: a text of at most so many characters, or a number of
    /// days.
    QLineEdit *addText(input::FormBuilder &form, QStringView key, const QString &name,
                       const QString &label, int length);
    QLineEdit *addDays(input::FormBuilder &form, QStringView key, const QString &name,
                       const QString &label);
    /// A box for a secret of this workstation, which it never shows: what is typed replaces the
    /// one that is kept, and a button beside it forgets that.
    QLineEdit *addSecret(input::FormBuilder &form, const QString &option, const QString &name,
                         const QString &label);
    /// Has the control read and stored with the others. A box tells of its changes by itself; for
    /// any other Field markChanged has to be called.
    void addField(QLineEdit *box, QStringView key);
    void addField(Field field);
    /// A number of the rule by which copies stay.
    void addKept(input::SpinInput *spin, QStringView option, int copies::KeepRule::*number);
    /// A button that opens the editor of a lookup list.
    void addList(input::FormBuilder &form, const QString &name, const QString &caption,
                 std::function<void()> open);
    void readOptions();
    /// Only what was changed since it was read is stored.
    void markChanged(const QString &key);
    [[nodiscard]] bool isChanged() const;
    /// Stores what has been changed, in its order; False when it could not, which has been told.
    bool SaveSystemChanges();
    /// OK closes unless something could not be stored; Cancel stays, and reads again what is
    /// stored.
    void cmdOk_Click();
    void cmdApply_Click();
    void cmdCancel_Click();
    void cmdDefaultFormSize_Click();

    QList<Field> m_fields;
    bool m_reading = false;

    QTabWidget *tabOptions = nullptr;
    QLineEdit *txtCompanyName = nullptr;
    input::PhoneInput *txtCompanyPhone = nullptr;
    QCheckBox *chkSecurity = nullptr;
    QPushButton *cmdDefaultFormSize = nullptr;
    QPushButton *cmdTestMail = nullptr;
    QPushButton *cmdTestErrorStore = nullptr;
    QPushButton *cmdCheckForUpdates = nullptr;
    QPushButton *cmdOk = nullptr;
    QPushButton *cmdApply = nullptr;
    QPushButton *cmdCancel = nullptr;
    QPushButton *cmdExit = nullptr;
};
