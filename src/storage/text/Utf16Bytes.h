// UTF-16 as it stands in files: pairs of bytes, either one first.
#pragma once

#include <string>
#include <string_view>

enum class ByteOrder { Little, Big };

// Writes bytes.size() / 2 units to `units`; an odd last byte is ignored.
void unitsOf(std::string_view bytes, ByteOrder order, char16_t* units);
std::u16string unitsOf(std::string_view bytes, ByteOrder order);

void appendBytes(std::string& bytes, std::u16string_view text, ByteOrder order);
