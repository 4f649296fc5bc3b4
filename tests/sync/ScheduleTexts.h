// Schedules of nine-line records.
#pragma once

#include <string>

struct RecordTexts {
    std::u16string time = u"0600-0700";
    std::u16string frequency = u"5955";
    std::u16string target = u"Europe";
    std::u16string programme = u"Radio";
};

inline std::u16string recordLines(const RecordTexts& texts = {}, const std::u16string& lineEnd = u"\r\n") {
    std::u16string lines;
    for (const std::u16string& line :
         {u"StartStopTimeUTC=" + texts.time, std::u16string(u"Days=1234567"), u"Frequency=" + texts.frequency,
          u"Target=" + texts.target, std::u16string(u"Power=100"), u"Programme=" + texts.programme,
          std::u16string(u"Language=English"), std::u16string(u"Site=Somewhere"), std::u16string(u"Country=XX")}) {
        lines += line + lineEnd;
    }
    return lines;
}

// The header cannot be the first line of a record, so it breaks none.
inline std::u16string scheduleOf(const std::u16string& records) { return u"[DRMSchedule]\r\n" + records; }
