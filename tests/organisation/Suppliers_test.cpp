#include "organisation/MasterSession.h"
#include "organisation/ui/Entries.h"

using namespace Qt::StringLiterals;
using test::inRecords;
using test::opening;
using test::ScreenDriver;

namespace {

struct Suppliers : test::MasterSession
{
    ~Suppliers() override { screenCalls() = {}; }
    static void addSupplier(int id, const QString &name)
    {
        gcnData->Execute(u"Insert into tblSupplier(SupplierID,Name,Notes) values(%1,'%2','')"_s.arg(
            QString::number(id), name));
    }
};

} // namespace

TEST_F(Suppliers, ANewOneTakesTheNextNumberAndNeedsAName)
{
    addSupplier(4, u"Tool Barn"_s);
    inRecords(opening(ShowSupplierDetail, Mode::Add, 0), [this](ScreenDriver screen) {
        EXPECT_EQ(screen.text("txtSupplierID"), u"5"_s);
        EXPECT_EQ(screen.text("txtFax"), u"(   )    -    "_s);
        EXPECT_EQ(screen.focused(), "txtName");
        expectRefusal(screen, "cmdUpdate", u"Supplier Name should not be blank."_s, "txtName",
                      Icon::None);
        screen.type("txtName", u"Tool Barn"_s); // names may be alike
        screen.type("txtTax", u"42-a1"_s);
        screen.type("txtCreditLimit", u"1500"_s);
        screen.choose("cboState", u"IA"_s);
        screen.type("txtPhone", u"3195550124"_s);
        screen.press("cmdUpdate");
        EXPECT_EQ(screen.text("txtSupplierID"), u"5"_s);
        EXPECT_EQ(screen.text("txtTax"), u"421"_s);
        EXPECT_EQ(screen.text("txtCreditLimit"), u"1500.00"_s);
        EXPECT_EQ(screen.text("cboState"), u"IA"_s);
        EXPECT_EQ(screen.text("txtPhone"), u"(319) 555-0124"_s);
    });
}

TEST_F(Suppliers, AnUnfinishedPhoneNumberIsNotLeft)
{
    addSupplier(1, u"Tool Barn"_s);
    inRecords(opening(ShowSupplierDetail, Mode::Browse, 1), [this](ScreenDriver screen) {
        screen.type("txtPhone", u"319"_s);
        prompts.inform(u"Invalid phone No"_s);
        QTest::keyClick(&screen.control("txtPhone"), Qt::Key_Tab);
        EXPECT_EQ(screen.focused(), "txtPhone");
        screen.type("txtPhone", {});
        screen.type("txtFax", u"31955"_s);
        prompts.inform(u"Invalid fax No"_s);
        QTest::mouseClick(&screen.control("txtName"), Qt::LeftButton);
        EXPECT_EQ(screen.focused(), "txtFax");
        // Alt+S saves without leaving the field.
        prompts.inform(u"Invalid fax No"_s);
        screen.control<QAbstractButton>("cmdUpdate").click();
        EXPECT_EQ(screen.focused(), "txtFax");
    });
}

TEST_F(Suppliers, FindGoesToTheSupplierThatWasFound)
{
    addSupplier(1, u"Tool Barn"_s);
    addSupplier(2, u"Belt World"_s);
    screenCalls().ShowQuickFind = [](const ScreenCalls::QuickFind &asked) {
        return asked.field + asked.table == u"NametblSupplier" ? u"2"_s : QString();
    };
    inRecords(opening(ShowSupplierDetail, Mode::Browse, 1), [](ScreenDriver screen) {
        EXPECT_FALSE(screen.isEnabled("cmdPrint")) << "there is no such report";
        screen.press("cmdFind");
        EXPECT_EQ(screen.text("txtName"), u"Belt World"_s);
    });
}
