#pragma once

#include <QString>

/// Opens a file or an address with the program that the system has for it.
void launchIt(const QString &Path);
