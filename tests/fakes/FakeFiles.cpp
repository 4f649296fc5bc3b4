#include "fakes/FakeFiles.h"

#include <algorithm>

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

std::optional<std::string> FakeFiles::read(std::u16string_view path) {
    if (!allowed("read", path)) {
        return std::nullopt;
    }
    const auto found = files.find(std::u16string(path));
    return found == files.end() ? std::nullopt : std::optional<std::string>(found->second);
}

std::optional<std::string> FakeFiles::readBack(std::u16string_view path) { return read(path); }

bool FakeFiles::write(std::u16string_view path, std::string_view bytes) {
    if (!writable("write", path)) {
        return false;
    }
    files[std::u16string(path)] = bytes;
    return true;
}

bool FakeFiles::append(std::u16string_view path, std::string_view bytes) {
    if (!writable("append", path)) {
        return false;
    }
    files[std::u16string(path)] += bytes;
    return true;
}

bool FakeFiles::rename(std::u16string_view from, std::u16string_view to) {
    const std::u16string source(from);
    if (!allowed("rename", from) || !writable("onto", to) || !files.contains(source)) {
        return false;
    }
    files[std::u16string(to)] = files[source];
    files.erase(source);
    return true;
}

bool FakeFiles::remove(std::u16string_view path) {
    return writable("remove", path) && files.erase(std::u16string(path)) > 0;
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
