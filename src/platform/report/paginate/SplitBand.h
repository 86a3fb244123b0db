#pragma once

#include "platform/report/paginate/BandMaker.h"

namespace report {

/// Cuts a band that is higher than the room of a whole page between two of its lines of text, and
/// ahead of pictures and bar codes that the cut would meet. What fits stays in the band, and the
/// rest is returned; frames and upright lines across the cut go on in both. Nothing when there is
/// no place to cut.
[[nodiscard]] std::optional<MadeBand> splitBand(MadeBand &band, Length room);

} // namespace report
