#pragma once

#include <QString>
#include <chrono>
#include <functional>

/// Carries files between the office and a folder that stands for the handheld: a mounted phone, a
/// memory stick, a share. A file appears in its new place only when it is whole, and leaves the old
/// one only when it has arrived; whenever this ends, a second run completes it.
namespace carrier {

struct Settings
{
    QString device;        ///< the folder that stands for the device
    QString data;          ///< the office's exchange file
    QString inbox;         ///< where the import looks for the device's files
    QString copies;        ///< where a numbered copy of each carried file is kept
    bool textOnly = false; ///< messages go to the standard error output, questions are answered No
    std::chrono::seconds patience{20}; ///< how long the device may take to appear, or to answer
};

/// Reads the settings out of the file "carrier.ini" in this folder; paths in it may begin there.
/// Raises base::Error.
[[nodiscard]] Settings readSettings(const QString &folder);

/// How a carrying talks to whoever waits for it.
struct Company
{
    /// Called whenever something was achieved.
    std::function<void()> alive;
    /// A question that is answered with Yes or No.
    std::function<bool(const QString &)> ask;
};

/// Waits for the device and puts the exchange file on it. Raises base::Error.
void toDevice(const Settings &settings, const Company &company);

/// Waits for the device and brings its files into the inbox, the marker of a whole transfer last. A
/// file that was brought before and has left the inbox is asked about: the import would take it in
/// twice. Raises base::Error.
void fromDevice(const Settings &settings, const Company &company);

} // namespace carrier
