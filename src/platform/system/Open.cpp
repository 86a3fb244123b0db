#include "platform/system/Open.h"

#include "platform/base/Error.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace sys {
namespace {

/// An address has a scheme of more than the one letter that a drive has.
bool isAddress(const QString &text)
{
    const qsizetype colon = text.indexOf(u':');
    return colon > 1 && !QUrl(text).scheme().isEmpty();
}

QUrl urlOf(const QString &text)
{
    if (QFileInfo::exists(text))
        return QUrl::fromLocalFile(QFileInfo(text).absoluteFilePath());
    if (isAddress(text))
        return QUrl(text, QUrl::TolerantMode);
    if (text.startsWith(u"www."_s, Qt::CaseInsensitive))
        return QUrl(u"http://"_s + text, QUrl::TolerantMode);
    throw base::Error(base::ErrorNumber::FileNotFound,
                      u"File not found: "_s + QDir::toNativeSeparators(text));
}

} // namespace

void openWithDefault(const QString &pathOrAddress)
{
    const QString text = pathOrAddress.trimmed();
    if (!QDesktopServices::openUrl(urlOf(text))) {
        throw base::Error(base::ErrorNumber::InvalidCall,
                          u"No program on this computer opens \"%1\"."_s.arg(text.left(200)));
    }
}

} // namespace sys
