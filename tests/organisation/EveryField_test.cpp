#include "core/CompanySession.h"
#include "core/ui/EveryField.h"
#include "organisation/clsCostCenter.h"
#include "organisation/clsCrew.h"
#include "organisation/clsEmployee.h"
#include "organisation/clsLocation.h"
#include "organisation/clsSite.h"
#include "organisation/clsSupplier.h"
#include "organisation/ui/Entries.h"

using namespace Qt::StringLiterals;

namespace {

struct EveryField : test::CompanySession
{
    EveryField()
    {
        for (const QString &name : {u"North"_s, u"South"_s}) {
            insert(u"tblSite"_s, {{u"SiteName"_s, name}}, u"SiteID"_s);
            insert(u"tblCrew"_s, {{u"CrewNumber"_s, 3}, {u"Description"_s, name}}, u"CrewID"_s);
        }
    }

    /// Puts an empty record into a table and changes all of it on its screen.
    template<class Record>
    void expectSaved(const QString &table, const QVariantMap &record,
                     const std::function<void()> &open, const QStringList &leftAlone)
    {
        SCOPED_TRACE(qPrintable(table));
        insert(table, record);
        test::inScreen(open, [&](const test::ScreenDriver &screen) {
            test::expectEveryFieldIsSaved(screen, table, record::columns(Record::fields()),
                                          leftAlone);
            screen.press("cmdExit");
        });
    }
};

} // namespace

TEST_F(EveryField, OfAMasterRecordIsShownAndSaved)
{
    expectSaved<clsSupplier>(u"tblSupplier"_s, {{u"SupplierID"_s, 1}, {u"Name"_s, u"A"_s}},
                             [] { ShowSupplierDetail(Mode::Browse, 1); }, {u"SupplierID"_s});
    // The country decides which states there are.
    const QVariant country =
        value(u"Select max(ParentID) from tblIndicator where ParentID in (Select "
              "ItemID from tblIndicator where ParentID = 1)"_s);
    expectSaved<clsEmployee>(
        u"tblEmployee"_s,
        {{u"EmployeeID"_s, u"E1"_s}, {u"FirstName"_s, u"A"_s}, {u"Country"_s, country}},
        [] { ShowEmployeeDetail(Mode::Browse, u"E1"_s); }, {u"cboCountry"_s, u"Country"_s});
    expectSaved<clsCostCenter>(u"tblCostCenter"_s, {{u"Description"_s, u"A"_s}},
                               [] { ShowCostCenterDetail(Mode::Browse, 0); }, {});
    expectSaved<clsLocation>(u"tblLocation"_s, {{u"LocationName"_s, u"A"_s}},
                             [] { ShowLocationDetail(Mode::Browse, 0); }, {});
    gcnData->Execute(u"Delete from tblCrew"_s);
    gcnData->Execute(u"Delete from tblSite"_s);
    expectSaved<clsCrew>(u"tblCrew"_s, {{u"CrewNumber"_s, 1}, {u"Description"_s, u"A"_s}},
                         [] { ShowCrewDetail(Mode::Browse, 0); }, {});
    expectSaved<clsSite>(u"tblSite"_s, {{u"SiteName"_s, u"A"_s}},
                         [] { showSiteDetail(Mode::Browse, 0); }, {});
}
