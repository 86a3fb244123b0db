#include "administration/FileImport.h"

#include "administration/ImportSheet.h"
#include "core/InTheWay.h"
#include "core/RecordStore.h"
#include "core/Session.h"

#include <QLocale>
#include <QSet>

namespace administration {
namespace {

using namespace Qt::StringLiterals;

constexpr int rowsBetweenTellings = 500;

QString counted(qint64 number, const QString &one, const QString &many)
{
    return QLocale(QLocale::English).toString(number) + u' ' + (number == 1 ? one : many);
}

QString keyOf(const NewEntry &entry)
{
    return QStringList{entry.list, entry.name, entry.under}.join(QChar(u'\x1f'));
}

/// The reading of a file from its first row to its last.
class Reading
{
public:
    Reading(ImportKind kind, const QString &path, ImportNames::Adding adding)
        : m_table(importTable(kind))
        , m_sheet(m_table, path)
        , m_names(*gcnData, adding)
        , m_target(importTarget(kind, m_names))
    {}

    /// Looks at all rows, and writes each as long as nothing speaks against it; without the
    /// entries that the user has agreed to none.
    ImportFindings run(const QSet<QString> *agreed, const base::Progress &progress)
    {
        const Blame blame = [this](int place, const QString &sentence) {
            this->blame(place, sentence);
        };
        // Without its headings each row would be wrong, and the list of problems useless.
        m_sheet.checkHeader(blame);
        m_findings.ignored = m_sheet.ignored();
        if (m_findings.problemCount > 0)
            return std::move(m_findings);
        while (m_sheet.next()) {
            ++m_findings.rows;
            if (progress && m_findings.rows % rowsBetweenTellings == 0)
                tell(progress);
            // All rows are looked at in any case: the user mends a file once and not problem by
            // problem.
            const ImportRow values = checked(blame);
            if (agreed && mayWrite(*agreed))
                write(values);
        }
        m_findings.newEntries = m_names.added();
        return std::move(m_findings);
    }

    /// True when all rows were written.
    [[nodiscard]] bool isWhole() const { return m_isWriting; }
    void finish() { m_target->finish(); }

private:
    void blame(int place, const QString &sentence)
    {
        // What has been written is undone with the transaction.
        m_isWriting = false;
        if (++m_findings.problemCount > ImportFindings::MostProblems)
            return;
        const QString heading =
            place < 0 ? QString()
                      : m_table.columns[static_cast<std::size_t>(place)].heading.toString();
        m_findings.problems.push_back({m_sheet.row(), heading, sentence});
    }

    void tell(const base::Progress &progress) const
    {
        constexpr int parts = 1000;
        progress(static_cast<int>(m_sheet.done() * parts), parts);
    }

    ImportRow checked(const Blame &blame)
    {
        const qint64 before = m_findings.problemCount;
        ImportRow values = m_sheet.values(blame);
        // Each step on what the former one has found right, so that one slip is told once.
        if (m_findings.problemCount == before)
            putNumbers(values);
        if (m_findings.problemCount == before)
            m_target->check(m_sheet.row(), values, blame);
        return values;
    }

    /// Puts the numbers of listed entries in the place of their names. What an entry hangs under
    /// stands before it.
    void putNumbers(ImportRow &values)
    {
        const ImportRow names = values;
        for (std::size_t i = 0; i < values.size(); ++i) {
            if (m_table.columns[i].kind == CellKind::Listed && names[i].isValid())
                values[i] = numberOf(static_cast<int>(i), names, values);
        }
    }

    QVariant numberOf(int place, const ImportRow &names, const ImportRow &numbers)
    {
        const ImportColumn &column = m_table.columns[static_cast<std::size_t>(place)];
        qint64 under = 0;
        QString underName;
        if (!column.below.isEmpty()) {
            const auto above = static_cast<std::size_t>(columnPlace(m_table, column.below));
            if (!names[above].isValid()) {
                blame(place,
                      u"It needs a value in the column %1."_s.arg(m_table.columns[above].heading));
                return {};
            }
            // What it hangs under has been told.
            if (!numbers[above].isValid())
                return {};
            under = numbers[above].toLongLong();
            underName = names[above].toString();
        }
        const QString name = names[static_cast<std::size_t>(place)].toString();
        try {
            if (const auto number = m_names.number(column, name, under, underName))
                return *number;
            blame(place, u"There is no machine \"%1\"."_s.arg(name));
        } catch (const db::DbError &) {
            throw;
        } catch (const base::Error &error) {
            // What is wrong with a name is a problem of its cell; a failure of the database ends
            // the import.
            blame(place, error.description());
        }
        return {};
    }

    /// False for good from the first problem or entry on that the user has not agreed to.
    bool mayWrite(const QSet<QString> &agreed)
    {
        const auto &added = m_names.added();
        // The entries that came with this row and were not among those the user has seen: a list
        // may have changed since the dry run.
        for (; m_isWriting && m_agreedTo < added.size(); ++m_agreedTo)
            m_isWriting = agreed.contains(keyOf(added[m_agreedTo]));
        return m_isWriting;
    }

    void write(const ImportRow &values)
    {
        try {
            m_target->write(values);
        } catch (const InTheWay &) {
            throw;
        } catch (const base::Error &error) {
            throw base::Error(
                error.number(),
                u"Row %1: %2 Nothing was imported."_s.arg(m_sheet.row()).arg(error.description()));
        }
    }

    const ImportTable &m_table;
    ImportSheet m_sheet;
    ImportNames m_names;
    std::unique_ptr<ImportTarget> m_target;
    ImportFindings m_findings;
    std::size_t m_agreedTo = 0;
    bool m_isWriting = true;
};

/// Keeps a second import out for as long as the transaction lasts: neither would see the other's
/// rows before both are there.
void holdImports()
{
    orInTheWay(
        [] { (void)record::hold(*gcnData, u"tblSysOption", u"SysOption", u"DBVERSION"_s); },
        [] {
            return u"Another workstation is importing at this moment. Please try again when it has finished. Nothing was imported."_s;
        });
}

/// Runs an import; a row that another workstation holds or has added is told as that.
template<class Body>
ImportFindings unlessMeanwhile(Body &&body)
{
    try {
        return body();
    } catch (const InTheWay &) {
        throw;
    } catch (const base::Error &error) {
        if (error.number() == db::ErrorNumber::DuplicateKey ||
            error.number() == db::ErrorNumber::LockConflict)
            throw InTheWay(
                u"Another workstation has changed the same records meanwhile. Nothing was imported. Please try again."_s);
        throw;
    }
}

} // namespace

QString ImportProblem::text() const
{
    const QString place = u"Row %1"_s.arg(row);
    return (column.isEmpty() ? place : place + u", "_s + column) + u": "_s + sentence;
}

QString ImportFindings::summary() const
{
    QStringList sentences;
    if (isWritten)
        sentences << u"%1 imported."_s.arg(counted(rows, u"row was"_s, u"rows were"_s));
    else if (problemCount > 0)
        sentences << u"%1 in %2. Nothing was imported."_s.arg(
            counted(problemCount, u"problem was found"_s, u"problems were found"_s),
            counted(rows, u"row"_s, u"rows"_s));
    else
        sentences << u"%1 without a problem. Nothing was imported yet."_s.arg(
            counted(rows, u"row was read"_s, u"rows were read"_s));
    if (!newEntries.empty() && problemCount == 0)
        sentences << (isWritten ? u"%1 added to the lists."_s : u"%1 be added to the lists."_s)
                         .arg(counted(static_cast<qint64>(newEntries.size()),
                                      isWritten ? u"entry was"_s : u"entry has to"_s,
                                      isWritten ? u"entries were"_s : u"entries have to"_s));
    if (!ignored.isEmpty())
        sentences << u"No such column is known, and it is left out: %1."_s.arg(
            ignored.join(u", "_s));
    return sentences.join(u' ');
}

ImportFindings checkFile(ImportKind kind, const QString &file, const base::Progress &progress)
{
    demandImportRight(kind);
    // A step that reported by itself would leave a table of problems that lacks one.
    const base::Whole raising;
    return Reading(kind, file, ImportNames::Adding::Pretend).run(nullptr, progress);
}

ImportFindings importFile(ImportKind kind, const QString &file, const std::vector<NewEntry> &agreed,
                          const base::Progress &progress)
{
    demandImportRight(kind);
    QSet<QString> keys;
    for (const NewEntry &entry : agreed)
        keys.insert(keyOf(entry));
    // The rights are asked first, since nothing may be held for a user who may not.
    TransactionScope transaction;
    holdImports();
    return unlessMeanwhile([&] {
        Reading reading(kind, file, ImportNames::Adding::Write);
        ImportFindings findings = reading.run(&keys, progress);
        // Left without a commit: the scope takes back what was written up to the problem.
        if (!reading.isWhole())
            return findings;
        reading.finish();
        transaction.commit();
        findings.isWritten = true;
        return findings;
    });
}

} // namespace administration
