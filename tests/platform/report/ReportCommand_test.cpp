#include "report/ReportCommand.h"

#include "platform/base/Environment.h"
#include "platform/base/Format.h"
#include "platform/report/layout/LayoutFile.h"
#include "platform/report/paginate/CsvSource.h"
#include "support/CompanyDatabase.h"
#include "support/TestFiles.h"

#include <gmock/gmock.h>

namespace report {
namespace {

using namespace Qt::StringLiterals;

std::string row(const CsvSource &source, int row)
{
    QStringList values;
    for (int field = 0; field < source.fields().size(); ++field) {
        const QVariant value = source.value(row, field);
        values.append(value.isNull() ? u"Null"_s
                                     : u"%1:%2"_s.arg(QString::fromLatin1(value.typeName()),
                                                      base::toText(value)));
    }
    return values.join(u' ').toStdString();
}

TEST(CsvSource, ReadsQuotesNumbersAndDates)
{
    const CsvSource source("\xEF\xBB\xBFName,\"Unit No\",Price\r\n"
                           "\"Belt, 40\"\"\",0042,12.5\r\n"
                           "\n"
                           "\"two\nlines\",\"7\",03/05/2024\n"
                           "short\n"
                           ",-3,0.5");
    EXPECT_EQ(source.rowCount(), 4);
    EXPECT_EQ(source.fieldIndex(u"UNIT NO"_s), 1);
    EXPECT_EQ(source.fieldIndex(u"none"_s), -1);
    EXPECT_EQ(row(source, 0), "QString:Belt, 40\" QString:0042 double:12.5");
    EXPECT_EQ(row(source, 1), "QString:two\nlines QString:7 QDateTime:3/5/2024");
    EXPECT_EQ(row(source, 2), "QString:short Null Null");
    EXPECT_EQ(row(source, 3), "Null qlonglong:-3 double:0.5");
    EXPECT_EQ(CsvSource("").rowCount(), 0);
    EXPECT_EQ(CsvSource("A\n\"open").rowCount(), 1);
}

class ReportCommand : public testing::Test
{
protected:
    ReportCommand()
    {
        write(u"parts.rpt"_s, R"x(<report version="1" title="Parts">
            <formula name="Factor">1</formula>
            <band kind="reportHeader"><text name="lblCompanyName"/></band>
            <band kind="detail"><field content="Name"/><field content="Price * Factor" name="Price"/></band></report>)x");
        write(u"parts.csv"_s, "Name,Price\nBelt,12.5\nOil,7.25\n");
    }
    QString path(const QString &name) const { return m_folder.filePath(name); }
    void write(const QString &name, const QByteArray &text) const
    {
        test::writeFile(path(name), text);
    }
    std::string read(const QString &name) const { return test::readFile(path(name)).toStdString(); }
    int run(const QStringList &arguments)
    {
        m_out.clear();
        m_err.clear();
        QTextStream out(&m_out);
        QTextStream err(&m_err);
        return report_command::run(QStringList{u"quorvantis-report"_s} + arguments, out, err);
    }

    QTemporaryDir m_folder;
    QString m_out;
    QString m_err;
};

TEST_F(ReportCommand, RendersAFileOfValues)
{
    EXPECT_EQ(run({path(u"parts.rpt"_s), path(u"parts.csv"_s), path(u"out.html"_s), u"--text"_s,
                   u"lblCompanyName=Green = Acres"_s, u"--formula"_s, u"Factor=2"_s}),
              report_command::Success)
        << m_err.toStdString();
    EXPECT_EQ(m_out, u"2 rows, 1 pages\n");
    EXPECT_EQ(m_err, QString());
    EXPECT_THAT(read(u"out.html"_s), testing::AllOf(testing::HasSubstr(">Green = Acres</p>"),
                                                    testing::HasSubstr(">14.5</p>")));
}

TEST_F(ReportCommand, RendersRowsOfADatabaseByTheQueryGivenOrTheLayoutsOwn)
{
    const test::SampleCompany company;
    EXPECT_EQ(run({path(u"parts.rpt"_s), company.file(), path(u"out.csv"_s), u"--query"_s,
                   u"Select top 3 PartID as Name, Price from tblPart order by PartID"_s}),
              report_command::Success)
        << m_err.toStdString();
    EXPECT_EQ(m_out, u"3 rows\n");
    EXPECT_EQ(test::readFile(path(u"out.csv"_s)).count("\r\n"), 4);
    write(u"own.rpt"_s, R"(<report version="2"><parameter name="Most" type="number" default="2"/>
        <query>Select CrewID, CrewNumber from tblCrew where CrewID &lt;= ?Most order by CrewID</query>
        <rows name="machines" key="CrewID" of="CrewID">Select CrewID, UnitNo from tblEquipment</rows>
        <band kind="reportHeader"><text content="up to {Most}"/></band>
        <band kind="detail"><field content="CrewID"/></band>
        <band kind="subFooter" rows="machines"><text content="of {CrewNumber}"/></band></report>)");
    const auto rows = [&](const QStringList &further) {
        EXPECT_EQ(
            run(QStringList{path(u"own.rpt"_s), company.file(), path(u"out.html"_s)} + further),
            report_command::Success)
            << m_err.toStdString();
        EXPECT_EQ(m_err, QString());
        return m_out;
    };
    EXPECT_EQ(rows({}), u"2 rows, 1 pages\n");
    EXPECT_EQ(rows({u"--parameter"_s, u"most=1"_s}), u"1 rows, 1 pages\n");
    EXPECT_THAT(read(u"out.html"_s),
                testing::AllOf(testing::HasSubstr(">up to 1</p>"), testing::HasSubstr(">of ")));
    EXPECT_EQ(run({path(u"own.rpt"_s), company.file(), path(u"out.html"_s), u"--parameter"_s,
                   u"Most=many"_s}),
              report_command::WrongUsage);
}

TEST_F(ReportCommand, RewritesLayoutsAsTheDesignerSavesThem)
{
    write(u"more.rpt"_s, R"x(<report version="1"><band kind="detail" colour="red"/></report>)x");
    const std::string more = read(u"more.rpt"_s);
    EXPECT_EQ(run({u"--rewrite"_s, path(u"parts.rpt"_s), path(u"more.rpt"_s)}),
              report_command::Failed);
    EXPECT_EQ(read(u"parts.rpt"_s),
              writeLayout(*readLayoutFile(path(u"parts.rpt"_s)).layout).toStdString());
    EXPECT_THAT(read(u"parts.rpt"_s), testing::HasSubstr("<field name=\"Price\" content="));
    EXPECT_THAT(m_err.toStdString(), testing::HasSubstr("\"colour\" of \"band\""));
    EXPECT_EQ(read(u"more.rpt"_s), more) << "nothing is lost";
}

TEST_F(ReportCommand, TellsWhatIsWrong)
{
    const QString layout = path(u"parts.rpt"_s);
    const QString data = path(u"parts.csv"_s);
    const QString out = path(u"out.pdf"_s);
    const auto fails = [&](const QStringList &arguments, int code, const char *text) {
        EXPECT_EQ(run(arguments), code) << text;
        EXPECT_THAT(m_err.toStdString(), testing::HasSubstr(text));
    };
    fails({layout, data}, report_command::WrongUsage, "Use: quorvantis-report");
    fails({layout, data, path(u"out.doc"_s)}, report_command::WrongUsage, "is not known");
    fails({layout, data, out, u"--text"_s, u"Company"_s}, report_command::WrongUsage, "name=value");
    fails({layout, data, out, u"--colour"_s}, report_command::WrongUsage, "colour");
    fails({path(u"none.rpt"_s), data, out}, report_command::Failed, "none.rpt");
    fails({layout, path(u"none.csv"_s), out}, report_command::Failed, "none.csv");
    fails({data, data, out}, report_command::Failed, "Line 1, column");
    fails({layout, data, path(u"none/out.pdf"_s)}, report_command::Failed, "can't be written");
    fails({layout, data, out, u"--formula"_s, u"Factor=Missing"_s}, report_command::Success,
          "there is no field \"missing\"");
}

} // namespace
} // namespace report
