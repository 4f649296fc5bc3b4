// The bands of a station, by its frequency. The AM list has three rules, which differ at their bounds on purpose: the
// loader accepts every record of the receiver, while typed frequencies have passed rangeFault.
#pragma once

#include <string_view>

namespace Bands {
inline constexpr std::u16string_view kLongWave = u"LW";
inline constexpr std::u16string_view kMediumWave = u"MW";
inline constexpr std::u16string_view kShortWave = u"SW";
inline constexpr std::u16string_view kVhf = u"VHF";  // every record of the FM list

// All frequencies are in kHz; an empty result means no band.

// A loaded record: 1,710 and above is short wave; between 288 and 522 there is no band.
std::u16string_view ofLoadedRecord(double frequency);
// A frequency typed over a cell: 1,710 is medium wave, 30,000 short wave.
std::u16string_view ofEditedCell(double frequency);
// A record of the Add List dialog: 1,710 is short wave, 30,000 has no band.
std::u16string_view ofNewRecord(double frequency);
}  // namespace Bands
