#pragma once

/// Lets other screens open the entry of a service's times. Once, when the program starts.
void joinServiceTime();
