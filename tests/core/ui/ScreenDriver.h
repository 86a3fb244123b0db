#pragma once

#include "core/ui/Modal.h"
#include "platform/grid/GridView.h"
#include "platform/input/DateInput.h"
#include "platform/input/IdCombo.h"

namespace test {

/// Works a screen as its user does, with clicks and keys, by the names of its controls.
class ScreenDriver
{
public:
    explicit ScreenDriver(QWidget &screen)
        : m_screen(screen)
    {}

    [[nodiscard]] QWidget &screen() const { return m_screen; }

    template<class Control = QWidget>
    [[nodiscard]] Control &control(const char *name) const
    {
        return named<Control>(m_screen, QString::fromLatin1(name));
    }

    [[nodiscard]] grid::GridView &grid(const char *name) const
    {
        return control<grid::GridView>(name);
    }

    /// Clicks a button, which has to be there for the user.
    void press(const char *name) const
    {
        auto &button = control<QAbstractButton>(name);
        EXPECT_TRUE(button.isVisible() && button.isEnabled()) << name << " can't be pressed";
        QTest::mouseClick(&button, Qt::LeftButton);
    }

    /// Replaces the content of a text box by typing.
    void type(const char *name, const QString &text) const
    {
        auto &box = control(name);
        QTest::mouseClick(&box, Qt::LeftButton);
        if (auto *line = qobject_cast<QLineEdit *>(&box))
            line->selectAll();
        else
            QTest::keyClick(&box, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(&box, Qt::Key_Delete);
        QTest::keyClicks(&box, text);
    }

    /// The same, and leaves the box by a key.
    void enter(const char *name, const QString &text, Qt::Key leaving = Qt::Key_Tab) const
    {
        type(name, text);
        QTest::keyClick(&control(name), leaving);
        QCoreApplication::processEvents();
    }

    /// Takes an item of a list by its text.
    void choose(const char *name, const QString &text) const
    {
        auto &list = control<QComboBox>(name);
        const int index = list.findText(text);
        ASSERT_GE(index, 0) << "no item " << text.toStdString() << " in " << name;
        list.setFocus();
        list.setCurrentIndex(index);
        Q_EMIT list.activated(index);
    }

    [[nodiscard]] QString text(const char *name) const
    {
        QWidget &box = control(name);
        if (auto *list = qobject_cast<QComboBox *>(&box))
            return list->currentText().trimmed();
        if (auto *memo = qobject_cast<QPlainTextEdit *>(&box))
            return memo->toPlainText();
        if (auto *label = qobject_cast<QLabel *>(&box))
            return label->text();
        return control<QLineEdit>(name).text();
    }

    /// What several show, parted by '|'.
    [[nodiscard]] QString texts(std::initializer_list<const char *> names) const
    {
        QStringList all;
        for (const char *name : names)
            all.append(text(name));
        return all.join(u'|');
    }

    [[nodiscard]] bool isShown(const char *name) const { return control(name).isVisible(); }
    [[nodiscard]] bool isEnabled(const char *name) const { return control(name).isEnabled(); }
    [[nodiscard]] bool isOpen() const { return m_screen.isVisible(); }
    /// The name of the control that has the focus, once what was pressed has taken effect.
    [[nodiscard]] std::string focused() const
    {
        QCoreApplication::processEvents();
        const QWidget *focus = m_screen.focusWidget();
        return focus ? focus->objectName().toStdString() : std::string();
    }

private:
    QWidget &m_screen;
};

/// What a grid shows of a column, from top to bottom.
inline QStringList columnOf(const grid::GridView &grid, QStringView column)
{
    QStringList texts;
    for (const int row : grid.displayedOrder())
        texts.append(grid.rows().text(row, column));
    return texts;
}

/// Types into a cell, as its user does, and stores by Enter.
inline void typeInCell(grid::GridView &grid, int row, const QString &column, const QString &text)
{
    ASSERT_TRUE(grid.editCell(row, column)) << column.toStdString() << " can't be edited";
    auto *box = qobject_cast<QLineEdit *>(QApplication::focusWidget());
    if (!box) // the window comes to itself a little later
        box = grid.viewport()->findChild<QLineEdit *>();
    ASSERT_TRUE(box);
    box->selectAll();
    if (text.isEmpty())
        QTest::keyClick(box, Qt::Key_Delete);
    QTest::keyClicks(box, text);
    QTest::keyClick(box, Qt::Key_Return);
    grid.finishEditing();
}

/// A call that opens a screen, to be made later.
template<class Open, class... Arguments>
std::function<void()> opening(Open open, Arguments... arguments)
{
    return [=] { static_cast<void>(open(arguments...)); };
}

/// Works the screen that open() shows; open() comes back when the screen is closed.
inline void inScreen(const std::function<void()> &open, std::function<void(ScreenDriver)> act)
{
    onNextModal([act = std::move(act)](QWidget &screen) { act(ScreenDriver(screen)); });
    open();
}

/// The same for a screen of records, which is closed at the end without a save.
inline void inRecords(const std::function<void()> &open, std::function<void(ScreenDriver)> act)
{
    inScreen(open, [act = std::move(act)](ScreenDriver screen) {
        act(screen);
        if (!screen.isOpen())
            return;
        const auto *cancel = screen.screen().findChild<QWidget *>(QStringLiteral("cmdCancel"));
        if (cancel && cancel->isVisible())
            screen.press("cmdCancel");
        screen.press("cmdExit");
    });
}

} // namespace test
