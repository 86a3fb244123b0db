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
} // namespace input

/// The options: the company's name and address, the days of warnings, the captions of free fields,
/// the lookup lists, and what this workstation keeps for itself.
class frmSetup final : public Screen
{
    Q_OBJECT

public:
    explicit frmSetup(QWidget *parent = nullptr);

    /// Opens the options and waits until they are closed.
    static void ShowSystemSettings();

protected:
    void EnableControls() override;

private:
    /// A control that edits an option.
    struct Field
    {
        QString key;
        bool perWorkstation = false;
        std::function<QString()> text;
        std::function<void(const QString &)> setText;
        bool changed = false;
    };

    void buildForm();
    [[nodiscard]] QWidget *companyPage();
    [[nodiscard]] QWidget *fieldsPage();
    [[nodiscard]] QWidget *listsPage();
    [[nodiscard]] QWidget *workstationPage();
    QLineEdit *addText(input::FormBuilder &form, QStringView key, const QString &name,
                       const QString &label, int length);
    QLineEdit *addDays(input::FormBuilder &form, QStringView key, const QString &name,
                       const QString &label);
    void addField(QLineEdit *box, QStringView key);
    void addField(Field field);
    void addList(input::FormBuilder &form, const QString &name, const QString &caption,
                 std::function<void()> open);
    void readOptions();
    void markChanged(const QString &key);
    [[nodiscard]] bool isChanged() const;
    /// Stores what has been changed, in its order; False when it could not, which has been told.
    bool SaveSystemChanges();
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
    QPushButton *cmdOk = nullptr;
    QPushButton *cmdApply = nullptr;
    QPushButton *cmdCancel = nullptr;
    QPushButton *cmdExit = nullptr;
};
