#include "core/CompanySession.h"
#include "core/Options.h"
#include "core/RegistryValues.h"
#include "core/StartUp.h"
#include "reporting/PrintedLines.h"

#include <QBuffer>
#include <QImage>

namespace {

using namespace Qt::StringLiterals;
using test::printed;

/// A company of two machines, the second with all that hangs on a machine.
class MachineSheet : public test::CompanySession
{
protected:
    MachineSheet()
    {
        reportfiles::installDelivered(base::environment().applicationFolder);
        insert(u"tblEquipment"_s, u"EquipmentID,UnitNo"_s, {4, u"A-1"_s});
        insert(u"tblEquipment"_s,
               u"EquipmentID,UnitNo,EquipmentName,Inactive,UserDefined1,UserDefined10,"
               "WarrantyInterval,WarrantyPeriod,AcquisitionCost"_s,
               {7, u"B-2"_s, u"Loader"_s, 1, u"GF-1"_s, u"blue"_s, u"1"_s, 6, 12345.5});
        const QString columns = u"EquipmentID,Name,Period,EInterval,Inactive"_s;
        insert(u"tblServiceUsed"_s, columns, {4, u"Grease"_s, u"H"_s, 50, 0});
        insert(u"tblServiceUsed"_s, columns, {7, u"Oil change"_s, u"H"_s, 50, 0});
        insert(u"tblServiceUsed"_s, columns, {7, u"Retired check"_s, u"H"_s, 50, 1});
        insert(u"tblEquipmentDocument"_s, u"EquipmentId,DocumentName"_s, {7, u"manual.pdf"_s});
        QBuffer picture;
        picture.open(QIODevice::WriteOnly);
        QImage(8, 8, QImage::Format_RGB32).save(&picture, "PNG");
        insert(u"tblEquipmentImage"_s, u"EquipmentID,ImageName,ImageData"_s,
               {7, u"Left side"_s, picture.data()});
    }
    static catalogue::Request of(const QString &units)
    {
        return {.layout = u"rptEquipmentDetail"_s,
                .filter = u"where tblEquipment.UnitNo in (%1)"_s.arg(units)};
    }
};

TEST_F(MachineSheet, ShowsWhatTheMachineHasAndNothingElse)
{
    SetOption(u"UserDefinedField1"_s, u"Title {no}"_s, false);
    SetOption(u"UserDefinedField10"_s, u" "_s, false);
    EXPECT_EQ(printed(of(u"'B-2'"_s)),
              (QStringList{u"Equipment Details"_s, u"B-2   Loader|INACTIVE"_s, u"Purchase"_s,
                           u"Acquisition cost|$12,345.50"_s, u"Ownership and warranty"_s,
                           u"Warranty for|1 year"_s, u"Further fields"_s, u"Title {no}|GF-1"_s,
                           u"Field 10|blue"_s, u"Services"_s,
                           u"Service|Every|Crew|Last done|Next date|Next count"_s,
                           u"Oil change|50 hours"_s, u"Documents"_s, u"manual.pdf"_s, u"Pictures"_s,
                           u"Left side"_s, u"Printed 03/15/2024 09:30 AM|Page 1 of 1"_s}));
}

TEST_F(MachineSheet, TheErrorReportNamesTheComputerAndTheProgram)
{
    insert(u"tblErrorList"_s, {{u"ErrNumber"_s, 5}, {u"ErrDescription"_s, u"It failed"_s}});
    settings::registry().setValue(settings::ProductKey, u"Version"_s, u"2.3.1"_s);
    SetOption(u"GEN_COMPANY_NAME"_s, u"Greenways"_s, false);
    gWindowsVersion.name = u"Windows 95"_s;
    gWindowsVersion.servicePack = u"Pack 7"_s;
    const QString lines = printed({.layout = u"rptErrorReport"_s}).join(u'\n');
    for (const QString &text : {u"It failed"_s, u"Greenways"_s, u"Windows 95"_s, u"Pack 7"_s,
                                u"TESTBENCH"_s, GetVersionNo(), GetOption(u"DBversion"_s, false)})
        EXPECT_TRUE(!text.isEmpty() && lines.contains(text))
            << qPrintable(text) << " in " << qPrintable(lines);
}

TEST_F(MachineSheet, OfSeveralMachinesLeavesPicturesOut)
{
    const QStringList lines = printed(of(u"'A-1', 'B-2'"_s));
    for (const QString &line : {u"A-1"_s, u"Grease|50 hours"_s, u"Oil change|50 hours"_s})
        EXPECT_EQ(lines.count(line), 1) << qPrintable(lines.join(u'\n'));
    EXPECT_FALSE(lines.contains(u"Pictures"_s));
    EXPECT_EQ(lines.filter(u"Page 1 of 1"_s).size(), 2);
}

} // namespace
