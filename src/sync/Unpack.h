// Bodies that a server sent packed.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

// encoding: of a Content-Encoding header: gzip, x-gzip, deflate, identity or nothing, in any case. nullopt: another
// encoding, a body that is cut short, damaged or followed by anything else, or one that unpacks to more than mostBytes.
std::optional<std::string> unpacked(std::string body, std::string_view encoding, std::size_t mostBytes);
