#include "corpus/Statements.h"

#include <QDir>
#include <QFile>

#include <algorithm>

namespace corpus {
namespace {

using namespace Qt::StringLiterals;

/// Reads one file's cases line by line.
class Reader
{
public:
    Reader(QString file, QList<Case> &cases, QStringList &problems)
        : m_file(std::move(file))
        , m_cases(cases)
        , m_problems(problems)
    {}

    void take(const QString &line)
    {
        ++m_line;
        if (line.trimmed().isEmpty())
            endCase();
        else if (line.startsWith(u"--"_s) && m_step.statement.isEmpty())
            takeComment(line.mid(2).trimmed());
        else
            takeText(line);
    }

    void endCase()
    {
        if (!m_open)
            return;
        if (!m_step.statement.isEmpty() || !m_step.checks.isEmpty())
            problem(u"a statement without its semicolon"_s);
        if (m_case.steps.empty())
            problem(u"a case without a statement"_s);
        if (std::ranges::find(m_cases, m_case.testName(), &Case::testName) != m_cases.end())
            problem(u"a second case of the name "_s + m_case.name);
        m_cases.push_back(std::exchange(m_case, {}));
        m_step = {};
        m_open = false;
    }

private:
    void takeText(const QString &line)
    {
        if (!m_open)
            problem(u"a statement outside a case"_s);
        m_step.statement += m_step.statement.isEmpty() ? line : u' ' + line;
        if (!line.endsWith(u';'))
            return;
        m_step.line = m_line;
        m_step.statement.chop(1);
        m_case.steps.push_back(std::exchange(m_step, {}));
    }

    void takeComment(const QString &comment)
    {
        const QString keyword = comment.section(u':', 0, 0);
        const QString value = comment.section(u':', 1).trimmed();
        if (keyword == u"name"_s) {
            endCase();
            m_open = true;
            m_case = {m_file, value, m_ownDatabase, {}};
        } else if (m_open) {
            m_step.checks.push_back({keyword, value});
        } else if (comment == u"database: own"_s) {
            m_ownDatabase = true;
        }
    }

    void problem(const QString &text)
    {
        m_problems << u"%1.sql, line %2: %3"_s.arg(m_file).arg(m_line).arg(text);
    }

    QString m_file;
    QList<Case> &m_cases;
    QStringList &m_problems;
    Case m_case;
    Step m_step;
    int m_line = 0;
    bool m_open = false;
    bool m_ownDatabase = false;
};

} // namespace

QString Step::check(QStringView keyword) const
{
    const auto found = std::ranges::find(checks, keyword, &Check::keyword);
    return found == checks.end() ? QString() : found->value;
}

QString Case::testName() const
{
    QString result = file + u'_';
    bool upper = true;
    for (const QChar character : name) {
        // What a test's name may hold.
        const bool letter = character.unicode() < 128 && character.isLetterOrNumber();
        if (letter)
            result += upper ? character.toUpper() : character;
        upper = !letter;
    }
    return result;
}

QString contents(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("%s is missing", qPrintable(path));
    return QString::fromUtf8(file.readAll());
}

QStringList statementsOf(const QString &script)
{
    QStringList statements;
    QString statement;
    for (const QString &line : script.split(u'\n')) {
        if (line.isEmpty() || line.startsWith(u"--"_s))
            continue;
        statement += statement.isEmpty() ? line : u' ' + line;
        if (!statement.endsWith(u';'))
            continue;
        statement.chop(1);
        statements << std::exchange(statement, {});
    }
    return statements;
}

QList<Case> casesOf(const QString &folder, QStringList &problems)
{
    QList<Case> cases;
    const QDir files(folder);
    for (const QString &name : files.entryList({u"*.sql"_s}, QDir::Files, QDir::Name)) {
        if (name == u"world.sql"_s)
            continue;
        Reader reader(name.chopped(4), cases, problems);
        for (const QString &line : contents(files.filePath(name)).split(u'\n'))
            reader.take(line);
        reader.endCase();
    }
    return cases;
}

} // namespace corpus
