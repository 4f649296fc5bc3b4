// The requests to a block device, in order, and the medium before the first.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

struct BlockEvent {
    enum class Kind : std::uint32_t { Write, Flush, Mark };  // Mark: the operation under test has returned
    Kind kind = Kind::Write;
    std::uint64_t offset = 0;
    std::string bytes;
};

struct BlockLog {
    std::string before;
    std::vector<BlockEvent> events;
};

// False if the file could not be written or read completely.
bool writeLog(const std::string& path, const BlockLog& log);
bool readLog(const std::string& path, BlockLog& log);
