#include "shell/ui/CheckForUpdates.h"

#include "core/ui/Launch.h"
#include "core/ui/Working.h"
#include "core/ui/frmMessages.h"
#include "platform/base/Prompts.h"
#include "platform/web/Fetch.h"
#include "shell/Updates.h"

#include <QApplication>
#include <atomic>

using namespace Qt::StringLiterals;

namespace {

/// The feed, while a notice is shown; closing the notice cancels. Raises what fetching raises.
QByteArray fetchedFeed()
{
    frmMessages notice(QApplication::activeWindow());
    notice.setWindowModality(Qt::ApplicationModal);
    // Set by this thread and read by the one that fetches.
    std::atomic<bool> closed = false;
    QObject::connect(&notice, &QDialog::rejected, [&] { closed = true; });
    notice.ShowMessages();
    QByteArray feed;
    const QString address = updates::feedAddress();
    working::run([&](const base::Steps &steps) { feed = web::fetch(address, steps); }, {},
                 [&] { return closed.load(); });
    return feed;
}

void open(const updates::Offer &offer)
{
    if (const QString sentence = updates::sentenceOf(offer); !sentence.isEmpty())
        base::showInformation(sentence);
    // The address is the site's word: a file or a program of this computer is not opened by it.
    if (web::isWebAddress(offer.address))
        launchIt(offer.address);
    else
        base::showMessage(u"The update site names no address of the web to get it from, so none is "
                          u"opened."_s);
}

} // namespace

void mnuCheckForUpdates_Click()
{
    try {
        const updates::Offer offer = updates::offerIn(fetchedFeed());
        if (updates::isNewer(offer))
            open(offer);
        else
            base::showMessage(u"No updates available"_s);
    } catch (const base::Cancelled &) {
        return;
    } catch (const base::Error &error) {
        base::showMessage(u"The latest version could not be looked up. "_s + error.description());
    }
}
