#pragma once

#include "core/CompanySession.h"
#include "platform/db/Maintenance.h"
#include "support/OwnLocks.h"
#include "support/ScriptedPrompts.h"
#include "support/SmallDisk.h"
#include "support/TestFiles.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QThread>

namespace test {

/// A workstation at a company in the program's own folder, which has a name and some machines.
class AdministrationSession : public CompanySession
{
protected:
    AdministrationSession()
    {
        QDir().mkpath(below(QStringLiteral("\\Data\\Backup")));
        closeConnections();
        gsDatabasePath = below(QStringLiteral("\\Data\\Quorvantis.mdb"));
        QFile::copy(database.file(), gsDatabasePath);
        openConnections();
        addMachine(1);
    }
    static QString below(const QString &path) { return base::applicationPath(path); }
    static QString backups() { return below(QStringLiteral("\\Data\\Backup")); }
    /// A folder of the user's: a stick.
    [[nodiscard]] QString stick() const
    {
        const QString folder = environment.folder() + QStringLiteral("/stick");
        QDir().mkpath(folder);
        return folder;
    }
    static QStringList filesIn(const QString &folder)
    {
        return QDir(folder).entryList(QDir::Files, QDir::Name);
    }
    static db::Target target(const QString &file)
    {
        db::Target target;
        target.file = file;
        return target;
    }
    static void addMachine(int id)
    {
        insert(QStringLiteral("tblEquipment"), {{QStringLiteral("EquipmentID"), id},
                                                {QStringLiteral("UnitNo"), QString::number(id)}});
    }
    /// More than fits on a small disk.
    static constexpr rlim_t SmallDiskSize = 4'000'000;
    static void fillWithPictures()
    {
        gcnData->BeginTrans();
        for (int picture = 0; picture < 300; ++picture)
            insert(QStringLiteral("tblEquipmentImage"),
                   {{QStringLiteral("EquipmentID"), picture},
                    {QStringLiteral("ImageName"), QStringLiteral("a")},
                    {QStringLiteral("ImageData"), QByteArray(9000, 'p')}});
        gcnData->CommitTrans();
    }
    /// How many machines a file holds, which has to be a sound database; -1 otherwise.
    static qint64 machinesIn(const QString &file)
    {
        if (!db::validate(file).damage.isEmpty())
            return -1;
        return db::Connection(target(file))
            .Open(QStringLiteral("Select count(*) from tblEquipment"))
            .value(0, 0)
            .toLongLong();
    }
    /// The session works on with the company that has so many machines, and takes new ones.
    static void expectWorking(int machines)
    {
        ASSERT_TRUE(connectionsAreOpen());
        EXPECT_EQ(count(QStringLiteral("tblEquipment")), machines);
        addMachine(900 + machines);
        gcnData->Execute(QStringLiteral("Delete from tblEquipment where EquipmentID >= 900"));
        EXPECT_EQ(filesIn(QFileInfo(gsDatabasePath).absolutePath()),
                  QStringList{QStringLiteral("Quorvantis.mdb")})
            << "nothing is left beside it";
    }

    /// Kills the program beside the test so long after it has begun its work, on a database that is
    /// closed here.
    static void killHelper(int milliseconds, const QString &command)
    {
        const QTemporaryDir locks;
        QProcess program;
        program.setProcessEnvironment(withOwnLocks(locks));
        program.start(
            QCoreApplication::applicationDirPath() + QStringLiteral("/administration_helper"),
            {base::environment().applicationFolder, command, base::environment().computerName});
        ASSERT_TRUE(program.waitForReadyRead(30'000));
        QThread::msleep(static_cast<unsigned long>(milliseconds));
        program.kill();
        program.waitForFinished();
    }

    ScriptedPrompts prompts;
};

} // namespace test
