// Converts UTF-8, the same on every system. No conversion fails: what cannot be converted is replaced. Byte-order marks
// are neither skipped nor written; NULs are kept.
#pragma once

#include <string>
#include <string_view>

// U+FFFD replaces each maximal ill-formed part: one byte, or a lead byte with its continuation bytes up to the first
// that makes the character impossible.
std::u16string fromUtf8(std::string_view bytes);

// A lone surrogate becomes EF BF BD.
std::string toUtf8(std::u16string_view text);
void appendUtf8(std::string& bytes, std::u16string_view text);
