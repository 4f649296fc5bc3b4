// UTF-8 in both directions, the same on every system. Nothing fails: what cannot be converted is replaced; no mark
// is skipped or written; NULs pass.
#pragma once

#include <string>
#include <string_view>

// One U+FFFD for each maximal ill-formed part: a lead byte with the continuation bytes behind it, up to the
// first that rules the character out; or one byte.
std::u16string fromUtf8(std::string_view bytes);

// A lone surrogate becomes EF BF BD.
std::string toUtf8(std::u16string_view text);
