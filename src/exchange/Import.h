#pragma once

#include "platform/base/Progress.h"

#include <exception>

/// The import of what crews have recorded on the handheld: commands, carried out in one transaction
/// for all files of the queue, which is emptied when they are committed. Nothing is posted.
namespace exchange {

/// To be thrown by a Progress, to end a run: nothing of it stays, and the files do.
class Cancelled : public std::exception
{};

/// Imports the folder "Xml_IN" below the registry's "Path". True when the run was committed;
/// otherwise the user has been told why, nothing has changed and the files are there. progress is
/// told of each command. Joins or opens the shared transaction on Data. No error crosses it.
[[nodiscard]] bool Importdata(const base::Progress &progress = {});

/// The same with an older form of the commands, out of the fixed folder of a development machine.
[[nodiscard]] bool olderImportdata();

} // namespace exchange
