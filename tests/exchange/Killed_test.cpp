#include "exchange/Handheld.h"
#include "support/OwnLocks.h"

#include <QCoreApplication>
#include <QRandomGenerator>

namespace {

using namespace Qt::StringLiterals;

/// An import in a program of its own, which ends in the midst of it.
struct KilledImport : test::Handheld
{
    KilledImport()
    {
        part(u"P-1"_s, 0);
        // The table of ids is there from the first import on.
        gcnData->Execute(u"Create table tblWotemp( strname nvarchar(1), strid nvarchar(15), strno "
                         "nvarchar(15))"_s);
    }

    void sendAll() const
    {
        send(u"Count1.xml"_s, test::command(u"CountReading|1|3/9/2024|Hours|5"_s));
        send(u"Sy1.xml"_s, newOrder(u"W1"_s) + newService(u"S1"_s, u"W1"_s));
        send(u"Sy2.xml"_s,
             newPart(u"S1"_s) + test::command(u"RecordPart|tblPart|PartID|P-1||Quantity||1"_s));
        mark();
    }
    /// How often each of the files' commands has been carried out.
    static QList<qint64> done()
    {
        return {count(u"tblEquipmentCount"_s), count(u"tblWorkorder"_s),
                count(u"tblWoServiceUsed"_s), count(u"tblWoPartUsed"_s),
                value(u"Select Quantity from tblPart"_s).toLongLong()};
    }
    /// Lets an importer run to its end, or to the statement or moment at which it is killed. False
    /// when it was. Nobody else holds the file meanwhile: the engine takes seconds to notice that
    /// one of several programs has died.
    bool runImporter(int statement, int milliseconds = 30'000)
    {
        closeConnections();
        const QTemporaryDir locks;
        QProcess importer;
        importer.setProcessEnvironment(test::withOwnLocks(locks));
        importer.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        importer.start(
            QCoreApplication::applicationDirPath() + u"/test_exchange_importer"_s,
            {database.file(), environment.folder() + u"/sync/"_s, QString::number(statement)});
        EXPECT_TRUE(importer.waitForStarted());
        if (!importer.waitForFinished(milliseconds) && importer.state() != QProcess::NotRunning) {
            importer.kill();
            importer.waitForFinished();
        }
        gcnData = database.open();
        gcnLookup = database.open();
        return importer.exitStatus() == QProcess::NormalExit && importer.exitCode() == 0;
    }
    /// All or nothing was done, and in the second case all files are there.
    void expectAllOrNothing(const QList<qint64> &before, const std::string &which)
    {
        const QList<qint64> after = done();
        ASSERT_EQ(QSet<qint64>(after.begin(), after.end()).size(), 1) << which;
        if (after == before)
            EXPECT_EQ(files(), u"Count1.xml Sy1.xml Sy2.xml done.txt") << which;
        else
            EXPECT_EQ(after[0], before[0] + 1) << which;
    }
};

TEST_F(KilledImport, HasDoneAllOrNothingAtEachStatement)
{
    for (int statement = 1;; ++statement) {
        sendAll();
        const QList<qint64> before = done();
        const bool ended = runImporter(statement);
        expectAllOrNothing(before, "statement " + std::to_string(statement));
        if (ended) {
            EXPECT_EQ(files(), QString());
            EXPECT_GT(statement, 8);
            return;
        }
        EXPECT_EQ(done(), before);
    }
}

TEST_F(KilledImport, HasDoneAllOrNothingAtAnyMoment)
{
    const int wanted = qEnvironmentVariableIntValue("QUORVANTIS_KILLS");
    QRandomGenerator random(20240315);
    int killed = 0;
    for (int round = 0; round < (wanted > 0 ? wanted : 15); ++round) {
        sendAll();
        const QList<qint64> before = done();
        killed += runImporter(0, static_cast<int>(random.bounded(250))) ? 0 : 1;
        expectAllOrNothing(before, "round " + std::to_string(round));
    }
    EXPECT_GT(killed, 0);
}

} // namespace
