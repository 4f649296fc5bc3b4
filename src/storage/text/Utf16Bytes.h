// UTF-16 in files: pairs of bytes in either order.
#pragma once

#include <string>
#include <string_view>

enum class ByteOrder { Little, Big };

// Writes bytes.size() / 2 units; ignores an odd last byte.
void unitsOf(std::string_view bytes, ByteOrder order, char16_t* units);
std::u16string unitsOf(std::string_view bytes, ByteOrder order);

void appendBytes(std::string& bytes, std::u16string_view text, ByteOrder order);
