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
    switch (plan_.fault) {
        case Fault::NoSpace:
            return kind == Kind::Write || kind == Kind::UnflushedWrite;
        case Fault::InputOutput:
        case Fault::NoDevice:
            return true;
        case Fault::ReadOnly:
            return kind != Kind::Read;
        case Fault::ShortWrite:
        case Fault::FailedClose:
            return kind == Kind::Write || kind == Kind::UnflushedWrite;
        case Fault::FailedFlush:
            return kind == Kind::Write;
        case Fault::FailedRename:
            return kind == Kind::Rename;
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

std::optional<std::uint64_t> FaultyFiles::size(std::u16string_view path) {
    return fails(Kind::Read) ? std::nullopt : files_.size(path);
}

std::optional<std::string> FaultyFiles::read(std::u16string_view path) {
    return fails(Kind::Read) ? std::nullopt : files_.read(path);
}

std::optional<std::string> FaultyFiles::readBack(std::u16string_view path) {
    return fails(Kind::Read) ? std::nullopt : files_.readBack(path);
}

bool FaultyFiles::write(std::u16string_view path, std::string_view bytes) {
    if (!fails(Kind::Write)) {
        return files_.write(path, bytes);
    }
    if (plan_.fault == Fault::ShortWrite) {
        files_.write(path, bytes.substr(0, bytes.size() / 2));
    } else if (plan_.fault == Fault::FailedFlush || plan_.fault == Fault::FailedClose) {
        files_.write(path, bytes);
    }
    return false;
}

bool FaultyFiles::writeUnflushed(std::u16string_view path, std::string_view bytes) {
    if (!fails(Kind::UnflushedWrite)) {
        return files_.writeUnflushed(path, bytes);
    }
    if (plan_.fault == Fault::ShortWrite) {
        files_.writeUnflushed(path, bytes.substr(0, bytes.size() / 2));
    } else if (plan_.fault == Fault::FailedClose) {
        files_.writeUnflushed(path, bytes);
    }
    return false;
}

bool FaultyFiles::append(std::u16string_view path, std::string_view bytes) {
    if (!fails(Kind::Write)) {
        return files_.append(path, bytes);
    }
    if (plan_.fault == Fault::ShortWrite) {
        files_.append(path, bytes.substr(0, bytes.size() / 2));
    }
    return false;
}

bool FaultyFiles::rename(std::u16string_view from, std::u16string_view to) {
    return !fails(Kind::Rename) && files_.rename(from, to);
}

bool FaultyFiles::renameUnflushed(std::u16string_view from, std::u16string_view to) {
    return !fails(Kind::Rename) && files_.renameUnflushed(from, to);
}

void FaultyFiles::flushFolderOf(std::u16string_view path) {
    if (!fails(Kind::Change)) {
        files_.flushFolderOf(path);
    }
}

bool FaultyFiles::remove(std::u16string_view path) { return !fails(Kind::Change) && files_.remove(path); }

bool FaultyFiles::clearAttributes(std::u16string_view path) {
    return !fails(Kind::Change) && files_.clearAttributes(path);
}

bool FaultyFiles::createFolder(std::u16string_view path) { return !fails(Kind::Change) && files_.createFolder(path); }

bool FaultyFiles::removeFolder(std::u16string_view path) { return !fails(Kind::Change) && files_.removeFolder(path); }

std::vector<std::u16string> FaultyFiles::list(std::u16string_view path) {
    return fails(Kind::Read) ? std::vector<std::u16string>() : files_.list(path);
}
