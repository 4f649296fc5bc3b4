#include "fault/FaultyFiles.h"

const char* nameOf(Fault fault) {
    switch (fault) {
        case Fault::NoSpace:
            return "no space";
        case Fault::InputOutput:
            return "input/output error";
        case Fault::ReadOnly:
            return "read-only";
        case Fault::NoDevice:
            return "no device";
        case Fault::ShortWrite:
            return "short write";
        case Fault::FailedFlush:
            return "failed flush";
        case Fault::FailedClose:
            return "failed close";
        case Fault::FailedRename:
            return "failed rename";
    }
    return "";
}

bool FaultyFiles::canHit(Kind kind) const {
    const bool writes = kind == Kind::Write || kind == Kind::UnflushedWrite;
    const bool renames = kind == Kind::Rename || kind == Kind::UnflushedRename;
    switch (plan_.fault) {
        case Fault::NoSpace:  // a new name may need a block of its own
            return writes || renames || kind == Kind::CreateFolder;
        case Fault::InputOutput:
        case Fault::NoDevice:
            return true;
        case Fault::ReadOnly:
            return kind != Kind::Read;
        case Fault::ShortWrite:
        case Fault::FailedClose:
            return writes;
        case Fault::FailedFlush:
            return kind == Kind::Write || kind == Kind::Rename || kind == Kind::FlushFolder;
        case Fault::FailedRename:
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

// A missing device is one without files; with any other fault it cannot be told.
bool FaultyFiles::exists(std::u16string_view path) {
    return fails(Kind::Read) ? plan_.fault != Fault::NoDevice : files_.exists(path);
}

std::optional<std::uint64_t> FaultyFiles::size(std::u16string_view path) {
    return fails(Kind::Read) ? std::nullopt : files_.size(path);
}

std::optional<std::string> FaultyFiles::read(std::u16string_view path) {
    return fails(Kind::Read) ? std::nullopt : files_.read(path);
}

std::optional<std::string> FaultyFiles::readBack(std::u16string_view path) {
    return fails(Kind::Read) ? std::nullopt : files_.readBack(path);
}

std::string_view FaultyFiles::partOf(std::string_view bytes) const {
    switch (plan_.fault) {
        case Fault::ShortWrite:
            return bytes.substr(0, bytes.size() / 2);
        case Fault::FailedFlush:
        case Fault::FailedClose:
            return bytes;
        default:
            return {};
    }
}

bool FaultyFiles::write(std::u16string_view path, std::string_view bytes) {
    if (!fails(Kind::Write)) {
        return files_.write(path, bytes);
    }
    if (const std::string_view part = partOf(bytes); !part.empty()) {
        files_.write(path, part);
    }
    return false;
}

bool FaultyFiles::writeUnflushed(std::u16string_view path, std::string_view bytes) {
    if (!fails(Kind::UnflushedWrite)) {
        return files_.writeUnflushed(path, bytes);
    }
    if (const std::string_view part = partOf(bytes); !part.empty()) {
        files_.writeUnflushed(path, part);
    }
    return false;
}

bool FaultyFiles::append(std::u16string_view path, std::string_view bytes) {
    if (!fails(Kind::Write)) {
        return files_.append(path, bytes);
    }
    if (const std::string_view part = partOf(bytes); !part.empty()) {
        files_.append(path, part);
    }
    return false;
}

bool FaultyFiles::rename(std::u16string_view from, std::u16string_view to) {
    if (!fails(Kind::Rename)) {
        return files_.rename(from, to);
    }
    if (plan_.fault == Fault::FailedFlush) {
        files_.renameUnflushed(from, to);
    }
    return false;
}

bool FaultyFiles::renameUnflushed(std::u16string_view from, std::u16string_view to) {
    return !fails(Kind::UnflushedRename) && files_.renameUnflushed(from, to);
}

void FaultyFiles::flushFolderOf(std::u16string_view path) {
    if (!fails(Kind::FlushFolder)) {
        files_.flushFolderOf(path);
    }
}

bool FaultyFiles::remove(std::u16string_view path) { return !fails(Kind::Change) && files_.remove(path); }

bool FaultyFiles::clearAttributes(std::u16string_view path) {
    return !fails(Kind::Change) && files_.clearAttributes(path);
}

bool FaultyFiles::createFolder(std::u16string_view path) {
    return !fails(Kind::CreateFolder) && files_.createFolder(path);
}

bool FaultyFiles::removeFolder(std::u16string_view path) { return !fails(Kind::Change) && files_.removeFolder(path); }

std::vector<std::u16string> FaultyFiles::list(std::u16string_view path) {
    return fails(Kind::Read) ? std::vector<std::u16string>() : files_.list(path);
}

std::optional<std::uint64_t> FaultyFiles::freeSpace(std::u16string_view folder) {
    return fails(Kind::Read) ? std::nullopt : files_.freeSpace(folder);
}
