#include "platform/win32/Win32ProgramFolders.h"

#include <windows.h>
#include <knownfolders.h>
#include <objbase.h>
#include <shlobj.h>

#include "platform/win32/Handle.h"
#include "platform/win32/WideText.h"

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

bool Win32ProgramFolders::canWrite(std::u16string_view folder) {
    const std::wstring probe = toWide(folder) + L"Halcyon_K7." + std::to_wstring(GetCurrentProcessId()) + L".tmp";
    const Handle file(CreateFileW(probe.c_str(), GENERIC_WRITE | DELETE, 0, nullptr, CREATE_NEW,
                                  FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE, nullptr));
    return static_cast<bool>(file);
}

std::u16string Win32ProgramFolders::ofUser(std::u16string_view name) {
    wchar_t* roaming = nullptr;
    std::wstring folder;
    if (SUCCEEDED(SHGetKnownFolderPath(FOLDERID_RoamingAppData, KF_FLAG_CREATE, nullptr, &roaming))) {
        folder = std::wstring(roaming) + L'\\' + toWide(name) + L'\\';
        if (CreateDirectoryW(folder.c_str(), nullptr) == 0 && GetLastError() != ERROR_ALREADY_EXISTS) {
            folder.clear();
        }
    }
    CoTaskMemFree(roaming);
    return fromWide(folder);
}
