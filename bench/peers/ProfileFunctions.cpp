// Writes and reads the four lists with the system's profile functions, one call per key, as a simple program would.
// Argument: a folder, which gets "List.ini" and "User.ini". Prints: milliseconds to write, to read.
#include <windows.h>

#include <chrono>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

namespace {

constexpr int kRecords = 256;

struct List {
    std::wstring file;
    std::wstring countKey;
    std::wstring prefix;
    std::vector<std::wstring> keys;
};

double millisecondsOf(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

// The byte-order mark and a blank: with them the profile functions keep every script.
void seed(const std::wstring& path) {
    if (std::FILE* file = ::_wfopen(path.c_str(), L"wb"); file != nullptr) {
        std::fwrite("\xFF\xFE \0", 1, 4, file);
        std::fclose(file);
    }
}

void write(const List& list) {
    ::WritePrivateProfileStringW(L"Total", list.countKey.c_str(), std::to_wstring(kRecords).c_str(), list.file.c_str());
    for (int record = 0; record < kRecords; ++record) {
        const std::wstring section = list.prefix + std::to_wstring(record);
        for (const std::wstring& key : list.keys) {
            ::WritePrivateProfileStringW(section.c_str(), key.c_str(), (L"中国之声 " + section).c_str(),
                                         list.file.c_str());
        }
    }
}

std::size_t read(const List& list) {
    wchar_t value[255];
    std::size_t units = 0;
    for (int record = 0; record < kRecords; ++record) {
        const std::wstring section = list.prefix + std::to_wstring(record);
        for (const std::wstring& key : list.keys) {
            units += ::GetPrivateProfileStringW(section.c_str(), key.c_str(), L"", value, 255, list.file.c_str());
        }
    }
    return units;
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    if (argc != 2) {
        return 2;
    }
    const std::wstring listFile = std::wstring(argv[1]) + L"\\List.ini";
    const std::wstring userFile = std::wstring(argv[1]) + L"\\User.ini";
    const std::vector<List> lists = {
        {listFile,
         L"drmnumber",
         L"DRMSchedule",
         {L"Frequency", L"Programme", L"StartStopTimeUTC", L"Target", L"UserDef"}},
        {listFile, L"amnumber", L"AMSchedule", {L"Frequency", L"Programme", L"UserDef"}},
        {listFile, L"fmnumber", L"FMSchedule", {L"Frequency", L"Programme", L"UserDef"}},
        {userFile, L"favnumber", L"FAVSchedule", {L"Programme", L"Frequency", L"TYPE", L"UserDef"}}};
    seed(listFile);
    seed(userFile);
    const double written = millisecondsOf([&] {
        for (const List& list : lists) {
            write(list);
        }
    });
    std::size_t units = 0;
    const double readTime = millisecondsOf([&] {
        for (const List& list : lists) {
            units += read(list);
        }
    });
    std::printf("%.1f\t%.1f\n", written, readTime);
    return units > 0 ? 0 : 1;
}
