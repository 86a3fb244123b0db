#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

/// Newer releases of the program: on the share from which it was installed, and as the makers'
/// feed tells. Where to look stands in install values; what isn't there isn't asked. Versions are
/// compared as text.
namespace updates {

/// The install value that turns the look at the start off, "0", for this workstation.
inline const QString AtStartValue = QStringLiteral("CHECKFORUPDATES");

/// A folder with a release, and the version that is installed from there.
struct ReleaseShare
{
    QString folder;
    QString installed;
    /// The installation names it for releases; otherwise its name is made from the place of other
    /// things, and the folder may never have been there.
    bool isNamed = false;
};
/// The share that this workstation updates from; nothing where none is set up.
[[nodiscard]] std::optional<ReleaseShare> releaseShare();

/// Looks for a newer release on the share, and starts its installer after telling. True when the
/// process is to end for it. Waits two seconds at most: a share that is slower is left for the next
/// start. A missing file is reported, and the start goes on; where no folder is that nobody named
/// for releases, there is nothing to look for.
bool CheckForUpdate();

/// What the makers offer.
struct Offer
{
    QString version;
    QString address; ///< where to get it
    QString text;
};
/// The full address of the makers' feed; empty where the install value "UpdateSite" of the maker
/// names no site.
[[nodiscard]] QString feedAddress();
/// The last offer in a feed; an empty one where it has none. Raises base::Error InvalidCall for
/// what is no XML document.
[[nodiscard]] Offer offerIn(const QByteArray &feed);
/// True when an offer is newer than the program.
[[nodiscard]] bool isNewer(const Offer &offer);
/// What the user is told of an offer; empty for one without a text.
[[nodiscard]] QString sentenceOf(const Offer &offer);

} // namespace updates
