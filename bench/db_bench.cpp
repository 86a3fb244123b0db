#include "platform/db/Connection.h"
#include "platform/db/EngineHome.h"
#include "platform/db/Maintenance.h"
#include "platform/sql/Translator.h"

#include <firebird/Interface.h>

#include <QCoreApplication>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <functional>
#include <vector>

/// What the database layer costs over the engine itself: each job is done by a connection and,
/// beside it in the same run, by hand-written calls of the engine's interface with statements that
/// are prepared once. Prints medians and ratios.
namespace {

using namespace Qt::StringLiterals;
namespace fb = Firebird;

constexpr int machines = 100'000;
constexpr int repetitions = 10'000;
constexpr int rounds = 7;

using Status = fb::ThrowStatusWrapper;

template<class T>
T load(const unsigned char *place)
{
    T value;
    std::memcpy(&value, place, sizeof value);
    return value;
}

/// The engine by hand.
class Bare
{
public:
    explicit Bare(const QString &file)
        : m_status(master()->getStatus())
    {
        fb::IXpbBuilder *block = master()->getUtilInterface()->getXpbBuilder(
            &m_status, fb::IXpbBuilder::DPB, nullptr, 0);
        block->insertString(&m_status, isc_dpb_user_name, "SYSDBA");
        block->insertString(&m_status, isc_dpb_lc_ctype, "UTF8");
        block->insertInt(&m_status, isc_dpb_num_buffers, 4096);
        m_attachment = master()->getDispatcher()->attachDatabase(
            &m_status, file.toUtf8().constData(), block->getBufferLength(&m_status),
            block->getBuffer(&m_status));
        block->dispose();
        const unsigned char read[] = {isc_tpb_version3, isc_tpb_read, isc_tpb_nowait,
                                      isc_tpb_read_committed, isc_tpb_rec_version};
        m_reading = m_attachment->startTransaction(&m_status, sizeof read, read);
    }
    ~Bare()
    {
        m_reading->commit(&m_status);
        m_attachment->detach(&m_status);
    }
    Bare(const Bare &) = delete;
    Bare &operator=(const Bare &) = delete;

    fb::ITransaction *begin()
    {
        const unsigned char write[] = {isc_tpb_version3, isc_tpb_write, isc_tpb_nowait,
                                       isc_tpb_read_committed, isc_tpb_rec_version};
        return m_attachment->startTransaction(&m_status, sizeof write, write);
    }
    [[nodiscard]] Status *status() { return &m_status; }
    [[nodiscard]] fb::ITransaction *reading() const { return m_reading; }
    [[nodiscard]] fb::IAttachment *attachment() const { return m_attachment; }

private:
    static fb::IMaster *master() { return fb::fb_get_master_interface(); }

    Status m_status;
    fb::IAttachment *m_attachment;
    fb::ITransaction *m_reading;
};

/// A prepared statement by hand, with its messages.
class BareStatement
{
public:
    BareStatement(Bare &bare, const char *text)
        : m_bare(bare)
    {
        m_statement = bare.attachment()->prepare(bare.status(), bare.reading(), 0, text, 3,
                                                 fb::IStatement::PREPARE_PREFETCH_METADATA);
        m_input = m_statement->getInputMetadata(bare.status());
        m_output = m_statement->getOutputMetadata(bare.status());
        in.resize(m_input->getMessageLength(bare.status()));
        out.resize(m_output->getMessageLength(bare.status()));
    }
    ~BareStatement()
    {
        m_input->release();
        m_output->release();
        m_statement->free(m_bare.status());
    }
    BareStatement(const BareStatement &) = delete;
    BareStatement &operator=(const BareStatement &) = delete;

    void setInteger(unsigned parameter, int value)
    {
        std::memcpy(place(parameter), &value, sizeof value);
    }
    void setText(unsigned parameter, const char *text)
    {
        const auto length = static_cast<unsigned short>(std::strlen(text));
        std::memcpy(place(parameter), &length, sizeof length);
        std::memcpy(place(parameter) + sizeof length, text, length);
    }
    void execute(fb::ITransaction *transaction)
    {
        m_statement->execute(m_bare.status(), transaction, m_input, in.data(), m_output,
                             out.data());
        m_affected += m_statement->getAffectedRecords(m_bare.status());
    }
    template<class EachRow>
    void fetch(EachRow &&eachRow)
    {
        fb::IResultSet *cursor = m_statement->openCursor(m_bare.status(), m_bare.reading(), m_input,
                                                         in.data(), m_output, 0);
        while (cursor->fetchNext(m_bare.status(), out.data()) == fb::IStatus::RESULT_OK)
            eachRow();
        cursor->close(m_bare.status());
    }
    [[nodiscard]] unsigned outOffset(unsigned column)
    {
        return m_output->getOffset(m_bare.status(), column);
    }

    std::vector<unsigned char> in;
    std::vector<unsigned char> out;

private:
    unsigned char *place(unsigned parameter)
    {
        const unsigned null = m_input->getNullOffset(m_bare.status(), parameter);
        std::memset(in.data() + null, 0, sizeof(short));
        return in.data() + m_input->getOffset(m_bare.status(), parameter);
    }

    Bare &m_bare;
    fb::IStatement *m_statement;
    fb::IMessageMetadata *m_input;
    fb::IMessageMetadata *m_output;
    quint64 m_affected = 0;
};

/// Processor time, so that other programs on the computer don't disturb.
double milliseconds(const std::function<void()> &work)
{
    const std::clock_t begin = std::clock();
    work();
    return static_cast<double>(std::clock() - begin) * 1000 / CLOCKS_PER_SEC;
}

/// Runs both in turn and prints the medians.
void compare(const char *job, const std::function<void()> &ours, const std::function<void()> &bare)
{
    std::vector<double> ourTimes;
    std::vector<double> bareTimes;
    ours();
    bare();
    for (int round = 0; round < rounds; ++round) {
        ourTimes.push_back(milliseconds(ours));
        bareTimes.push_back(milliseconds(bare));
    }
    std::ranges::sort(ourTimes);
    std::ranges::sort(bareTimes);
    const double our = ourTimes[rounds / 2];
    const double by = bareTimes[rounds / 2];
    std::printf("%-52s %9.2f ms   engine alone %9.2f ms   ratio %5.2f\n", job, our, by, our / by);
    std::fflush(stdout);
}

void fill(db::Connection &data)
{
    data.Execute(u"Create table tblEquipment (EquipmentID integer not null primary key, "
                 "UnitNo text(20), EquipmentName text(50), Price currency, Hours double, "
                 "InstalledDate datetime, Inactive smallint, SiteID integer)"_s);
    data.Execute(u"Create table tblLog (ID integer, Name text(30), CountValue integer)"_s);
    data.BeginTrans();
    for (int i = 0; i < machines; ++i) {
        data.Execute(u"Insert into tblEquipment values(?, ?, ?, ?, ?, ?, ?, ?)"_s,
                     {i, u"U%1"_s.arg(i), u"Mower number %1"_s.arg(i), i * 1.25, i / 3.0,
                      QDate(2020, 1, 1).addDays(i % 1000), i % 2, i % 50});
    }
    data.CommitTrans();
}

void measureTranslation(db::Connection &data)
{
    const QString simple =
        u"Select UnitNo, EquipmentName from tblEquipment where EquipmentID = 17"_s;
    const QString wide =
        u"SELECT E.EquipmentID, E.UnitNo AS [Unit No], IIf(E.Inactive = 1, 'off', 'on') AS State, "
        "Sum(L.CountValue) AS Total FROM tblEquipment AS E LEFT JOIN tblLog AS L ON "
        "E.EquipmentID = L.ID WHERE E.InstalledDate >= #03-15-2020# AND E.EquipmentName Like 'M*' "
        "GROUP BY E.EquipmentID, E.UnitNo, E.Inactive ORDER BY E.UnitNo"_s;
    for (const QString &statement : {simple, wide}) {
        const double lifting = milliseconds([&] {
            for (int i = 0; i < repetitions; ++i)
                (void)sql::lift(statement);
        });
        const double translating = milliseconds([&] {
            for (int i = 0; i < repetitions / 10; ++i)
                (void)sql::translate(statement, data.schema());
        });
        std::printf("%4lld characters: lift the literals %6.2f us, translate %7.2f us\n",
                    static_cast<long long>(statement.size()), lifting * 1000 / repetitions,
                    translating * 10'000 / repetitions);
    }
}

void measureReading(db::Connection &data, Bare &bare)
{
    const QString byParameter = u"Select UnitNo, Price from tblEquipment where EquipmentID = ?"_s;
    BareStatement point(bare, "select \"UnitNo\", \"Price\" from \"tblEquipment\" where "
                              "\"EquipmentID\" = ?");
    qint64 sum = 0;
    const auto barePoint = [&] {
        for (int i = 0; i < repetitions; ++i) {
            point.setInteger(0, i * 7 % machines);
            std::vector<unsigned char> row;
            point.fetch([&] { row = point.out; });
            sum += row.front();
        }
    };
    compare(
        "one row by key, 10,000 times, by parameter",
        [&] {
            for (int i = 0; i < repetitions; ++i)
                sum += data.Open(byParameter, {i * 7 % machines}).RecordCount();
        },
        barePoint);
    compare(
        "one row by key, 10,000 times, key in the text",
        [&] {
            for (int i = 0; i < repetitions; ++i) {
                sum += data.Open(u"Select UnitNo, Price from tblEquipment where EquipmentID = "_s +
                                 QString::number(i * 7 % machines))
                           .RecordCount();
            }
        },
        barePoint);

    const QString all = u"Select EquipmentID, UnitNo, EquipmentName, Price, Hours, InstalledDate, "
                        "Inactive from tblEquipment"_s;
    BareStatement whole(bare, "select \"EquipmentID\", \"UnitNo\", \"EquipmentName\", \"Price\", "
                              "\"Hours\", \"InstalledDate\", \"Inactive\" from \"tblEquipment\"");
    compare(
        "100,000 rows of 7 columns, kept", [&] { sum += data.Open(all).RecordCount(); },
        [&] {
            std::vector<unsigned char> kept;
            whole.fetch([&] { kept.insert(kept.end(), whole.out.begin(), whole.out.end()); });
            sum += static_cast<qint64>(kept.size());
        });
    const unsigned priceOffset = whole.outOffset(3);
    compare(
        "100,000 rows, sum of one column by name",
        [&] {
            double total = 0;
            for (const db::Row row : data.Open(all))
                total += row.real(u"Price");
            sum += static_cast<qint64>(total);
        },
        [&] {
            double total = 0;
            whole.fetch([&] {
                total += static_cast<double>(load<qint64>(whole.out.data() + priceOffset)) / 10'000;
            });
            sum += static_cast<qint64>(total);
        });
    std::printf("(%lld)\n", static_cast<long long>(sum % 10));
}

void measureWriting(db::Connection &data, Bare &bare)
{
    BareStatement insert(bare, "insert into \"tblLog\" (\"ID\", \"Name\", \"CountValue\") "
                               "values (?, ?, ?)");
    const auto bareInsert = [&] {
        fb::ITransaction *transaction = bare.begin();
        for (int i = 0; i < repetitions; ++i) {
            insert.setInteger(0, i);
            insert.setText(1, ("name " + std::to_string(i)).c_str());
            insert.setInteger(2, i * 3);
            insert.execute(transaction);
        }
        transaction->commit(bare.status());
    };
    compare(
        "10,000 inserts in one transaction, by parameter",
        [&] {
            data.BeginTrans();
            for (int i = 0; i < repetitions; ++i) {
                data.Execute(u"Insert into tblLog(ID, Name, CountValue) Values(?, ?, ?)"_s,
                             {i, u"name "_s + QString::number(i), i * 3});
            }
            data.CommitTrans();
        },
        bareInsert);
    const auto ourTexts = [&] {
        data.BeginTrans();
        for (int i = 0; i < repetitions; ++i) {
            const QString number = QString::number(i);
            data.Execute(u"Insert into tblLog(ID, Name, CountValue) Values("_s + number +
                         u",'name "_s + number + u"','"_s + QString::number(i * 3) + u"')"_s);
        }
        data.CommitTrans();
    };
    const auto bareTexts = [&] {
        fb::ITransaction *transaction = bare.begin();
        for (int i = 0; i < repetitions; ++i) {
            const std::string number = std::to_string(i);
            const std::string text = "insert into \"tblLog\" (\"ID\", \"Name\", \"CountValue\") "
                                     "values (" +
                                     number + ", 'name " + number + "', " + std::to_string(i * 3) +
                                     ")";
            bare.attachment()->execute(bare.status(), transaction, 0, text.c_str(), 3, nullptr,
                                       nullptr, nullptr, nullptr);
        }
        transaction->commit(bare.status());
    };
    compare("10,000 inserts, values in the text; engine prepared", ourTexts, bareInsert);
    compare("10,000 inserts, values in the text; engine the same", ourTexts, bareTexts);

    BareStatement update(bare,
                         "update \"tblEquipment\" set \"SiteID\" = ? where \"EquipmentID\" = ?");
    compare(
        "2,000 updates that commit by themselves",
        [&] {
            for (int i = 0; i < 2000; ++i)
                data.Execute(u"Update tblEquipment set SiteID = ? where EquipmentID = ?"_s,
                             {i % 7, i * 11});
        },
        [&] {
            for (int i = 0; i < 2000; ++i) {
                fb::ITransaction *transaction = bare.begin();
                update.setInteger(0, i % 7);
                update.setInteger(1, i * 11);
                update.execute(transaction);
                transaction->commit(bare.status());
            }
        });
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const QTemporaryDir folder;
    db::Target target;
    target.file = folder.filePath(u"bench.mdb"_s);
    target.forcedWrites = false;
    db::createDatabase(target);
    db::Connection data(target);
    fill(data);
    measureTranslation(data);
    Bare bare(target.file);
    measureReading(data, bare);
    measureWriting(data, bare);
    return 0;
}
