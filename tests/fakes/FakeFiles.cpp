#include "fakes/FakeFiles.h"

#include <algorithm>
#include <utility>

#include "fakes/ForwardingFiles.h"
#include "fakes/Text.h"

bool FakeFiles::allowed(std::string_view operation, std::u16string_view path) {
    accesses.push_back(std::string(operation) + " " + narrow(path));
    return !failing.contains(std::u16string(path));
}

bool FakeFiles::writable(std::string_view operation, std::u16string_view path) {
    const std::u16string key(path);
    return allowed(operation, path) && !readOnly.contains(key) && !folders.contains(key);
}

bool FakeFiles::exists(std::u16string_view path) {
    const std::u16string key(path);
    return files.contains(key) || folders.contains(key) || sizes.contains(key);
}

std::optional<std::uint64_t> FakeFiles::size(std::u16string_view path) {
    const std::u16string key(path);
    if (const auto pretended = sizes.find(key); pretended != sizes.end()) {
        return pretended->second;
    }
    const auto found = files.find(key);
    return found == files.end() ? std::nullopt : std::optional<std::uint64_t>(found->second.size());
}

FileRead FakeFiles::read(std::u16string_view path) { return readStart(path, std::string::npos); }

FileRead FakeFiles::readStart(std::u16string_view path, std::size_t mostBytes) {
    if (!allowed("read", path)) {
        return FileRead::failed();
    }
    if (const auto found = files.find(std::u16string(path)); found != files.end()) {
        if (unreadable.contains(found->first)) {
            return FileRead::failed(found->second.substr(0, found->second.size() / 2));
        }
        std::string bytes = found->second.substr(0, mostBytes);
        bytesRead += bytes.size();
        return FileRead::whole(std::move(bytes));
    }
    return exists(path) ? FileRead::failed() : FileRead::missing();
}

FileRead FakeFiles::readBack(std::u16string_view path) { return read(path); }

bool FakeFiles::write(std::u16string_view path, std::string_view bytes, Flush flush) {
    if (!writable(flush == Flush::Now ? "write" : "writeUnflushed", path) || lacksRoomForName(path)) {
        return false;
    }
    if (vanishing.contains(std::u16string(path))) {
        return true;
    }
    put(path, bytes);
    if (flush == Flush::Later) {
        unflushed_.insert(std::u16string(path));
    }
    return true;
}

void FakeFiles::put(std::u16string_view path, std::string_view bytes) {
    const std::u16string key(path);
    if (!files.contains(key)) {
        keepOld(key);
    }
    files[key] = bytes;
    unflushed_.erase(key);
}

void FakeFiles::keepOld(const std::u16string& path) {
    const auto found = files.find(path);
    old_.emplace(path, found == files.end() ? std::nullopt : std::optional(found->second));
}

bool FakeFiles::lacksRoomForName(std::u16string_view path) {
    return !exists(path) && !failing.contains(std::u16string(path)) && files.size() + folders.size() >= most;
}

bool FakeFiles::append(std::u16string_view path, std::string_view bytes) {
    if (!writable("append", path)) {
        return false;
    }
    const std::u16string key(path);
    if (!files.contains(key)) {
        keepOld(key);
    }
    files[key] += bytes;
    return true;
}

bool FakeFiles::rename(std::u16string_view from, std::u16string_view to, Flush flush) {
    const std::u16string source(from);
    const std::u16string target(to);
    if (!allowed("rename", from) || !writable("onto", to) || !files.contains(source)) {
        return false;
    }
    keepOld(source);
    keepOld(target);
    files[target] = files[source];
    files.erase(source);
    unreadable.erase(target);
    if (unreadable.erase(source) > 0) {
        unreadable.insert(target);
    }
    unflushed_.erase(target);
    if (unflushed_.erase(source) > 0) {
        unflushed_.insert(target);
    }
    return flush == Flush::Later || flushFolderOf(to);
}

bool FakeFiles::flushFolderOf(std::u16string_view path) {
    const auto folderOf = [](std::u16string_view name) { return name.substr(0, name.rfind(u'/') + 1); };
    std::erase_if(old_, [&](const auto& name) { return folderOf(name.first) == folderOf(path); });
    return true;
}

bool FakeFiles::remove(std::u16string_view path) {
    if (!writable("remove", path) || files.erase(std::u16string(path)) == 0) {
        return false;
    }
    unflushed_.erase(std::u16string(path));
    return flushFolderOf(path);
}

void FakeFiles::cutPower(const std::function<Fate(std::u16string_view path)>& fateOf) {
    for (const std::u16string& path : unflushed_) {
        const Fate fate = fateOf(path);
        std::string& bytes = files[path];
        bytes.resize(fate == Fate::Empty ? 0 : bytes.size() / (fate == Fate::Torn ? 2 : 1));
    }
    for (auto& [path, bytes] : old_) {
        if (fateOf(path) != Fate::Old) {
            continue;
        }
        files.erase(path);
        if (bytes) {
            files[path] = std::move(*bytes);
        }
    }
    old_.clear();
    unflushed_.clear();
}

bool FakeFiles::clearAttributes(std::u16string_view path) {
    if (!allowed("clearAttributes", path) || !exists(path)) {
        return false;
    }
    readOnly.erase(std::u16string(path));
    return true;
}

bool FakeFiles::createFolder(std::u16string_view path) {
    const std::u16string key(path);
    if (!allowed("createFolder", path) || files.contains(key)) {
        return false;
    }
    folders.insert(key);
    return true;
}

bool FakeFiles::removeFolder(std::u16string_view path) {
    return allowed("removeFolder", path) && list(path).empty() && folders.erase(std::u16string(path)) > 0;
}

std::vector<std::u16string> FakeFiles::list(std::u16string_view path) {
    const std::u16string start = std::u16string(path) + u'/';
    std::vector<std::u16string> names;
    const auto take = [&](const std::u16string& entry) {
        if (entry.starts_with(start) && entry.find(u'/', start.size()) == entry.npos) {
            names.push_back(entry.substr(start.size()));
        }
    };
    for (const auto& [entry, content] : files) {
        take(entry);
    }
    std::for_each(folders.begin(), folders.end(), take);
    std::sort(names.begin(), names.end());
    return names;
}

std::optional<std::uint64_t> FakeFiles::freeSpace(std::u16string_view) { return free; }

std::unique_ptr<Files> FakeFiles::openFolder(std::u16string_view folder) {
    const std::u16string key(folder);
    const bool opens = !failing.contains(key) && !files.contains(key);
    return opens ? std::make_unique<ForwardingFiles>(static_cast<Files&>(*this)) : nullptr;
}
