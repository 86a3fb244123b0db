#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

namespace carrier {

/// What was carried: a numbered copy of each file, and a list of their checksums by which a file is
/// known that comes a second time.
class Journal
{
public:
    /// folder: full path; made with the first copy. Raises base::Error.
    explicit Journal(QString folder);

    /// The copy of a file with this content, empty when none was ever carried.
    [[nodiscard]] QString copyOf(const QByteArray &content) const;
    /// Keeps a copy under the next number. Raises base::Error.
    void keep(const QString &name, const QByteArray &content);

private:
    [[nodiscard]] QString listFile() const;

    QString m_folder;
    QByteArray m_list;
    QHash<QByteArray, QString> m_copies; ///< by checksum
    int m_last = 0;
};

} // namespace carrier
