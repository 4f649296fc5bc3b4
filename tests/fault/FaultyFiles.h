// Files whose n-th operation fails in the ways of real systems.
#pragma once

#include <string_view>

#include "fakes/ForwardingFiles.h"

enum class DiskFault { NoSpace, InputOutput, ReadOnly, NoDevice, ShortWrite, FailedFlush, FailedClose, FailedRename };
inline constexpr DiskFault kFaults[] = {DiskFault::NoSpace,     DiskFault::InputOutput, DiskFault::ReadOnly,
                                        DiskFault::NoDevice,    DiskFault::ShortWrite,  DiskFault::FailedFlush,
                                        DiskFault::FailedClose, DiskFault::FailedRename};
const char* nameOf(DiskFault fault);

struct FaultPlan {
    DiskFault fault = DiskFault::NoSpace;
    int first = 0;         // 1-based number of the operation that fails; 0: none
    int second = 0;        // a second one, counted from the operation after the first; 0: none
    bool forGood = false;  // all operations from the first on fail
};

// Counts only operations that this kind of fault can affect.
class FaultyFiles : public ForwardingFiles {
public:
    using ForwardingFiles::ForwardingFiles;

    void plan(const FaultPlan& faults) {
        plan_ = faults;
        count_ = 0;
    }
    bool firstFailed() const { return plan_.first > 0 && count_ >= plan_.first; }
    bool secondFailed() const { return plan_.second > 0 && count_ >= plan_.first + plan_.second; }

    bool exists(std::u16string_view path) override;
    std::optional<std::uint64_t> size(std::u16string_view path) override;
    FileRead read(std::u16string_view path) override;
    FileRead readStart(std::u16string_view path, std::size_t mostBytes) override;
    FileRead readBack(std::u16string_view path) override;
    bool write(std::u16string_view path, std::string_view bytes, Flush flush) override;
    bool lacksRoomForName(std::u16string_view path) override;
    bool append(std::u16string_view path, std::string_view bytes) override;
    bool rename(std::u16string_view from, std::u16string_view to, Flush flush) override;
    bool flushFolderOf(std::u16string_view path) override;
    bool remove(std::u16string_view path) override;
    bool clearAttributes(std::u16string_view path) override;
    bool createFolder(std::u16string_view path) override;
    bool removeFolder(std::u16string_view path) override;
    std::vector<std::u16string> list(std::u16string_view path) override;
    std::optional<std::uint64_t> freeSpace(std::u16string_view folder) override;
    std::unique_ptr<Files> openFolder(std::u16string_view folder) override;

private:
    enum class Kind { Read, Write, UnflushedWrite, Rename, UnflushedRename, CreateFolder, FlushFolder, Change };
    bool canHit(Kind kind) const;
    bool fails(Kind kind);
    FileRead cutShort(const FileRead& whole);
    // The bytes that a failed write leaves in the file.
    std::string_view partOf(std::string_view bytes) const;

    FaultPlan plan_;
    int count_ = 0;
};
