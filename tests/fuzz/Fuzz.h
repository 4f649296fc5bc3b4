// Shared by the fuzz targets. A broken promise ends the process, and the fuzzer reports its input.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

inline void promise(bool kept, const char* what) {
    if (!kept) {
        std::fprintf(stderr, "broken promise: %s\n", what);
        std::abort();
    }
}

inline std::string bytesOf(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}
