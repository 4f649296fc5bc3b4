#include "fat/BlockLog.h"

#include <fstream>

namespace {

void put(std::ostream& file, std::uint64_t number) {
    file.write(reinterpret_cast<const char*>(&number), sizeof number);  // read on the same machine
}

void put(std::ostream& file, const std::string& bytes) {
    put(file, bytes.size());
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

std::uint64_t number(std::istream& file) {
    std::uint64_t value = 0;
    file.read(reinterpret_cast<char*>(&value), sizeof value);
    return file ? value : 0;
}

std::string bytes(std::istream& file) {
    std::string read(static_cast<std::size_t>(number(file)), '\0');
    file.read(read.data(), static_cast<std::streamsize>(read.size()));
    return read;
}

}  // namespace

bool writeLog(const std::string& path, const BlockLog& log) {
    std::ofstream file(path, std::ios::binary);
    put(file, log.before);
    put(file, log.events.size());
    for (const BlockEvent& event : log.events) {
        put(file, static_cast<std::uint64_t>(event.kind));
        put(file, event.offset);
        put(file, event.bytes);
    }
    return static_cast<bool>(file.flush());
}

bool readLog(const std::string& path, BlockLog& log) {
    std::ifstream file(path, std::ios::binary);
    log.before = bytes(file);
    log.events.clear();
    for (std::uint64_t left = number(file); left > 0 && file; --left) {
        BlockEvent event;
        event.kind = static_cast<BlockEvent::Kind>(number(file));
        event.offset = number(file);
        event.bytes = bytes(file);
        log.events.push_back(std::move(event));
    }
    return static_cast<bool>(file);
}
