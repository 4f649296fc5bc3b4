// Five texts of the receiver that are saved as they were loaded; the program does not interpret them.
#pragma once

#include <string>

struct ReceiverSettings {
    std::u16string VersionMajor = u"1";
    std::u16string LastType = u"DRM";
    std::u16string LastStation = u"21000";
    std::u16string LastName = u"ZORPA TEST";
    std::u16string LastIndex = u"1";
};
