#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

namespace exchange {

/// A command of the handheld: the texts of an element's children, which count by their positions
/// alone.
struct Command
{
    QString kind;       ///< the element's name
    int number = 0;     ///< from 1, among those of its kind in the file
    QStringList values; ///< from position 0

    /// The text at a position; raises base::Error when the element ends before it.
    [[nodiscard]] const QString &at(int position) const;
};

/// A file of commands, or of meter readings.
class CommandFile
{
public:
    /// Reads the elements of these names wherever they stand in the text. A text that is no XML
    /// has none at all, however far it could be read.
    CommandFile(const QByteArray &content, const QStringList &kinds);

    /// The elements of a kind in the order of the text.
    [[nodiscard]] const QList<Command> &commands(const QString &kind) const;
    [[nodiscard]] qsizetype commandCount() const;
    /// Why the text is no XML, and where; empty when it is.
    [[nodiscard]] const QString &fault() const { return m_fault; }

private:
    QHash<QString, QList<Command>> m_commands;
    QString m_fault;
};

} // namespace exchange
