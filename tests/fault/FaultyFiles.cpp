#include "fault/FaultyFiles.h"

const char* nameOf(DiskFault fault) {
    switch (fault) {
        case DiskFault::NoSpace:
            return "no space";
        case DiskFault::InputOutput:
            return "input/output error";
        case DiskFault::ReadOnly:
            return "read-only";
        case DiskFault::NoDevice:
            return "no device";
        case DiskFault::ShortWrite:
            return "short write";
        case DiskFault::FailedFlush:
            return "failed flush";
        case DiskFault::FailedClose:
            return "failed close";
        case DiskFault::FailedRename:
            return "failed rename";
    }
    return "";
}

bool FaultyFiles::canHit(Kind kind) const {
    const bool writes = kind == Kind::Write || kind == Kind::UnflushedWrite;
    const bool renames = kind == Kind::Rename || kind == Kind::UnflushedRename;
    switch (plan_.fault) {
        case DiskFault::NoSpace:  // a new name may need another block
            return writes || renames || kind == Kind::CreateFolder;
        case DiskFault::InputOutput:
        case DiskFault::NoDevice:
            return true;
        case DiskFault::ReadOnly:
            return kind != Kind::Read;
        case DiskFault::ShortWrite:
        case DiskFault::FailedClose:
            return writes;
        case DiskFault::FailedFlush:
            return kind == Kind::Write || kind == Kind::Rename || kind == Kind::FlushFolder;
        case DiskFault::FailedRename:
            return renames;
    }
    return false;
}

bool FaultyFiles::fails(Kind kind) {
    if (plan_.first == 0 || !canHit(kind)) {
        return false;
    }
    ++count_;
    return count_ == plan_.first || (plan_.forGood && count_ > plan_.first) ||
           (plan_.second > 0 && count_ == plan_.first + plan_.second);
}

bool FaultyFiles::exists(std::u16string_view path) { return fails(Kind::Read) || ForwardingFiles::exists(path); }

std::optional<std::uint64_t> FaultyFiles::size(std::u16string_view path) {
    return fails(Kind::Read) ? std::nullopt : ForwardingFiles::size(path);
}

FileRead FaultyFiles::read(std::u16string_view path) { return cutShort(ForwardingFiles::read(path)); }

FileRead FaultyFiles::readStart(std::u16string_view path, std::size_t mostBytes) {
    return cutShort(ForwardingFiles::readStart(path, mostBytes));
}

FileRead FaultyFiles::readBack(std::u16string_view path) { return cutShort(ForwardingFiles::readBack(path)); }

// If the operation fails, half of the bytes are read before that, as from a disk with a bad block.
FileRead FaultyFiles::cutShort(const FileRead& whole) {
    if (!fails(Kind::Read)) {
        return whole;
    }
    const bool isHalf = plan_.fault == DiskFault::InputOutput && whole.bytes;
    return FileRead::failed(isHalf ? whole.bytes->substr(0, whole.bytes->size() / 2) : std::string());
}

std::string_view FaultyFiles::partOf(std::string_view bytes) const {
    switch (plan_.fault) {
        case DiskFault::ShortWrite:
            return bytes.substr(0, bytes.size() / 2);
        case DiskFault::FailedFlush:
        case DiskFault::FailedClose:
            return bytes;
        default:
            return {};
    }
}

bool FaultyFiles::write(std::u16string_view path, std::string_view bytes, Flush flush) {
    if (!fails(flush == Flush::Now ? Kind::Write : Kind::UnflushedWrite)) {
        return ForwardingFiles::write(path, bytes, flush);
    }
    if (const std::string_view part = partOf(bytes); !part.empty()) {
        ForwardingFiles::write(path, part, flush);
    }
    return false;
}

bool FaultyFiles::lacksRoomForName(std::u16string_view path) {
    return fails(Kind::CreateFolder) ? plan_.fault == DiskFault::NoSpace : ForwardingFiles::lacksRoomForName(path);
}

bool FaultyFiles::append(std::u16string_view path, std::string_view bytes) {
    if (!fails(Kind::Write)) {
        return ForwardingFiles::append(path, bytes);
    }
    if (const std::string_view part = partOf(bytes); !part.empty()) {
        ForwardingFiles::append(path, part);
    }
    return false;
}

bool FaultyFiles::rename(std::u16string_view from, std::u16string_view to, Flush flush) {
    if (!fails(flush == Flush::Now ? Kind::Rename : Kind::UnflushedRename)) {
        return ForwardingFiles::rename(from, to, flush);
    }
    if (plan_.fault == DiskFault::FailedFlush) {
        ForwardingFiles::rename(from, to, Flush::Later);
    }
    return false;
}

bool FaultyFiles::flushFolderOf(std::u16string_view path) {
    return !fails(Kind::FlushFolder) && ForwardingFiles::flushFolderOf(path);
}

bool FaultyFiles::remove(std::u16string_view path) { return !fails(Kind::Change) && ForwardingFiles::remove(path); }

bool FaultyFiles::clearAttributes(std::u16string_view path) {
    return !fails(Kind::Change) && ForwardingFiles::clearAttributes(path);
}

bool FaultyFiles::createFolder(std::u16string_view path) {
    return !fails(Kind::CreateFolder) && ForwardingFiles::createFolder(path);
}

bool FaultyFiles::removeFolder(std::u16string_view path) {
    return !fails(Kind::Change) && ForwardingFiles::removeFolder(path);
}

std::vector<std::u16string> FaultyFiles::list(std::u16string_view path) {
    return fails(Kind::Read) ? std::vector<std::u16string>() : ForwardingFiles::list(path);
}

std::optional<std::uint64_t> FaultyFiles::freeSpace(std::u16string_view folder) {
    return fails(Kind::Read) ? std::nullopt : ForwardingFiles::freeSpace(folder);
}

std::unique_ptr<Files> FaultyFiles::openFolder(std::u16string_view folder) {
    return fails(Kind::Read) ? nullptr : ForwardingFiles::openFolder(folder);
}
