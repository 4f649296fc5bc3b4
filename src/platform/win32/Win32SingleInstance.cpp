#include "platform/win32/Win32SingleInstance.h"

#include <cstdint>

#include "platform/win32/Handle.h"
#include "platform/win32/WideText.h"

namespace {

// FNV-1a: the name of a mutex cannot contain a path, and a hash of it is short.
std::wstring hashOf(std::wstring_view text) {
    std::uint64_t hash = 0xCBF29CE484222325U;
    for (const wchar_t unit : text) {
        hash = (hash ^ unit) * 0x100000001B3U;
    }
    std::wstring digits;
    for (int shift = 60; shift >= 0; shift -= 4) {
        digits += L"0123456789abcdef"[(hash >> static_cast<unsigned>(shift)) & 0xFU];
    }
    return digits;
}

// A folder has many names: relative ones, short ones, with either separator. Unchanged if the folder does not exist.
std::wstring fullNameOf(const std::wstring& folder) {
    const Handle handle(CreateFileW(folder.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    if (!handle) {
        return folder;
    }
    std::wstring name(GetFinalPathNameByHandleW(handle.get(), nullptr, 0, 0), L'\0');
    const DWORD length = GetFinalPathNameByHandleW(handle.get(), name.data(), static_cast<DWORD>(name.size()), 0);
    if (length == 0 || length >= name.size()) {
        return folder;
    }
    name.resize(length);
    return name;
}

}  // namespace

Win32SingleInstance::Win32SingleInstance(std::u16string_view programFolder) {
    std::wstring folder = fullNameOf(toWide(programFolder));
    CharLowerBuffW(folder.data(), static_cast<DWORD>(folder.size()));
    name_ = L"Local\\Halcyon_K7-" + hashOf(folder);
}

Win32SingleInstance::~Win32SingleInstance() {
    if (mutex_ != nullptr) {
        CloseHandle(mutex_);
    }
}

bool Win32SingleInstance::previousInstance() {
    if (mutex_ != nullptr) {
        return false;  // this process has already claimed the folder
    }
    mutex_ = CreateMutexW(nullptr, FALSE, name_.c_str());
    if (mutex_ == nullptr) {
        return GetLastError() == ERROR_ACCESS_DENIED;  // held by a process with higher rights
    }
    if (GetLastError() == ERROR_ALREADY_EXISTS) {
        CloseHandle(mutex_);
        mutex_ = nullptr;
        return true;
    }
    return false;
}
