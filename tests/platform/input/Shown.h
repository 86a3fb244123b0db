#pragma once

#include "platform/input/FormBuilder.h"

#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QLineEdit>
#include <QTest>
#include <gtest/gtest.h>

namespace test {

/// A form on the screen, with the focus in the window.
class ShownForm : public QDialog
{
public:
    ShownForm()
        : form(this)
    {}

    void showNow()
    {
        form.finish();
        show();
        activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(this));
    }

    input::FormBuilder form;
};

/// Types the text with the keys of its characters.
inline void type(QWidget *widget, const char *keys)
{
    QTest::keyClicks(widget, QString::fromLatin1(keys));
}

inline void paste(QWidget *widget, const char *text)
{
    QApplication::clipboard()->setText(QString::fromLatin1(text));
    QTest::keyClick(widget, Qt::Key_V, Qt::ControlModifier);
}

inline std::string textOf(const QLineEdit *edit)
{
    return edit->text().toStdString();
}

} // namespace test
