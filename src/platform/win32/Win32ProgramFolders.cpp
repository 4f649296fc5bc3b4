#include "platform/win32/Win32ProgramFolders.h"

#include <windows.h>
#include <knownfolders.h>
#include <objbase.h>
#include <shlobj.h>

#include "platform/win32/Handle.h"
#include "platform/win32/WideText.h"

namespace {

// Empty if the system has no such folder.
std::wstring knownFolder(REFKNOWNFOLDERID id, DWORD flags) {
    wchar_t* path = nullptr;
    std::wstring folder;
    if (SUCCEEDED(SHGetKnownFolderPath(id, flags, nullptr, &path))) {
        folder = std::wstring(path) + L'\\';
    }
    CoTaskMemFree(path);
    return folder;
}

// Replaces short names in a path. Unchanged if the system does not know the long ones.
std::wstring withLongNames(const std::wstring& path) {
    std::wstring names(GetLongPathNameW(path.c_str(), nullptr, 0), L'\0');
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
    return isBelow(path, knownFolder(FOLDERID_ProgramFiles, 0)) ||
           isBelow(path, knownFolder(FOLDERID_ProgramFilesX86, 0));
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
