#include "platform/win32/Win32Files.h"

#include <windows.h>

#include <algorithm>

#include "platform/win32/Handle.h"
#include "platform/win32/WideText.h"

namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr DWORD kBlock = 64 * 1024;
constexpr DWORD kSmallBlock = 4096;
constexpr DWORD kLargePart = 1U << 20U;  // of a read or write

// Page-aligned memory, required for uncached reads.
class AlignedBlock {
public:
    AlignedBlock() : memory_(VirtualAlloc(nullptr, kBlock, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE)) {}
    ~AlignedBlock() {
        if (memory_ != nullptr) {
            VirtualFree(memory_, 0, MEM_RELEASE);
        }
    }
    AlignedBlock(const AlignedBlock&) = delete;
    AlignedBlock& operator=(const AlignedBlock&) = delete;
    char* get() const { return static_cast<char*>(memory_); }

private:
    void* memory_;
};

bool seek(HANDLE file, std::size_t offset) {
    LARGE_INTEGER place{};
    place.QuadPart = static_cast<LONGLONG>(offset);
    return SetFilePointerEx(file, place, nullptr, FILE_BEGIN) != 0;
}

HANDLE openForReading(std::u16string_view path, DWORD flags) {
    return CreateFileW(toWide(path).c_str(), GENERIC_READ, kShareAll, nullptr, OPEN_EXISTING, flags, nullptr);
}

FileRead contentOf(std::u16string_view path, DWORD flags, std::size_t mostBytes = std::string::npos) {
    const Handle file(openForReading(path, flags));
    if (!file) {
        const DWORD error = GetLastError();
        return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND ? FileRead::missing()
                                                                              : FileRead::failed();
    }
    const AlignedBlock block;
    if (block.get() == nullptr) {
        return FileRead::failed();
    }
    std::string bytes;
    DWORD most = kBlock;
    for (;;) {
        const auto wanted = static_cast<DWORD>(std::min<std::size_t>(most, mostBytes - bytes.size()));
        DWORD got = 0;
        const bool succeeded = ReadFile(file.get(), block.get(), wanted, &got, nullptr) != 0;
        // Some systems report the end of the file as an error on uncached reads.
        if (succeeded ? got == 0 : GetLastError() == ERROR_HANDLE_EOF) {
            return FileRead::whole(std::move(bytes));
        }
        if (!succeeded) {
            // One bad sector fails a whole block: smaller blocks give more of what lies before it.
            if (most == kSmallBlock || !seek(file.get(), bytes.size())) {
                return FileRead::failed(std::move(bytes));
            }
            most = kSmallBlock;
            continue;
        }
        bytes.append(block.get(), got);
    }
}

bool writeAll(HANDLE file, std::string_view bytes) {
    while (!bytes.empty()) {
        const auto part = static_cast<DWORD>(std::min<std::size_t>(bytes.size(), kLargePart));
        DWORD put = 0;
        if (WriteFile(file, bytes.data(), part, &put, nullptr) == 0 || put == 0) {
            return false;
        }
        bytes.remove_prefix(put);
    }
    return true;
}

bool flushFile(HANDLE file) { return FlushFileBuffers(file) != 0; }

// Opens a link itself, which is then refused. Opening with truncation would follow the link.
HANDLE openForWriting(std::u16string_view path, DWORD access) {
    HANDLE file = CreateFileW(toWide(path).c_str(), access | FILE_READ_ATTRIBUTES, FILE_SHARE_READ, nullptr,
                              OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL | FILE_FLAG_OPEN_REPARSE_POINT, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        return file;
    }
    FILE_BASIC_INFO information{};
    if (GetFileInformationByHandleEx(file, FileBasicInfo, &information, sizeof information) == 0 ||
        (information.FileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0) {
        CloseHandle(file);
        return INVALID_HANDLE_VALUE;
    }
    return file;
}

bool fill(HANDLE file, std::string_view bytes) { return SetEndOfFile(file) != 0 && writeAll(file, bytes); }

bool isLink(DWORD attributes) {
    return attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
}

}  // namespace

bool Win32Files::exists(std::u16string_view path) {
    if (GetFileAttributesW(toWide(path).c_str()) != INVALID_FILE_ATTRIBUTES) {
        return true;
    }
    switch (GetLastError()) {
        case ERROR_FILE_NOT_FOUND:
        case ERROR_PATH_NOT_FOUND:
        case ERROR_INVALID_NAME:
            return false;
        default:
            return true;
    }
}

std::optional<std::uint64_t> Win32Files::size(std::u16string_view path) {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (GetFileAttributesExW(toWide(path).c_str(), GetFileExInfoStandard, &data) == 0 ||
        (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        return std::nullopt;
    }
    return (static_cast<std::uint64_t>(data.nFileSizeHigh) << 32U) | data.nFileSizeLow;
}

FileRead Win32Files::read(std::u16string_view path) { return contentOf(path, FILE_FLAG_SEQUENTIAL_SCAN); }

FileRead Win32Files::readStart(std::u16string_view path, std::size_t mostBytes) {
    return contentOf(path, FILE_FLAG_SEQUENTIAL_SCAN, mostBytes);
}

std::optional<FileUnits> Win32Files::readUnits(std::u16string_view path, std::size_t mostBytes) {
    const Handle file(openForReading(path, FILE_FLAG_SEQUENTIAL_SCAN));
    LARGE_INTEGER size{};
    if (!file || GetFileSizeEx(file.get(), &size) == 0 || static_cast<std::uint64_t>(size.QuadPart) > mostBytes) {
        return std::nullopt;
    }
    FileUnits content(static_cast<std::size_t>(size.QuadPart));
    const std::size_t room = content.byteCount + 1;
    content.byteCount = 0;
    DWORD got = 1;
    while (got > 0 && content.byteCount < room) {
        const auto wanted = static_cast<DWORD>(std::min<std::size_t>(room - content.byteCount, kLargePart));
        if (ReadFile(file.get(), content.data() + content.byteCount, wanted, &got, nullptr) == 0) {
            return std::nullopt;
        }
        content.byteCount += got;
    }
    // More bytes than its size: the file is growing.
    return content.byteCount == room ? Files::readUnits(path, mostBytes) : content;
}

FileRead Win32Files::readBack(std::u16string_view path) {
    FileRead uncached = contentOf(path, FILE_FLAG_NO_BUFFERING);
    return uncached.bytes ? uncached : read(path);
}

bool Win32Files::write(std::u16string_view path, std::string_view bytes, Flush flush) {
    const Handle file(openForWriting(path, GENERIC_WRITE));
    return file && fill(file.get(), bytes) && (flush == Flush::Later || flushFile(file.get()));
}

bool Win32Files::lacksRoomForName(std::u16string_view path) {
    const Handle file(CreateFileW(toWide(path).c_str(), GENERIC_WRITE | DELETE, 0, nullptr, CREATE_NEW,
                                  FILE_ATTRIBUTE_NORMAL | FILE_FLAG_DELETE_ON_CLOSE, nullptr));
    // ERROR_CANNOT_MAKE: the root folder of a FAT volume is full.
    const DWORD error = file ? ERROR_SUCCESS : GetLastError();
    return error == ERROR_CANNOT_MAKE || error == ERROR_DISK_FULL;
}

bool Win32Files::append(std::u16string_view path, std::string_view bytes) {
    const Handle file(openForWriting(path, FILE_APPEND_DATA | SYNCHRONIZE));
    return file && writeAll(file.get(), bytes) && flushFile(file.get());
}

bool Win32Files::rename(std::u16string_view from, std::u16string_view to, Flush flush) {
    const DWORD writeThrough = flush == Flush::Now ? MOVEFILE_WRITE_THROUGH : 0;
    if (MoveFileExW(toWide(from).c_str(), toWide(to).c_str(), MOVEFILE_REPLACE_EXISTING | writeThrough) == 0) {
        return false;
    }
    moved_.emplace_back(to);
    return flush == Flush::Later || flushFolderOf(to);
}

// Folders cannot be flushed. Flushing a file writes its folder entry, in which FAT stores the location of the file, and
// on NTFS the journal, which contains all names.
bool Win32Files::flushFolderOf(std::u16string_view path) {
    moved_.emplace_back(path);
    const auto refused = std::count_if(moved_.begin(), moved_.end(), [](const std::u16string& name) {
        const Handle file(CreateFileW(toWide(name).c_str(), GENERIC_WRITE, kShareAll, nullptr, OPEN_EXISTING,
                                      FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
        return file && !flushFile(file.get());
    });
    moved_.clear();
    return refused == 0;
}

bool Win32Files::remove(std::u16string_view path) { return DeleteFileW(toWide(path).c_str()) != 0; }

bool Win32Files::clearAttributes(std::u16string_view path) {
    const std::wstring name = toWide(path);
    return !isLink(GetFileAttributesW(name.c_str())) && SetFileAttributesW(name.c_str(), FILE_ATTRIBUTE_NORMAL) != 0;
}

bool Win32Files::createFolder(std::u16string_view path) {
    const std::wstring name = toWide(path);
    if (CreateDirectoryW(name.c_str(), nullptr) != 0) {
        return true;
    }
    const DWORD attributes = GetFileAttributesW(name.c_str());
    return !isLink(attributes) && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

bool Win32Files::removeFolder(std::u16string_view path) { return RemoveDirectoryW(toWide(path).c_str()) != 0; }

std::vector<std::u16string> Win32Files::list(std::u16string_view path) {
    std::vector<std::u16string> names;
    WIN32_FIND_DATAW found{};
    HANDLE search = FindFirstFileW((toWide(path) + L"\\*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) {
        return names;
    }
    do {
        const std::wstring_view name = static_cast<const wchar_t*>(found.cFileName);
        if (name != L"." && name != L"..") {
            names.push_back(fromWide(name));
        }
    } while (FindNextFileW(search, &found) != 0);
    FindClose(search);
    std::sort(names.begin(), names.end());
    return names;
}

std::optional<std::uint64_t> Win32Files::freeSpace(std::u16string_view folder) {
    ULARGE_INTEGER available{};
    if (GetDiskFreeSpaceExW(toWide(folder).c_str(), &available, nullptr, nullptr) == 0) {
        return std::nullopt;
    }
    return available.QuadPart;
}

// A drive letter hides no folder: once the volume is removed, every path on it fails.
std::unique_ptr<Files> Win32Files::openFolder(std::u16string_view folder) {
    const DWORD attributes = GetFileAttributesW((toWide(folder) + L"\\").c_str());
    const bool isFolder = attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    return isFolder ? std::make_unique<Win32Files>() : nullptr;
}
