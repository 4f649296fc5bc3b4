// Measures texts in columns of a terminal.
#pragma once

#include <cstddef>
#include <string_view>

// East Asian wide and full-width characters take two columns, combining marks none, others one.
std::size_t displayWidth(std::u16string_view text);
