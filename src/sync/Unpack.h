// Decompresses bodies by their Content-Encoding.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

// encoding: the value of the header: gzip, x-gzip, deflate, identity or empty, in any case. nullopt for another
// encoding, for a body that is truncated, damaged or followed by other bytes, and for more than mostBytes when decoded.
std::optional<std::string> unpacked(std::string body, std::string_view encoding, std::size_t mostBytes);
