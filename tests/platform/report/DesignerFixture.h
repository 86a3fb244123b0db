#pragma once

#include "platform/report/designer/DesignCanvas.h"
#include "platform/report/designer/DesignDocument.h"
#include "platform/report/designer/PropertyPanel.h"
#include "platform/report/designer/ReportDesigner.h"
#include "platform/report/designer/Structure.h"
#include "support/ScriptedPrompts.h"

#include "ReportRows.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QTest>
#include <QTreeWidget>
#include <gmock/gmock.h>

namespace report {

using namespace Qt::StringLiterals;

/// A title and two fields, wide enough apart to be told from each other.
inline Layout parts()
{
    return layoutOf(R"x(<report version="2" title="Parts"><page left="10mm" top="10mm"/>
        <band kind="pageHeader" height="15mm"><text width="50mm" height="8mm" content="Parts" size="14"/></band>
        <band kind="detail" height="10mm">
          <field x="20mm" width="30mm" content="Name"/><field x="80mm" width="30mm" content="Price"/>
        </band></report>)x");
}

/// A designer in which the title and the fields can be worked.
class Designer : public testing::Test
{
protected:
    Designer()
    {
        m_designer.resize(1300, 700);
        m_designer.setLayout(parts());
        m_designer.setFields({{{}, u"Name"_s, u"Part name"_s, FieldType::Text, true},
                              {{}, u"Price"_s, {}, FieldType::Number, true}});
        m_designer.show();
        m_designer.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&m_designer));
        QCoreApplication::processEvents();
        m_canvas->setZoom(100);
        m_canvas->setFocus();
        // Steps of a tenth of a millimetre are what the keys and the tests count in.
        run(u"grid"_s);
        run(u"line-up"_s);
    }
    template<class Widget>
    Widget *child(const QString &name)
    {
        return m_designer.findChild<Widget *>(name);
    }
    void run(const QString &action) { child<QAction>(action)->trigger(); }
    [[nodiscard]] const Layout &layout() const { return m_document.layout(); }
    [[nodiscard]] const Selection &selection() const { return m_document.selection(); }
    [[nodiscard]] const Object &object(int band, int number) const
    {
        return m_document.object({band, number});
    }
    void click(int band, QPoint units, Qt::KeyboardModifiers keys = {})
    {
        QTest::mouseClick(m_canvas->viewport(), Qt::LeftButton, keys,
                          m_canvas->toViewport(band, units));
    }
    /// Drags from one place of the sheet to another, with a step in between.
    void drag(QPoint from, QPoint to, Qt::KeyboardModifiers keys = {})
    {
        QWidget *sheet = m_canvas->viewport();
        QTest::mousePress(sheet, Qt::LeftButton, keys, from);
        move(sheet, (from + to) / 2, keys);
        move(sheet, to, keys);
        QTest::mouseRelease(sheet, Qt::LeftButton, keys, to);
    }
    static void move(QWidget *sheet, QPoint to, Qt::KeyboardModifiers keys)
    {
        QMouseEvent event(QEvent::MouseMove, to, sheet->mapToGlobal(to), Qt::NoButton,
                          Qt::LeftButton, keys);
        QGuiApplication::sendEvent(sheet, &event);
    }
    /// Types into whatever has the focus, and ends with Enter.
    static void typeThere(const QString &text)
    {
        QTest::keyClicks(QApplication::focusWidget(), text);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QCoreApplication::processEvents();
    }
    /// Types into the editor of an attribute.
    void type(const QString &caption, const QString &text)
    {
        m_designer.findChild<PropertyPanel *>()->edit(caption);
        typeThere(text);
    }
    /// An item of a tree by its text.
    QTreeWidgetItem *item(const QString &tree, const QString &text)
    {
        return child<QTreeWidget>(tree)
            ->findItems(text, Qt::MatchExactly | Qt::MatchRecursive)
            .value(0);
    }
    void expectFault(const char *part)
    {
        EXPECT_THAT(child<QLabel>(u"fault"_s)->text().toStdString(), testing::HasSubstr(part));
    }
    [[nodiscard]] QRect frame(int band, int number) const { return frameOf(object(band, number)); }
    [[nodiscard]] qsizetype objectsOf(int band) const
    {
        return layout().bands[band].objects.size();
    }
    void key(int key, Qt::KeyboardModifiers keys = {})
    {
        QTest::keyClick(m_canvas, static_cast<Qt::Key>(key), keys);
    }
    [[nodiscard]] QPoint at(int band, int x, int y) const
    {
        return m_canvas->toViewport(band, {x, y});
    }

    test::ScriptedPrompts m_prompts;
    ReportDesigner m_designer;
    DesignDocument &m_document = m_designer.document();
    DesignCanvas *m_canvas = child<DesignCanvas>(u"canvas"_s);
};

} // namespace report
