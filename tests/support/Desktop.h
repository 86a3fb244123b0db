#pragma once

#include <QDesktopServices>
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
    Desktop()
    {
        for (const char *scheme : Schemes)
            QDesktopServices::setUrlHandler(QLatin1StringView(scheme), this, "open");
    }
    ~Desktop() override
    {
        for (const char *scheme : Schemes)
            leave(QLatin1StringView(scheme));
    }
    /// From now on the computer has no program for these addresses.
    void leave(const QString &scheme) { QDesktopServices::unsetUrlHandler(scheme); }
    Q_SLOT void open(const QUrl &url) { opened << url.toString(QUrl::FullyEncoded); }

    QStringList opened;

private:
    static constexpr const char *Schemes[] = {"mailto", "file", "http"};
};

} // namespace test
