#pragma once

#include "platform/base/Steps.h"

#include <QString>
#include <functional>

class QWidget;

/// Work that waits for others (the network, a share) on a thread of its own, while the program
/// stays alive.
namespace working {

/// What is done there. It touches neither widgets nor the company's database, and is given what it
/// needs as values.
using Work = std::function<void(const base::Steps &)>;

/// Runs the work and comes back when it has ended; what it raises is raised here. Meanwhile the
/// program paints, but takes clicks and keys only in a window that the caller shows above all
/// others. told, where given, hears each step; cancelled is asked by the work.
void run(const Work &work, const std::function<void(const QString &)> &told = {},
         const std::function<bool()> &cancelled = {});

/// Runs the work under a window with its steps and a button to cancel, which raises
/// base::Cancelled as soon as the work notices. title: what is done, "Sending Error Report".
void runShown(const QString &title, const Work &work, QWidget *parent);

} // namespace working
