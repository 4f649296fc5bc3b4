#include "platform/posix/NativePath.h"

#include <filesystem>
#include <system_error>

std::string nativePath(std::u16string_view path) {
    try {
        return std::filesystem::path(path).native();
    } catch (const std::system_error&) {
        return {};
    }
}

std::u16string portablePath(std::string_view path) {
    try {
        return std::filesystem::path(path).u16string();
    } catch (const std::system_error&) {
        return {};
    }
}
