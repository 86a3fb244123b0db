#pragma once

#include <QByteArray>
#include <QDate>
#include <QHash>
#include <QList>
#include <QMap>
#include <QString>

#include <random>

/// A handheld as somebody else might have built it: it reads the office's exchange file, lets a
/// crew work for a day, and answers with files of commands. It shares no code with the program, so
/// that what both understand is what the files say.
namespace device {

/// Names and values of a row.
using Row = QMap<QString, QString>;

/// Something that was done in the field, as the office should find it afterwards. Values that begin
/// with "@" name a row that the device has made: the number that the office gives it.
struct Deed
{
    enum class Kind {
        Set,   ///< the rows that match have these values
        Raise, ///< the rows that match have more of these values
        Make,  ///< there is a row with these values
    };
    Kind kind = Kind::Set;
    QString table;
    Row match;
    Row values;
    QString id; ///< of a row that was made, to be named with "@"
};

class Device
{
public:
    /// data: the exchange file. Raises std::runtime_error when it can't be read.
    Device(const QByteArray &data, quint64 seed, QDate today);

    /// A day's work: lines finished or skipped, parts used, orders of its own, crew moves, scans,
    /// stock received, readings. What it does hangs on the seed.
    void work();

    /// The files with the answers, by name.
    [[nodiscard]] QHash<QString, QByteArray> files() const;
    [[nodiscard]] const QList<Deed> &deeds() const { return m_deeds; }

    // What a crew can do on it.

    /// Finishes a line of an order (a record of tblServiceUsed) and its order.
    void finishLine(const Row &line);
    void skipLine(const Row &line);
    /// An order of its own, with so many services.
    void makeOrder(const Row &machine, int services);
    void addService(const QString &order, const Row &machine);
    void addPart(const QString &line, const Row &part);
    void moveToCrew(const Row &machine, const Row &crew);
    void scan(const Row &machine);
    void receive(const Row &part);
    void readMeter(const Row &meter);

    /// The records of a section of the exchange file.
    [[nodiscard]] QList<Row> records(const QString &section) const
    {
        return m_sections.value(section);
    }

private:
    void command(const QString &kind, const QStringList &values);
    [[nodiscard]] int upTo(int most);
    [[nodiscard]] const Row *any(const QString &section);
    [[nodiscard]] QString text();
    [[nodiscard]] QString written(QDate date);

    QHash<QString, QList<Row>> m_sections;
    std::mt19937_64 m_random;
    QDate m_today;
    QMap<QString, QByteArray> m_work; ///< by kind
    QByteArray m_readings;
    QList<Deed> m_deeds;
    int m_orders = 0;
    int m_lines = 0;
};

} // namespace device
