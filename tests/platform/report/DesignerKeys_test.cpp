#include "DesignerFixture.h"

#include <QMenu>
#include <QMenuBar>

namespace report {
namespace {

/// A designer that nobody touches with a mouse: each key goes to whatever has the focus.
class DesignerKeys : public Designer
{
protected:
    static void press(int key, Qt::KeyboardModifiers keys = {})
    {
        QWidget *menu = QApplication::activePopupWidget();
        QTest::keyClick(menu ? menu : QApplication::focusWidget(), static_cast<Qt::Key>(key), keys);
        QCoreApplication::processEvents();
    }
    /// Goes down in the menu that is open to an entry.
    static void goTo(const QString &entry)
    {
        for (int step = 0; step < 40; ++step) {
            const auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
            ASSERT_TRUE(menu) << qPrintable(entry);
            if (menu->activeAction() && menu->activeAction()->text() == entry)
                return;
            press(Qt::Key_Down);
        }
        FAIL() << "no entry " << qPrintable(entry);
    }
    /// The object that is selected; another one without a selection.
    [[nodiscard]] Object lead() const
    {
        return selection().objects.isEmpty() ? Object() : m_document.object(selection().lead);
    }
    [[nodiscard]] QTreeWidget *focusedTree() const
    {
        return qobject_cast<QTreeWidget *>(QApplication::focusWidget());
    }
};

TEST_F(DesignerKeys, AReportIsChangedWithoutAMouse)
{
    // An object is found, moved, drawn wider, and brought into the next band.
    press(Qt::Key_Tab);
    ASSERT_EQ(selection(), Selection::of({{0, 0}}));
    press(Qt::Key_Right);
    press(Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(lead().x, 100);
    EXPECT_EQ(lead().width, 5100);
    press(Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(selection().band(), 1);
    EXPECT_EQ(lead().content, u"Parts"_s);
    EXPECT_EQ(lead().y, 0);
    press(Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(selection().band(), 1) << "there is none below";
    press(Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ(selection().band(), 0);
    // Its attributes.
    press(Qt::Key_F4);
    ASSERT_TRUE(focusedTree());
    EXPECT_EQ(focusedTree()->objectName(), u"attributes"_s);
    for (int step = 0; step < 60 && (!focusedTree()->currentItem() ||
                                     focusedTree()->currentItem()->text(0) != u"Width"_s);
         ++step)
        press(Qt::Key_Down);
    press(Qt::Key_Return);
    typeThere(u"40"_s);
    EXPECT_EQ(lead().width, 4000);
    // Back to the sheet for a new object, a group, and a band out of the menus.
    press(Qt::Key_F6, Qt::ShiftModifier);
    press(Qt::Key_4, Qt::ControlModifier);
    press(Qt::Key_Return);
    EXPECT_EQ(lead().kind, ObjectKind::Box);
    press(Qt::Key_I, Qt::AltModifier);
    goTo(u"Add band"_s);
    press(Qt::Key_Right);
    goTo(u"Report footer"_s);
    press(Qt::Key_Return);
    EXPECT_EQ(layout().bands.last().kind, BandKind::ReportFooter);
    // A field out of the data, into the band that was chosen last.
    press(Qt::Key_PageUp);
    press(Qt::Key_A, Qt::AltModifier);
    press(Qt::Key_F6, Qt::ShiftModifier);
    ASSERT_TRUE(focusedTree());
    EXPECT_EQ(focusedTree()->objectName(), u"data"_s);
    typeThere(u"Price"_s);
    EXPECT_EQ(lead().content, u"Price"_s);
    EXPECT_EQ(layout().bands[selection().band()].kind, BandKind::Detail);
    // All goes back, from any pane.
    for (int change = 0; change < 20 && m_designer.isModified(); ++change)
        press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(layout().bands.size(), 2);
    // The preview and back.
    m_designer.setRowsProvider([](const Layout &) {
        return PreviewRows{
            std::make_shared<Rows>(QStringList{u"Name"_s, u"Price"_s}, QList<QVariantList>()), {}};
    });
    press(Qt::Key_F5);
    EXPECT_TRUE(m_designer.isPreviewShown());
    press(Qt::Key_D, Qt::AltModifier);
    EXPECT_FALSE(m_designer.isPreviewShown());
}

/// A column keeps the object that was chosen as the one by whose edges it is drawn; what lies in
/// several bands goes into no other one together.
TEST_F(DesignerKeys, AColumnIsLedByWhatWasChosen)
{
    m_document.change(u"Heading"_s, [](Layout &layout, Selection &) {
        layout.bands[0].objects[0].x = layout.bands[1].objects[0].x;
        layout.bands[0].objects[0].width = layout.bands[1].objects[0].width;
    });
    press(Qt::Key_Tab);
    press(Qt::Key_Tab);
    ASSERT_EQ(selection(), Selection::of({{1, 0}}));
    press(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(selection().objects, (QList<Place>{{0, 0}, {1, 0}}));
    EXPECT_EQ(selection().lead, (Place{1, 0}));
    EXPECT_FALSE(child<QAction>(u"band-above"_s)->isEnabled());
}

/// A sheet with nothing on it shows the data, from which something comes.
TEST_F(DesignerKeys, AnEmptySheetBeginsWithTheData)
{
    const auto *data = child<QTreeWidget>(u"data"_s);
    EXPECT_FALSE(data->isVisible());
    m_designer.setEmptyHint(u"Bring a field"_s);
    m_designer.setLayout(emptyLayout());
    EXPECT_TRUE(data->isVisible());
    const QImage hint = m_canvas->viewport()->grab().toImage();
    m_designer.setEmptyHint({});
    EXPECT_NE(m_canvas->viewport()->grab().toImage(), hint);
}

/// Who knows no keys finds them beside what they do.
TEST_F(DesignerKeys, EveryActionStandsInAMenu)
{
    QSet<const QAction *> inMenus;
    for (const QMenu *menu : m_designer.findChild<QMenuBar *>()->findChildren<QMenu *>())
        for (const QAction *entry : menu->actions())
            inMenus.insert(entry);
    ASSERT_GT(m_canvas->actions().size(), 40);
    for (const QAction *action : m_canvas->actions())
        EXPECT_TRUE(inMenus.contains(action)) << qPrintable(action->objectName());
}

} // namespace
} // namespace report
