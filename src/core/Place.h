#pragma once

/// Where a screen of records goes, seen from the one on show.
enum class Place { This, First, Previous, Next, Last };
