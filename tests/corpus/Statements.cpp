#include "corpus/Statements.h"

#include "platform/base/Environment.h"

#include <QRegularExpression>
#include <cmath>

namespace corpus {
namespace {

using namespace Qt::StringLiterals;

QStringList cells(const QString &text)
{
    QStringList result;
    for (const QString &cell : text.split(u'|'))
        result << cell.trimmed();
    return result;
}

bool isQuoted(const QString &cell)
{
    return cell.size() >= 2 && cell.startsWith(u'\'') && cell.endsWith(u'\'');
}

QVariant parseDate(const QString &text)
{
    static const QRegularExpression form(
        uR"(^(\d\d)-(\d\d)-(\d{4})(?: (\d\d):(\d\d)(?::(\d\d))?)?$)"_s);
    const auto match = form.match(text);
    if (!match.hasMatch())
        return {};
    const QDate date(match.captured(3).toInt(), match.captured(1).toInt(),
                     match.captured(2).toInt());
    return base::wallClock(date, QTime(match.captured(4).toInt(), match.captured(5).toInt(),
                                       match.captured(6).toInt()));
}

QString shown(const QVariant &value)
{
    if (!value.isValid())
        return u"null"_s;
    if (value.userType() == QMetaType::QDateTime)
        return value.toDateTime().toString(u"'#'MM-dd-yyyy HH:mm:ss'#'"_s);
    if (value.userType() == QMetaType::QString)
        return u'\'' + value.toString() + u'\'';
    if (value.userType() == QMetaType::Double)
        return QString::number(value.toDouble(), 'g', 15);
    return value.toString();
}

/// Reads one file's cases line by line.
class Reader
{
public:
    Reader(QString file, QStringList &problems)
        : m_file(std::move(file))
        , m_problems(problems)
    {}

    void take(const QString &line)
    {
        ++m_line;
        if (line.trimmed().isEmpty())
            endCase();
        else if (line.startsWith(u"--"_s) && m_statement.isEmpty())
            takeComment(line.mid(2).trimmed());
        else
            takeText(line);
    }

    std::vector<Case> finish()
    {
        endCase();
        return std::move(m_cases);
    }

private:
    void takeText(const QString &line)
    {
        if (!m_open) {
            problem(u"a statement outside a case"_s);
            return;
        }
        if (m_statement.isEmpty())
            m_step.line = m_line;
        else
            m_statement += u' ';
        m_statement += line;
        if (!line.endsWith(u';'))
            return;
        m_statement.chop(1);
        m_step.statement = m_statement;
        m_case.steps.push_back(std::move(m_step));
        m_step = {};
        m_statement.clear();
    }

    void takeComment(const QString &comment)
    {
        if (comment.startsWith(u"name:"_s)) {
            endCase();
            m_open = true;
            m_case.file = m_file;
            m_case.name = comment.mid(5).trimmed();
            m_case.ownDatabase = m_ownDatabase;
        } else if (m_open) {
            takeCheck(comment);
        } else if (comment == u"database: own"_s) {
            m_ownDatabase = true;
        }
    }

    void takeCheck(const QString &comment)
    {
        static const QRegularExpression form(u"^(rows >=|[a-z ]+(?: \\d+)?:)(.*)$"_s);
        const auto match = form.match(comment);
        const QString keyword = match.captured(1);
        const QString value = match.captured(2).trimmed();
        if (keyword == u"columns:"_s) {
            m_step.columns = cells(value);
        } else if (keyword == u"params:"_s) {
            for (const QString &cell : cells(value))
                m_step.parameters << parseCell(cell);
        } else if (keyword == u"rows:"_s || keyword == u"rows >="_s) {
            m_step.rows = number(value);
            m_step.orMore = keyword == u"rows >="_s;
        } else if (keyword == u"has row:"_s) {
            m_step.rowChecks.push_back({0, cells(value)});
        } else if (keyword.startsWith(u"row "_s)) {
            m_step.rowChecks.push_back({number(keyword.sliced(4).chopped(1)), cells(value)});
        } else if (keyword == u"error:"_s) {
            m_step.error = number(value);
        } else if (keyword == u"changes:"_s) {
            m_step.changes = number(value);
        } else if (keyword == u"key:"_s) {
            m_step.keyColumn = value;
        } else {
            problem(u"not a check: "_s + comment);
        }
    }

    int number(const QString &text)
    {
        bool good = false;
        const qint64 value =
            text.startsWith(u"0x"_s) ? text.mid(2).toUInt(&good, 16) : text.toLongLong(&good);
        if (!good)
            problem(u"not a number: "_s + text);
        return static_cast<int>(value);
    }

    void endCase()
    {
        if (!m_open)
            return;
        if (!m_statement.isEmpty())
            problem(u"a statement without its semicolon"_s);
        if (m_case.steps.empty())
            problem(u"a case without a statement"_s);
        for (const Case &other : m_cases)
            if (other.testName() == m_case.testName())
                problem(u"a second case of the name "_s + m_case.name);
        m_cases.push_back(std::move(m_case));
        m_case = {};
        m_step = {};
        m_statement.clear();
        m_open = false;
    }

    void problem(const QString &text)
    {
        m_problems << u"%1.sql, line %2: %3"_s.arg(m_file).arg(m_line).arg(text);
    }

    QString m_file;
    QStringList &m_problems;
    std::vector<Case> m_cases;
    Case m_case;
    Step m_step;
    QString m_statement;
    int m_line = 0;
    bool m_open = false;
    bool m_ownDatabase = false;
};

} // namespace

QString Case::testName() const
{
    QString result = file + u'_';
    bool upper = true;
    for (const QChar character : name) {
        const bool letter = character.unicode() < 128 &&
                            character.isLetterOrNumber(); // what a test's name may hold
        if (letter)
            result += upper ? character.toUpper() : character;
        upper = !letter;
    }
    return result;
}

std::vector<Case> parseCases(const QString &file, const QString &text, QStringList &problems)
{
    Reader reader(file, problems);
    for (const QString &line : text.split(u'\n'))
        reader.take(line);
    return reader.finish();
}

QStringList parseStatements(const QString &text)
{
    QStringList result;
    QString statement;
    for (const QString &line : text.split(u'\n')) {
        if (line.isEmpty() || line.startsWith(u"--"_s))
            continue;
        statement += statement.isEmpty() ? line : u' ' + line;
        if (!statement.endsWith(u';'))
            continue;
        statement.chop(1);
        result << statement;
        statement.clear();
    }
    return result;
}

QVariant parseCell(const QString &cell)
{
    static const QRegularExpression wholeNumber(u"^-?\\d+$"_s);
    static const QRegularExpression fraction(u"^-?\\d+\\.\\d+$"_s);
    if (cell == u"null"_s)
        return {};
    if (isQuoted(cell))
        return cell.mid(1, cell.size() - 2).replace(u"''"_s, u"'"_s);
    if (cell.size() > 2 && cell.startsWith(u'#') && cell.endsWith(u'#'))
        return parseDate(cell.mid(1, cell.size() - 2));
    if (wholeNumber.match(cell).hasMatch())
        return cell.toLongLong();
    if (fraction.match(cell).hasMatch())
        return cell.toDouble();
    return cell;
}

QString difference(const QString &cell, const QVariant &value)
{
    const QVariant expected = parseCell(cell);
    bool same = false;
    if (!expected.isValid() || !value.isValid())
        same = expected.isValid() == value.isValid();
    else if (value.userType() == QMetaType::QString)
        same = value.toString() == (isQuoted(cell) ? expected.toString() : cell);
    else if (value.userType() == QMetaType::QDateTime ||
             expected.userType() == QMetaType::QDateTime)
        same = expected == value;
    else if (expected.userType() != QMetaType::QString) {
        const double wanted = expected.toDouble();
        same = std::abs(value.toDouble() - wanted) <= 1e-12 * std::abs(wanted);
    }
    return same ? QString() : shown(value);
}

} // namespace corpus
