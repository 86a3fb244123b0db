#pragma once

#include "core/RecordFields.h"
#include "core/Session.h"
#include "core/ui/ScreenDriver.h"
#include "platform/base/Format.h"
#include "platform/input/CurrencyInput.h"
#include "platform/input/DateInput.h"
#include "platform/input/PhoneInput.h"
#include "support/PatientUser.h"

#include <QAbstractSpinBox>

namespace test {

/// The boxes, lists and ticks of a screen that its user may change.
inline QList<QWidget *> fieldsOf(const QWidget &screen)
{
    QList<QWidget *> fields;
    for (QWidget *control : screen.findChildren<QWidget *>()) {
        const auto *line = qobject_cast<QLineEdit *>(control);
        const bool isPart = qobject_cast<QComboBox *>(control->parentWidget()) ||
                            qobject_cast<QAbstractSpinBox *>(control->parentWidget());
        const auto *memo = qobject_cast<QPlainTextEdit *>(control);
        const bool isField = (line && !line->isReadOnly()) || (memo && !memo->isReadOnly()) ||
                             qobject_cast<QComboBox *>(control) ||
                             qobject_cast<QCheckBox *>(control);
        if (isField && !isPart && control->isEnabled() && !control->objectName().isEmpty() &&
            !control->objectName().startsWith(u"qt_"))
            fields.append(control);
    }
    return fields;
}

inline QString shownIn(const QWidget &field)
{
    if (const auto *box = qobject_cast<const QCheckBox *>(&field))
        return box->isChecked() ? QStringLiteral("on") : QStringLiteral("off");
    if (const auto *list = qobject_cast<const QComboBox *>(&field))
        return list->currentText();
    if (const auto *memo = qobject_cast<const QPlainTextEdit *>(&field))
        return memo->toPlainText();
    return static_cast<const QLineEdit &>(field).text();
}

/// Gives a field a value that it did not show, as its user would.
inline void changeField(QWidget &field)
{
    if (auto *box = qobject_cast<QCheckBox *>(&field)) {
        box->click();
        return;
    }
    if (auto *list = qobject_cast<QComboBox *>(&field)) {
        list->setCurrentIndex(list->currentIndex() + 1 < list->count() ? list->currentIndex() + 1
                                                                       : list->currentIndex() - 1);
        Q_EMIT list->activated(list->currentIndex());
        return;
    }
    QString text = QStringLiteral("27");
    if (qobject_cast<input::DateInput *>(&field))
        text = QStringLiteral("11/27/1999");
    else if (qobject_cast<input::PhoneInput *>(&field))
        text = QStringLiteral("2127654321");
    field.setFocus();
    QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&field, Qt::Key_Delete);
    QTest::keyClicks(&field, text);
}

/// Changes all fields of an open screen and saves: each must then be shown as it was left, and each
/// column of the record must have changed in the only row of its table.
/// leftAlone: names of controls and columns that the screen treats in a way of its own.
inline void expectEveryFieldIsSaved(const ScreenDriver &screen, const QString &table,
                                    const std::vector<QStringView> &columns,
                                    const QStringList &leftAlone)
{
    const auto row = [&] {
        const db::Recordset rows = gcnData->Open(QStringLiteral("Select * from ") + table);
        EXPECT_EQ(rows.RecordCount(), 1);
        QMap<QString, QString> values;
        for (const QStringView column : columns)
            values.insert(column.toString(), base::toText(rows.row(0)[column]));
        return values;
    };
    EXPECT_FALSE(columns.empty());
    const PatientUser agreeing;
    const QMap<QString, QString> before = row();
    QMap<QString, QString> left;
    for (QWidget *field : fieldsOf(screen.screen())) {
        if (leftAlone.contains(field->objectName()))
            continue;
        const QString shown = shownIn(*field);
        changeField(*field);
        EXPECT_NE(shownIn(*field), shown) << qPrintable(field->objectName()) << " can't be changed";
    }
    QTest::keyClick(screen.screen().focusWidget(), Qt::Key_Tab);
    for (QWidget *field : fieldsOf(screen.screen()))
        left.insert(field->objectName(), shownIn(*field));
    screen.press("cmdUpdate");
    for (QWidget *field : fieldsOf(screen.screen()))
        EXPECT_EQ(shownIn(*field), left.value(field->objectName()))
            << qPrintable(field->objectName());
    const QMap<QString, QString> after = row();
    for (const QStringView column : columns) {
        const QString name = column.toString();
        if (!leftAlone.contains(name)) {
            EXPECT_NE(after.value(name), before.value(name)) << qPrintable(name) << " is lost";
        }
    }
}

} // namespace test
