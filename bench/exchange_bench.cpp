#include "Replay.h"
#include "company/SampleCompany.h"
#include "core/Session.h"
#include "exchange/Export.h"
#include "exchange/Import.h"
#include "platform/base/Environment.h"
#include "platform/base/Prompts.h"
#include "platform/settings/Registry.h"
#include "platform/system/Files.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>
#include <vector>

/// What the exchange with the handheld takes over the large sample company: the export of all nine
/// sections, beside its statements run by the engine alone and the bare writing of the file, and
/// the import of 10,000 records. Prints milliseconds of processor time.
///
///     exchange_bench [DATABASE]
///
/// Works on a copy of the database, which is made first when none is given.
namespace {

using namespace Qt::StringLiterals;

constexpr int rounds = 7;
constexpr int records = 10'000;

/// Takes every message without a word.
class Silence final : public base::Prompts
{
public:
    Answer show(const Message &) override { return Answer::Ok; }
    std::optional<QString> input(const QString &, const QString &, const QString &) override
    {
        return {};
    }
    QString chooseFolder(const QString &) override { return {}; }
    QString chooseFile(const QString &, const QStringList &) override { return {}; }
    QString chooseSaveFile(const QString &, const QStringList &, const QString &) override
    {
        return {};
    }
};

/// Processor time, so that other programs on the computer don't disturb.
double milliseconds(const std::function<void()> &job)
{
    const std::clock_t begin = std::clock();
    job();
    return static_cast<double>(std::clock() - begin) * 1000 / CLOCKS_PER_SEC;
}

double median(std::vector<double> times)
{
    std::ranges::sort(times);
    return times[times.size() / 2];
}

bool measureExport(db::engine::Attachment &bare, const QString &elsewhere)
{
    bool failed = false;
    Recording recording(*gcnData);
    const bool done = exchange::GenrateXML(failed);
    recording.stop();
    Replay replay(recording, bare);
    QFile file(exchange::exportedFile());
    if (!done || !file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray content = file.readAll();
    std::vector<double> ours;
    std::vector<double> alone;
    for (int round = 0; round < rounds; ++round) {
        ours.push_back(milliseconds([&] { (void)exchange::GenrateXML(failed); }));
        alone.push_back(milliseconds([&] {
            replay.run();
            sys::writeFile(elsewhere, content);
        }));
    }
    std::printf("export, %.1f million bytes, %zu statements: %8.1f ms   engine and writing alone "
                "%8.1f ms   ratio %5.2f\n",
                static_cast<double>(content.size()) / 1e6, recording.size(), median(ours),
                median(alone), median(ours) / median(alone));
    return true;
}

/// A day of many crews: new orders with a service and a part each, updates and readings.
void writeFiles(const QString &folder)
{
    QByteArray work = "<a>";
    QByteArray readings = "<a>";
    for (int number = 0; number < records / 5; ++number) {
        const QByteArray id = QByteArray::number(number);
        const QByteArray machine = QByteArray::number(number % 1000 + 1);
        work += "<NewWorkOrder><v>W" + id + "</v><v/><v>3/14/2024</v><v>" + machine +
                "</v><v>3/14/2024</v></NewWorkOrder>";
        work += "<NewService><v>S" + id + "</v><v>" + machine + "</v><v>0</v><v>W" + id +
                "</v><v>Blades</v><v>1</v><v>0</v><v>08:00</v><v>09:00</v><v>done</v><v>1</v>"
                "<v>D</v><v>0</v><v>1:00</v><v>0</v><v>10</v><v>0</v><v>1</v><v>3/14/2024</v>"
                "</NewService>";
        work += "<NewServicePart><v>S" + id +
                "</v><v>P</v><v>1</v><v>2.5</v><v>1</v><v>1</v></NewServicePart>";
        work += "<RecordTwoID><v>tblWoServiceUsed</v><v>NServiceUsedID</v><v>S" + id +
                "</v><v>T</v><v>EquipmentID</v><v>" + machine +
                "</v><v>N</v><v>Note</v><v>T</v><v>more</v></RecordTwoID>";
        readings += "<CountReading><v>" + machine + "</v><v>3/14/2024</v><v>Counts</v><v>" + id +
                    "</v></CountReading>";
    }
    sys::makeFolder(folder);
    sys::writeFile(folder + u"/Sy1.xml"_s, work + "</a>");
    sys::writeFile(folder + u"/Count1.xml"_s, readings + "</a>");
    sys::writeFile(folder + u"/done.txt"_s, {});
}

bool measureImport(const QString &folder)
{
    writeFiles(folder);
    bool done = false;
    const double took = milliseconds([&] { done = exchange::Importdata(); });
    std::printf("import of %d records: %8.1f ms\n", records, took);
    return done;
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const QTemporaryDir folder;
    base::Environment environment = base::Environment::ofProcess();
    environment.clock = [now = base::wallClock(base::today(), QTime(9, 30))] { return now; };
    environment.clockIsFixed = true;
    environment.applicationFolder = folder.filePath(u"app"_s);
    environment.registryFile = folder.filePath(u"registry.ini"_s);
    base::setEnvironment(environment);
    Silence silence;
    const base::ScopedPrompts prompts(silence);
    settings::registry().setValue(settings::ProductKey, u"GUID"_s, QString(32, u'0'));
    settings::registry().setValue(settings::ProductKey, u"Path"_s, folder.path() + u'/');

    db::Target target;
    // The disk is not what is measured.
    target.forcedWrites = false;
    target.file = folder.filePath(u"large.fdb"_s);
    if (argc > 1) {
        QFile::copy(QString::fromLocal8Bit(argv[1]), target.file);
    } else {
        std::printf("Making the large sample company, which takes some minutes.\n");
        company::createSampleDatabase(target, base::today(), company::SampleSize::Large,
                                      company::UsualSeed);
    }
    gsDatabasePath = target.file;
    gcnData = std::make_unique<db::Connection>(target);
    gcnLookup = std::make_unique<db::Connection>(target);
    bool done = false;
    {
        db::engine::Attachment bare(target);
        done = measureExport(bare, folder.filePath(u"bare.xml"_s));
    }
    done = done && measureImport(folder.filePath(u"Xml_IN"_s));
    closeConnections();
    return done ? 0 : 1;
}
