// The bands of a station, by its frequency. There are three rules for the AM list, which differ at their bounds on
// purpose: records of the receiver are shown whatever their frequency, while typed ones have passed rangeFault.
#pragma once

#include <string_view>

namespace Bands {
inline constexpr std::u16string_view kLongWave = u"LW";
inline constexpr std::u16string_view kMediumWave = u"MW";
inline constexpr std::u16string_view kShortWave = u"SW";
inline constexpr std::u16string_view kVhf = u"VHF";  // every record of the FM list

// All frequencies are in kHz; an empty band stands for none.

// A record of the file: 1,710 is short wave, and so is every frequency above; none between 288 and 522.
std::u16string_view ofLoadedRecord(double frequency);
// A frequency typed over a cell: 1,710 is medium wave, 30,000 short wave.
std::u16string_view ofEditedCell(double frequency);
// A record of the Add List dialog: 1,710 is short wave, 30,000 has no band.
std::u16string_view ofNewRecord(double frequency);
}  // namespace Bands
