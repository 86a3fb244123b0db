#pragma once

#include "GridRows.h"
#include "platform/grid/GridView.h"

#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>
#include <gtest/gtest.h>

namespace test {

/// A window with a grid of the four parts and a line edit below it, shown and active.
class ShownGrid : public testing::Test
{
protected:
    ShownGrid()
    {
        auto *layout = new QVBoxLayout(&m_window);
        layout->addWidget(&m_grid);
        layout->addWidget(&m_other);
        m_window.resize(900, 400);
        m_grid.rows().setRecordset(parts());
    }

    ~ShownGrid() override
    {
        m_grid.setParent(nullptr);
        m_other.setParent(nullptr);
    }

    void show()
    {
        m_window.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&m_window));
        m_grid.setFocus();
    }

    grid::GridModel &rows() { return m_grid.rows(); }

    void makeEditable(std::initializer_list<QStringView> names)
    {
        for (const QStringView name : names)
            rows().column(name).editable = true;
        rows().columnsChanged();
    }

    /// Presses a key where the focus is: in the open editor or in the grid.
    void key(Qt::Key which, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QWidget *focused = QApplication::focusWidget();
        ASSERT_NE(focused, nullptr);
        QTest::keyClick(focused, which, modifiers);
    }

    void type(const QString &text)
    {
        // One by one, since the first opens the editor that takes the others.
        for (const QChar character : text)
            QTest::keyClick(QApplication::focusWidget(), character.toLatin1());
    }

    void click(int row, QStringView column)
    {
        const QPoint place = m_grid.cellRect(row, column).center();
        QTest::mouseClick(m_grid.viewport(), Qt::LeftButton, {}, place);
    }

    void doubleClick(int row, QStringView column)
    {
        const QPoint place = m_grid.cellRect(row, column).center();
        click(row, column);
        QTest::mouseDClick(m_grid.viewport(), Qt::LeftButton, {}, place);
        QTest::mouseRelease(m_grid.viewport(), Qt::LeftButton, {}, place);
    }

    void clickHeading(QStringView column)
    {
        QHeaderView *header = m_grid.header();
        const int section = rows().columnIndex(column);
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                          {header->sectionViewportPosition(section) + 10, header->height() / 2});
    }

    [[nodiscard]] bool isEditing() const
    {
        const QWidget *focused = QApplication::focusWidget();
        return focused && focused->parent() == m_grid.viewport();
    }

    /// The current cell, as "2 Price", and behind a colon what its editor holds while it is open.
    [[nodiscard]] QString place() const
    {
        const QString cell =
            QStringLiteral("%1 %2").arg(m_grid.currentRow()).arg(m_grid.currentColumn());
        const auto *box = qobject_cast<QLineEdit *>(QApplication::focusWidget());
        return isEditing() ? cell + u':' + (box ? box->text() : QString()) : cell;
    }

    QWidget m_window;
    grid::GridView m_grid;
    QLineEdit m_other;
};

} // namespace test
