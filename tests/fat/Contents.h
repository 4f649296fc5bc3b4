// The bytes that the cases save, and the texts of their lists.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "fault/LongLists.h"

inline std::string ofSize(std::size_t size, char letter) {
    return std::string(size, letter) + "\r\n[kvt update end]\r\n";
}

inline constexpr std::size_t kKibibyte = 1024;
inline const std::string kOldList = ofSize(20 * kKibibyte, 'o');
inline const std::string kOldUser = ofSize(5 * kKibibyte, 'p');
inline const std::string kNewList = ofSize(24 * kKibibyte, 'n');
inline const std::string kNewUser = ofSize(6 * kKibibyte, 'm');

// Of the old list, before the sector that cannot be read: whole pages of the system.
inline constexpr std::size_t kReadablePart = 12 * kKibibyte;

// On the console, before each operation of the run that is killed.
inline constexpr char kOperationMark = '\1';

// A working copy with one DRM station of that name, so long that an edit appends its change to the snapshot.
inline std::string listOf(const std::string& programme) {
    std::string list =
        " \r\n[Total]\r\ndrmnumber=1\r\namnumber=0\r\nfmnumber=0\r\n[DRMSchedule0]\r\nFrequency=6095\r\nProgramme=" +
        programme + "\r\nStartStopTimeUTC=06:00-07:30\r\nTarget=Europe\r\nUserDef=0\r\n\r\n[kvt update end]\r\n";
    LongLists::addTo(list);
    return list;
}

// The programmes that the program's own folder shows before the first edit and after each.
inline constexpr std::array<std::u16string_view, 3> kProgrammes{u"Old", u"Edited", u"Edited again"};

// A working copy with one favourite.
inline std::string favourites() {
    return " \r\n[Version]\r\nmajor=1\r\n[LAST]\r\nTYPE=DRM\r\nStation=1\r\nname=x\r\nIndex=1\r\n[Total]\r\n"
           "favnumber=1\r\n[FAVSchedule0]\r\nProgramme=Favourite\r\nFrequency=198\r\nTYPE=AM\r\nUserDef=0\r\n"
           "\r\n[kvt update end]\r\n";
}
