#include "storage/stations/Bands.h"

std::u16string_view Bands::ofLoadedRecord(double frequency) {
    if (frequency <= 288) {
        return kLongWave;
    }
    if (frequency >= 522 && frequency < 1710) {
        return kMediumWave;
    }
    return frequency >= 1710 ? kShortWave : u"";
}

std::u16string_view Bands::ofEditedCell(double frequency) {
    if (frequency <= 288) {
        return kLongWave;
    }
    return frequency <= 1710 ? kMediumWave : kShortWave;
}

std::u16string_view Bands::ofNewRecord(double frequency) {
    if (frequency >= 150 && frequency <= 288) {
        return kLongWave;
    }
    if (frequency >= 522 && frequency < 1710) {
        return kMediumWave;
    }
    return frequency >= 1710 && frequency < 30000 ? kShortWave : u"";
}
