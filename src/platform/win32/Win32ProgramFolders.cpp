#include "platform/win32/Win32ProgramFolders.h"

#include <windows.h>
#include <knownfolders.h>
#include <objbase.h>
#include <shlobj.h>

#include "platform/win32/Handle.h"
#include "platform/win32/WideText.h"

namespace {

// Empty if the system has no such folder. Loads the library of this function only when it is called, because the start
// of a portable program does not need it.
std::wstring knownFolder(REFKNOWNFOLDERID id, DWORD flags) {
    HMODULE shell = LoadLibraryExW(L"shell32.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    const auto find = shell != nullptr ? reinterpret_cast<decltype(&SHGetKnownFolderPath)>(
                                             reinterpret_cast<void*>(GetProcAddress(shell, "SHGetKnownFolderPath")))
                                       : nullptr;
    wchar_t* path = nullptr;
    std::wstring folder;
    if (find != nullptr && SUCCEEDED(find(id, flags, nullptr, &path))) {
        folder = std::wstring(path) + L'\\';
    }
    CoTaskMemFree(path);
    return folder;
}

// A folder for installed programs, which the system names in the environment of every program.
std::wstring programFiles(const wchar_t* variable, REFKNOWNFOLDERID id) {
    std::wstring path(MAX_PATH, L'\0');
    const DWORD length = GetEnvironmentVariableW(variable, path.data(), static_cast<DWORD>(path.size()));
    if (length == 0 || length >= path.size()) {
        return knownFolder(id, 0);
    }
    path.resize(length);
    return path + L'\\';
}

// Replaces short names in a path. Unchanged if the system does not know the long ones.
std::wstring withLongNames(const std::wstring& path) {
    if (path.find(L'~') == path.npos) {
        return path;  // no name is short; the call below would read every folder of the path
    }
    constexpr std::size_t kLongestPath = 32'767;
    std::wstring names(kLongestPath, L'\0');
    const DWORD length = GetLongPathNameW(path.c_str(), names.data(), static_cast<DWORD>(names.size()));
    if (length == 0 || length >= names.size()) {
        return path;
    }
    names.resize(length);
    return names;
}

bool isBelow(const std::wstring& path, const std::wstring& folder) {
    const auto length = static_cast<int>(folder.size());
    return length != 0 && path.size() >= folder.size() &&
           CompareStringOrdinal(path.c_str(), length, folder.c_str(), length, TRUE) == CSTR_EQUAL;
}

}  // namespace

std::u16string Win32ProgramFolders::ofExecutable() {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            break;
        }
        path.resize(path.size() * 2);
    }
    return fromWide(path.substr(0, path.find_last_of(L'\\') + 1));
}

bool Win32ProgramFolders::isForInstalledPrograms(std::u16string_view folder) {
    const std::wstring path = withLongNames(toWide(folder));
    return isBelow(path, programFiles(L"ProgramFiles", FOLDERID_ProgramFiles)) ||
           isBelow(path, programFiles(L"ProgramFiles(x86)", FOLDERID_ProgramFilesX86));
}

bool Win32ProgramFolders::canWrite(std::u16string_view folder) {
    const std::wstring probe = toWide(folder) + L"Halcyon_K7." + std::to_wstring(GetCurrentProcessId()) + L".tmp";
    const Handle file(CreateFileW(probe.c_str(), GENERIC_WRITE | DELETE, 0, nullptr, CREATE_NEW,
                                  FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE, nullptr));
    return static_cast<bool>(file);
}

std::u16string Win32ProgramFolders::ofUser(std::u16string_view name) {
    const std::wstring roaming = knownFolder(FOLDERID_RoamingAppData, KF_FLAG_DONT_VERIFY);
    return roaming.empty() ? std::u16string() : fromWide(roaming + toWide(name) + L'\\');
}

bool Win32ProgramFolders::create(std::u16string_view folderOfUser) {
    knownFolder(FOLDERID_RoamingAppData, KF_FLAG_CREATE);  // the system knows the rights of that folder
    return CreateDirectoryW(toWide(folderOfUser).c_str(), nullptr) != 0 || GetLastError() == ERROR_ALREADY_EXISTS;
}
