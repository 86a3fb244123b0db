#pragma once

#include <QObject>
#include <QStringList>
#include <QUrl>

namespace test {

/// Receives what would be opened by other programs of the computer: pages of the web, folders and
/// mail that is being written.
class Desktop : public QObject
{
    Q_OBJECT
public:
    Desktop();
    ~Desktop() override;
    /// From now on the computer has no program for these addresses.
    void leave(const QString &scheme);
    Q_SLOT void open(const QUrl &url) { opened << url.toString(QUrl::FullyEncoded); }

    QStringList opened;
};

} // namespace test
